#include "print/print_painter.h"

#include <QPainterPath>
#include <cmath>

#include "paint/colour.h"
#include "paint/pixel_canvas.h"
#include "print/long_lines.h"

namespace zerbal::print {
namespace {

/// From a point to the middle of a line through it: lines stand for whole pixels from their points on.
double AsideOf(double scale) {
  return (PixelScale(scale).LineWidth(1) - 1) / 2.0;
}

QPen PenOf(const StrokeStyle& style, double ratio) {
  QPen pen(paint::ToQColor(style.colour), style.width * ratio);
  pen.setJoinStyle(Qt::RoundJoin);
  pen.setCapStyle(style.dashes.empty() ? Qt::RoundCap : Qt::FlatCap);
  QList<qreal> dashes;
  for (const double length : style.dashes)
    dashes.append(length / style.width);
  if (!dashes.isEmpty())
    pen.setDashPattern(dashes);
  return pen;
}

/// Changes of the painter's state end with it.
class SavedPainter {
 public:
  explicit SavedPainter(QPainter& painter) : painter_(painter) {
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
  }
  ~SavedPainter() { painter_.restore(); }
  SavedPainter(const SavedPainter&) = delete;
  SavedPainter& operator=(const SavedPainter&) = delete;

 private:
  QPainter& painter_;
};

}  // namespace

QPointF PrintPainter::At(TwipPoint point) const {
  const PixelPosition at = scale_.ToPixelPosition(point);
  return {at.x + aside_, at.y + aside_};
}

void PrintPainter::Fill(std::span<const Ring> rings, data::Rgb colour) {
  QPainterPath path;
  path.setFillRule(Qt::OddEvenFill);
  for (const Ring& ring : rings) {
    if (ring.size() < 3)
      continue;
    path.moveTo(At(ring.front()));
    for (const TwipPoint point : std::span(ring).subspan(1))
      path.lineTo(At(point));
    path.closeSubpath();
  }
  if (path.isEmpty())
    return;
  QPainter& painter = painter_();
  const SavedPainter saved(painter);
  painter.fillPath(path, paint::ToQColor(colour));
}

void PrintPainter::Stroke(std::span<const TwipPoint> points, const StrokeStyle& style) {
  if (points.size() < 2 || !(style.width > 0))
    return;
  QPolygonF line;
  for (const TwipPoint point : points)
    line.append(At(point));
  QPainter& painter = painter_();
  const SavedPainter saved(painter);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(PenOf(style, scale_.Ratio()));
  painter.drawPolyline(line);
}

void PrintPainter::StyledText(TwipPoint topLeft, std::string_view text, const TextStyle& style) {
  if (text.empty())
    return;
  if (style.halo)
    DrawHalo(topLeft, text, style.font, *style.halo);
  base_.Text(topLeft, text, style.colour, style.font);
}

void PrintPainter::DrawHalo(TwipPoint topLeft, std::string_view text, const map::TextFont& font,
                            data::Rgb colour) {
  QPainter& painter = painter_();
  const SavedPainter saved(painter);
  // Paths have the size of the font on its own device.
  const QFont device(paint::DeviceFont(font, scale_, *painter.device()), painter.device());
  const PixelPoint at = scale_.ToPixelPoint(topLeft);
  painter.setFont(device);
  const double ascent = std::ceil(painter.fontMetrics().ascent());
  QPainterPath letters;
  letters.addText(QPointF(at.x, at.y + ascent), device,
                  QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  painter.strokePath(letters, PenOf({.colour = colour, .width = 2 * kHaloReach}, scale_.Ratio()));
}

PrintPicture::PrintPicture(QImage& rows, paint::PictureBand band, double scale, Tools& tools)
    : PrintPainter(
          surface_,
          [this]() -> QPainter& {
            if (!painter_)
              painter_.emplace(rows_, band_);
            return painter_->Painter();
          },
          scale, AsideOf(scale), tools.meter),
      rows_(rows),
      band_(band),
      tools_(tools),
      surface_(rows, band, scale, tools.prepared) {}

void PrintPicture::Fill(std::span<const Ring> rings, data::Rgb colour) {
  if (!fill_)
    fill_.emplace(rows_, band_.top);
  const auto at = [this](TwipPoint point) {
    const QPointF place = At(point);
    return PixelPosition{place.x(), place.y()};
  };
  for (const Ring& ring : rings) {
    for (std::size_t i = 0; i < ring.size(); ++i)
      fill_->AddSide(at(ring[i]), at(ring[(i + 1) % ring.size()]));
  }
  fill_->Colour(paint::PixelCanvas::Pixel(colour));
}

void PrintPicture::Stroke(std::span<const TwipPoint> points, const StrokeStyle& style) {
  PrintPainter::Stroke(InPieces(points), style);
}

void PrintPicture::DrawHalo(TwipPoint topLeft, std::string_view text, const map::TextFont& font,
                            data::Rgb colour) {
  if (!tools_.halos.Draw(rows_, band_, topLeft, text, font, colour))
    PrintPainter::DrawHalo(topLeft, text, font, colour);
}

}  // namespace zerbal::print
