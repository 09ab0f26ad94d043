// Distances on the earth.
#pragma once

#include <optional>
#include <vector>

#include "base/coordinates.h"

namespace zerbal::data {

inline constexpr double kMetresPerKilometre = 1000;
inline constexpr double kMetresPerNauticalMile = 1852;

/// Length of the shortest way over the surface of the earth (ellipsoid WGS 84), metres. Nothing when a
/// position is not on the globe.
std::optional<double> GreatCircleMetres(GeoPosition from, GeoPosition to);

/// The shortest way over that ellipsoid, as a line that is straight in degrees between its positions and at
/// most `tolerance` degrees of longitude or latitude beside the way, which must be more than 0. Begins and
/// ends with the given positions. A way over a pole has two positions there. Only the two positions when one
/// is not on the globe.
std::vector<GeoPosition> GreatCircleLine(GeoPosition from, GeoPosition to, double tolerance);

}  // namespace zerbal::data
