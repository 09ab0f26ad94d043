#include <algorithm>
#include <limits>

#include "map/layers.h"

namespace zerbal::map {

namespace {

/// The lowest stored number for which `holds`, one above the highest of its type when there is none. `holds`
/// must not turn false again as numbers grow.
template <typename Predicate>
std::int64_t Lowest(Predicate holds) {
  std::int64_t low = std::numeric_limits<std::int32_t>::min();
  std::int64_t high = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
  while (low < high) {
    const std::int64_t middle = low + (high - low) / 2;
    if (holds(data::StoredDegrees(static_cast<std::int32_t>(middle))))
      high = middle;
    else
      low = middle + 1;
  }
  return low;
}

/// From `from` up to but not including `end`. Short of every number of the type by one at most, which is far
/// from any longitude or latitude.
data::StoredRange Between(std::int64_t from, std::int64_t end) {
  constexpr std::int64_t kMost = std::numeric_limits<std::uint32_t>::max();
  return {static_cast<std::uint32_t>(from),
          static_cast<std::uint32_t>(std::clamp(end - from, std::int64_t{0}, kMost))};
}

}  // namespace

StoredProjection::StoredProjection(const Viewport& view) : viewport_(&view) {
  const bool seam = view.MapWrap();
  const std::int64_t west = Lowest([&](float lon) { return lon >= view.MapLonMin(); });
  const std::int64_t pastEast =
      Lowest([&](float lon) { return !((seam ? lon + 360.0F : lon) <= view.MapLonMax()); });
  // Through 360 what is one turn west of the east bound is in view as well, and only the rest is not.
  bounds_.lonsExcluded = seam;
  bounds_.lons = seam ? Between(pastEast, west) : Between(west, pastEast);
  bounds_.lats = Between(Lowest([&](float lat) { return lat >= view.MapLatMin(); }),
                         Lowest([&](float lat) { return !(lat <= view.MapLatMax()); }));
}

void LinePainter::Draw(std::span<const data::StoredPoint> points) {
  projected_.resize(points.size());
  std::transform(points.begin(), points.end(), projected_.begin(),
                 [this](data::StoredPoint point) { return projection_.Project(point); });
  surface_.Polyline(projected_, pen_);
}

}  // namespace zerbal::map
