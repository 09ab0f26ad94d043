// Coastlines, rivers and boundaries.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "data/base_map.h"
#include "data/rgb.h"
#include "map/surface.h"
#include "map/viewport.h"

namespace zerbal::map {

/// Projects stored points as Viewport::ProjectPoint does, but decides on the stored whole numbers which of
/// them are in view. Degrees grow with the stored number, so each bound of the view is a bound on the stored
/// numbers too, and the many points outside cost two comparisons and no arithmetic.
class StoredProjection {
 public:
  explicit StoredProjection(const Viewport& viewport);

  /// Which points are in view. Undefined for the end of a line.
  const data::StoredBounds& Bounds() const { return bounds_; }

  /// Where a point that is in view is on the drawing area.
  TwipPoint Project(data::StoredPoint point) const {
    MapPosition position{data::StoredDegrees(point.lon), data::StoredDegrees(point.lat)};
    if (bounds_.lonsExcluded && !(position.lon >= viewport_->MapLonMin()))
      position.lon += 360.0F;
    return viewport_->PictureAt(position);
  }

 private:
  const Viewport* viewport_;
  data::StoredBounds bounds_;
};

inline constexpr int kLineWidth = 1;  ///< of coastlines, rivers and boundaries, logical pixels

/// Draws the lines of a layer, part by part. A segment is drawn only when both of its ends are in view.
class LinePainter {
 public:
  LinePainter(const Viewport& viewport, Surface& surface, data::Rgb colour)
      : projection_(viewport), surface_(surface), pen_{.colour = colour, .width = kLineWidth} {}

  const data::StoredBounds& Bounds() const { return projection_.Bounds(); }
  /// Draws neighbouring points within the bounds.
  void Draw(std::span<const data::StoredPoint> points);

 private:
  StoredProjection projection_;
  Surface& surface_;
  Pen pen_;
  std::vector<TwipPoint> projected_;  // keeps its memory
};

}  // namespace zerbal::map
