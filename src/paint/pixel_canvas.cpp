#include "paint/pixel_canvas.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace zerbal::paint {
namespace {

/// A bar with soft edges around a line, half a pixel longer at both ends.
class BarShape {
 public:
  BarShape(PixelPosition from, PixelPosition to, double width)
      : middle_{(from.x + to.x) / 2, (from.y + to.y) / 2}, reachAside_(width / 2) {
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double length = std::hypot(dx, dy);
    if (length > 0) {
      ux_ = dx / length;
      uy_ = dy / length;
    }
    reachAlong_ = length / 2 + 0.5;
  }

  /// Left and top are inclusive, right and bottom exclusive.
  struct Pixels {
    int left, top, right, bottom;
  };
  /// The pixels of a picture that the bar can touch.
  Pixels Within(int width, int height) const {
    // Half the extent of the slanted bar on both axes, soft edge included.
    const double halfWidth = std::abs(ux_) * (reachAlong_ + 1) + std::abs(uy_) * (reachAside_ + 1);
    const double halfHeight = std::abs(uy_) * (reachAlong_ + 1) + std::abs(ux_) * (reachAside_ + 1);
    const auto first = [](double value) { return static_cast<int>(std::max(value, 0.0)); };
    const auto past = [](double value, int limit) {
      return static_cast<int>(std::clamp<double>(value, 0, limit));
    };
    return {first(middle_.x - halfWidth), first(middle_.y - halfHeight),
            past(middle_.x + halfWidth + 1, width), past(middle_.y + halfHeight + 1, height)};
  }

  /// The coverage of the pixels of row `y` from column `left`.
  void CoverRow(int left, int y, std::span<std::uint8_t> row) const {
    // The distance of the pixel's middle inside the bar's edges plus half a pixel: outside from 0 down,
    // inside from 1 up. The distances along and across change by a fixed step per pixel.
    const auto stepAlong = static_cast<float>(ux_);
    const auto stepAside = static_cast<float>(uy_);
    const auto edgeAlong = static_cast<float>(reachAlong_ + 0.5);
    const auto edgeAside = static_cast<float>(reachAside_ + 0.5);
    const double px = left + 0.5 - middle_.x;
    const double py = y + 0.5 - middle_.y;
    auto along = static_cast<float>(px * ux_ + py * uy_);
    auto aside = static_cast<float>(px * uy_ - py * ux_);
    for (std::uint8_t& coverage : row) {
      const float insideAlong = std::clamp(edgeAlong - std::abs(along), 0.0F, 1.0F);
      const float insideAside = std::clamp(edgeAside - std::abs(aside), 0.0F, 1.0F);
      // Never negative, so no call is needed to round. NOLINTNEXTLINE(bugprone-incorrect-roundings)
      coverage = static_cast<std::uint8_t>(insideAlong * insideAside * 255 + 0.5F);
      along += stepAlong;
      aside += stepAside;
    }
  }

 private:
  PixelPosition middle_;
  // Unit vector along the line; horizontal for a line without length.
  double ux_ = 1;
  double uy_ = 0;
  // Half its length and half its width.
  double reachAlong_ = 0;
  double reachAside_ = 0;
};

}  // namespace

PixelCanvas::PixelCanvas(QImage& image)
    : grid_{reinterpret_cast<std::uint32_t*>(image.bits()),
            image.bytesPerLine() / static_cast<qsizetype>(sizeof(std::uint32_t)), image.width(),
            image.height()} {
  Q_ASSERT(image.isNull() || image.format() == QImage::Format_RGB32);
}

std::uint32_t PixelCanvas::Pixel(data::Rgb colour) {
  return qRgb(colour.red, colour.green, colour.blue);
}

void PixelCanvas::Fill(std::uint32_t pixel) {
  background_ = pixel;
  for (int y = 0; y < grid_.height; ++y)
    std::fill_n(grid_.pixels + y * grid_.stride, grid_.width, pixel);
}

const Ink& PixelCanvas::InkOf(std::uint32_t pixel) {
  for (const Ink& ink : inks_) {
    if (ink.Is(background_, pixel))
      return ink;
  }
  Ink& ink = inks_[nextInk_];
  nextInk_ = (nextInk_ + 1) % inks_.size();
  ink = Ink(background_, pixel);
  return ink;
}

