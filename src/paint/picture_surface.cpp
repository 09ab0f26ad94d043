#include "paint/picture_surface.h"

#include <algorithm>
#include <cmath>

#include "base/utf8.h"

namespace zerbal::paint {
namespace {

/// Twips. Larger discs are not markers and are not kept as masks.
constexpr std::int32_t kLargestMarker = 300;
/// Twips. All strokes of symbols are shorter.
constexpr double kLongestSmoothStroke = 600;

}  // namespace

PictureSurface::PictureSurface(QImage& picture, double scale, PreparedPictures& prepared)
    : picture_(picture), scale_(scale), prepared_(prepared), canvas_(picture) {}

PictureSurface::~PictureSurface() = default;

PainterSurface& PictureSurface::Rest() {
  if (!rest_) {
    painter_.emplace(&picture_);
    rest_.emplace(*painter_, scale_.Ratio(), QRectF(picture_.rect()));
  }
  return *rest_;
}

void PictureSurface::Clear(data::Rgb colour) {
  canvas_.Fill(PixelCanvas::Pixel(colour));
}

void PictureSurface::Polyline(std::span<const TwipPoint> points, const map::Pen& pen) {
  if (picture_.isNull())
    return;
  if (pen.style != map::LineStyle::kSolid || pen.mode != map::PenMode::kCopy) {
    Rest().Polyline(points, pen);
    return;
  }
  if (points.size() < 2)
    return;
  const std::uint32_t pixel = PixelCanvas::Pixel(pen.colour);
  if (pen.width > 1) {
    for (std::size_t i = 1; i < points.size(); ++i)
      Stroke(points[i - 1], points[i], pixel, pen.width);
    return;
  }
  const int width = scale_.LineWidth(1);
  PixelPoint from = scale_.ToPixelPoint(points.front());
  bool drawn = false;
  for (const TwipPoint& twips : points.subspan(1)) {
    const PixelPoint to = scale_.ToPixelPoint(twips);
    if (to == from)
      continue;
    canvas_.Line(from, to, pixel, width);
    from = to;
    drawn = true;
  }
  if (!drawn)
    canvas_.Line(from, from, pixel, width);
}

void PictureSurface::Stroke(TwipPoint from, TwipPoint to, std::uint32_t pixel, int width) {
  // Strokes along an axis have crisp edges anyway; the cost of smooth ones grows with the area around them.
  const double length = std::hypot(static_cast<double>(from.x) - to.x, static_cast<double>(from.y) - to.y);
  if (from.x == to.x || from.y == to.y || length > kLongestSmoothStroke) {
    // A slanted line needs more pixels across to look as wide as a straight one.
    const double reach =
        std::max(std::abs(static_cast<double>(from.x) - to.x), std::abs(static_cast<double>(from.y) - to.y));
    const double slant = reach > 0 ? length / reach : 1;
    const int across = static_cast<int>(std::lround(scale_.LineWidth(width) * slant));
    canvas_.Line(scale_.ToPixelPoint(from), scale_.ToPixelPoint(to), pixel, across);
    return;
  }
  canvas_.SmoothLine(scale_.ToPixelPosition(from), scale_.ToPixelPosition(to), pixel, width * scale_.Ratio());
}

void PictureSurface::Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) {
  canvas_.Rectangle(scale_.ToPixelPoint(corner1), scale_.ToPixelPoint(corner2),
                    PixelCanvas::Pixel(pen.colour),
                    {.size = scale_.LineWidth(pen.width),
                     .dotted = pen.style == map::LineStyle::kDotted,
                     .invert = pen.mode == map::PenMode::kXor});
}

void PictureSurface::Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) {
  if (picture_.isNull())
    return;
  if (!fill || radius < 0 || radius > kLargestMarker) {
    Rest().Circle(centre, radius, colour, fill);
    return;
  }
  canvas_.Blend(prepared_.Disc(radius, scale_), scale_.ToPixelPoint(centre), PixelCanvas::Pixel(colour));
}

GlyphSet& PictureSurface::Glyphs(const map::TextFont& font) {
  if (glyphs_ == nullptr || font_ != font) {
    font_ = font;
    glyphs_ = &prepared_.Glyphs(font, scale_);
  }
  return *glyphs_;
}

void PictureSurface::Text(TwipPoint topLeft, std::string_view text, data::Rgb colour,
                          const map::TextFont& font) {
  if (picture_.isNull())
    return;
  GlyphSet& glyphs = Glyphs(font);
  for (std::string_view rest = text; !rest.empty();) {
    if (!glyphs.Of(base::TakeUtf8(rest)).known) {
      Rest().Text(topLeft, text, colour, font);
      return;
    }
  }
  const PixelPoint at = scale_.ToPixelPoint(topLeft);
  const std::uint32_t pixel = PixelCanvas::Pixel(colour);
  if (at.x >= picture_.width() || at.y >= picture_.height())
    return;
  std::int64_t x = at.x;
  const auto baseLine = static_cast<int>(std::int64_t{at.y} + glyphs.Ascent());
  for (std::string_view rest = text; !rest.empty() && x < picture_.width();) {
    const GlyphSet::Glyph& glyph = glyphs.Of(base::TakeUtf8(rest));
    canvas_.Blend(glyph.mask, {static_cast<int>(x), baseLine}, pixel);
    x += glyph.advance;
  }
}

}  // namespace zerbal::paint
