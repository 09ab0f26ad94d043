// What the user can tell the program to do. Each command is described once, in the table of MenuTable();
// menu entries, their pop-up twins and the tool bar's buttons are all built from it.
#pragma once

#include <QObject>
#include <functional>
#include <span>

#include "app/dialogs.h"
#include "app/frm_map.h"
#include "app/program.h"
#include "dialogs/placed_dialog.h"

namespace zerbal::app {

class Commands final : public QObject {
 public:
  /// `stateChanged` is called when what check marks and enabled entries show has changed; `criteriaChanged`
  /// when a delimitation has. Everything given outlives this.
  Commands(Program& program, frmMap& mapWindow, Dialogs& dialogs, const dialogs::Placement& placement,
           std::function<void()> stateChanged, std::function<void()> criteriaChanged);

  // File
  void UserSettings();
  void MapSettings();
  void ColourSettings();
  void Quit();
  // Zoom, in steps of 20 and 50 percent
  void ZoomIn();
  void ZoomInMore();
  void ZoomReset();
  void ZoomOutMore();
  void ZoomOut();
  // Views
  void Toggle(bool data::DisplayOptions::*option);
  void Set(bool data::DisplayOptions::*option, bool value);
  void DelimitAllAirports();
  void DelimitDestinations();
  // Region
  void ShowWorld();
  void ShowRegion(int region);  ///< 1 to RegionCount
  // Flights
  void ClearAllFlights();
  void ShowSelectedFlights();
  void RandomFlights();
  void SelectFlights();
  void SelectDestination();
  void ShowAllFlights();
  void ToggleService(int service);  ///< 1 to the number of services
  // Help
  void HelpRevision();
  void HelpMouse();
  void HelpInfo();

  /// Whether there are selected flights to show: true once a flight finding dialog was confirmed.
  bool SelectionAvailable() const { return selectionAvailable_; }

 private:
  bool Confirmed(DialogKind kind) { return dialogs_.Confirmed(kind, placement_); }
  void ViewChanged(bool changed);
  void Delimit(DialogKind kind, bool data::DisplayOptions::*layer);
  void FindFlights(DialogKind kind);
  bool SetAllServices(bool display);
  void ShowFlights(bool serviceMode);

  Program& program_;
  frmMap& map_;
  Dialogs& dialogs_;
  dialogs::Placement placement_;
  std::function<void()> stateChanged_;
  std::function<void()> criteriaChanged_;
  bool selectionAvailable_ = false;
};

/// One command of the menu bar.
struct Command {
  const char* name = nullptr;  ///< object name of the menu entry; nullptr stands for a separator
  const char* caption = "";
  void (Commands::*run)() = nullptr;             ///< nullptr for entries that switch an option
  const char* button = nullptr;                  ///< object name of the tool bar's button, where there is one
  const char* picture = nullptr;                 ///< its picture, a resource
  bool data::DisplayOptions::*option = nullptr;  ///< what the entry's check mark shows
  const settings::SwitchSetting* setting = nullptr;  ///< the option's
};

struct MenuDescription {
  const char* name;
  const char* title;
  std::span<const Command> commands;
  const char* indexed = nullptr;  ///< name of the array of entries that start-up adds at the end
  const char* twin = nullptr;     ///< a pop-up menu with a twin of every entry
};

/// The menu bar from left to right.
std::span<const MenuDescription> MenuTable();

/// Calls `visit` for each command that switches an option, in the order of the settings file.
void ForEachOption(const std::function<void(const Command&)>& visit);

}  // namespace zerbal::app
