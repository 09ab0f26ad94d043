// From positions on the globe to the picture.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "base/coordinates.h"
#include "print/print_surface.h"

namespace zerbal::print {

/// Of map data. The map frame has single precision, which is kept.
inline GeoPosition ToGlobe(MapPosition position) {
  return {double{position.lon} - 180, 90 - double{position.lat}};
}

/// Degrees; the east may be beyond 180, so that it is never less than the west.
struct GeoBox {
  double west = -180;
  double east = 180;
  double south = -90;
  double north = 90;
};

/// The rings of an area: closed lines, straight in degrees; the last position is joined to the first.
/// Longitudes are from -180 to 180, and no ring goes around through 180: an area there has edges along it.
using GeoRing = std::vector<GeoPosition>;

/// Called with each visible part of a line. The points are valid during the call.
using LineSink = std::function<void(std::span<const TwipPoint> points)>;

class Projection {
 public:
  virtual ~Projection() = default;

  /// Nothing when the position is not visible.
  virtual std::optional<TwipPoint> Project(GeoPosition position) const = 0;
  /// The position at a place of the picture; nothing beside the globe or when the place is not on the map.
  virtual std::optional<GeoPosition> Unproject(TwipPoint place) const = 0;
  /// Calls `part` with the visible parts of a line that is straight in degrees between its positions, each
  /// the short way round. A segment from a pole to the same pole is left out. It is cut at the seam, the
  /// horizon and the edge of the view, and curved where the projection curves it.
  virtual void ProjectLine(std::span<const GeoPosition> line, const LineSink& part) const = 0;
  /// The visible part of an area, to be filled as a whole.
  virtual std::vector<Ring> ProjectArea(std::span<const GeoRing> rings) const = 0;
  /// The outline of what is visible of the globe, as an area.
  virtual std::vector<Ring> Globe() const = 0;
  /// Holds everything visible, and perhaps more.
  virtual GeoBox Visible() const = 0;
  /// Twips per degree where the picture is largest, about.
  virtual double TwipsPerDegree() const = 0;
};

}  // namespace zerbal::print
