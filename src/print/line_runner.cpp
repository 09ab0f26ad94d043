#include "print/line_runner.h"

#include <cmath>

namespace zerbal::print {

TwipPoint ToTwipPoint(PlanePoint point) {
  const auto whole = [](double value) {
    constexpr double kFar = 1e9;
    return static_cast<std::int32_t>(std::floor(std::clamp(value, -kFar, kFar)));
  };
  return {whole(point.x), whole(point.y)};
}

bool ClipToBox(const PlaneBox& box, PlanePoint& from, PlanePoint& to) {
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  if (!std::isfinite(dx) || !std::isfinite(dy))
    return false;
  double begin = 0;
  double end = 1;
  // Of `distance` per whole segment, at most `room` is allowed.
  const auto limit = [&](double distance, double room) {
    if (distance == 0)
      return room >= 0;
    const double share = room / distance;
    if (distance > 0)
      end = std::min(end, share);
    else
      begin = std::max(begin, share);
    return begin <= end;
  };
  if (!limit(-dx, from.x - box.left) || !limit(dx, box.right - from.x) || !limit(-dy, from.y - box.top) ||
      !limit(dy, box.bottom - from.y))
    return false;
  const PlanePoint start = from;
  if (end < 1)
    to = {start.x + end * dx, start.y + end * dy};
  if (begin > 0)
    from = {start.x + begin * dx, start.y + begin * dy};
  return true;
}

void LineRunner::To(PlanePoint point) {
  if (open_) {
    PlanePoint from = last_;
    PlanePoint to = point;
    if (!ClipToBox(frame_, from, to)) {
      Flush();
    } else {
      if (from.x != last_.x || from.y != last_.y)
        Flush();
      Add(from);
      Add(to);
      if (to.x != point.x || to.y != point.y)
        Flush();
    }
  }
  open_ = true;
  last_ = point;
}

void LineRunner::Add(PlanePoint point) {
  const TwipPoint twips = ToTwipPoint(point);
  if (part_.empty() || part_.back() != twips)
    part_.push_back(twips);
}

void LineRunner::Flush() {
  // A part within one twip is a point there.
  if (part_.size() == 1)
    part_.push_back(part_.front());
  if (!part_.empty())
    sink_(part_);
  part_.clear();
}

void LineRunner::Break() {
  Flush();
  open_ = false;
}

}  // namespace zerbal::print
