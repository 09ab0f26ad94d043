#include "paint/clip_area.h"

#include <algorithm>
#include <cmath>

namespace zerbal::paint {
namespace {

/// Clips at one border: keeps the part of 0..1 along the line where p * t <= q.
bool KeepInside(double p, double q, double& first, double& last) {
  if (p == 0)
    return q >= 0;
  const double t = q / p;
  if (p < 0)
    first = std::max(first, t);
  else
    last = std::min(last, t);
  return first <= last;
}

}  // namespace

bool ClipArea::Clip(PixelPoint& from, PixelPoint& to) const {
  if (right < left || bottom < top)
    return false;
  const double x = from.x;
  const double y = from.y;
  const double dx = to.x - x;
  const double dy = to.y - y;
  double first = 0;
  double last = 1;
  if (!KeepInside(-dx, x - left, first, last) || !KeepInside(dx, right - x, first, last) ||
      !KeepInside(-dy, y - top, first, last) || !KeepInside(dy, bottom - y, first, last))
    return false;
  const auto at = [&](double t) {
    return PixelPoint{static_cast<std::int32_t>(std::clamp<double>(std::nearbyint(x + t * dx), left, right)),
                      static_cast<std::int32_t>(std::clamp<double>(std::nearbyint(y + t * dy), top, bottom))};
  };
  if (first > 0)
    from = at(first);
  if (last < 1)
    to = at(last);
  return true;
}

}  // namespace zerbal::paint
