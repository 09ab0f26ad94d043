#include "app/map_input.h"

#include <algorithm>
#include <cmath>

#include "app/menu_key.h"
#include "dialogs/guarded.h"

namespace zerbal::app {
namespace {

// Parts of the view's spans, for arrows and for arrows with Shift.
constexpr float kMove = 0.1F;
constexpr float kBigMove = 0.5F;
// Parts of the map's sides.
constexpr float kFirstBox = 0.5F;
constexpr float kSmallestBox = 0.05F;
constexpr float kBoxStep = 0.05F;
constexpr float kBigBoxStep = 0.25F;

/// Width and height of the map on the drawing area, twips.
TwipPosition MapSize(const map::Viewport& viewport) {
  return {std::min(viewport.MapLonSpan() * viewport.MapScale(), static_cast<float>(viewport.MapWidth())),
          std::min(viewport.MapLatSpan() * viewport.MapScale(), static_cast<float>(viewport.MapHeight()))};
}

}  // namespace

MapInput::MapInput(map::Viewport& viewport, const data::RegionTable& regions, ZoomBox& zoomBox)
    : viewport_(viewport), regions_(regions), zoomBox_(zoomBox) {
  wheel_.setSingleShot(true);
  wheel_.setInterval(0);
  dialogs::ConnectGuarded(&wheel_, &QTimer::timeout, this, &MapInput::ApplyWheel);
}

void MapInput::Wheel(const QWheelEvent& event) {
  const TwipPosition place = ToTwipPosition(event.position().x(), event.position().y());
  const int turned = event.angleDelta().y();  // a horizontal wheel turns none of it
  if (turned == 0 || zoomBox_.Dragged() || !viewport_.HasArea() || !viewport_.IsOnMap(place))
    return;
  steps_.Add(turned, event.modifiers().testFlag(Qt::ControlModifier), place);
  wheel_.start();
}

void MapInput::ApplyWheel() {
  bool changed = false;
  for (const WheelSteps::Step& step : steps_.Take()) {
    for (int notch = 0; notch < std::abs(step.notches) && ApplyStep(step); ++notch) {
      viewport_.ComputeViewport();
      changed = true;
    }
  }
  Changed(changed);
}

bool MapInput::ApplyStep(const WheelSteps::Step& step) {
  const float percent = step.big ? map::kZoomBigStep : map::kZoomStep;
  return step.notches > 0 ? viewport_.ZoomInAt(step.place, percent)
                          : viewport_.ZoomOutAt(step.place, percent);
}

bool MapInput::KeyPress(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
  const bool shift = modifiers == Qt::ShiftModifier;
  const bool plain = modifiers == Qt::NoModifier;
  if (plain && event.key() == Qt::Key_Escape)
    return zoomBox_.Cancel();
  // The mouse has the box.
  if (zoomBox_.Dragged() || !viewport_.HasArea())
    return false;
  if (IsMenuKey(event)) {
    emit MenuRequested();
    return true;
  }
  if (modifiers == Qt::ControlModifier && event.key() == Qt::Key_I) {
    emit TipRequested();
    return true;
  }
  if (const QPoint direction = Arrow(event.key()); !direction.isNull() && (plain || shift)) {
    ArrowKey(direction, shift);
    return true;
  }
  const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  if (plain && enter) {
    // Held down, it would open a box and zoom to it again and again.
    if (!event.isAutoRepeat())
      zoomBox_.Sized() ? ZoomToBox() : OpenBox();
    return true;
  }
  return plain && ViewKey(event.key());
}

QPoint MapInput::Arrow(int key) {
  switch (key) {
    case Qt::Key_Left:
      return {-1, 0};
    case Qt::Key_Right:
      return {1, 0};
    case Qt::Key_Up:
      return {0, -1};
    case Qt::Key_Down:
      return {0, 1};
    default:
      return {};
  }
}

bool MapInput::ViewKey(int key) {
  switch (key) {
    case Qt::Key_PageUp:
      Changed(viewport_.ZoomIn(map::kZoomStep));
      return true;
    case Qt::Key_PageDown:
      Changed(viewport_.ZoomOut(map::kZoomStep));
      return true;
    case Qt::Key_Home:
      Changed(viewport_.SelectRegion(regions_.rows.at(0)));
      return true;
    default:
      return false;
  }
}

void MapInput::ArrowKey(QPoint direction, bool big) {
  if (zoomBox_.Sized()) {
    SizeBox(direction, big);
    return;
  }
  const auto part = [big](int way) { return static_cast<float>(way) * (big ? kBigMove : kMove); };
  Changed(viewport_.Move(part(direction.x()), part(direction.y())));
}

void MapInput::OpenBox() {
  const TwipPosition map = MapSize(viewport_);
  ShowBox(map.x * kFirstBox, map.y * kFirstBox);
}

/// Right and Up enlarge it, Left and Down make it smaller.
void MapInput::SizeBox(QPoint direction, bool big) {
  const TwipPosition map = MapSize(viewport_);
  const auto sized = [big](float side, float whole, int way) {
    const float step = static_cast<float>(way) * (big ? kBigBoxStep : kBoxStep);
    return std::clamp(side + step * whole, kSmallestBox * whole, whole);
  };
  ShowBox(sized(zoomBox_.Corner2().x - zoomBox_.Corner1().x, map.x, direction.x()),
          sized(zoomBox_.Corner2().y - zoomBox_.Corner1().y, map.y, -direction.y()));
}

void MapInput::ShowBox(float width, float height) {
  const TwipPosition middle{static_cast<float>(viewport_.MapWidth()) / 2,
                            static_cast<float>(viewport_.MapHeight()) / 2};
  zoomBox_.Show({middle.x - width / 2, middle.y - height / 2}, {middle.x + width / 2, middle.y + height / 2});
}

void MapInput::ZoomToBox() {
  const TwipPosition corner1 = zoomBox_.Corner1();
  const TwipPosition corner2 = zoomBox_.Corner2();
  zoomBox_.Cancel();
  Changed(viewport_.ZoomToBox(corner1, corner2));
}

void MapInput::Changed(bool changed) {
  if (changed)
    emit ViewChanged();
}

}  // namespace zerbal::app
