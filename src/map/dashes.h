// Dashed lines, which surfaces do not have.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "base/coordinates.h"

namespace zerbal::map {

inline constexpr std::int32_t kDashLength = 6 * kTwipsPerPixel;  ///< about; lines have whole dashes
inline constexpr std::int32_t kDashGap = 4 * kTwipsPerPixel;

/// Calls `line(from, to)` with the dashes of a line. Both ends of the line are ends of dashes. Its way back
/// gives the same dashes in the same order, so that both can be drawn over each other.
template <typename Line>
void VisitDashes(TwipPoint from, TwipPoint to, const Line& line) {
  if (to.x < from.x || (to.x == from.x && to.y < from.y))
    std::swap(from, to);
  const double width = static_cast<double>(to.x) - from.x, height = static_cast<double>(to.y) - from.y;
  const double length = std::hypot(width, height);
  const double dashes = std::max(1.0, std::round((length + kDashGap) / (kDashLength + kDashGap)));
  const auto at = [&](double distance) {
    const double part = length > 0 ? distance / length : 0;
    return TwipPoint{static_cast<std::int32_t>(std::lround(from.x + width * part)),
                     static_cast<std::int32_t>(std::lround(from.y + height * part))};
  };
  const double period = (length + kDashGap) / dashes;
  for (double dash = 0; dash < dashes; ++dash)
    line(at(dash * period), at((dash + 1) * period - kDashGap));
}

}  // namespace zerbal::map
