#include "map/line_layer.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <vector>

#include "jet/error.h"

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
    if (holds(StoredDegrees(static_cast<std::int32_t>(middle))))
      high = middle;
    else
      low = middle + 1;
  }
  return low;
}

}  // namespace

/// From `from` up to but not including `end`. Short of every number of the type by one at most, which is far
/// from any longitude or latitude.
StoredProjection::Range StoredProjection::Between(std::int64_t from, std::int64_t end) {
  constexpr std::int64_t kMost = std::numeric_limits<std::uint32_t>::max();
  return {static_cast<std::uint32_t>(from),
          static_cast<std::uint32_t>(std::clamp(end - from, std::int64_t{0}, kMost))};
}

StoredProjection::StoredProjection(const Viewport& view) : viewport_(&view), seam_(view.MapWrap()) {
  const std::int64_t west = Lowest([&](float lon) { return lon >= view.MapLonMin(); });
  const std::int64_t pastEast =
      Lowest([&](float lon) { return !((seam_ ? lon + 360.0F : lon) <= view.MapLonMax()); });
  // Through 360 what is one turn west of the east bound is in view as well, and only the rest is not.
  lons_ = seam_ ? Between(pastEast, west) : Between(west, pastEast);
  lats_ = Between(Lowest([&](float lat) { return lat >= view.MapLatMin(); }),
                  Lowest([&](float lat) { return !(lat <= view.MapLatMax()); }));
}

void DrawLineLayer(const jet::Recordset& table, data::Rgb colour, const Viewport& viewport,
                   Surface& surface) {
  const StoredProjection projection(viewport);
  const Pen pen{.colour = colour};
  std::vector<TwipPoint> run;  // joined by segments
  const auto draw = [&] {
    if (run.size() > 1)
      surface.Polyline(run, pen);
    run.clear();
  };
  // A marker and a point outside do the same: the next point in view begins a new run.
  bool joined = false;
  jet::PairReader reader(table, "Lon", "Lat");
  std::array<jet::LongPair, 2048> rows;
  try {
    while (const std::size_t count = reader.Read(rows)) {
      for (const jet::LongPair& row : std::span(rows).first(count)) {
        if (!projection.InView(row) || StoredProjection::IsPenUp(row)) {
          joined = false;
          continue;
        }
        if (!joined)
          draw();
        joined = true;
        run.push_back(projection.Project(row));
      }
    }
  } catch (const jet::EngineError&) {
    draw();
    throw;
  }
  draw();
}

}  // namespace zerbal::map
