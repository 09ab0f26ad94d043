// The menu bar and the pop-up menu of the main window, built from the command table.
#pragma once

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <vector>

#include "app/command_table.h"
#include "data/flight.h"
#include "data/regions.h"

namespace zerbal::app {

class MainMenu {
 public:
  /// Fills `bar`. `owner` owns every entry and the pop-up menu.
  MainMenu(QMenuBar& bar, QWidget& owner, RunCommand run);
  // The entries call back into this object.
  MainMenu(const MainMenu&) = delete;
  MainMenu& operator=(const MainMenu&) = delete;

  /// One entry per region after "World". Entry 0 of the array is the line above them.
  void AddRegions(const data::RegionTable& regions);
  /// One entry per flight service after "Show all flights", in the menu bar and in the pop-up menu.
  void AddServices(const data::FlightServiceTable& services);

  /// Updates check marks and disabled entries.
  void Show(const data::DisplayOptions& options, const data::FlightServiceTable& services,
            bool selectionAvailable);
  /// Grays an entry that has nothing to show in this run.
  void Disable(const char* name);

  QMenu& Popup() { return *popup_; }

 private:
  /// An entry and the option that its check mark shows.
  struct OptionEntry {
    QAction* action;
    bool data::DisplayOptions::*option;
  };

  /// A menu that ends in an array of entries.
  struct IndexedMenu {
    QMenu* menu;
    const Command* command;
    QString array;
  };

  /// Entries of the menu bar have the shortcuts of their commands, their twins have none.
  void Build(const MenuDescription& description, QMenu& menu, bool twin);
  QAction* AddEntry(QMenu& menu, const QString& name, const QString& caption, const Command& command,
                    int index = 0);
  QAction* AddIndexed(const IndexedMenu& menu, int index, const std::string& text);

  QWidget& owner_;
  RunCommand run_;
  QMenu* popup_ = nullptr;
  IndexedMenu regionMenu_{};
  std::vector<IndexedMenu> flightMenus_;  ///< that of the menu bar, the pop-up menu
  std::vector<OptionEntry> options_;
  std::vector<QAction*> selectionEntries_;             ///< "Show selected flights"
  std::vector<std::vector<QAction*>> serviceEntries_;  ///< the entries of each service
};

}  // namespace zerbal::app
