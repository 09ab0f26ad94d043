#include "paint/picture_surface.h"

#include <algorithm>
#include <cmath>

namespace zerbal::paint {
namespace {

/// Twips. Larger discs are not markers and are not kept as masks.
constexpr std::int32_t kLargestMarker = 300;
/// What can be drawn in 256ths of a pixel.
constexpr ClipArea kFineArea{-PixelScale::kFinestTwips, -PixelScale::kFinestTwips, PixelScale::kFinestTwips,
                             PixelScale::kFinestTwips};

bool IsFine(TwipPoint point) {
  constexpr auto kReach = static_cast<std::uint32_t>(PixelScale::kFinestTwips);
  return static_cast<std::uint32_t>(point.x) + kReach <= 2 * kReach &&
         static_cast<std::uint32_t>(point.y) + kReach <= 2 * kReach;
}

}  // namespace

PictureSurface::PictureSurface(QImage& picture, PictureBand band, double scale, PreparedPictures& prepared)
    : picture_(picture),
      band_(band),
      scale_(scale),
      lineWidth_(scale_.LineWidth(1)),
      softWidth_(static_cast<int>(std::lround(scale_.SmoothLineWidth() * kFinePerPixel))),
      prepared_(prepared),
      run_(scale_, lineWidth_),
      canvas_(picture, band.top) {}

PictureSurface::~PictureSurface() = default;

PainterSurface& PictureSurface::Rest() {
  if (!rest_) {
    painter_.emplace(picture_, band_);
    rest_.emplace(painter_->Painter(), scale_.Ratio(), painter_->Area());
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
  if (std::all_of(points.begin(), points.end(), IsFine))
    ThinRun(points, pixel);
  else
    ThinParts(points, pixel);
}

void PictureSurface::ThinParts(std::span<const TwipPoint> points, std::uint32_t pixel) {
  for (std::size_t i = 1; i < points.size(); ++i) {
    TwipPoint ends[] = {points[i - 1], points[i]};
    if (kFineArea.Clip(ends[0], ends[1]))
      ThinRun(ends, pixel);
  }
}

void PictureSurface::ThinRun(std::span<const TwipPoint> points, std::uint32_t pixel) {
  const std::span<const FinePoint> corners = run_.Corners(points);
  const LineInk& ink = canvas_.LineInkOf(pixel);
  const std::int32_t edge = softWidth_ - lineWidth_ * kFinePerPixel;
  const auto drawCrisp = [&](FinePoint from, FinePoint to) {
    const PixelPoint corner = run_.PixelOf({std::min(from.x, to.x), std::min(from.y, to.y)});
    const PixelPoint last = run_.PixelOf({std::max(from.x, to.x), std::max(from.y, to.y)});
    canvas_.SoftBlock(corner.x, corner.y, last.x - corner.x + lineWidth_, last.y - corner.y + lineWidth_,
                      edge, ink);
  };
  if (corners.size() == 1)
    drawCrisp(corners.front(), corners.front());
  LineEnds ends;
  int direction = corners.size() > 1 ? run_.DirectionAt(0) : LineRun::kCrisp;
  for (std::size_t i = 1; i < corners.size(); ++i) {
    const int next = i + 1 < corners.size() ? run_.DirectionAt(i) : LineRun::kCrisp;
    // Where the direction changes, it is enough that one of both lines covers the corner.
    ends.openTo = next != LineRun::kCrisp;
    if (direction == LineRun::kCrisp)
      drawCrisp(corners[i - 1], corners[i]);
    else
      canvas_.Line(corners[i - 1], corners[i], softWidth_, ink, ends);
    ends.openFrom = direction == next;
    direction = next;
  }
}

void PictureSurface::Stroke(TwipPoint from, TwipPoint to, std::uint32_t pixel, int width) {
  // Strokes along an axis have crisp edges.
  if (from.x == to.x || from.y == to.y) {
    const int across = scale_.LineWidth(width);
    const PixelPoint first = scale_.ToPixelPoint({std::min(from.x, to.x), std::min(from.y, to.y)});
    const PixelPoint last = scale_.ToPixelPoint({std::max(from.x, to.x), std::max(from.y, to.y)});
    const std::int64_t aside = (across - lineWidth_) / 2;
    const bool flat = from.x != to.x;
    const bool steep = from.y != to.y;
    canvas_.Block(flat ? first.x : first.x - aside, steep ? first.y : first.y - aside,
                  flat ? std::int64_t{last.x} - first.x + 1 : across,
                  steep ? std::int64_t{last.y} - first.y + 1 : across, pixel);
    return;
  }
  if (!kFineArea.Clip(from, to))
    return;
  const double across = std::max(width * scale_.Ratio(), 1.0);
  canvas_.Line(run_.Beside(from), run_.Beside(to), static_cast<std::int32_t>(across * kFinePerPixel),
               canvas_.LineInkOf(pixel), {.flat = true});
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
  if (!label_.Compose(Glyphs(font), text)) {
    Rest().Text(topLeft, text, colour, font);
    return;
  }
  const PixelPoint at = scale_.ToPixelPoint(topLeft);
  if (at.x >= picture_.width() || at.y - band_.top >= picture_.height())
    return;
  canvas_.Blend(label_.Shape(), {at.x, at.y}, PixelCanvas::Pixel(colour));
}

}  // namespace zerbal::paint
