// Distances on the earth.
#pragma once

#include <optional>

#include "base/coordinates.h"

namespace zerbal::data {

inline constexpr double kMetresPerKilometre = 1000;
inline constexpr double kMetresPerNauticalMile = 1852;

/// Length of the shortest way over the surface of the earth (ellipsoid WGS 84), metres. Nothing when a
/// position is not on the globe.
std::optional<double> GreatCircleMetres(GeoPosition from, GeoPosition to);

}  // namespace zerbal::data
