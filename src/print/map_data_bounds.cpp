#include "print/map_data_bounds.h"

#include <cmath>
#include <limits>

#include "data/grid.h"

namespace zerbal::print {
namespace {

/// More than the longest segment of the base map.
constexpr double kDataMargin = 1;  // degrees

/// From one position in the map frame to another one.
data::StoredRange Between(double from, double to) {
  const auto stored = [](double degrees) {
    return static_cast<std::int32_t>(std::lround(degrees * data::kStoredDegree));
  };
  const std::int32_t lowest = stored(from);
  return {static_cast<std::uint32_t>(lowest),
          to > from ? static_cast<std::uint32_t>(stored(to)) - static_cast<std::uint32_t>(lowest) + 1 : 0};
}

constexpr data::StoredRange kEvery{0, std::numeric_limits<std::uint32_t>::max()};

}  // namespace

data::StoredBounds StoredBoundsOf(const GeoBox& box) {
  data::StoredBounds bounds{kEvery, Between(90 - box.north - kDataMargin, 90 - box.south + kDataMargin),
                            false};
  if (box.east - box.west + 2 * kDataMargin >= 360)
    return bounds;
  const double turns = std::floor((box.west - kDataMargin + 180) / 360);
  const double west = box.west - kDataMargin + 180 - 360 * turns;
  const double east = box.east + kDataMargin + 180 - 360 * turns;
  // Through 360, all longitudes but those between the east and the west.
  bounds.lonsExcluded = east > 360;
  bounds.lons = bounds.lonsExcluded ? Between(east - 360, west) : Between(west, east);
  return bounds;
}

bool Touch(const GeoBox& a, const GeoBox& b) {
  if (a.south > b.north || b.south > a.north)
    return false;
  for (const double turn : {-360.0, 0.0, 360.0}) {
    if (a.west <= b.east + turn && b.west + turn <= a.east)
      return true;
  }
  return false;
}

std::vector<std::string> TilesIn(const GeoBox& box) {
  std::vector<std::string> tiles;
  for (const data::GridBand& lon : data::kGridBands.lon)
    for (const data::GridBand& lat : data::kGridBands.lat)
      if (Touch(box, {lon.lower - 180.0, lon.upper - 180.0, 90.0 - lat.upper, 90.0 - lat.lower}))
        tiles.push_back({lon.letter, lat.letter});
  return tiles;
}

}  // namespace zerbal::print
