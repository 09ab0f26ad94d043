#include "app/commands.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <utility>

#include "base/error.h"
#include "base/file_replacement.h"

namespace zerbal::app {

using map::kZoomBigStep;
using map::kZoomStep;

Commands::Commands(MapState& state, frmMap& mapWindow, Dialogs& dialogs, settings::MessageBoxes& boxes,
                   QWidget& mainWindow, std::function<void()> stateChanged,
                   std::function<void()> criteriaChanged)
    : state_(state),
      map_(mapWindow),
      dialogs_(dialogs),
      boxes_(boxes),
      mainWindow_(mainWindow),
      stateChanged_(std::move(stateChanged)),
      criteriaChanged_(std::move(criteriaChanged)) {}

void Commands::Run(const Command& command, int index) {
  if (const auto* operation = std::get_if<void (Commands::*)()>(&command.action))
    (this->**operation)();
  else if (const auto* indexed = std::get_if<void (Commands::*)(int)>(&command.action))
    (this->**indexed)(index);
  else if (const auto* dialog = std::get_if<DialogKind>(&command.action))
    ShowDialog(*dialog);
  else
    Toggle(command.Option());
}

void Commands::ShowDialog(DialogKind kind) {
  const auto mapFont = [this] { return map::MapFont(state_.viewport, state_.style.fonts); };
  const map::TextFont fontBefore = mapFont();
  const bool accepted = dialogs_.ShowModal(kind, mainWindow_);
  switch (kind) {
    case DialogKind::kMapSettings:
      if (mapFont() != fontBefore)
        map_.Redraw();
      break;
    case DialogKind::kColourSettings:
      if (accepted)
        map_.Redraw();
      break;
    case DialogKind::kDelimitAllAirports:
    case DialogKind::kDelimitDestinations: {
      const bool all = kind == DialogKind::kDelimitAllAirports;
      if (accepted)
        criteriaChanged_();
      if (accepted && (all ? state_.display.allAirports : state_.display.destinations))
        map_.Redraw();
      break;
    }
    case DialogKind::kRandomFlights:
    case DialogKind::kSelectFlights:
    case DialogKind::kSelectDestination:
      if (accepted) {
        selectionAvailable_ = true;
        ShowSelectedFlights();
      }
      break;
    default:
      break;
  }
}

void Commands::Quit() {
  mainWindow_.close();
}

void Commands::ViewChanged(bool changed) {
  if (changed)
    map_.RecomputeAndRedraw();
}

void Commands::ZoomIn() {
  ViewChanged(state_.viewport.ZoomIn(kZoomStep));
}

void Commands::ZoomInMore() {
  ViewChanged(state_.viewport.ZoomIn(kZoomBigStep));
}

void Commands::ZoomReset() {
  ViewChanged(state_.viewport.ZoomReset());
}

void Commands::ZoomOutMore() {
  ViewChanged(state_.viewport.ZoomOut(kZoomBigStep));
}

void Commands::ZoomOut() {
  ViewChanged(state_.viewport.ZoomOut(kZoomStep));
}

void Commands::Toggle(bool data::DisplayOptions::*option) {
  state_.display.*option = !(state_.display.*option);
  stateChanged_();
  map_.Redraw();
}

void Commands::ShowRegion(int region) {
  const auto row = static_cast<std::size_t>(region);
  ViewChanged(state_.viewport.SelectRegion(state_.style.regions.rows.at(row)));
}

bool Commands::SetAllServices(bool display) {
  bool changed = false;
  for (data::FlightService& service : state_.services) {
    changed = changed || service.displayFlag != display;
    service.displayFlag = display;
  }
  return changed;
}

void Commands::ShowFlights(bool serviceMode) {
  state_.flights.serviceMode = serviceMode;
  stateChanged_();
  map_.Redraw();
}

void Commands::ShowAllFlights() {
  if (SetAllServices(true) || !state_.flights.serviceMode)
    ShowFlights(true);
}

void Commands::ToggleService(int service) {
  data::FlightService& row = state_.services.at(static_cast<std::size_t>(service) - 1);
  row.displayFlag = !row.displayFlag;
  ShowFlights(true);
}

void Commands::ClearAllFlights() {
  if (SetAllServices(false) || !state_.flights.serviceMode)
    ShowFlights(true);
}

void Commands::ShowSelectedFlights() {
  SetAllServices(false);
  ShowFlights(false);
}

void Commands::SaveMap() {
  if (!state_.viewport.HasArea())
    return;
  const auto path = dialogs_.AskMapFile(mainWindow_);
  if (!path)
    return;
  try {
    auto file = base::FileReplacement::OfUserFile(*path);
    const auto kind = paint::KindOfMapFile(QFile::decodeName(path->c_str()));
    const QByteArray bytes = map_.MapFile(kind.value_or(paint::MapFileKind::kPng));
    file.Write({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    file.Commit();
  } catch (const base::Error& error) {
    boxes_.Show(settings::BoxIcon::kExclamation, error.what());
  }
}

void Commands::CopyMap() {
  if (state_.viewport.HasArea())
    QGuiApplication::clipboard()->setImage(map_.MapPicture());
}

}  // namespace zerbal::app