const LineInk& PixelCanvas::LineInkOf(std::uint32_t pixel) {
  if (!lineInk_.Is(background_, pixel))
    lineInk_ = LineInk(background_, pixel);
  return lineInk_;
}

void PixelCanvas::Bar(PixelPosition from, PixelPosition to, std::uint32_t pixel, double width) {
  const BarShape bar(from, to, width);
  const BarShape::Pixels around = bar.Within(grid_.width, grid_.height);
  if (around.right <= around.left)
    return;
  const Ink& ink = InkOf(pixel);
  coverage_.resize(static_cast<std::size_t>(around.right - around.left));
  for (int y = around.top; y < around.bottom; ++y) {
    bar.CoverRow(around.left, y, coverage_);
    ink.Cover(grid_.pixels + y * grid_.stride + around.left, coverage_.data(), around.right - around.left);
  }
}

void PixelCanvas::Blend(const Mask& mask, PixelPoint place, std::uint32_t pixel) {
  const std::int64_t left = std::int64_t{place.x} + mask.left;
  const std::int64_t top = std::int64_t{place.y} + mask.top;
  const auto firstColumn = static_cast<int>(std::clamp<std::int64_t>(-left, 0, mask.width));
  const auto lastColumn = static_cast<int>(std::clamp<std::int64_t>(grid_.width - left, 0, mask.width));
  const auto firstRow = static_cast<int>(std::clamp<std::int64_t>(-top, 0, mask.height));
  const auto lastRow = static_cast<int>(std::clamp<std::int64_t>(grid_.height - top, 0, mask.height));
  if (lastColumn <= firstColumn)
    return;
  const Ink& ink = InkOf(pixel);
  const std::uint8_t* coverage = mask.coverage.data() + std::ptrdiff_t{firstRow} * mask.width + firstColumn;
  std::uint32_t* at = grid_.pixels + (top + firstRow) * grid_.stride + left + firstColumn;
  for (int row = firstRow; row < lastRow; ++row, coverage += mask.width, at += grid_.stride)
    ink.Cover(at, coverage, lastColumn - firstColumn);
}

void PixelCanvas::Block(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height,
                        std::uint32_t pixel, bool invert) {
  const auto left = std::max<std::int64_t>(x, 0);
  const auto right = std::min<std::int64_t>(x + width, grid_.width);
  const auto top = std::max<std::int64_t>(y, 0);
  const auto bottom = std::min<std::int64_t>(y + height, grid_.height);
  for (std::int64_t row = top; row < bottom; ++row) {
    std::uint32_t* line = grid_.pixels + row * grid_.stride;
    for (std::int64_t column = left; column < right; ++column)
      line[column] = invert ? line[column] ^ (pixel & 0x00FFFFFFU) : pixel;
  }
}

void PixelCanvas::Rectangle(PixelPoint corner1, PixelPoint corner2, std::uint32_t pixel, const Dots& dots) {
  const std::int64_t size = std::max(1, dots.size);
  const std::int64_t left = std::min(corner1.x, corner2.x);
  const std::int64_t right = std::max(corner1.x, corner2.x);
  const std::int64_t top = std::min(corner1.y, corner2.y);
  const std::int64_t bottom = std::max(corner1.y, corner2.y);
  const std::int64_t period = dots.dotted ? 2 * size : size;
  // The first dot of the pattern starting at `from` that can touch the picture.
  const auto firstDot = [&](std::int64_t from) {
    return from < -size ? from + (-size - from) / period * period : from;
  };

  const std::int64_t pastRight = std::min<std::int64_t>(right + size, grid_.width);
  const auto horizontal = [&](std::int64_t y) {
    for (std::int64_t x = firstDot(left); x < pastRight; x += period)
      Block(x, y, std::min(size, right + size - x), size, pixel, dots.invert);
  };
  horizontal(top);
  if (bottom >= top + size)
    horizontal(bottom);

  // The sides fill the space between top and bottom; their dots are in phase with those at the corners.
  const std::int64_t sideTop = top + size;
  const std::int64_t pastSide = std::min<std::int64_t>(bottom, grid_.height);
  const auto vertical = [&](std::int64_t x) {
    for (std::int64_t y = firstDot(top + period); y < pastSide; y += period) {
      const std::int64_t from = std::max(y, sideTop);
      Block(x, from, size, std::min(y + size, bottom) - from, pixel, dots.invert);
    }
  };
  vertical(left);
  if (right >= left + size)
    vertical(right);
}

}  // namespace zerbal::paint
