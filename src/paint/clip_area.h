// Clips lines to a rectangle. Their ends may be any distance away.
#pragma once

#include <cstdint>

#include "base/coordinates.h"

namespace zerbal::paint {

/// In the unit of the points, all bounds inclusive.
struct ClipArea {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = -1;
  std::int32_t bottom = -1;

  bool Holds(PixelPoint point) const {
    return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
  }
  /// Moves an end outside the area to the nearest point of the border. Returns false and changes nothing when
  /// no part of the line is inside.
  bool Clip(PixelPoint& from, PixelPoint& to) const;
  bool Clip(TwipPoint& from, TwipPoint& to) const;
};

}  // namespace zerbal::paint
