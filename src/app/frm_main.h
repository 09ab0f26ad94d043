// The main window: a frame with the menus, the tool bar, the status bar and the map window inside.
#pragma once

#include <QMainWindow>
#include <memory>
#include <optional>

#include "app/commands.h"
#include "app/dialogs.h"
#include "app/frm_map.h"
#include "app/main_menu.h"
#include "app/program_state.h"
#include "app/status_bar.h"
#include "app/tool_bar.h"
#include "app/window_settings.h"

namespace zerbal::app {

/// The constructor makes it as designed. Load applies settings and databases, Unload saves and closes them.
class frmMain final : public QMainWindow {
  Q_OBJECT
  /// The colour behind the map window.
  Q_PROPERTY(QColor colour READ BackgroundColour)

 public:
  /// All of them outlive the window.
  frmMain(SettingsFile& settingsFile, MapState& state, const Delimitations& delimitations,
          std::optional<data::Databases>& databases, Dialogs& dialogs, settings::MessageBoxes& boxes);
  ~frmMain() override;

  /// Reads the switches of what is saved, state, position, size and check marks; makes the entries of regions
  /// and services and the map window. Both windows stay hidden. The databases are open, and style and
  /// services loaded. Options whose file is missing are disabled.
  void Load(const data::DataFiles& files);
  /// Saves settings and check marks, deletes the map window and closes the databases. Only the first call
  /// does anything; closing the window calls it.
  void Unload();
  bool Loaded() const { return map_ != nullptr; }

  /// Only while loaded.
  frmMap& MapWindow() { return *map_; }

  void SetBackground(data::Rgb colour);
  QColor BackgroundColour() const;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  class Client;

  /// That of a full screen is the one before.
  FramePlacement CurrentPlacement() const;
  /// The current placement. While the user has not changed the size, a stored side that was too long to be
  /// shown is kept.
  FramePlacement PlacementToSave() const;
  void PlaceAsDesigned();
  void ToggleFullScreen();
  void Place(const FramePlacement& placement);
  void LoadSettings();
  void DisableOption(const char* entry, bool data::DisplayOptions::*option);
  void MakeMapWindow();
  void ShowState();
  /// Shows the descriptions of both delimitations as tool tips of the layers' check boxes.
  void UpdateDelimitationInfo();

  SettingsFile& settingsFile_;
  MapState& state_;
  const Delimitations& delimitations_;
  std::optional<data::Databases>& databases_;
  Dialogs& dialogs_;
  settings::MessageBoxes& boxes_;
  QSize storedSize_;
  QSize shownSize_;                                 ///< the size that it resulted in
  std::optional<FramePlacement> beforeFullScreen_;  ///< while F11 shows a full screen
  ToolBar* picTool_;
  StatusBar* picStat_;
  Client* client_;
  std::unique_ptr<MainMenu> menu_;
  std::optional<map::MapScene> scene_;
  std::unique_ptr<frmMap> map_;
  std::unique_ptr<Commands> commands_;
};

}  // namespace zerbal::app
