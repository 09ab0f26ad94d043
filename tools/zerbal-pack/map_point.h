// Points and lines of the base map as the map tables hold them.
#pragma once

#include <compare>
#include <cstdint>
#include <vector>

#include "data/base_map.h"

namespace zerbal::pack {

inline constexpr std::int32_t kDegree = data::kStoredDegree;
inline constexpr std::int32_t kFrameWidth = 360 * kDegree;   ///< map longitude 0 and 360 are both 180 W
inline constexpr std::int32_t kFrameHeight = 180 * kDegree;  ///< map latitude 0 is the North Pole
inline constexpr std::int32_t kPenUp = data::kEndOfLine;

/// A position in the map frame: map longitude grows eastwards from 180 W, map latitude southwards from the
/// North Pole. Tables hold longitudes 0 to 360 degrees; while it is built, a line may continue beyond 360.
struct MapPoint {
  std::int32_t lon = 0;
  std::int32_t lat = 0;
  auto operator<=>(const MapPoint&) const = default;  // NOLINT(modernize-use-nullptr)
};

using MapLine = std::vector<MapPoint>;

/// A part of a line. Pieces with the same `group` (a shore's polygon, a level of rivers) are joined first
/// where several meet.
struct MapPiece {
  MapLine points;
  std::int32_t group = 0;
};

/// numerator / denominator to the nearest whole number, halves up; numerator >= 0, denominator > 0.
constexpr std::int64_t DivideRounded(std::int64_t numerator, std::int64_t denominator) {
  return (2 * numerator + denominator) / (2 * denominator);
}

/// The place on the segment from `from` to `to` whose longitude is `lon`, which lies between theirs (they
/// differ). Both directions of the segment give the same.
std::int32_t LatitudeAt(MapPoint from, MapPoint to, std::int32_t lon);
std::int32_t LongitudeAt(MapPoint from, MapPoint to, std::int32_t lat);

}  // namespace zerbal::pack
