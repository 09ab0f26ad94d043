// Draws directly into the pixels of a 32-bit picture: crisp lines, short bars with soft edges, masks, and
// exclusive-or rectangles. Everything is clipped to the picture; coordinates may have any value.
#pragma once

#include <QImage>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "map/surface.h"
#include "paint/clip_area.h"
#include "paint/ink.h"

namespace zerbal::paint {

class PixelCanvas {
 public:
  /// `image` has format RGB32, must outlive the canvas and must not be shared meanwhile.
  explicit PixelCanvas(QImage& image);

  static std::uint32_t Pixel(data::Rgb colour);

  void Fill(std::uint32_t pixel);
  /// Both ends included, no soft edges. `width` is measured along the axis across the line; the extra pixel
  /// of an even width is right of or below the ends.
  void Line(PixelPoint from, PixelPoint to, std::uint32_t pixel, int width);

  /// A bar with soft edges, half a pixel longer than the line at both ends. For short lines: the cost grows
  /// with the area of the bounding box.
  void SmoothLine(PixelPosition from, PixelPosition to, std::uint32_t pixel, double width);
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
  std::array<Ink, 4> inks_;  ///< the last ones used: airports, symbols and labels of a flight, and one more
  std::size_t nextInk_ = 0;
  std::vector<std::uint8_t> coverage_;  ///< of one row; the buffer is reused
};

}  // namespace zerbal::paint
