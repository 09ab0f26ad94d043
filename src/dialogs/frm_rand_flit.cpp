#include "dialogs/frm_rand_flit.h"

#include "data/random_flights.h"
#include "ui_frm_rand_flit.h"

namespace zerbal::dialogs {

frmRandFlit::frmRandFlit(const Placement& placement, const FinderContext& context, data::RandomSource& random)
    : FinderDialog(placement, settings::kRandomFlightsPosition, context),
      random_(random),
      ui_(std::make_unique<Ui::frmRandFlit>()) {
  ui_->setupUi(this);
  services_ = std::make_unique<ListLines>(*ui_->lstFSrv);
  UseFlightList(*ui_);
  ListServices();
  const bool one = Context().state.howMany == data::HowMany::kOneFlight;
  (one ? ui_->optAnzFlitOne : ui_->optAnzFlitMore)->setChecked(true);
  if (Context().state.drawnFlights.empty()) {
    ui_->lblFlitFSrv->clear();
    EnableResult(false);
  } else {
    ui_->lblFlitFSrv->setText(QString::fromStdString(DrawnServiceText()));
    ShowDrawnFlights();
  }

  ConnectGuarded(ui_->cmdFSrvSelAll, &QPushButton::clicked, this, [this] { services_->SelectAll(true); });
  ConnectGuarded(ui_->cmdFSrvSelNone, &QPushButton::clicked, this, [this] { services_->SelectAll(false); });
  ConnectGuarded(ui_->cmdRndFlit, &QPushButton::clicked, this, &frmRandFlit::Draw);
  ConnectGuarded(ui_->chkCity4Stop, &QCheckBox::toggled, this, [this] { Flights().SetLines(DrawnLines()); });
}

frmRandFlit::~frmRandFlit() = default;

void frmRandFlit::ListServices() {
  std::vector<std::string> texts;
  for (const data::FlightService& service : Context().services)
    texts.push_back(service.displayText);
  services_->SetLines(texts);
  for (int row = services_->Count() - 1; row >= 0; --row) {
    if (Context().services[static_cast<std::size_t>(row)].randomPick)
      services_->SelectRow(row);
  }
}

std::vector<std::string> frmRandFlit::DrawnLines() const {
  std::vector<std::string> lines;
  for (const data::DrawnFlight& flight : Context().state.drawnFlights)
    lines.push_back(ui_->chkCity4Stop->isChecked() ? flight.lineWithCities : flight.line);
  return lines;
}

const std::string& frmRandFlit::DrawnServiceText() const {
  return Context().services.at(static_cast<std::size_t>(Context().state.drawnService - 1)).displayText;
}

void frmRandFlit::ShowDrawnFlights() {
  std::vector<std::string> keys;
  for (const data::DrawnFlight& flight : Context().state.drawnFlights)
    keys.push_back(flight.key);
  Flights().SetFlights(DrawnLines(), keys);
}

void frmRandFlit::EnableResult(bool enabled) {
  for (QWidget* control : std::initializer_list<QWidget*>{ui_->lstFlit, ui_->chkCity4Stop, ui_->cmdSelAll,
                                                          ui_->cmdSelNone, ui_->cmdDisp})
    control->setEnabled(enabled);
}

void frmRandFlit::Draw() {
  const std::vector<int> selected = services_->SelectedRows();
  if (selected.empty()) {
    Context().boxes.Show(settings::BoxIcon::kExclamation, "Select at least one flightservice");
    return;
  }
  EnableResult(true);
  Flights().Clear();
  for (data::FlightService& service : Context().services)
    service.randomPick = false;
  for (const int row : selected)
    Context().services[static_cast<std::size_t>(row)].randomPick = true;
  data::FlightFinderState& state = Context().state;
  state.howMany = ui_->optAnzFlitOne->isChecked() ? data::HowMany::kOneFlight : data::HowMany::kRoundTrip;
  data::DrawRandomFlights(Context().Source(), random_, state);
  ui_->lblFlitFSrv->setText(QString::fromStdString(DrawnServiceText()));
  if (state.drawnFlights.empty())
    ShowNothingFound();
  else
    ShowDrawnFlights();
}

void frmRandFlit::ShowNothingFound() {
  const char* heading = Context().state.howMany == data::HowMany::kOneFlight
                            ? "No flights found for flightservice "
                            : "No round trips found for flightservice ";
  const std::string message = heading + DrawnServiceText();
  EnableResult(false);
  Flights().SetLines({message});
  Context().boxes.Show(settings::BoxIcon::kExclamation, message);
}

}  // namespace zerbal::dialogs
