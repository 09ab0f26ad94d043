#include "print/cut_ring.h"

#include <algorithm>

namespace zerbal::print {
namespace {

/// Twips around the picture that keep the cut out of sight.
constexpr double kAround = 20 * kTwipsPerPixel;

}  // namespace

Ring RingNear(const PlaneBox& frame, std::vector<PlanePoint> ring) {
  const PlaneBox box{frame.left - kAround, frame.top - kAround, frame.right + kAround,
                     frame.bottom + kAround};
  if (!std::all_of(ring.begin(), ring.end(), [&](PlanePoint point) { return box.Holds(point); })) {
    CutRing(ring, [&](PlanePoint at) { return at.x - box.left; });
    CutRing(ring, [&](PlanePoint at) { return box.right - at.x; });
    CutRing(ring, [&](PlanePoint at) { return at.y - box.top; });
    CutRing(ring, [&](PlanePoint at) { return box.bottom - at.y; });
  }
  Ring result;
  for (const PlanePoint point : ring) {
    const TwipPoint twips = ToTwipPoint(point);
    if (result.empty() || result.back() != twips)
      result.push_back(twips);
  }
  return result;
}

}  // namespace zerbal::print
