// The three switches that say what the program remembers.
#pragma once

namespace zerbal::settings {

struct SaveFlags {
  bool mainWindow = false;   ///< state, position and size of the main window
  bool windows = false;      ///< positions of the dialogs
  bool menuEntries = false;  ///< check marks of the menu entries
};

}  // namespace zerbal::settings
