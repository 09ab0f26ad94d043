// Cuts rings at straight bounds.
#pragma once

#include <vector>

#include "print/line_runner.h"
#include "print/projection.h"

namespace zerbal::print {

inline GeoPosition Between(GeoPosition from, GeoPosition to, double share) {
  return {from.lon + (to.lon - from.lon) * share, from.lat + (to.lat - from.lat) * share};
}

inline PlanePoint Between(PlanePoint from, PlanePoint to, double share) {
  return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

/// Keeps what of a ring is on one side of a straight line: where `room` of a point, which is linear, is not
/// negative. The parts of a ring that this cuts into pieces remain connected along the line.
template <typename Point, typename Room>
void CutRing(std::vector<Point>& ring, const Room& room) {
  std::vector<Point> kept;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point from = ring[i];
    const Point to = ring[(i + 1) % ring.size()];
    const double here = room(from);
    const double there = room(to);
    if (here >= 0)
      kept.push_back(from);
    if ((here < 0) != (there < 0))
      kept.push_back(Between(from, to, here / (here - there)));
  }
  ring = std::move(kept);
}

/// What of a ring is on the picture and a little around it. Empty when nothing is.
Ring RingNear(const PlaneBox& frame, std::vector<PlanePoint> ring);

}  // namespace zerbal::print
