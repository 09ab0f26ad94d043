// The three dialogs of the help menu.
#pragma once

#include <filesystem>

#include "dialogs/placed_dialog.h"

namespace zerbal::dialogs {

/// The revision numbers of the data, from the revision file.
class frmHelpRev final : public PlacedDialog {
  Q_OBJECT

 public:
  /// A missing number is shown and written as "Unknown".
  frmHelpRev(const Placement& placement, settings::MessageBoxes& boxes,
             const std::filesystem::path& revisionFile);
};

/// What the mouse does.
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
