// Drawing straight into the pixels of a 32-bit picture: crisp lines, small bars with soft edges, shapes of
// coverage, and the exclusive-or rectangle. Everything is clipped to the picture; no coordinate is too far
// away.
#pragma once

#include <QImage>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "map/surface.h"
#include "paint/clip_area.h"
#include "paint/ink.h"
#include "paint/mask.h"

namespace zerbal::paint {

class PixelCanvas {
 public:
  /// `image` has format RGB32 and must outlive the canvas unshared.
  explicit PixelCanvas(QImage& image);

  static std::uint32_t Pixel(data::Rgb colour);

  void Fill(std::uint32_t pixel);
  /// Both ends included, no soft edges. `width` counts along a row or a column, whichever crosses the line
  /// more squarely; an even width has its extra pixel right of or below the ends.
  void Line(PixelPoint from, PixelPoint to, std::uint32_t pixel, int width);

  /// A short bar with soft edges, half a pixel longer than the line at both ends; for small shapes, as its
  /// cost grows with the area around it.
  void SmoothLine(PixelPosition from, PixelPosition to, std::uint32_t pixel, double width);
  /// Lays a shape over the picture with its reference pixel at `place`.
  void Blend(const Mask& mask, PixelPoint place, std::uint32_t pixel);

  struct Dots {
    int size = 1;         ///< a dot's length and width
    bool dotted = false;  ///< dots with gaps of the same length, else a full line
    bool invert = false;  ///< exclusive-or instead of copy
  };
  /// Touches each pixel of the outline once, so that inverting it twice restores the picture. A rectangle
  /// without extent is one dot.
  void Rectangle(PixelPoint corner1, PixelPoint corner2, std::uint32_t pixel, const Dots& dots);

 private:
  bool Holds(PixelPoint point) const {
    return static_cast<std::uint32_t>(point.x) < static_cast<std::uint32_t>(width_) &&
           static_cast<std::uint32_t>(point.y) < static_cast<std::uint32_t>(height_);
  }
  ClipArea Area(int margin) const { return {-margin, -margin, width_ - 1 + margin, height_ - 1 + margin}; }
  void ThinLine(PixelPoint from, PixelPoint to, std::uint32_t pixel);
  void WideLine(PixelPoint from, PixelPoint to, std::uint32_t pixel, int width);
  void Block(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height, std::uint32_t pixel,
             bool invert);
  const Ink& InkOf(std::uint32_t pixel);

  std::uint32_t* pixels_;
  std::ptrdiff_t stride_;  ///< pixels from one row to the next
  int width_;
  int height_;
  std::uint32_t background_ = 0;  ///< the last fill
  std::array<Ink, 4> inks_;       ///< the last ones used: airports, symbol and label of a flight, one more
  std::size_t nextInk_ = 0;
  std::vector<std::uint8_t> coverage_;  ///< of one row, kept for its memory
};

}  // namespace zerbal::paint
