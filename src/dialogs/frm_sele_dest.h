// Choosing among the flights that touch one of the airline's destinations.
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
  /// The list no longer answers what the controls ask: empty and disabled.
  void DropResult();
  void EnableResult(bool enabled);
  void Search();

  std::unique_ptr<Ui::frmSeleDest> ui_;
  std::unique_ptr<ListLines> codeLines_;
  std::vector<std::string> codes_;  ///< airport code of each entry of the drop-down list
};

}  // namespace zerbal::dialogs
