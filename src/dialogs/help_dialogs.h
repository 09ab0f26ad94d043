// The three dialogs of the help menu.
#pragma once

#include <filesystem>

#include "dialogs/placed_dialog.h"

namespace zerbal::dialogs {

/// Revision numbers of the installed data, as the revision file holds them.
class frmHelpRev final : public PlacedDialog {
  Q_OBJECT

 public:
  /// Reads the five numbers through `values`: a missing one is shown and written back as "Unknown".
  frmHelpRev(const Placement& placement, settings::IniValues& values,
             const std::filesystem::path& revisionFile);
};

/// What the mouse does, in words.
class frmHelpMous final : public PlacedDialog {
  Q_OBJECT

 public:
  explicit frmHelpMous(const Placement& placement);
};

/// Title and version of the program.
class frmHelpInfo final : public PlacedDialog {
  Q_OBJECT

 public:
  explicit frmHelpInfo(const Placement& placement);
};

}  // namespace zerbal::dialogs
