// The dialog that draws a random flight or round trip.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/random_source.h"
#include "dialogs/finder_dialog.h"

namespace Ui {
class frmRandFlit;
}

namespace zerbal::dialogs {

/// Opens with the flights of the last draw of this run.
class frmRandFlit final : public FinderDialog {
  Q_OBJECT

 public:
  frmRandFlit(const Placement& placement, const FinderContext& context, data::RandomSource& random);
  ~frmRandFlit() override;

 private:
  void ListServices();
  void ShowDrawnFlights();
  std::vector<std::string> DrawnLines() const;
  const std::string& DrawnServiceText() const;
  void EnableResult(bool enabled);
  void Draw();
  void ShowNothingFound();

  data::RandomSource& random_;
  std::unique_ptr<Ui::frmRandFlit> ui_;
  std::unique_ptr<ListLines> services_;
};

}  // namespace zerbal::dialogs
