#include "dialogs/frm_sele_flit.h"

#include "ui_frm_sele_flit.h"

namespace zerbal::dialogs {

frmSeleFlit::frmSeleFlit(const Placement& placement, const FinderContext& context)
    : PlacedDialog(placement, "SelectFlight"), context_(context), ui_(std::make_unique<Ui::frmSeleFlit>()) {
  ui_->setupUi(this);
  ui_->shpFSrv->SetColour(Qt::white);
  flights_ = std::make_unique<FlightListView>(*ui_->lstFlit, *ui_->lstFUni);
  ui_->cboFSrv->addItem("< All Flightservices >");
  for (const data::FlightService& service : context_.services)
    ui_->cboFSrv->addItem(QString::fromStdString(service.displayText));
  ui_->cboFSrv->setCurrentIndex(context_.state.chosenService);
  ListFlights();

  connect(ui_->cboFSrv, &QComboBox::activated, this, &frmSeleFlit::ListFlights);
  connect(ui_->chkCity4Stop, &QCheckBox::toggled, this, &frmSeleFlit::ListFlights);
  connect(ui_->cmdSelAll, &QPushButton::clicked, this, [this] { flights_->SelectAll(true); });
  connect(ui_->cmdSelNone, &QPushButton::clicked, this, [this] { flights_->SelectAll(false); });
  connect(ui_->cmdDisp, &QPushButton::clicked, this, &frmSeleFlit::Display);
  connect(ui_->cmdESC, &QPushButton::clicked, this, &QDialog::reject);
}

frmSeleFlit::~frmSeleFlit() = default;

void frmSeleFlit::ListFlights() {
  const auto position = static_cast<std::int16_t>(ui_->cboFSrv->currentIndex());
  // With all services listed the colour of the one chosen last stays.
  if (position > 0) {
    const data::Rgb rgb = context_.services.at(static_cast<std::size_t>(position - 1)).rgb;
    ui_->shpFSrv->SetColour(QColor(rgb.red, rgb.green, rgb.blue));
  }
  context_.state.chosenService = position;
  const data::FlightList list =
      data::FlightsOfService(context_.Source(), position, ui_->chkCity4Stop->isChecked());
  flights_->SetFlights(list.lines, list.keys);
}

void frmSeleFlit::Display() {
  if (flights_->HandOver(context_.selectedFlights, context_.boxes))
    accept();
}

}  // namespace zerbal::dialogs
