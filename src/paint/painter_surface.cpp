#include "paint/painter_surface.h"

#include <QPaintEngine>
#include <algorithm>
#include <cmath>

#include "paint/colour.h"
#include "paint/prepared_pictures.h"

namespace zerbal::paint {
namespace {

ClipArea Around(const QRectF& area) {
  const auto whole = [](double value) { return static_cast<std::int32_t>(std::clamp(value, -1e8, 1e8)); };
  return {whole(area.left() - area.width()), whole(area.top() - area.height()),
          whole(area.right() + area.width()), whole(area.bottom() + area.height())};
}

}  // namespace

PainterSurface::PainterSurface(QPainter& painter, double scale, const QRectF& area)
    : painter_(painter), scale_(scale), area_(area), near_(Around(area)) {
  painter_.setBrush(Qt::NoBrush);
}

void PainterSurface::Clear(data::Rgb colour) {
  painter_.fillRect(area_, ToQColor(colour));
}

void PainterSurface::UsePen(const map::Pen& pen) {
  if (pen_ == pen)
    return;
  pen_ = pen;
  // Smooth lines into pixels would lie between two rows. Vector devices have a finer grid.
  const bool smooth = painter_.paintEngine()->type() == QPaintEngine::Raster &&
                      pen.style == map::LineStyle::kSolid && pen.mode == map::PenMode::kCopy;
  painter_.setRenderHint(QPainter::Antialiasing, smooth);
  middle_ = smooth ? scale_.LineWidth(1) / 2.0 : 0;
  QPen result(ToQColor(pen.colour),
              smooth && pen.width == 1 ? scale_.SmoothLineWidth() : scale_.LineWidth(pen.width));
  if (pen.style == map::LineStyle::kDotted) {
    result.setCapStyle(Qt::FlatCap);
    result.setDashPattern({1, 1});
  } else {
    result.setCapStyle(pen.width > 1 ? Qt::FlatCap : Qt::SquareCap);
    result.setJoinStyle(Qt::RoundJoin);
  }
  painter_.setPen(result);
  // Devices that cannot invert, such as printers, show the colour.
  const bool invert =
      pen.mode == map::PenMode::kXor && painter_.paintEngine()->hasFeature(QPaintEngine::RasterOpModes);
  painter_.setCompositionMode(invert ? QPainter::RasterOp_SourceXorDestination
                                     : QPainter::CompositionMode_SourceOver);
}

void PainterSurface::DrawRun() {
  painter_.translate(middle_, middle_);
  if (run_.size() > 1)
    painter_.drawPolyline(run_.data(), static_cast<int>(run_.size()));
  else if (run_.size() == 1 && middle_ > 0)  // A smooth point would be one pixel further.
    painter_.fillRect(QRectF(run_.front(), QSizeF(0, 0)).adjusted(-middle_, -middle_, middle_, middle_),
                      painter_.pen().color());
  else if (run_.size() == 1)
    painter_.drawPoint(run_.front());
  painter_.translate(-middle_, -middle_);
  run_.clear();
}

void PainterSurface::Polyline(std::span<const TwipPoint> points, const map::Pen& pen) {
  if (points.size() < 2)
    return;
  UsePen(pen);
  run_.clear();
  for (std::size_t i = 1; i < points.size(); ++i) {
    PixelPoint from = scale_.ToPixelPoint(points[i - 1]);
    PixelPoint to = scale_.ToPixelPoint(points[i]);
    const PixelPoint wholeTo = to;
    if (!near_.Clip(from, to)) {
      DrawRun();
      continue;
    }
    if (run_.empty() || run_.back() != QPoint(from.x, from.y)) {
      DrawRun();
      run_.emplace_back(from.x, from.y);
    }
    if (to != from)
      run_.emplace_back(to.x, to.y);
    if (to != wholeTo)
      DrawRun();
  }
  DrawRun();
}

void PainterSurface::Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) {
  const TwipPoint corners[] = {corner1, {corner2.x, corner1.y}, corner2, {corner1.x, corner2.y}, corner1};
  Polyline(corners, pen);
}

void PainterSurface::Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) {
  const PixelPoint at = scale_.ToPixelPoint(centre);
  const double reach = std::clamp(scale_.Length(radius), 0.0, area_.width() + area_.height());
  if (!QRectF(near_.left - reach, near_.top - reach, near_.right - near_.left + 2 * reach,
              near_.bottom - near_.top + 2 * reach)
           .contains(at.x, at.y))
    return;
  UsePen({.colour = colour});
  const double middle = scale_.LineWidth(1) / 2.0;
  painter_.save();
  painter_.setRenderHint(QPainter::Antialiasing);
  if (fill)
    painter_.setBrush(ToQColor(colour));
  painter_.drawEllipse(QPointF(at.x + middle, at.y + middle), reach, reach);
  painter_.restore();
}

const QFont& PainterSurface::UseFont(const map::TextFont& font) {
  if (fontName_ != font || fontName_.name.empty()) {
    fontName_ = font;
    font_ = DeviceFont(font, scale_, *painter_.device());
  }
  return font_;
}

void PainterSurface::Text(TwipPoint topLeft, std::string_view text, data::Rgb colour,
                          const map::TextFont& font) {
  const PixelPoint at = scale_.ToPixelPoint(topLeft);
  if (text.empty() || !near_.Holds(at))
    return;
  UsePen({.colour = colour});
  painter_.setFont(UseFont(font));
  const int ascent = static_cast<int>(std::ceil(painter_.fontMetrics().ascent()));
  painter_.drawText(QPoint(at.x, at.y + ascent),
                    QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

}  // namespace zerbal::paint
