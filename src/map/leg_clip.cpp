#include "map/leg_clip.h"

#include <cmath>

namespace zerbal::map {

namespace {

/// The value at `at` of the straight line from (`begin`, `from`) to (`end`, `to`).
float Interpolate(float at, float begin, float end, float from, float to) {
  const double part = (static_cast<double>(at) - begin) / (static_cast<double>(end) - begin);
  return static_cast<float>(from + (static_cast<double>(to) - from) * part);
}

/// Moves an end onto one of the bounds that it lies beyond, latitudes first.
void MoveOntoBound(const Viewport& view, unsigned code, MapPosition& end, const MapPosition& other) {
  if ((code & (kBeyondUpperLat | kBeyondLowerLat)) != 0) {
    const float bound = (code & kBeyondUpperLat) != 0 ? view.MapLatMax() : view.MapLatMin();
    end = {Interpolate(bound, end.lat, other.lat, end.lon, other.lon), bound};
  } else {
    const float bound = (code & kEastOfView) != 0 ? view.MapLonMax() : view.MapLonMin();
    end = {bound, Interpolate(bound, end.lon, other.lon, end.lat, other.lat)};
  }
}

bool IsFinite(const MapPosition& position) {
  return std::isfinite(position.lon) && std::isfinite(position.lat);
}

}  // namespace

unsigned GetClipCode(const Viewport& viewport, MapPosition position) {
  unsigned code = 0;
  if (position.lat > viewport.MapLatMax())
    code |= kBeyondUpperLat;
  if (position.lat < viewport.MapLatMin())
    code |= kBeyondLowerLat;
  if (position.lon < viewport.MapLonMin())
    code |= kWestOfView;
  if (position.lon > viewport.MapLonMax())
    code |= kEastOfView;
  return code;
}

bool ClipLeg(const Viewport& viewport, MapPosition& from, MapPosition& to) {
  if (!IsFinite(from) || !IsFinite(to))
    return false;
  // Each move settles one bound of one end, so four are enough. A region whose bounds are the wrong way round
  // would never end.
  for (int move = 0; move <= 4; ++move) {
    const unsigned fromCode = GetClipCode(viewport, from);
    const unsigned toCode = GetClipCode(viewport, to);
    if ((fromCode | toCode) == 0)
      return true;
    if ((fromCode & toCode) != 0)
      return false;
    if (fromCode != 0)
      MoveOntoBound(viewport, fromCode, from, to);
    else
      MoveOntoBound(viewport, toCode, to, from);
  }
  return false;
}

}  // namespace zerbal::map
