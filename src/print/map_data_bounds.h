// Which data of the base map lie within a part of the globe.
#pragma once

#include <string>
#include <vector>

#include "data/base_map.h"
#include "print/projection.h"

namespace zerbal::print {

inline GeoPosition ToGlobe(data::StoredPoint point) {
  return {point.lon / double{data::kStoredDegree} - 180, 90 - point.lat / double{data::kStoredDegree}};
}

/// Whether boxes share a position, on any turn.
bool Touch(const GeoBox& a, const GeoBox& b);

/// Holds all points of the box and a degree around it, so that lines can be cut at its edges.
data::StoredBounds StoredBoundsOf(const GeoBox& box);

/// The names of the tiles that a box touches.
std::vector<std::string> TilesIn(const GeoBox& box);

}  // namespace zerbal::print
