#include "dialogs/frm_rand_flit.h"

#include "data/random_flights.h"
#include "ui_frm_rand_flit.h"

namespace zerbal::dialogs {

frmRandFlit::frmRandFlit(const Placement& placement, const FinderContext& context, data::RandomSource& random)
    : PlacedDialog(placement, "RandomFlight"),
      context_(context),
      random_(random),
      ui_(std::make_unique<Ui::frmRandFlit>()) {
  ui_->setupUi(this);
  services_ = std::make_unique<ListLines>(*ui_->lstFSrv);
  flights_ = std::make_unique<FlightListView>(*ui_->lstFlit, *ui_->lstFUni);
  ListServices();
  const bool one = context_.state.howMany == data::HowMany::kOneFlight;
  (one ? ui_->optAnzFlitOne : ui_->optAnzFlitMore)->setChecked(true);
  if (context_.state.drawnFlights.empty()) {
    ui_->lblFlitFSrv->clear();
    EnableResult(false);
  } else {
    ui_->lblFlitFSrv->setText(QString::fromStdString(DrawnServiceText()));
    ShowDrawnFlights();
  }

  connect(ui_->cmdFSrvSelAll, &QPushButton::clicked, this, [this] { services_->SelectAll(true); });
  connect(ui_->cmdFSrvSelNone, &QPushButton::clicked, this, [this] { services_->SelectAll(false); });
  connect(ui_->cmdRndFlit, &QPushButton::clicked, this, &frmRandFlit::Draw);
  connect(ui_->chkCity4Stop, &QCheckBox::toggled, this, [this] { flights_->SetLines(DrawnLines()); });
  connect(ui_->cmdSelAll, &QPushButton::clicked, this, [this] { flights_->SelectAll(true); });
  connect(ui_->cmdSelNone, &QPushButton::clicked, this, [this] { flights_->SelectAll(false); });
  connect(ui_->cmdDisp, &QPushButton::clicked, this, &frmRandFlit::Display);
  connect(ui_->cmdESC, &QPushButton::clicked, this, &QDialog::reject);
}

frmRandFlit::~frmRandFlit() = default;

void frmRandFlit::ListServices() {
  std::vector<std::string> texts;
  for (const data::FlightService& service : context_.services)
    texts.push_back(service.displayText);
  services_->SetLines(texts);
  for (int row = services_->Count() - 1; row >= 0; --row) {
    if (context_.services[static_cast<std::size_t>(row)].randomPick)
      services_->SelectRow(row);
  }
}

std::vector<std::string> frmRandFlit::DrawnLines() const {
  std::vector<std::string> lines;
  for (const data::DrawnFlight& flight : context_.state.drawnFlights)
    lines.push_back(ui_->chkCity4Stop->isChecked() ? flight.lineWithCities : flight.line);
  return lines;
}

const std::string& frmRandFlit::DrawnServiceText() const {
  return context_.services.at(static_cast<std::size_t>(context_.state.drawnService - 1)).displayText;
}

void frmRandFlit::ShowDrawnFlights() {
  std::vector<std::string> keys;
  for (const data::DrawnFlight& flight : context_.state.drawnFlights)
    keys.push_back(flight.key);
  flights_->SetFlights(DrawnLines(), keys);
}

void frmRandFlit::EnableResult(bool enabled) {
  for (QWidget* control : {static_cast<QWidget*>(ui_->lstFlit), static_cast<QWidget*>(ui_->chkCity4Stop),
                           static_cast<QWidget*>(ui_->cmdSelAll), static_cast<QWidget*>(ui_->cmdSelNone),
                           static_cast<QWidget*>(ui_->cmdDisp)})
    control->setEnabled(enabled);
}

void frmRandFlit::Draw() {
  const std::vector<int> selected = services_->SelectedRows();
  if (selected.empty()) {
    context_.boxes.Show(settings::BoxIcon::kExclamation, "Select at least one flightservice");
    return;
  }
  EnableResult(true);
  flights_->Clear();
  for (data::FlightService& service : context_.services)
    service.randomPick = false;
  for (const int row : selected)
    context_.services[static_cast<std::size_t>(row)].randomPick = true;
  data::FlightFinderState& state = context_.state;
  state.howMany = ui_->optAnzFlitOne->isChecked() ? data::HowMany::kOneFlight : data::HowMany::kRoundTrip;
  data::DrawRandomFlights(context_.Source(), random_, state);
  ui_->lblFlitFSrv->setText(QString::fromStdString(DrawnServiceText()));
  if (state.drawnFlights.empty())
    ShowNothingFound();
  else
    ShowDrawnFlights();
}

void frmRandFlit::ShowNothingFound() {
  const char* heading = context_.state.howMany == data::HowMany::kOneFlight
                            ? "No flights found for flightservice "
                            : "No round trips found for flightservice ";
  const std::string message = heading + DrawnServiceText();
  EnableResult(false);
  flights_->SetLines({message});
  context_.boxes.Show(settings::BoxIcon::kExclamation, message);
}

void frmRandFlit::Display() {
  if (flights_->HandOver(context_.selectedFlights, context_.boxes))
    accept();
}

}  // namespace zerbal::dialogs
