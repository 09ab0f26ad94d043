#include "dialogs/frm_sele_flit.h"

#include "paint/colour.h"
#include "ui_frm_sele_flit.h"

namespace zerbal::dialogs {

frmSeleFlit::frmSeleFlit(const Placement& placement, const FinderContext& context)
    : FinderDialog(placement, settings::kSelectFlightsPosition, context),
      ui_(std::make_unique<Ui::frmSeleFlit>()) {
  ui_->setupUi(this);
  ui_->shpFSrv->SetColour(Qt::white);
  UseFlightList(*ui_);
  ui_->cboFSrv->addItem("< All Flightservices >");
  for (const data::FlightService& service : Context().services)
    ui_->cboFSrv->addItem(QString::fromStdString(service.displayText));
  ui_->cboFSrv->setCurrentIndex(Context().state.chosenService);
  ListFlights();

  ConnectGuarded(ui_->cboFSrv, &QComboBox::activated, this, &frmSeleFlit::ListFlights);
  ConnectGuarded(ui_->chkCity4Stop, &QCheckBox::toggled, this, &frmSeleFlit::ListFlights);
}

frmSeleFlit::~frmSeleFlit() = default;

void frmSeleFlit::ListFlights() {
  const int position = ui_->cboFSrv->currentIndex();
  // When all services are listed, the colour of the last chosen service remains.
  if (position > 0)
    ui_->shpFSrv->SetColour(
        paint::ToQColor(Context().services.at(static_cast<std::size_t>(position - 1)).rgb));
  Context().state.chosenService = position;
  const data::FlightList list =
      data::FlightsOfService(Context().Source(), position, ui_->chkCity4Stop->isChecked());
  Flights().SetFlights(list.lines, list.keys);
}

}  // namespace zerbal::dialogs
