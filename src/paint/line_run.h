// The part of drawing a run of connected points that comes before pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/coordinates.h"
#include "paint/smooth_line.h"

namespace zerbal::paint {

/// Finds the corners of a run: drops points that nobody would miss, and moves the ends of horizontal and
/// vertical lines to the middle of their pixels, where they have crisp edges. Lines are `width` pixels wide.
class LineRun {
 public:
  LineRun(const PixelScale& scale, std::int32_t width) : scale_(scale), width_(width) {}

  /// The middles of the line at the corners; the same for the points in reverse. One corner when
  /// all points are in one pixel. No point may be farther away than PixelScale::kFinestTwips.
  std::span<const FinePoint> Corners(std::span<const TwipPoint> points);

  /// The middle of the line at one point. A point stands for the pixel from it on, and so does what is drawn
  /// at `width` pixels, on average.
  FinePoint Beside(TwipPoint point) const { return Beside(scale_.ToFinePoint(point)); }
  /// `DirectionOf` the line between a corner and the next one; of a line that covers whole pixels, which are
  /// in one row or column, `kCrisp`.
  int DirectionAt(std::size_t corner) const {
    return IsCrisp(corners_[corner], corners_[corner + 1])
               ? kCrisp
               : DirectionOf(corners_[corner], corners_[corner + 1]);
  }
  static constexpr int kCrisp = -1;
  /// The first pixel that a line covers at a corner.
  PixelPoint PixelOf(FinePoint corner) const {
    const std::int32_t middle = width_ * (kFinePerPixel / 2);
    return {(corner.x - middle) / kFinePerPixel, (corner.y - middle) / kFinePerPixel};
  }

 private:
  std::int32_t Middle(std::int32_t fine) const {
    return (fine & -kFinePerPixel) + width_ * (kFinePerPixel / 2);
  }
  FinePoint Middle(FinePoint point) const { return {Middle(point.x), Middle(point.y)}; }
  FinePoint Beside(FinePoint point) const {
    const std::int32_t aside = (width_ - 1) * (kFinePerPixel / 2);
    return {point.x + aside, point.y + aside};
  }
  bool IsCrisp(FinePoint from, FinePoint to) const {
    if (from.x != to.x && from.y != to.y) [[likely]]
      return false;
    const std::int32_t middle = width_ * (kFinePerPixel / 2);
    const std::int32_t parts = (from.x - middle) | (from.y - middle) | (to.x - middle) | (to.y - middle);
    return parts % kFinePerPixel == 0;
  }
  void Simplify(std::span<const TwipPoint> points, bool reverse);
  bool WithinOnePixel() const;
  void MoveToMiddles();

  PixelScale scale_;
  std::int32_t width_;
  std::vector<FinePoint> corners_;  ///< the buffer is reused
};

}  // namespace zerbal::paint
