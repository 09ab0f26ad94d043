// Coastlines, rivers and boundaries: tables of points, one a row.
#pragma once

#include <cstdint>

#include "data/reference_tables.h"
#include "jet/pair_reader.h"
#include "jet/recordset.h"
#include "map/surface.h"
#include "map/viewport.h"

namespace zerbal::map {

/// Degrees in the map frame of a stored number of millionths.
inline float StoredDegrees(std::int32_t millionths) {
  return static_cast<float>(millionths / 1e6);
}

/// Projects stored points just as Viewport::ProjectPoint does, but decides on the stored whole numbers which
/// of them are in view. Degrees grow with the stored number, so each bound of the view is a bound on the
/// stored numbers too, and the many points outside cost two comparisons and no arithmetic.
class StoredProjection {
 public:
  explicit StoredProjection(const Viewport& viewport);

  /// The marker that ends a polyline; its second number means nothing.
  static bool IsPenUp(jet::LongPair row) { return row.first == -1'000'000; }

  /// Says nothing about markers.
  bool InView(jet::LongPair row) const { return lons_.Holds(row.first) != seam_ && lats_.Holds(row.second); }

  /// Where a point that is in view goes.
  TwipPoint Project(jet::LongPair row) const {
    MapPosition position{StoredDegrees(row.first), StoredDegrees(row.second)};
    if (seam_ && !(position.lon >= viewport_->MapLonMin()))
      position.lon += 360.0F;
    return viewport_->PictureAt(position);
  }

 private:
  /// Whole numbers from a lowest one upwards, asked for with one comparison.
  struct Range {
    std::uint32_t lowest = 0;
    std::uint32_t count = 0;  ///< 0 holds nothing
    bool Holds(std::int32_t number) const { return static_cast<std::uint32_t>(number) - lowest < count; }
  };
  static Range Between(std::int64_t from, std::int64_t end);

  const Viewport* viewport_;
  bool seam_;  ///< the view runs through 360, and lons_ are those that are not in it
  Range lons_;
  Range lats_;
};

/// Draws all polylines of a table in stored order. A segment is drawn only when both of its ends are in view.
/// An error ends the drawing; what was drawn before it stays.
void DrawLineLayer(const jet::Recordset& table, data::Rgb colour, const Viewport& viewport, Surface& surface);

}  // namespace zerbal::map
