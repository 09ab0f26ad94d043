#include "dialogs/placed_dialog.h"

#include <QShowEvent>
#include <utility>

#include "settings/rounding.h"
#include "settings/value_text.h"

namespace zerbal::dialogs {
namespace {

constexpr char kSection[] = "Windows";

}  // namespace

PlacedDialog::PlacedDialog(const Placement& placement, std::string key)
    : QDialog(&placement.mainWindow), placement_(placement), key_(std::move(key)) {}

void PlacedDialog::showEvent(QShowEvent* event) {
  if (!placed_ && !event->spontaneous()) {
    placed_ = true;
    RestorePosition();
  }
  QDialog::showEvent(event);
}

void PlacedDialog::done(int result) {
  RememberPosition();
  QDialog::done(result);
}

void PlacedDialog::RestorePosition() {
  if (placement_.flags.windows) {
    if (const auto value = placement_.ini.Read(kSection, key_)) {
      const auto fields = settings::SplitList(*value, 2, ",");
      move(settings::ParseInt32(fields[1]), settings::ParseInt32(fields[2]));
      return;
    }
  }
  adjustSize();
  const QRect main = placement_.mainWindow.frameGeometry();
  const QRect own = frameGeometry();
  const auto centred = [](int outer, int inner, int origin) {
    return static_cast<int>(settings::Int((outer - inner) / 2.0)) + origin;
  };
  move(centred(main.width(), own.width(), main.left()), centred(main.height(), own.height(), main.top()));
}

void PlacedDialog::RememberPosition() {
  if (placement_.flags.windows)
    placement_.ini.Write(kSection, key_, std::to_string(x()) + "," + std::to_string(y()));
}

}  // namespace zerbal::dialogs
