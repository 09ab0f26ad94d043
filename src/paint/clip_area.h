// Cutting lines off at a rectangle, however far away their ends are.
#pragma once

#include <cstdint>

#include "base/coordinates.h"

namespace zerbal::paint {

/// Pixels, all bounds inclusive.
struct ClipArea {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = -1;
  std::int32_t bottom = -1;

  bool Holds(PixelPoint point) const {
    return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
  }
  /// Moves the ends that lie outside onto the border, to the nearest pixel. False, with the ends as they
  /// were, when nothing of the line is inside.
  bool Clip(PixelPoint& from, PixelPoint& to) const;
};

}  // namespace zerbal::paint
