#include "print/plate_carree.h"

namespace zerbal::print {
namespace {

GeoBox ShownBy(const map::Viewport& viewport) {
  return {double{viewport.MapLonMin()} - 180, double{viewport.MapLonMax()} - 180,
          90 - double{viewport.MapLatMax()}, 90 - double{viewport.MapLatMin()}};
}

/// The bounds in degrees are enough.
constexpr PlaneBox kEverywhere{-1e9, -1e9, 1e9, 1e9};

}  // namespace

PlateCarree::PlateCarree(const map::Viewport& viewport)
    : RectangleProjection(ShownBy(viewport), kEverywhere), viewport_(viewport) {}

std::optional<TwipPoint> PlateCarree::Project(GeoPosition position) const {
  return viewport_.ProjectPoint(ToMapPosition(position));
}

PlanePoint PlateCarree::Place(GeoPosition position) const {
  const double scale = viewport_.MapScale();
  return {scale * (position.lon + 180) + viewport_.MapOffX(),
          scale * (90 - position.lat) + viewport_.MapOffY()};
}

std::optional<GeoPosition> PlateCarree::Unproject(TwipPoint place) const {
  const double scale = viewport_.MapScale();
  const double x = static_cast<double>(place.x) - viewport_.MapOffX();
  const double y = static_cast<double>(place.y) - viewport_.MapOffY();
  const GeoPosition position{x / scale - 180, 90 - y / scale};
  const GeoBox& shown = Shown();
  if (position.lon < shown.west || position.lon > shown.east || position.lat < shown.south ||
      position.lat > shown.north)
    return std::nullopt;
  return position;
}

}  // namespace zerbal::print
