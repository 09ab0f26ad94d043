#include "app/frm_map.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "map/position_text.h"
#include "map/tee_surface.h"
#include "paint/picture_surface.h"
#include "settings/rounding.h"

namespace zerbal::app {
namespace {

/// Shows the hourglass over the whole program as long as it lives.
class Hourglass {
 public:
  Hourglass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Hourglass() { QGuiApplication::restoreOverrideCursor(); }
  Hourglass(const Hourglass&) = delete;
  Hourglass& operator=(const Hourglass&) = delete;
};

float Twips(double logicalPixels) {
  return static_cast<float>(logicalPixels * map::kTwipsPerPixel);
}

std::int32_t Whole(float twips) {
  return settings::ToInt32(settings::Round(twips));
}

}  // namespace

frmMap::frmMap(map::MapScene& scene, QWidget* parent) : QWidget(parent), scene_(scene) {
  setObjectName("frmMap");
  setAccessibleName(tr("Map"));
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  // The right button is answered when it goes down; nobody else is to open a menu of his own.
  setContextMenuPolicy(Qt::PreventContextMenu);
}

void frmMap::RecomputeAndRedraw() {
  if (scene_.viewport.HasArea()) {
    scene_.viewport.ComputeViewport();
    emit ExtentChanged(QString::fromStdString(scene_.viewport.ExtentText()));
  }
  Redraw();
}

void frmMap::Redraw() {
  if (!scene_.viewport.HasArea())
    return;
  const Hourglass hourglass;
  TakeLooks();
  PreparePicture();
  DrawOnPicture([this](map::Surface& surface) { map::DrawMap(scene_, surface); });
  ++draws_;
  // A box that was being dragged is gone with the old picture: the next move begins it anew.
  zoomBox_.drawn = false;
  zoomBox_.x2 = zoomBox_.x1;
  zoomBox_.y2 = zoomBox_.y1;
}

/// The window's own font and colour are those of its map, for whoever asks the window.
void frmMap::TakeLooks() {
  const map::TextFont mapFont = map::MapFont(scene_.viewport, scene_.tables.fonts);
  const QFont wanted(QString::fromStdString(mapFont.name), mapFont.size);
  if (font() != wanted)
    setFont(wanted);
  const data::Rgb background = scene_.tables.colours[data::ColourCode::kMapBg];
  background_ = QColor(background.red, background.green, background.blue);
}

void frmMap::PreparePicture() {
  const double ratio = devicePixelRatioF();
  const auto pixels = [&](int logical) { return std::max(1, static_cast<int>(std::ceil(logical * ratio))); };
  const QSize wanted(pixels(width()), pixels(height()));
  if (picture_.size() != wanted)
    picture_ = QImage(wanted, QImage::Format_RGB32);
  picture_.setDevicePixelRatio(ratio);
}

template <typename Draw>
void frmMap::DrawOnPicture(const Draw& draw) {
  const double ratio = picture_.devicePixelRatio();
  picture_.setDevicePixelRatio(1);  // the surface counts pixels
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

void frmMap::paintEvent(QPaintEvent* event) {
  if (!picture_.isNull() && picture_.devicePixelRatio() != devicePixelRatioF())
    Redraw();  // the window has come to a screen of another resolution
  QPainter painter(this);
  const data::Rgb& margin = scene_.tables.colours[data::ColourCode::kMapBg];
  const double ratio = devicePixelRatioF();
  if (picture_.width() < std::floor(width() * ratio) || picture_.height() < std::floor(height() * ratio))
    painter.fillRect(event->rect(), QColor(margin.red, margin.green, margin.blue));
  // At a broken ratio the window may begin inside a device pixel; the picture begins on a whole one.
  const QPointF corner = painter.deviceTransform().map(QPointF(0, 0));
  const QPointF whole(std::round(corner.x()), std::round(corner.y()));
  painter.drawImage((whole - corner) / ratio, picture_);
}

void frmMap::resizeEvent(QResizeEvent*) {
  scene_.viewport.SetSize(width() * double{map::kTwipsPerPixel}, height() * double{map::kTwipsPerPixel});
  RecomputeAndRedraw();
}

void frmMap::mousePressEvent(QMouseEvent* event) {
  const Qt::MouseButtons buttons = event->buttons() | event->button();
  const float x = Twips(event->position().x());
  const float y = Twips(event->position().y());
  if (buttons.testFlag(Qt::LeftButton)) {
    if (!scene_.viewport.IsOnMap(x, y))
      return;
    EraseZoomBox();
    zoomBox_ = {.active = true, .x1 = x, .y1 = y, .x2 = x, .y2 = y};
  } else if (buttons.testFlag(Qt::RightButton)) {
    emit PopupRequested(event->globalPosition().toPoint());
  }
}

void frmMap::mouseMoveEvent(QMouseEvent* event) {
  const float x = Twips(event->position().x());
  const float y = Twips(event->position().y());
  if (!scene_.viewport.IsOnMap(x, y))
    return;
  ShowPosition(x, y);
  if (event->buttons().testFlag(Qt::LeftButton) && zoomBox_.active)
    MoveZoomBox(x, y);
}

void frmMap::ShowPosition(float x, float y) {
  const map::LonLat position = map::ToGeographic(scene_.viewport.Unproject(x, y));
  emit PositionChanged(QString::fromStdString(map::LonText(position.lon)),
                       QString::fromStdString(map::LatText(position.lat)));
}

void frmMap::MoveZoomBox(float x, float y) {
  InvertZoomBox();  // the box of the last move; at the first one, the point of the press
  zoomBox_.x2 = LimitedX(x);
  zoomBox_.y2 = LimitedY(y);
  InvertZoomBox();
  zoomBox_.drawn = true;
}

void frmMap::InvertZoomBox() {
  DrawOnPicture([this](map::Surface& surface) {
    surface.BeginLayer(map::Layer::kZoomBox);
    surface.Rectangle({Whole(zoomBox_.x1), Whole(zoomBox_.y1)}, {Whole(zoomBox_.x2), Whole(zoomBox_.y2)},
                      {.colour = scene_.tables.colours[data::ColourCode::kZoom],
                       .style = map::LineStyle::kDotted,
                       .mode = map::PenMode::kXor});
  });
}

void frmMap::EraseZoomBox() {
  if (!zoomBox_.drawn)
    return;
  InvertZoomBox();
  zoomBox_.drawn = false;
}

void frmMap::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !zoomBox_.active)
    return;
  zoomBox_.active = false;
  const float x2 = LimitedX(Twips(event->position().x()));
  const float y2 = LimitedY(Twips(event->position().y()));
  const bool noWidth = zoomBox_.x1 == x2;
  const bool noHeight = zoomBox_.y1 == y2;
  bool changed = false;
  if (noWidth && noHeight)
    changed = scene_.viewport.CentreOn(x2, y2);
  else if (!noWidth && !noHeight)
    changed = scene_.viewport.ZoomToBox(zoomBox_.x1, zoomBox_.y1, x2, y2);
  if (changed)
    RecomputeAndRedraw();
  else
    EraseZoomBox();
}

float frmMap::LimitedX(float x) const {
  return std::clamp(x, 0.0F, static_cast<float>(std::max(0, scene_.viewport.MapWidth)));
}

float frmMap::LimitedY(float y) const {
  return std::clamp(y, 0.0F, static_cast<float>(std::max(0, scene_.viewport.MapHeight)));
}

}  // namespace zerbal::app
