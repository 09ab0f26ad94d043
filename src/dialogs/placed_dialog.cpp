#include "dialogs/placed_dialog.h"

#include <utility>

#include "base/numbers.h"
#include "settings/value_text.h"

namespace zerbal::dialogs {
namespace {

constexpr char kSection[] = "Windows";

}  // namespace

PlacedDialog::PlacedDialog(const Placement& placement, std::string key)
    : QDialog(&placement.mainWindow), placement_(placement), key_(std::move(key)) {}

void PlacedDialog::setVisible(bool visible) {
  // Before the window system knows the window: a place that is given then is that of its frame.
  if (visible && !placed_) {
    placed_ = true;
    RestorePosition();
  }
  QDialog::setVisible(visible);
}

void PlacedDialog::done(int result) {
  RememberPosition();
  QDialog::done(result);
}

void PlacedDialog::RestorePosition() {
  adjustSize();
  if (placement_.flags.windows) {
    if (const auto value = placement_.ini.Read(kSection, key_)) {
      const auto fields = settings::SplitList(*value, 2, ",");
      move(base::LeadingInt32(fields[1]), base::LeadingInt32(fields[2]));
      return;
    }
  }
  // Both windows have the same frame, so the sizes within it give the same middle.
  const QWidget& main = placement_.mainWindow;
  const auto centred = [](int outer, int inner) {
    return static_cast<int>(base::Int((outer - inner) / 2.0));
  };
  move(centred(main.width(), width()) + main.x(), centred(main.height(), height()) + main.y());
}

void PlacedDialog::RememberPosition() {
  if (placement_.flags.windows)
    placement_.ini.Write(kSection, key_, std::to_string(x()) + "," + std::to_string(y()));
}

}  // namespace zerbal::dialogs
