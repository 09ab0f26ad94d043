// From twips to the pixels of a device, in one place so that every shape lands on the same pixel.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "map/surface.h"

namespace zerbal::paint {

/// `Ratio()` device pixels stand for one logical pixel. A position is the pixel that holds it (floor), a
/// length keeps its fraction, a line width is the nearest whole number of pixels (halves go down: fine coasts
/// look better thin) and at least one.
class PixelScale {
 public:
  /// The ratio is limited to 1/8..8: beyond that nothing could be seen, and whole numbers would overflow.
  explicit PixelScale(double ratio)
      : ratio_(std::clamp(ratio, 0.125, 8.0)), step_(std::llround(ratio_ / map::kTwipsPerPixel * kOne)) {}

  double Ratio() const { return ratio_; }

  /// Right for every position up to 25000 logical pixels from the corner; no overflow for any.
  std::int32_t Pixel(std::int32_t twips) const {
    return static_cast<std::int32_t>((twips * step_ + kSlack) >> kBits);
  }

  map::Point Pixel(map::Point twips) const { return {Pixel(twips.x), Pixel(twips.y)}; }

  double Length(double twips) const { return twips * ratio_ / map::kTwipsPerPixel; }

  int LineWidth(int logicalPixels) const {
    return std::max(1, static_cast<int>(std::ceil(std::clamp(logicalPixels, 1, 1000) * ratio_ - 0.5)));
  }

 private:
  static constexpr int kBits = 31;
  static constexpr std::int64_t kOne = std::int64_t{1} << kBits;
  /// A ten-thousandth of a pixel makes up for the step's rounding, so that a position exactly on a pixel's
  /// edge is that pixel.
  static constexpr std::int64_t kSlack = kOne / 10000;

  double ratio_;
  std::int64_t step_;  ///< pixels a twip, in units of 2^-31
};

}  // namespace zerbal::paint
