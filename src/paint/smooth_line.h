// Draws lines with soft edges into pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "base/coordinates.h"
#include "paint/line_ink.h"

namespace zerbal::paint {

/// The pixels of a picture.
struct PixelGrid {
  std::uint32_t* pixels = nullptr;
  std::ptrdiff_t stride = 0;  ///< pixels from one row to the next
  std::int32_t width = 0;
  std::int32_t height = 0;
};

/// An end is open where another line of the same direction (`DirectionOf`) goes on.
struct LineEnds {
  bool openFrom = false;
  bool openTo = false;
  bool flat = false;  ///< both ends are across the line, half a pixel beyond the positions
};

/// The axis and the direction along it that a line is closest to.
inline int DirectionOf(FinePoint from, FinePoint to) {
  const std::int32_t dx = to.x - from.x;
  const std::int32_t dy = to.y - from.y;
  const bool steep = std::abs(dy) > std::abs(dx);
  return (steep ? 2 : 0) | ((steep ? dy : dx) < 0 ? 1 : 0);
}

/// Draws the line between two positions of its middle, clipped to the grid. `width` is in 256ths of a pixel,
/// at least one pixel; it is the same at every angle. Both directions of a line give the same pixels. An end
/// that is neither open nor flat adds half the width to the length and is cut along the row or column of
/// pixels. Where two lines of one direction meet, open ends let each row or column of pixels belong to one of
/// them.
void DrawSmoothLine(const PixelGrid& grid, FinePoint from, FinePoint to, std::int32_t width,
                    const LineInk& ink, LineEnds ends = {});

}  // namespace zerbal::paint
