// The dialog of settings::SaveFlags.
#pragma once

#include <memory>

#include "dialogs/placed_dialog.h"

namespace Ui {
class frmUserSett;
}

namespace zerbal::dialogs {

/// OK writes the switches to the settings file and to `flags` at once, whether or not writing works.
class frmUserSett final : public PlacedDialog {
  Q_OBJECT

 public:
  /// `flags` are those that `placement` looks at.
  frmUserSett(const Placement& placement, settings::SaveFlags& flags);
  ~frmUserSett() override;

 private:
  void Confirm();

  std::unique_ptr<Ui::frmUserSett> ui_;
  settings::SaveFlags& flags_;
};

}  // namespace zerbal::dialogs
