// The dialog that selects flights of one flight service, or of all.
#pragma once

#include <memory>

#include "dialogs/finder_dialog.h"

namespace Ui {
class frmSeleFlit;
}

namespace zerbal::dialogs {

/// Opens on the service that was chosen last in this run.
class frmSeleFlit final : public FinderDialog {
  Q_OBJECT

 public:
  frmSeleFlit(const Placement& placement, const FinderContext& context);
  ~frmSeleFlit() override;

 private:
  void ListFlights();

  std::unique_ptr<Ui::frmSeleFlit> ui_;
};

}  // namespace zerbal::dialogs
