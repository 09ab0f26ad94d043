// Draws directly into the pixels of a 32-bit picture: lines, blocks, masks, and exclusive-or
// rectangles. Everything is clipped to the picture.
#pragma once

#include <QImage>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "map/surface.h"
#include "paint/ink.h"
#include "paint/line_ink.h"
#include "paint/smooth_line.h"

namespace zerbal::paint {

class PixelCanvas {
 public:
  /// `image` has format RGB32, must outlive the canvas and must not be shared meanwhile. Its first row is row
  /// `top` of what is drawn.
  explicit PixelCanvas(QImage& image, int top = 0);

  static std::uint32_t Pixel(data::Rgb colour);

  void Fill(std::uint32_t pixel);
  /// Rows and columns of whole pixels; any value is possible.
  void Block(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height, std::uint32_t pixel) {
    Block(x, y - top_, width, height, pixel, false);
  }
  /// The same with an edge on the right and below, one pixel wide and covered by `edge` 256ths.
  void SoftBlock(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height, std::int32_t edge,
                 const LineInk& ink);
  /// Valid until inks of several other colours are used.
  const LineInk& LineInkOf(std::uint32_t pixel);
  /// A line with soft edges between two positions of its middle, `width` in 256ths of a pixel.
  void Line(FinePoint from, FinePoint to, std::int32_t width, const LineInk& ink, LineEnds ends) {
    const std::int32_t above = top_ * kFinePerPixel;
    DrawSmoothLine(grid_, {from.x, from.y - above}, {to.x, to.y - above}, width, ink, ends);
  }
  /// Blends a mask into the picture, its reference pixel at `place`.
  void Blend(const Mask& mask, PixelPoint place, std::uint32_t pixel);

  struct Dots {
    int size = 1;         ///< length and width of a dot
    bool dotted = false;  ///< dots and gaps of the same length, else a solid line
    bool invert = false;  ///< exclusive-or instead of copy
  };
  /// Touches each pixel of the outline once, so that inverting twice restores the picture. A rectangle
  /// without extent is one dot.
  void Rectangle(PixelPoint corner1, PixelPoint corner2, std::uint32_t pixel, const Dots& dots);

 private:
  /// `y` is a row of the image.
  void Block(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height, std::uint32_t pixel,
             bool invert);
  struct Area {
    std::int64_t left, top, right, bottom;
  };
  Area Clipped(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height) const;

  PixelGrid grid_;
  int top_;
  std::uint32_t background_ = 0;  ///< the last fill
  std::array<LineInk, 4> lineInks_;
  std::size_t nextLineInk_ = 0;
};

}  // namespace zerbal::paint
