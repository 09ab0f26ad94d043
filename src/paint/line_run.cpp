#include "paint/line_run.h"

#include <algorithm>
#include <cstdlib>

namespace zerbal::paint {
namespace {

/// Shorter horizontal and vertical parts of a run keep their place: they are too short to look blurred, and
/// moving them would make a rough coast rougher.
constexpr std::int32_t kShortestCrisp = 4 * kFinePerPixel;

struct Vector {
  std::int64_t x = 0;
  std::int64_t y = 0;
};

/// Positive when `b` is clockwise of `a` on the screen, by less than half a turn.
std::int64_t Cross(Vector a, Vector b) {
  return a.x * b.y - a.y * b.x;
}

std::int64_t Reach(Vector vector) {
  return std::max(std::abs(vector.x), std::abs(vector.y));
}

/// The directions from one corner in which the next one may lie so that all points between them are near the
/// line.
class Cone {
 public:
  /// The cone of the first point after a corner, given by its distance from it.
  explicit Cone(std::int32_t tolerance, Vector point = {}) : tolerance_(tolerance), reach_(Reach(point)) {
    const Edges edges(point, tolerance);
    low_ = edges.low;
    high_ = edges.high;
  }

  /// Narrows the cone by a point. Returns false and changes nothing when that point cannot be the next
  /// corner.
  bool Accept(Vector point) {
    const std::int64_t reach = Reach(point);
    if (reach_ <= tolerance_) {
      *this = Cone(tolerance_, point);
      return true;
    }
    // One branch for three conditions: it is the one that cannot be predicted.
    if (((reach + tolerance_ - reach_) | Cross(low_, point) | Cross(point, high_)) < 0)
      return false;
    const Edges edges(point, tolerance_);
    low_ = Cross(low_, edges.low) > 0 ? edges.low : low_;
    high_ = Cross(edges.high, high_) > 0 ? edges.high : high_;
    reach_ = std::max(reach_, reach);
    return true;
  }

 private:
  /// The directions of what is near a point, across the axis that is closer to its own direction.
  struct Edges {
    Edges(Vector point, std::int64_t tolerance) {
      const bool flat = std::abs(point.x) >= std::abs(point.y);
      const std::int64_t x = flat ? 0 : point.y > 0 ? tolerance : -tolerance;
      const std::int64_t y = !flat ? 0 : point.x > 0 ? -tolerance : tolerance;
      low = {point.x + x, point.y + y};
      high = {point.x - x, point.y - y};
    }
    Vector low;
    Vector high;
  };

  std::int32_t tolerance_;
  Vector low_;
  Vector high_;
  std::int64_t reach_ = 0;  ///< of the farthest point; a cone of points at the corner is without meaning
};

/// Whether the second half of the points comes first when they are sorted, so that a run and its reverse are
/// treated in the same order.
bool IsReversed(std::span<const TwipPoint> points) {
  for (std::size_t i = 0, j = points.size() - 1; i < j; ++i, --j) {
    const TwipPoint a = points[i];
    const TwipPoint b = points[j];
    if (a != b)
      return a.x != b.x ? a.x > b.x : a.y > b.y;
  }
  return false;
}

/// Whether the line to `last` is crisp, but not with `next` instead.
bool EndsCrispLine(FinePoint corner, FinePoint last, FinePoint next) {
  return (last.y == corner.y && next.y != corner.y && std::abs(last.x - corner.x) >= kShortestCrisp) ||
         (last.x == corner.x && next.x != corner.x && std::abs(last.y - corner.y) >= kShortestCrisp);
}

}  // namespace

void LineRun::Simplify(std::span<const TwipPoint> points, bool reverse) {
  const std::ptrdiff_t step = reverse ? -1 : 1;
  const TwipPoint* next = reverse ? &points.back() : &points.front();
  corners_.resize(points.size());
  FinePoint* end = corners_.data();
  FinePoint corner = scale_.ToFinePoint(*next);
  *end++ = corner;
  FinePoint last = corner;
  const auto from = [](FinePoint start, FinePoint point) {
    return Vector{std::int64_t{point.x} - start.x, std::int64_t{point.y} - start.y};
  };
  // A point that is no farther than this from the line between its neighbours is dropped.
  const std::int32_t tolerance = std::max(kFinePerPixel / 3, width_ * kFinePerPixel / 4);
  Cone cone(tolerance);
  for (std::size_t left = points.size() - 1; left > 0; --left) {
    next += step;
    const FinePoint point = scale_.ToFinePoint(*next);
    if (EndsCrispLine(corner, last, point) || !cone.Accept(from(corner, point))) {
      corner = last;
      *end++ = corner;
      cone = Cone(tolerance, from(corner, point));
    }
    last = point;
  }
  if (last != corner)
    *end++ = last;
  corners_.resize(static_cast<std::size_t>(end - corners_.data()));
}

bool LineRun::WithinOnePixel() const {
  const auto inFirst = [&](FinePoint point) {
    const FinePoint first = corners_.front();
    return (((point.x ^ first.x) | (point.y ^ first.y)) & -kFinePerPixel) == 0;
  };
  return std::all_of(corners_.begin(), corners_.end(), inFirst);
}

void LineRun::MoveToMiddles() {
  const bool single = corners_.size() == 2;
  bool moved = false;
  for (std::size_t i = 0; i < corners_.size(); ++i) {
    const FinePoint here = corners_[i];
    const bool moves = i + 1 < corners_.size() && [&] {
      const FinePoint next = corners_[i + 1];
      return (here.x == next.x || here.y == next.y) &&
             (single || std::abs(next.x - here.x) + std::abs(next.y - here.y) >= kShortestCrisp);
    }();
    corners_[i] = moves || moved ? Middle(here) : Beside(here);
    moved = moves;
  }
}

std::span<const FinePoint> LineRun::Corners(std::span<const TwipPoint> points) {
  Simplify(points, IsReversed(points));
  if (WithinOnePixel())
    corners_.assign(1, Middle(corners_.front()));
  else
    MoveToMiddles();
  return corners_;
}

}  // namespace zerbal::paint
