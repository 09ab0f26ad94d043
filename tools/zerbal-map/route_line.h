// The line of a route over maps whose longitudes end at 180 degrees.
#pragma once

#include <span>
#include <vector>

#include "base/coordinates.h"

namespace zerbal::mapcommand {

using RouteLine = std::vector<GeoPosition>;

/// Where a leg crosses 180 degrees.
enum class CutAt {
  kStraightLine,  ///< for maps that draw legs straight in degrees
  kGreatCircle    ///< for globes
};

/// Lines of at least two positions, none of which crosses 180 degrees. Legs go the short way round; those of
/// exactly 180 degrees do not cross. A leg without length adds nothing, but a route without length is one
/// line of two equal positions. No lines without points.
std::vector<RouteLine> CutAtAntimeridian(std::span<const GeoPosition> points, CutAt cutAt);

}  // namespace zerbal::mapcommand
