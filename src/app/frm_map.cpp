#include "app/frm_map.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

#include "app/accessible_map.h"
#include "base/numbers.h"
#include "dialogs/guarded.h"
#include "map/nearby.h"
#include "map/position_text.h"
#include "map/tee_surface.h"
#include "paint/colour.h"
#include "paint/large_picture.h"
#include "paint/picture_surface.h"

namespace zerbal::app {
namespace {

/// Shows the hourglass in all windows during its lifetime.
class Hourglass {
 public:
  Hourglass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Hourglass() { QGuiApplication::restoreOverrideCursor(); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

TwipPosition PlaceOf(const QMouseEvent& event) {
  return ToTwipPosition(event.position().x(), event.position().y());
}

TwipPoint Whole(TwipPosition position) {
  return {base::ToInt32(base::Round(position.x)), base::ToInt32(base::Round(position.y))};
}

/// Two lines, one of which contrasts with the map, whatever its colours.
void DrawFocusFrame(QPainter& painter, const QRect& area) {
  painter.setPen(Qt::black);
  painter.drawRect(area.adjusted(0, 0, -1, -1));
  painter.setPen(Qt::white);
  painter.drawRect(area.adjusted(1, 1, -2, -2));
}

}  // namespace

frmMap::frmMap(const map::MapScene& scene, map::Viewport& viewport, QWidget* parent)
    : QWidget(parent),
      scene_(scene),
      viewport_(viewport),
      zoomBox_([this](TwipPosition corner1, TwipPosition corner2) { InvertBox(corner1, corner2); }),
      input_(viewport, scene.style.regions, zoomBox_),
      tip_(*this, [this](QPointF at) { return TextAt(at); }) {
  setObjectName("frmMap");
  setAccessibleName(tr("Map"));
  MakeMapAccessible();
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  // The press of the right button opens the pop-up menu; Qt must not open a context menu.
  setContextMenuPolicy(Qt::PreventContextMenu);
  dialogs::ConnectGuarded(&input_, &MapInput::ViewChanged, this, &frmMap::RecomputeAndRedraw);
  dialogs::ConnectGuarded(&input_, &MapInput::MenuRequested, this,
                          [this] { emit PopupRequested(mapToGlobal(rect().center())); });
  dialogs::ConnectGuarded(&input_, &MapInput::TipRequested, this,
                          [this] { tip_.ShowAt(QRectF(rect()).center()); });
}

void frmMap::RecomputeAndRedraw() {
  if (viewport_.HasArea()) {
    viewport_.ComputeViewport();
    emit ExtentChanged(QString::fromStdString(viewport_.ExtentText()));
  }
  Redraw();
}

void frmMap::Redraw() {
  if (!viewport_.HasArea())
    return;
  const Hourglass hourglass;
  tip_.Hide();
  UpdateAppearance();
  PreparePicture();
  DrawOnPicture([this](map::Surface& surface) { map::DrawMap(scene_, surface); });
  ++draws_;
  zoomBox_.ForgetPicture();
  if (QAccessible::isActive()) {
    QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&changed);
  }
}

/// Gives the window the font and the background colour of the map.
void frmMap::UpdateAppearance() {
  const map::TextFont mapFont = map::MapFont(viewport_, scene_.style.fonts);
  const QFont wanted(QString::fromStdString(mapFont.name), mapFont.size);
  if (font() != wanted)
    setFont(wanted);
  background_ = paint::ToQColor(scene_.style.colours[data::ColourCode::kMapBg]);
}

void frmMap::PreparePicture() {
  const double ratio = devicePixelRatioF();
  const auto pixels = [&](int logical) { return std::max(1, static_cast<int>(std::ceil(logical * ratio))); };
  const QSize wanted(pixels(width()), pixels(height()));
  if (picture_.size() != wanted)
    picture_ = paint::LargePicture(wanted);
  picture_.setDevicePixelRatio(ratio);
}

template <typename Draw>
void frmMap::DrawOnPicture(const Draw& draw) {
  const double ratio = picture_.devicePixelRatio();
  picture_.setDevicePixelRatio(1);  // the surface works in device pixels
  {
    paint::PictureSurface surface(picture_, ratio, prepared_);
    if (observer_ != nullptr) {
      map::TeeSurface both(surface, *observer_);
      draw(both);
    } else {
      draw(surface);
    }
  }
  picture_.setDevicePixelRatio(ratio);
  update();
}

QImage frmMap::MapPicture() {
  zoomBox_.Cancel();
  QImage picture = picture_;
  picture.setDevicePixelRatio(1);
  return picture;
}

QByteArray frmMap::MapFile(paint::MapFileKind kind) {
  const Hourglass hourglass;
  const auto draw = [this](map::Surface& surface) { map::DrawMap(scene_, surface); };
  switch (kind) {
    case paint::MapFileKind::kSvg:
      return paint::SvgOf(size(), draw);
    case paint::MapFileKind::kPdf:
      return paint::PdfOf(size(), draw);
    case paint::MapFileKind::kPng:
      break;
  }
  return paint::PngOf(MapPicture(), paint::kScreenDpi * picture_.devicePixelRatio());
}

void frmMap::AdaptToScreen() {
  if (!picture_.isNull() && picture_.devicePixelRatio() != devicePixelRatioF())
    Redraw();
}

bool frmMap::event(QEvent* event) {
  if (event->type() == QEvent::ScreenChangeInternal)
    dialogs::Guarded([this] { AdaptToScreen(); });
  if (event->type() == QEvent::ToolTip)
    return true;
  if (event->type() == QEvent::Leave || event->type() == QEvent::Hide)
    dialogs::Guarded([this] { tip_.Hide(); });
  return QWidget::event(event);
}

void frmMap::paintEvent(QPaintEvent* event) {
  dialogs::Guarded([&] {
    AdaptToScreen();
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    if (picture_.width() < std::floor(width() * ratio) || picture_.height() < std::floor(height() * ratio))
      painter.fillRect(event->rect(), paint::ToQColor(scene_.style.colours[data::ColourCode::kMapBg]));
    // At a fractional ratio the window may start inside a device pixel; the picture starts on a whole one.
    const QPointF corner = painter.deviceTransform().map(QPointF(0, 0));
    const QPointF whole(std::round(corner.x()), std::round(corner.y()));
    painter.drawImage((whole - corner) / ratio, picture_);
    QStyleOption option;
    option.initFrom(this);
    if (option.state.testFlags(QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange))
      DrawFocusFrame(painter, rect());
  });
}

void frmMap::resizeEvent(QResizeEvent*) {
  dialogs::Guarded([&] {
    viewport_.SetSize(width() * double{kTwipsPerPixel}, height() * double{kTwipsPerPixel});
    RecomputeAndRedraw();
  });
}

void frmMap::mousePressEvent(QMouseEvent* event) {
  dialogs::Guarded([&] {
    tip_.Hide();
    const Qt::MouseButtons buttons = event->buttons() | event->button();
    const TwipPosition at = PlaceOf(*event);
    if (buttons.testFlag(Qt::LeftButton)) {
      if (!viewport_.IsOnMap(at))
        return;
      zoomBox_.Press(at);
    } else if (buttons.testFlag(Qt::RightButton)) {
      emit PopupRequested(event->globalPosition().toPoint());
    }
  });
}

void frmMap::mouseMoveEvent(QMouseEvent* event) {
  dialogs::Guarded([&] {
    const TwipPosition at = PlaceOf(*event);
    if (event->buttons() == Qt::NoButton)
      tip_.PointerAt(event->position());
    if (!viewport_.IsOnMap(at))
      return;
    ShowPosition(at);
    if (event->buttons().testFlag(Qt::LeftButton) && zoomBox_.Dragged())
      zoomBox_.DragTo(Limited(at));
  });
}

void frmMap::ShowPosition(TwipPosition at) {
  const GeoPosition position = ToGeoPosition(viewport_.Unproject(at));
  emit PositionChanged(QString::fromStdString(map::LonText(position.lon)),
                       QString::fromStdString(map::LatText(position.lat)));
}

QString frmMap::TextAt(QPointF at) const {
  const TwipPosition place = ToTwipPosition(at.x(), at.y());
  if (!viewport_.HasArea() || zoomBox_.Dragged() || !viewport_.IsOnMap(place))
    return {};
  return QString::fromStdString(map::NearbyText(map::FindNearby(scene_, place)));
}

void frmMap::InvertBox(TwipPosition corner1, TwipPosition corner2) {
  DrawOnPicture([&](map::Surface& surface) {
    surface.BeginLayer(map::Layer::kZoomBox);
    surface.Rectangle(Whole(corner1), Whole(corner2),
                      {.colour = scene_.style.colours[data::ColourCode::kZoom],
                       .style = map::LineStyle::kDotted,
                       .mode = map::PenMode::kXor});
  });
}

void frmMap::mouseReleaseEvent(QMouseEvent* event) {
  dialogs::Guarded([&] {
    if (event->button() != Qt::LeftButton || !zoomBox_.Dragged())
      return;
    zoomBox_.End();
    const TwipPosition pressed = zoomBox_.Corner1();
    const TwipPosition released = Limited(PlaceOf(*event));
    const bool noWidth = pressed.x == released.x;
    const bool noHeight = pressed.y == released.y;
    bool changed = false;
    if (noWidth && noHeight)
      changed = viewport_.CentreOn(released);
    else if (!noWidth && !noHeight)
      changed = viewport_.ZoomToBox(pressed, released);
    if (changed)
      RecomputeAndRedraw();
    else
      zoomBox_.Erase();
  });
}

void frmMap::wheelEvent(QWheelEvent* event) {
  dialogs::Guarded([&] {
    tip_.Hide();
    input_.Wheel(*event);
  });
  event->accept();
}

void frmMap::keyPressEvent(QKeyEvent* event) {
  bool handled = false;
  dialogs::Guarded([&] {
    tip_.Hide();
    handled = input_.KeyPress(*event);
  });
  event->setAccepted(handled);
}

void frmMap::focusOutEvent(QFocusEvent* event) {
  dialogs::Guarded([&] {
    tip_.Hide();
    if (zoomBox_.Sized())
      zoomBox_.Cancel();
  });
  QWidget::focusOutEvent(event);
}

TwipPosition frmMap::Limited(TwipPosition at) const {
  const auto limited = [](float value, std::int32_t size) {
    return std::clamp(value, 0.0F, static_cast<float>(std::max(0, size)));
  };
  return {limited(at.x, viewport_.MapWidth()), limited(at.y, viewport_.MapHeight())};
}

}  // namespace zerbal::app
