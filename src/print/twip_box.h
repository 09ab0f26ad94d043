// Sizes and rectangles of the drawing area.
#pragma once

#include <algorithm>
#include <cstdint>

#include "base/coordinates.h"

namespace zerbal::print {

/// Twips.
struct TwipSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
  bool operator==(const TwipSize&) const = default;
};

/// Twips; right and bottom are the edges after the last twip. Boxes that share an edge do not overlap.
struct TwipBox {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;

  static TwipBox At(TwipPoint topLeft, TwipSize size) {
    return {topLeft.x, topLeft.y, topLeft.x + size.width, topLeft.y + size.height};
  }
  static TwipBox Around(TwipPoint centre, std::int32_t radius) {
    return {centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius};
  }

  TwipPoint TopLeft() const { return {left, top}; }
  std::int32_t Width() const { return right - left; }
  std::int32_t Height() const { return bottom - top; }
  bool Overlaps(const TwipBox& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
  /// An edge may be shared.
  bool Holds(const TwipBox& other) const {
    return left <= other.left && top <= other.top && other.right <= right && other.bottom <= bottom;
  }
  bool Holds(TwipPoint point) const {
    return left <= point.x && point.x < right && top <= point.y && point.y < bottom;
  }
  /// Larger by `margin` on every side.
  TwipBox Grown(std::int32_t margin) const {
    return {left - margin, top - margin, right + margin, bottom + margin};
  }
  bool operator==(const TwipBox&) const = default;
};

}  // namespace zerbal::print
