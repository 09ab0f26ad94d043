// The main window: a frame with the menus, the tool bar, the status bar and the map window inside.
#pragma once

#include <QMainWindow>
#include <memory>
#include <optional>

#include "app/commands.h"
#include "app/dialogs.h"
#include "app/frm_map.h"
#include "app/main_menu.h"
#include "app/program.h"
#include "app/status_bar.h"
#include "app/tool_bar.h"
#include "app/window_settings.h"

namespace zerbal::app {

/// Made as designed; Load brings in what the settings and the databases say, Unload takes leave of them.
class frmMain final : public QMainWindow {
  Q_OBJECT
  /// The colour behind the map window.
  Q_PROPERTY(QColor colour READ BackgroundColour)

 public:
  /// Both outlive the window.
  frmMain(Program& program, Dialogs& dialogs);
  ~frmMain() override;

  /// Reads the switches of what is saved, state, position, size and check marks; makes the entries of regions
  /// and services and the map window, both windows still hidden. Needs the databases open and the regions and
  /// services loaded.
  void Load();
  /// Saves what is to be saved, does away with the map window and closes the databases. Once only; closing
  /// the window does it too.
  void Unload();
  bool Loaded() const { return map_ != nullptr; }

  /// Only while loaded.
  frmMap& MapWindow() { return *map_; }

  void SetBackground(data::Rgb colour);
  QColor BackgroundColour() const;
  /// Puts the description of both sets of criteria into the QuickInfos of the layers' check boxes.
  void UpdateDelimitationInfo();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  class Client;

  FramePlacement CurrentPlacement() const;
  /// The current one, but a side that was too long to be shown as it was stored, unless the user has changed
  /// the size.
  FramePlacement PlacementToSave() const;
  void PlaceAsDesigned();
  void Place(const FramePlacement& placement);
  void LoadSettings();
  void MakeMapWindow();
  void MakeIndexedEntries();
  void ConnectLayerBoxes();
  void Run(const Command& command);
  void ShowState();

  Program& program_;
  Dialogs& dialogs_;
  QSize storedSize_;
  QSize shownSize_;  ///< what came of storedSize_
  ToolBar* picTool_;
  StatusBar* picStat_;
  Client* client_;
  std::unique_ptr<MainMenu> menu_;
  std::optional<map::MapScene> scene_;
  std::unique_ptr<frmMap> map_;
  std::unique_ptr<Commands> commands_;
};

}  // namespace zerbal::app
