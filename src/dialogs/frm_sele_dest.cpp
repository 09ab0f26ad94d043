#include "dialogs/frm_sele_dest.h"

#include "ui_frm_sele_dest.h"

namespace zerbal::dialogs {

frmSeleDest::frmSeleDest(const Placement& placement, const FinderContext& context)
    : FinderDialog(placement, settings::kSelectDestinationPosition, context),
      ui_(std::make_unique<Ui::frmSeleDest>()) {
  ui_->setupUi(this);
  UseFlightList(*ui_);
  codeLines_ = std::make_unique<ListLines>(*ui_->lstDest);
  ListAirports();
  const data::FlightFinderState& state = Context().state;
  ui_->chkIsDest->setChecked(state.searchOrigin);
  ui_->chkIsStop->setChecked(state.searchStopovers);
  ui_->chkIsArr->setChecked(state.searchDestination);
  ui_->cboDest->setCurrentIndex(state.chosenAirport);
  DropResult();

  ConnectGuarded(ui_->cboDest, &QComboBox::activated, this, &frmSeleDest::DropResult);
  for (QCheckBox* role : {ui_->chkIsDest, ui_->chkIsStop, ui_->chkIsArr})
    ConnectGuarded(role, &QCheckBox::toggled, this, &frmSeleDest::DropResult);
  ConnectGuarded(ui_->chkCity4Stop, &QCheckBox::toggled, this, [this] {
    if (ui_->lstFlit->isEnabled())
      Search();
  });
  ConnectGuarded(ui_->cmdSearch, &QPushButton::clicked, this, &frmSeleDest::Search);
}

frmSeleDest::~frmSeleDest() = default;

void frmSeleDest::ListAirports() {
  QStringList entries;
  Context().destinations.Visit([&](const data::Airport& airport) {
    std::string entry(codes_.emplace_back(airport.Code()));
    entry.append(" - ").append(airport.Name()).append(" (").append(airport.City()).append(")");
    entries.append(QString::fromStdString(entry));
  });
  ui_->cboDest->addItems(entries);
  codeLines_->SetLines(codes_);
}

void frmSeleDest::DropResult() {
  Flights().Clear();
  ui_->lblFlitFound->clear();
  EnableResult(false);
}

void frmSeleDest::EnableResult(bool enabled) {
  for (QWidget* control :
       std::initializer_list<QWidget*>{ui_->lstFlit, ui_->cmdSelAll, ui_->cmdSelNone, ui_->cmdDisp})
    control->setEnabled(enabled);
}

void frmSeleDest::Search() {
  const data::AirportRoles roles{ui_->chkIsDest->isChecked(), ui_->chkIsStop->isChecked(),
                                 ui_->chkIsArr->isChecked()};
  if (!roles.origin && !roles.stopover && !roles.destination) {
    Context().boxes.Show(settings::BoxIcon::kExclamation, "Select at least one type of airport");
    ui_->chkIsDest->setFocus();
    return;
  }
  data::FlightFinderState& state = Context().state;
  state.searchOrigin = roles.origin;
  state.searchStopovers = roles.stopover;
  state.searchDestination = roles.destination;
  DropResult();
  data::FlightList list;
  // Without any destination there is no entry to look for.
  if (const int position = ui_->cboDest->currentIndex(); position >= 0) {
    state.chosenAirport = position;
    list = data::FlightsTouching(Context().Source(), codes_.at(static_cast<std::size_t>(position)), roles,
                                 ui_->chkCity4Stop->isChecked());
  }
  if (list.lines.empty()) {
    Context().boxes.Show(settings::BoxIcon::kExclamation, "No flights found with the specified airport");
    return;
  }
  Flights().SetFlights(list.lines, list.keys);
  EnableResult(true);
  ui_->lblFlitFound->setText(list.lines.size() == 1
                                 ? QStringLiteral("(1 flight found)")
                                 : QStringLiteral("(%1 flights found)").arg(list.lines.size()));
}

}  // namespace zerbal::dialogs
