#include "paint/pixel_canvas.h"

#include <algorithm>

namespace zerbal::paint {

PixelCanvas::PixelCanvas(QImage& image, int top)
    : grid_{reinterpret_cast<std::uint32_t*>(image.bits()),
            image.bytesPerLine() / static_cast<qsizetype>(sizeof(std::uint32_t)), image.width(),
            image.height()},
      top_(top) {
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

const LineInk& PixelCanvas::LineInkOf(std::uint32_t pixel) {
  for (const LineInk& ink : lineInks_) {
    if (ink.Is(background_, pixel))
      return ink;
  }
  LineInk& ink = lineInks_[nextLineInk_];
  nextLineInk_ = (nextLineInk_ + 1) % lineInks_.size();
  ink = {background_, pixel};
  return ink;
}

void PixelCanvas::Blend(const Mask& mask, PixelPoint place, std::uint32_t pixel) {
  const std::int64_t left = std::int64_t{place.x} + mask.left;
  const std::int64_t top = std::int64_t{place.y} - top_ + mask.top;
  const auto firstColumn = static_cast<int>(std::clamp<std::int64_t>(-left, 0, mask.width));
  const auto lastColumn = static_cast<int>(std::clamp<std::int64_t>(grid_.width - left, 0, mask.width));
  const auto firstRow = static_cast<int>(std::clamp<std::int64_t>(-top, 0, mask.height));
  const auto lastRow = static_cast<int>(std::clamp<std::int64_t>(grid_.height - top, 0, mask.height));
  if (lastColumn <= firstColumn)
    return;
  const std::uint8_t* coverage = mask.coverage.data() + std::ptrdiff_t{firstRow} * mask.width + firstColumn;
  std::uint32_t* at = grid_.pixels + (top + firstRow) * grid_.stride + left + firstColumn;
  Ink(background_, pixel)
      .Cover({at, grid_.stride, lastColumn - firstColumn, lastRow - firstRow}, coverage, mask.width);
}

PixelCanvas::Area PixelCanvas::Clipped(std::int64_t x, std::int64_t y, std::int64_t width,
                                       std::int64_t height) const {
  return {std::max<std::int64_t>(x, 0), std::max<std::int64_t>(y, 0),
          std::min<std::int64_t>(x + width, grid_.width), std::min<std::int64_t>(y + height, grid_.height)};
}

void PixelCanvas::Block(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height,
                        std::uint32_t pixel, bool invert) {
  const Area area = Clipped(x, y, width, height);
  for (std::int64_t row = area.top; row < area.bottom; ++row) {
    std::uint32_t* line = grid_.pixels + row * grid_.stride;
    for (std::int64_t column = area.left; column < area.right; ++column)
      line[column] = invert ? line[column] ^ (pixel & 0x00FFFFFFU) : pixel;
  }
}

void PixelCanvas::SoftBlock(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height,
                            std::int32_t edge, const LineInk& ink) {
  y -= top_;
  Block(x, y, width, height, ink.Colour(), false);
  if (edge == 0)
    return;
  const auto cover = [&](const Area& area, std::int32_t coverage) {
    for (std::int64_t row = area.top; row < area.bottom; ++row)
      for (std::int64_t column = area.left; column < area.right; ++column)
        ink.Cover(grid_.pixels[row * grid_.stride + column], coverage);
  };
  cover(Clipped(x + width, y, 1, height), edge);
  cover(Clipped(x, y + height, width, 1), edge);
  cover(Clipped(x + width, y + height, 1, 1), edge * edge / LineInk::kFull);
}

void PixelCanvas::Rectangle(PixelPoint corner1, PixelPoint corner2, std::uint32_t pixel, const Dots& dots) {
  const std::int64_t size = std::max(1, dots.size);
  const std::int64_t left = std::min(corner1.x, corner2.x);
  const std::int64_t right = std::max(corner1.x, corner2.x);
  const std::int64_t top = std::int64_t{std::min(corner1.y, corner2.y)} - top_;
  const std::int64_t bottom = std::int64_t{std::max(corner1.y, corner2.y)} - top_;
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
