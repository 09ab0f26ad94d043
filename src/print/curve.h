// Lines that a projection curves, as straight lines on the picture.
#pragma once

#include <algorithm>
#include <cmath>

#include "print/cut_ring.h"

namespace zerbal::print {

inline bool IsFinite(GeoPosition position) {
  return std::isfinite(position.lon) && std::isfinite(position.lat);
}

/// Calls `visit(start, end)` with the parts of a line that are at most a degree long.
template <typename Visit>
void VisitParts(GeoPosition from, GeoPosition to, const Visit& visit) {
  constexpr double kLongestPart = 1;
  const double length = std::max(std::fabs(to.lon - from.lon), std::fabs(to.lat - from.lat));
  const int parts = std::max(1, static_cast<int>(std::ceil(length / kLongestPart)));
  GeoPosition start = from;
  for (int part = 1; part <= parts; ++part) {
    const GeoPosition end = part == parts ? to : Between(from, to, static_cast<double>(part) / parts);
    visit(start, end);
    start = end;
  }
}

/// Calls `add` with places of a part after its start, its end included. The lines between them are at most
/// about a twip beside the curve. `place` puts a position on the picture.
template <typename Place, typename Add>
void Bend(const Place& place, GeoPosition from, GeoPosition to, const Add& add, int depth = 0) {
  constexpr double kTolerance = 1;  // twips
  constexpr int kDeepest = 8;
  const PlanePoint start = place(from);
  const PlanePoint end = place(to);
  const GeoPosition middle = Between(from, to, 0.5);
  const PlanePoint at = place(middle);
  const double aside = std::hypot(at.x - (start.x + end.x) / 2, at.y - (start.y + end.y) / 2);
  if (depth < kDeepest && aside > kTolerance) {
    Bend(place, from, middle, add, depth + 1);
    Bend(place, middle, to, add, depth + 1);
  } else {
    add(end);
  }
}

}  // namespace zerbal::print
