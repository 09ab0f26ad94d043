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

template <typename Point>
bool ClipLine(const ClipArea& area, Point& from, Point& to) {
  if (area.right < area.left || area.bottom < area.top)
    return false;
  const double x = from.x;
  const double y = from.y;
  const double dx = to.x - x;
  const double dy = to.y - y;
  double first = 0;
  double last = 1;
  if (!KeepInside(-dx, x - area.left, first, last) || !KeepInside(dx, area.right - x, first, last) ||
      !KeepInside(-dy, y - area.top, first, last) || !KeepInside(dy, area.bottom - y, first, last))
    return false;
  const auto at = [&](double t) {
    return Point{
        static_cast<std::int32_t>(std::clamp<double>(std::nearbyint(x + t * dx), area.left, area.right)),
        static_cast<std::int32_t>(std::clamp<double>(std::nearbyint(y + t * dy), area.top, area.bottom))};
  };
  if (first > 0)
    from = at(first);
  if (last < 1)
    to = at(last);
  return true;
}

}  // namespace

bool ClipArea::Clip(PixelPoint& from, PixelPoint& to) const {
  return ClipLine(*this, from, to);
}

bool ClipArea::Clip(TwipPoint& from, TwipPoint& to) const {
  return ClipLine(*this, from, to);
}

}  // namespace zerbal::paint
