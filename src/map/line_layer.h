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

  bool InView(jet::LongPair row) const {
    return LonInView(row.first) && row.second >= latFrom_ && row.second <= latTo_;
  }

  /// Where a point that is in view goes.
  Point Project(jet::LongPair row) const {
    float lon = StoredDegrees(row.first);
    if (wraps_ && row.first < lonFrom_)
      lon += 360.0F;
    return viewport_->PictureAt(lon, StoredDegrees(row.second));
  }

 private:
  bool LonInView(std::int32_t lon) const {
    return wraps_ ? lon >= lonFrom_ || lon <= lonTo_ : lon >= lonFrom_ && lon <= lonTo_;
  }

  const Viewport* viewport_;
  bool wraps_;
  // Inclusive; wide enough for bounds that no stored number meets. In a view that wraps, lonTo_ is that of
  // points that are seen one turn further east.
  std::int64_t lonFrom_, lonTo_, latFrom_, latTo_;
};

/// Draws all polylines of a table in stored order. A segment is drawn only when both of its ends are in view.
/// An error ends the drawing; what was drawn before it stays.
void DrawLineLayer(const jet::Recordset& table, data::Rgb colour, const Viewport& viewport, Surface& surface);

}  // namespace zerbal::map
