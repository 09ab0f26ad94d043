#include "app/commands.h"

#include <utility>

namespace zerbal::app {
namespace {

// Percent of the view's spans.
constexpr float kZoomStep = 20;
constexpr float kZoomBigStep = 50;

}  // namespace

Commands::Commands(Program& program, frmMap& mapWindow, Dialogs& dialogs, const dialogs::Placement& placement,
                   std::function<void()> stateChanged, std::function<void()> criteriaChanged)
    : program_(program),
      map_(mapWindow),
      dialogs_(dialogs),
      placement_(placement),
      stateChanged_(std::move(stateChanged)),
      criteriaChanged_(std::move(criteriaChanged)) {}

void Commands::UserSettings() {
  Confirmed(DialogKind::kUserSettings);
}

void Commands::MapSettings() {
  const auto mapFont = [this] { return map::MapFont(program_.viewport, program_.style.fonts); };
  const map::TextFont before = mapFont();
  Confirmed(DialogKind::kMapSettings);
  if (mapFont() != before)
    map_.Redraw();
}

void Commands::ColourSettings() {
  if (Confirmed(DialogKind::kColourSettings))
    map_.Redraw();
}

void Commands::Quit() {
  placement_.mainWindow.close();
}

void Commands::ViewChanged(bool changed) {
  if (changed)
    map_.RecomputeAndRedraw();
}

void Commands::ZoomIn() {
  ViewChanged(program_.viewport.ZoomIn(kZoomStep));
}

void Commands::ZoomInMore() {
  ViewChanged(program_.viewport.ZoomIn(kZoomBigStep));
}

void Commands::ZoomReset() {
  ViewChanged(program_.viewport.ZoomReset());
}

void Commands::ZoomOutMore() {
  ViewChanged(program_.viewport.ZoomOut(kZoomBigStep));
}

void Commands::ZoomOut() {
  ViewChanged(program_.viewport.ZoomOut(kZoomStep));
}

void Commands::Toggle(bool data::DisplayOptions::*option) {
  Set(option, !(program_.display.*option));
}

void Commands::Set(bool data::DisplayOptions::*option, bool value) {
  program_.display.*option = value;
  stateChanged_();
  map_.Redraw();
}

void Commands::DelimitAllAirports() {
  Delimit(DialogKind::kDelimitAllAirports, &data::DisplayOptions::allAirports);
}

void Commands::DelimitDestinations() {
  Delimit(DialogKind::kDelimitDestinations, &data::DisplayOptions::destinations);
}

void Commands::Delimit(DialogKind kind, bool data::DisplayOptions::*layer) {
  if (!Confirmed(kind))
    return;
  criteriaChanged_();
  if (program_.display.*layer)
    map_.Redraw();
}

void Commands::ShowWorld() {
  ShowRegion(0);
}

void Commands::ShowRegion(int region) {
  const auto row = static_cast<std::size_t>(region);
  ViewChanged(program_.viewport.SelectRegion(program_.style.regions.rows.at(row)));
}

bool Commands::SetAllServices(bool display) {
  bool changed = false;
  for (data::FlightService& service : program_.services) {
    changed = changed || service.displayFlag != display;
    service.displayFlag = display;
  }
  return changed;
}

void Commands::ShowFlights(bool serviceMode) {
  program_.flights.serviceMode = serviceMode;
  stateChanged_();
  map_.Redraw();
}

void Commands::ShowAllFlights() {
  if (SetAllServices(true) || !program_.flights.serviceMode)
    ShowFlights(true);
}

void Commands::ToggleService(int service) {
  data::FlightService& row = program_.services.at(static_cast<std::size_t>(service) - 1);
  row.displayFlag = !row.displayFlag;
  ShowFlights(true);
}

void Commands::ClearAllFlights() {
  if (SetAllServices(false) || !program_.flights.serviceMode)
    ShowFlights(true);
}

void Commands::ShowSelectedFlights() {
  SetAllServices(false);
  ShowFlights(false);
}

void Commands::RandomFlights() {
  FindFlights(DialogKind::kRandomFlights);
}

void Commands::SelectFlights() {
  FindFlights(DialogKind::kSelectFlights);
}

void Commands::SelectDestination() {
  FindFlights(DialogKind::kSelectDestination);
}

void Commands::FindFlights(DialogKind kind) {
  if (!Confirmed(kind))
    return;
  selectionAvailable_ = true;
  ShowSelectedFlights();
}

void Commands::HelpRevision() {
  Confirmed(DialogKind::kHelpRevision);
}

void Commands::HelpMouse() {
  Confirmed(DialogKind::kHelpMouse);
}

void Commands::HelpInfo() {
  Confirmed(DialogKind::kHelpInfo);
}

}  // namespace zerbal::app
