// The dialogs that limit which airports a layer shows.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "data/airport_criteria.h"
#include "dialogs/placed_dialog.h"

class QCheckBox;
class QRadioButton;

namespace Ui {
class frmDeli;
}

namespace zerbal::dialogs {

class NumberEdit;

/// One dialog for both layers: it differs only in title, set and position. OK stores every number,
/// those of unselected limits and inactive criteria too, so that the dialog shows them again.
class frmDeli final : public PlacedDialog {
  Q_OBJECT

 public:
  enum class Layer { kAllAirports, kDestinations };

  frmDeli(const Placement& placement, Layer layer, data::AirportCriteria& set, settings::MessageBoxes& boxes);
  ~frmDeli() override;

 private:
  /// The controls of one numeric criterion.
  struct Group {
    QCheckBox* active;
    std::array<QRadioButton*, 3> limits;  ///< between, at least, at most
    NumberEdit* from;
    NumberEdit* to;
    NumberEdit* atLeast;
    NumberEdit* atMost;
    std::array<std::vector<QWidget*>, 3> besideLimit;  ///< boxes and labels that each limit enables
  };

  void CollectGroups();
  void Fill();
  void ConnectGroup(const Group& group);
  static void EnableGroup(const Group& group);
  void EnableIls();
  /// The focus goes to the refused from box or, while that is disabled, to what enables it.
  static void AskAgain(const Group& group);
  void Confirm();

  std::unique_ptr<Ui::frmDeli> ui_;
  data::AirportCriteria& set_;
  settings::MessageBoxes& boxes_;
  std::array<Group, 3> groups_{};
};

}  // namespace zerbal::dialogs
