// Draws with a QPainter on any device that Qt supports, such as a printer, a PDF or an SVG file.
#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <optional>
#include <vector>

#include "map/surface.h"
#include "paint/clip_area.h"

namespace zerbal::paint {

/// `scale` is the number of painter units per logical pixel; `area` is what Clear fills. The painter must
/// outlive the surface. A run of points is drawn by one call; a point on the same unit as the one before is
/// dropped.
class PainterSurface final : public map::Surface {
 public:
  PainterSurface(QPainter& painter, double scale, const QRectF& area);

  void BeginLayer(map::Layer) override {}
  void Clear(data::Rgb colour) override;
  void Polyline(std::span<const TwipPoint> points, const map::Pen& pen) override;
  void Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) override;
  void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) override;
  void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const map::TextFont& font) override;

 private:
  void UsePen(const map::Pen& pen);
  const QFont& UseFont(const map::TextFont& font);
  void DrawRun();

  QPainter& painter_;
  PixelScale scale_;
  QRectF area_;
  ClipArea near_;  ///< what can be visible: the area and as much again on every side
  std::vector<QPoint> run_;
  std::optional<map::Pen> pen_;  ///< current pen of the painter
  double middle_ = 0;            ///< from a point to the middle of the current pen's line
  map::TextFont fontName_;       ///< of font_
  QFont font_;
};

}  // namespace zerbal::paint
