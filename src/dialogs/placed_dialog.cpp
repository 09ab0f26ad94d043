#include "dialogs/placed_dialog.h"

#include <QLayout>
#include <QMoveEvent>
#include <QScreen>

#include "base/numbers.h"

namespace zerbal::dialogs {

PlacedDialog::PlacedDialog(const Placement& placement, const settings::PairSetting& position)
    : QDialog(&placement.mainWindow), placement_(placement), position_(position) {}

void PlacedDialog::setVisible(bool visible) {
  if (visible && !placed_)
    Guarded([this] { Place(); });
  QDialog::setVisible(visible);
}

/// To be called before the window system knows the window: then move() places the frame.
void PlacedDialog::Place() {
  placed_ = true;
  FitContents();
  awaitsFrame_ = !RestorePosition();
  // Most often the window system gives both windows the same frame.
  if (awaitsFrame_)
    Centre(size() + placement_.mainWindow.frameGeometry().size() - placement_.mainWindow.size());
}

void PlacedDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  CentreOnceFramed();
}

void PlacedDialog::moveEvent(QMoveEvent* event) {
  QDialog::moveEvent(event);
  // A window manager adds the frame after the window is shown, and thereby moves the contents.
  if (event->spontaneous())
    CentreOnceFramed();
}

void PlacedDialog::done(int result) {
  Guarded([this] { RememberPosition(); });
  QDialog::done(result);
}

void PlacedDialog::FitContents() {
  ensurePolished();
  // This sets the minimum size of the contents.
  if (layout() != nullptr)
    layout()->activate();
  // adjustSize() would use no more than two thirds of the screen.
  const QWidget& main = placement_.mainWindow;
  const QSize frame = main.frameGeometry().size() - main.size();
  const QSize wanted = sizeHint();
  if (wanted.isValid())
    resize(wanted.boundedTo(main.screen()->availableGeometry().size() - frame));
}

bool PlacedDialog::RestorePosition() {
  if (!placement_.flags.windows)
    return false;
  const auto position = placement_.ini.Find(position_);
  if (!position)
    return false;
  move(position->first, position->second);
  return true;
}

void PlacedDialog::CentreOnceFramed() {
  const bool framed = frameGeometry() != geometry() || windowFlags().testFlag(Qt::FramelessWindowHint);
  if (!awaitsFrame_ || !framed)
    return;
  awaitsFrame_ = false;
  Centre(frameGeometry().size());
}

void PlacedDialog::Centre(QSize frame) {
  const QRect main = placement_.mainWindow.frameGeometry();
  const auto middle = [](int outer, int inner) { return static_cast<int>(base::Int((outer - inner) / 2.0)); };
  move(middle(main.width(), frame.width()) + main.left(), middle(main.height(), frame.height()) + main.top());
}

void PlacedDialog::RememberPosition() {
  if (placement_.flags.windows)
    placement_.ini.Write(position_, {x(), y()});
}

}  // namespace zerbal::dialogs
