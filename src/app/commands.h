// What the commands of the command table do, and how often each redraws the map.
#pragma once

#include <functional>

#include "app/command_table.h"
#include "app/dialogs.h"
#include "app/frm_map.h"
#include "app/program_state.h"

namespace zerbal::app {

class Commands final {
 public:
  /// `stateChanged` is called after changes of what check marks and enabled entries show, `criteriaChanged`
  /// after changes of a delimitation. The references outlive this.
  Commands(MapState& state, frmMap& mapWindow, Dialogs& dialogs, settings::MessageBoxes& boxes,
           QWidget& mainWindow, std::function<void()> stateChanged, std::function<void()> criteriaChanged);

  /// Every menu entry and every control of the tool bar ends here.
  void Run(const Command& command, int index);

  /// Whether there are selected flights to show: true once a flight finding dialog was accepted.
  bool SelectionAvailable() const { return selectionAvailable_; }

  // File
  void Quit();
  // Zoom, in steps of 20 and 50 percent
  void ZoomIn();
  void ZoomInMore();
  void ZoomReset();
  void ZoomOutMore();
  void ZoomOut();
  // Region
  void ShowRegion(int region);  ///< 0, the world, to RegionCount
  // Flights
  void ClearAllFlights();
  void ShowSelectedFlights();
  void ShowAllFlights();
  void ToggleService(int service);  ///< 1 to the number of services
  // The picture; both do nothing while the map has no area.
  void SaveMap();  ///< shows a box with the reason when the file cannot be written
  void CopyMap();  ///< to the clipboard

 private:
  /// Shows the dialog and redraws what it changed.
  void ShowDialog(DialogKind kind);
  void Toggle(bool data::DisplayOptions::*option);
  void ViewChanged(bool changed);
  bool SetAllServices(bool display);
  void ShowFlights(bool serviceMode);

  MapState& state_;
  frmMap& map_;
  Dialogs& dialogs_;
  settings::MessageBoxes& boxes_;
  QWidget& mainWindow_;
  std::function<void()> stateChanged_;
  std::function<void()> criteriaChanged_;
  bool selectionAvailable_ = false;
};

}  // namespace zerbal::app
