#include "dialogs/finder_dialog.h"

namespace zerbal::dialogs {

FinderDialog::FinderDialog(const Placement& placement, const settings::PairSetting& position,
                           const FinderContext& context)
    : PlacedDialog(placement, position), context_(context) {}

void FinderDialog::Display() {
  if (flights_->HandOver(context_.selectedFlights, context_.boxes))
    accept();
}

}  // namespace zerbal::dialogs
