#include "app/map_tip.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

#include "dialogs/guarded.h"

namespace zerbal::app {

MapTip::MapTip(QWidget& map, Describe describe)
    : map_(map), describe_(std::move(describe)), label_(&map, Qt::ToolTip | Qt::WindowTransparentForInput) {
  label_.setTextFormat(Qt::PlainText);
  label_.setFocusPolicy(Qt::NoFocus);
  label_.setAttribute(Qt::WA_ShowWithoutActivating);
  label_.setForegroundRole(QPalette::ToolTipText);
  label_.setBackgroundRole(QPalette::ToolTipBase);
  label_.setFrameStyle(QFrame::Box | QFrame::Plain);
  label_.setMargin(2 + label_.style()->pixelMetric(QStyle::PM_ToolTipLabelFrameWidth));
  rest_.setSingleShot(true);
  rest_.setTimerType(Qt::PreciseTimer);
  rest_.setInterval(kRestMs);
  dialogs::ConnectGuarded(&rest_, &QTimer::timeout, this, &MapTip::Rested);
}

void MapTip::SetEnabled(bool enabled) {
  enabled_ = enabled;
  Hide();
}

void MapTip::PointerAt(QPointF at) {
  // Systems repeat the position of a pointer that rests.
  if (!enabled_ || (at == pointer_ && (rest_.isActive() || label_.isVisible())))
    return;
  Hide();
  pointer_ = at;
  rest_.start();
}

void MapTip::Rested() {
  if (map_.isActiveWindow())
    ShowAt(pointer_);
}

void MapTip::ShowAt(QPointF at) {
  Hide();
  const QString text = enabled_ ? describe_(at) : QString();
  if (text.isEmpty())
    return;
  pointer_ = at;
  map_.setToolTip(text);
  label_.setFont(QToolTip::font());
  label_.setPalette(QToolTip::palette());
  label_.setText(text);
  label_.adjustSize();
  Place(map_.mapToGlobal(at).toPoint());
  label_.show();
}

void MapTip::Hide() {
  rest_.stop();
  if (label_.isHidden())
    return;
  label_.hide();
  map_.setToolTip({});
}

void MapTip::Place(QPoint pointer) {
  constexpr QPoint kBesidePointer(2, 16);
  const QScreen* screen = QGuiApplication::screenAt(pointer);
  const QRect area = (screen != nullptr ? screen : map_.screen())->geometry();
  QRect place(pointer + kBesidePointer, label_.size());
  if (place.bottom() > area.bottom())
    place.moveBottom(pointer.y() - kBesidePointer.x());
  place.moveTop(std::max(area.top(), std::min(place.top(), area.bottom() - place.height() + 1)));
  place.moveLeft(std::max(area.left(), std::min(place.left(), area.right() - place.width() + 1)));
  label_.move(place.topLeft());
}

}  // namespace zerbal::app
