#include "print/proj_rectangle.h"

#include <algorithm>
#include <cmath>

namespace zerbal::print {
namespace {

/// Looks on each side of a box or picture.
constexpr int kLooks = 48;

GeoBox Intersection(const GeoBox& a, const GeoBox& b) {
  return {std::max(a.west, b.west), std::min(a.east, b.east), std::max(a.south, b.south),
          std::min(a.north, b.north)};
}

}  // namespace

std::vector<GeoPosition> PositionsIn(const GeoBox& box) {
  std::vector<GeoPosition> positions;
  for (int row = 0; row <= kLooks; ++row)
    for (int column = 0; column <= kLooks; ++column)
      positions.push_back({box.west + (box.east - box.west) * column / kLooks,
                           box.south + (box.north - box.south) * row / kLooks});
  return positions;
}

GeoBox VisibleIn(const Projection& projection, const PlaneBox& frame, double centreLon) {
  GeoBox seen{centreLon, centreLon, 90, -90};
  for (int row = 0; row <= kLooks; ++row) {
    for (int column = 0; column <= kLooks; ++column) {
      const auto position =
          projection.Unproject(ToTwipPoint({frame.left + (frame.right - frame.left) * column / kLooks,
                                            frame.top + (frame.bottom - frame.top) * row / kLooks}));
      if (!position)
        continue;
      const double lon = centreLon + std::remainder(position->lon - centreLon, 360);
      seen = {std::min(seen.west, lon), std::max(seen.east, lon), std::min(seen.south, position->lat),
              std::max(seen.north, position->lat)};
    }
  }
  // Between two looks there may be as much again.
  const double lonMargin = 1 + (seen.east - seen.west) * 3 / kLooks;
  const double latMargin = 1 + (seen.north - seen.south) * 3 / kLooks;
  seen = {seen.west - lonMargin, seen.east + lonMargin, std::max(seen.south - latMargin, -90.0),
          std::min(seen.north + latMargin, 90.0)};
  const bool allAround = seen.east - seen.west >= 360 || projection.Project({centreLon, 90}) ||
                         projection.Project({centreLon, -90});
  return allAround ? GeoBox{centreLon - 180, centreLon + 180, seen.south, seen.north} : seen;
}

ProjRectangle::ProjRectangle(const std::string& definition, const ProjView& view)
    : RectangleProjection(view.shown, view.frame), centreLon_(view.centreLon), plane_(definition) {
  std::vector<GeoPosition> positions = PositionsIn(Intersection(view.shown, view.fitted));
  for (GeoPosition& position : positions)
    position.lon -= centreLon_;
  plane_.Fit(positions, view.box);
  visible_ = VisibleIn(*this, view.frame, centreLon_);
  twipsPerDegree_ = 0;
  constexpr double kStep = 0.01;  // degrees
  for (const GeoPosition position : positions) {
    const PlanePoint place = plane_.Place(position);
    const PlanePoint east = plane_.Place({position.lon + kStep, position.lat});
    const PlanePoint in = plane_.Place({position.lon, position.lat - std::copysign(kStep, position.lat)});
    for (const PlanePoint other : {east, in}) {
      const double scale = std::hypot(other.x - place.x, other.y - place.y) / kStep;
      if (std::isfinite(scale))
        twipsPerDegree_ = std::max(twipsPerDegree_, scale);
    }
  }
}

PlanePoint ProjRectangle::Place(GeoPosition position) const {
  return plane_.Place({position.lon - centreLon_, position.lat});
}

std::optional<GeoPosition> ProjRectangle::Unproject(TwipPoint place) const {
  std::optional<GeoPosition> position =
      plane_.Position({static_cast<double>(place.x), static_cast<double>(place.y)});
  if (!position)
    return std::nullopt;
  position->lon += centreLon_;
  const GeoBox& shown = Shown();
  if (position->lon < shown.west || position->lon > shown.east || position->lat < shown.south ||
      position->lat > shown.north)
    return std::nullopt;
  return position;
}

}  // namespace zerbal::print
