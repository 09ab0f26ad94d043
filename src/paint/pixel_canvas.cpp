#include "paint/pixel_canvas.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>

namespace zerbal::paint {
namespace {

/// A bar with soft edges around a line, half a pixel longer at both ends.
class Bar {
 public:
  Bar(PixelPosition from, PixelPosition to, double width)
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
    : pixels_(reinterpret_cast<std::uint32_t*>(image.bits())),
      stride_(image.bytesPerLine() / static_cast<qsizetype>(sizeof(std::uint32_t))),
      width_(image.width()),
      height_(image.height()) {
  Q_ASSERT(image.isNull() || image.format() == QImage::Format_RGB32);
}

std::uint32_t PixelCanvas::Pixel(data::Rgb colour) {
  return qRgb(colour.red, colour.green, colour.blue);
}

void PixelCanvas::Fill(std::uint32_t pixel) {
  background_ = pixel;
  for (int y = 0; y < height_; ++y)
    std::fill_n(pixels_ + y * stride_, width_, pixel);
}

void PixelCanvas::ThinLine(PixelPoint from, PixelPoint to, std::uint32_t pixel) {
  int length = std::abs(to.x - from.x);
  int aside = std::abs(to.y - from.y);
  const bool flat = length >= aside;
  if (!flat)
    std::swap(length, aside);
  // Always rightwards or downwards, so that both directions of a line give the same pixels.
  if (flat ? to.x < from.x : to.y < from.y)
    std::swap(from, to);
  const std::ptrdiff_t down = to.y < from.y ? -stride_ : stride_;
  const std::ptrdiff_t right = to.x < from.x ? -1 : 1;
  const std::ptrdiff_t along = flat ? right : down;
  const std::ptrdiff_t across = flat ? down : right;
  std::uint32_t* at = pixels_ + from.y * stride_ + from.x;
  *at = pixel;
  int error = 2 * aside - length;
  for (int step = 0; step < length; ++step) {
    const bool turn = error > 0;
    at += turn ? along + across : along;
    error += turn ? 2 * (aside - length) : 2 * aside;
    *at = pixel;
  }
}

void PixelCanvas::WideLine(PixelPoint from, PixelPoint to, std::uint32_t pixel, int width) {
  const int dx = std::abs(to.x - from.x);
  const int dy = std::abs(to.y - from.y);
  if (dx == 0 && dy == 0) {
    Block(from.x - (width - 1) / 2, from.y - (width - 1) / 2, width, width, pixel, false);
    return;
  }
  for (int i = 0; i < width; ++i) {
    const int aside = i - (width - 1) / 2;
    const PixelPoint shift = dx >= dy ? PixelPoint{0, aside} : PixelPoint{aside, 0};
    Line({from.x + shift.x, from.y + shift.y}, {to.x + shift.x, to.y + shift.y}, pixel, 1);
  }
}

void PixelCanvas::Line(PixelPoint from, PixelPoint to, std::uint32_t pixel, int width) {
  if (width <= 1) {
    if ((Holds(from) && Holds(to)) || Area(0).Clip(from, to))
      ThinLine(from, to, pixel);
  } else if (Area(2 * width).Clip(from, to)) {
    WideLine(from, to, pixel, width);
  }
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

void PixelCanvas::SmoothLine(PixelPosition from, PixelPosition to, std::uint32_t pixel, double width) {
  const Bar bar(from, to, width);
  const Bar::Pixels around = bar.Within(width_, height_);
  if (around.right <= around.left)
    return;
  const Ink& ink = InkOf(pixel);
  coverage_.resize(static_cast<std::size_t>(around.right - around.left));
  for (int y = around.top; y < around.bottom; ++y) {
    bar.CoverRow(around.left, y, coverage_);
    ink.Cover(pixels_ + y * stride_ + around.left, coverage_.data(), around.right - around.left);
  }
}

void PixelCanvas::Blend(const Mask& mask, PixelPoint place, std::uint32_t pixel) {
  const std::int64_t left = std::int64_t{place.x} + mask.left;
  const std::int64_t top = std::int64_t{place.y} + mask.top;
  const auto firstColumn = static_cast<int>(std::clamp<std::int64_t>(-left, 0, mask.width));
  const auto lastColumn = static_cast<int>(std::clamp<std::int64_t>(width_ - left, 0, mask.width));
  const auto firstRow = static_cast<int>(std::clamp<std::int64_t>(-top, 0, mask.height));
  const auto lastRow = static_cast<int>(std::clamp<std::int64_t>(height_ - top, 0, mask.height));
  if (lastColumn <= firstColumn)
    return;
  const Ink& ink = InkOf(pixel);
  const std::uint8_t* coverage = mask.coverage.data() + std::ptrdiff_t{firstRow} * mask.width + firstColumn;
  std::uint32_t* at = pixels_ + (top + firstRow) * stride_ + left + firstColumn;
  for (int row = firstRow; row < lastRow; ++row, coverage += mask.width, at += stride_)
    ink.Cover(at, coverage, lastColumn - firstColumn);
}

void PixelCanvas::Block(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height,
                        std::uint32_t pixel, bool invert) {
  const auto left = std::max<std::int64_t>(x, 0);
  const auto right = std::min<std::int64_t>(x + width, width_);
  const auto top = std::max<std::int64_t>(y, 0);
  const auto bottom = std::min<std::int64_t>(y + height, height_);
  for (std::int64_t row = top; row < bottom; ++row) {
    std::uint32_t* line = pixels_ + row * stride_;
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

  const std::int64_t pastRight = std::min<std::int64_t>(right + size, width_);
  const auto horizontal = [&](std::int64_t y) {
    for (std::int64_t x = firstDot(left); x < pastRight; x += period)
      Block(x, y, std::min(size, right + size - x), size, pixel, dots.invert);
  };
  horizontal(top);
  if (bottom >= top + size)
    horizontal(bottom);

  // The sides fill the space between top and bottom; their dots are in phase with those at the corners.
  const std::int64_t sideTop = top + size;
  const std::int64_t pastSide = std::min<std::int64_t>(bottom, height_);
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
