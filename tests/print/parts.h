// Lines on the globe and their parts on the picture, in tests.
#pragma once

#include <vector>

#include "print/projection.h"

namespace zerbal {

inline void PrintTo(TwipPoint point, std::ostream* out) {
  *out << point.x << ',' << point.y;
}

}  // namespace zerbal

namespace zerbal::print {

using Part = std::vector<TwipPoint>;
using Parts = std::vector<Part>;

inline Parts PartsOf(const Projection& projection, const std::vector<GeoPosition>& line) {
  Parts parts;
  projection.ProjectLine(
      line, [&](std::span<const TwipPoint> part) { parts.emplace_back(part.begin(), part.end()); });
  return parts;
}

}  // namespace zerbal::print
