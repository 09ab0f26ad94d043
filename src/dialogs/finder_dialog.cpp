#include "dialogs/finder_dialog.h"

#include <utility>

namespace zerbal::dialogs {

FinderDialog::FinderDialog(const Placement& placement, std::string key, const FinderContext& context)
    : PlacedDialog(placement, std::move(key)), context_(context) {}

FinderDialog::~FinderDialog() = default;

void FinderDialog::Display() {
  if (flights_->HandOver(context_.selectedFlights, context_.boxes))
    accept();
}

}  // namespace zerbal::dialogs
