// The dialog that selects flights which touch one of the destinations.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dialogs/finder_dialog.h"

namespace Ui {
class frmSeleDest;
}

namespace zerbal::dialogs {

/// Opens on the airport and the roles of the last search, with no result.
class frmSeleDest final : public FinderDialog {
  Q_OBJECT

 public:
  frmSeleDest(const Placement& placement, const FinderContext& context);
  ~frmSeleDest() override;

 private:
  void ListAirports();
  /// Empties and disables the list: it no longer matches the controls.
  void DropResult();
  void EnableResult(bool enabled);
  void Search();

  std::unique_ptr<Ui::frmSeleDest> ui_;
  std::unique_ptr<ListLines> codeLines_;
  std::vector<std::string> codes_;  ///< airport code of each entry of the drop-down list
};

}  // namespace zerbal::dialogs
