// Which groups of settings are saved.
#pragma once

namespace zerbal::settings {

struct SaveFlags {
  bool mainWindow = false;   ///< state, position and size of the main window
  bool windows = false;      ///< positions of the dialogs
  bool menuEntries = false;  ///< check marks of the menu entries
};

}  // namespace zerbal::settings
