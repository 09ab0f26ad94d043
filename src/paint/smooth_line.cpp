#include "paint/smooth_line.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "paint/line_slices.h"
#include "paint/processor.h"

namespace zerbal::paint {
namespace {

constexpr std::int32_t kHalfPixel = kFinePerPixel / 2;
constexpr int kFineBits = 8;
/// Positions across the line have 32 bits below the pixel, so that they stay exact along the longest line.
constexpr int kPixelBits = LineSlices::kPositionBits;
/// Slices of a line that are worth preparing vectors.
constexpr int kManySlices = 6;
static_assert(kFinePerPixel == 1 << kFineBits && LineInk::kFull == kFinePerPixel);

/// What a line one pixel wide has of a slice, per 256th of its slope.
const std::array<std::int32_t, kFinePerPixel + 1> kThinExtents = [] {
  std::array<std::int32_t, kFinePerPixel + 1> result = {};
  for (std::size_t i = 0; i < result.size(); ++i)
    result[i] = static_cast<std::int32_t>(std::lround(std::hypot(static_cast<double>(i), kFinePerPixel)));
  return result;
}();

/// 2^32 divided by the lengths of short lines.
constexpr std::array<std::uint32_t, 4 * kFinePerPixel> kPerLength = [] {
  std::array<std::uint32_t, 4 * kFinePerPixel> result = {};
  for (std::size_t i = 1; i < result.size(); ++i)
    result[i] = static_cast<std::uint32_t>(0xFFFF'FFFF / i);
  return result;
}();

/// Positions across the line per position along, in 2^-32.
std::int64_t SlopeOf(std::int32_t across, std::int32_t along) {
  if (along < static_cast<std::int32_t>(kPerLength.size())) [[likely]]
    return std::int64_t{across} * kPerLength[static_cast<std::size_t>(along)];
  return (std::int64_t{across} << kPixelBits) / along;
}

/// Swaps when the mask has all bits and not when it has none.
template <typename Number>
void SwapIf(Number mask, Number& a, Number& b) {
  const Number difference = (a ^ b) & mask;
  a ^= difference;
  b ^= difference;
}

/// A line in steps along the axis that it is closer to. A step is the row or column of pixels ("slice") with
/// the same position along. Each slice has the part of the line between two parallels of it; its pixels are
/// covered by what they have of that part at their middle. So the sum of a slice is the same everywhere.
class Stepper {
 public:
  Stepper(const PixelGrid& grid, FinePoint from, FinePoint to, std::int32_t width, const LineInk& ink,
          LineEnds ends)
      : ink_(ink), pixels_(grid.pixels), width_(width) {
    // Masks instead of branches: the direction of a coast's next part cannot be predicted.
    const std::int32_t steep = -static_cast<std::int32_t>(std::abs(to.y - from.y) > std::abs(to.x - from.x));
    SwapIf(steep, from.x, from.y);
    SwapIf(steep, to.x, to.y);
    // Always rightwards or downwards, so that both directions of a line give the same pixels.
    const std::int32_t back = (to.x - from.x) >> 31;
    SwapIf(back, from.x, to.x);
    SwapIf(back, from.y, to.y);
    from_ = from;
    to_ = to;
    openFrom_ = static_cast<std::int32_t>(ends.openFrom);
    openTo_ = static_cast<std::int32_t>(ends.openTo);
    SwapIf(back, openFrom_, openTo_);
    slice_ = 1;
    next_ = grid.stride;
    SwapIf(std::ptrdiff_t{steep}, slice_, next_);
    slices_ = grid.width;
    depth_ = grid.height;
    SwapIf(steep, slices_, depth_);
    step_ = SlopeOf(to_.y - from_.y, to_.x - from_.x);
  }

  void DrawPart();
  [[gnu::noinline]] void DrawStroke();

 private:
  static std::int32_t MiddleOf(std::int32_t slice) { return slice * kFinePerPixel + kHalfPixel; }
  /// Where the line begins in a slice.
  std::int64_t Begin(std::int32_t slice) const {
    return (std::int64_t{from_.y} << (kPixelBits - kFineBits)) -
           (std::int64_t{extent_} << (kPixelBits - kFineBits - 1)) +
           ((step_ * (MiddleOf(slice) - from_.x)) >> kFineBits);
  }
  std::uint32_t* At(std::int32_t slice, std::int64_t depth) const {
    return pixels_ + slice * slice_ + depth * next_;
  }
  /// Whether what the line covers of a slice needs no clipping.
  bool IsInside(std::int32_t slice) const {
    const std::int64_t begin = Begin(slice) >> (kPixelBits - kFineBits);
    return begin >= 0 && (begin + extent_) >> kFineBits < depth_;
  }
  /// Whether vectors of slices are inside.
  bool HasRoom(std::int32_t first, std::int32_t count) const {
    const std::int32_t last =
        first + (count + LineSlices::kStep - 1) / LineSlices::kStep * LineSlices::kStep - 1;
    const auto isInside = [&](std::int32_t slice) {
      const std::int64_t begin = Begin(slice) >> kPixelBits;
      return begin >= 0 && begin + LineSlices::Rows(extent_) <= depth_;
    };
    return last < slices_ && isInside(first) && isInside(last);
  }
  LineSlices Slices(std::int32_t first, int count) const {
    return {.pixels = At(first, 0),
            .nextSlice = slice_,
            .next = next_,
            .begin = Begin(first),
            .step = step_,
            .extent = extent_,
            .count = count};
  }
  struct Parts {
    std::int32_t first;  ///< slice
    std::int32_t last;
    std::int32_t ofFirst;  ///< 256ths of the slice
    std::int32_t ofLast;
  };
  // Slices that need no clipping. Nearly all coasts have few, so the code for many is apart from that for
  // few.
  [[gnu::always_inline]] inline void CoverFew(const Parts& parts) const;
  [[gnu::noinline]] void CoverMany(const Parts& parts) const;
  /// One of the slices, clipped.
  void CoverPart(std::int32_t slice, const Parts& parts) const;
  template <typename Limit>
  void CoverSlice(std::int32_t slice, const Limit& limit) const;
  std::int32_t EndCoverage(std::int32_t slice, std::int32_t depth, float slope, float cosine) const;
  /// Draws a stroke, unless it is near an edge of the picture or the processor lacks the instructions.
  [[gnu::noinline]] bool CoverInVectors(std::int32_t first, std::int32_t last, float slope,
                                        float cosine) const;

  const LineInk& ink_;
  std::uint32_t* pixels_;
  // x is along, y across the axis.
  FinePoint from_;
  FinePoint to_;
  std::int32_t openFrom_ = 0;  ///< 1 or 0
  std::int32_t openTo_ = 0;
  std::int32_t width_;
  std::int32_t extent_ = 0;   ///< of the line in a slice
  std::int64_t step_ = 0;     ///< across per slice, in 2^-32 pixels
  std::ptrdiff_t slice_ = 0;  ///< pixels from one slice to the next
  std::ptrdiff_t next_ = 0;   ///< pixels to the next pixel of a slice
  std::int32_t slices_ = 0;
  std::int32_t depth_ = 0;  ///< pixels of a slice
};

inline void Stepper::CoverFew(const Parts& parts) const {
  const LineInk::Brush brush = ink_.ToBrush();
  const std::ptrdiff_t next = next_;
  const std::ptrdiff_t nextSlice = slice_;
  const std::int64_t step = step_;
  const std::int32_t extent = extent_;
  std::int64_t begin = Begin(parts.first);
  std::uint32_t* slice = At(parts.first, 0);
  std::int32_t part = parts.ofFirst;
  for (std::int32_t left = parts.last - parts.first; left >= 0; --left, slice += nextSlice, begin += step) {
    part = left == 0 ? std::min(part, parts.ofLast) : part;
    std::uint32_t* at = slice + (begin >> kPixelBits) * next;
    const auto before = static_cast<std::int32_t>(begin >> (kPixelBits - kFineBits) & (kFinePerPixel - 1));
    brush.Cover(*at, ((kFinePerPixel - before) * part) >> kFineBits);
    std::int32_t rest = extent - (kFinePerPixel - before);
    for (at += next; rest > kFinePerPixel; at += next, rest -= kFinePerPixel)
      brush.Cover(*at, part);
    brush.Cover(*at, (rest * part) >> kFineBits);
    part = kFinePerPixel;
  }
}

void Stepper::CoverMany(const Parts& parts) const {
#ifdef ZERBAL_AVX2
  if (HasAvx2()) {
    const std::int32_t count = parts.last + 1 - parts.first;
    if (HasRoom(parts.first, count)) {
      CoverSlicesByAvx2(ink_.ToRule(), Slices(parts.first, count), {parts.ofFirst, parts.ofLast});
      return;
    }
    // Only the ends are near an edge of the picture.
    constexpr std::int32_t kStep = LineSlices::kStep;
    if (count >= 2 * kStep) {
      const std::int32_t middle = parts.first + (count / 2 + kStep - 1) / kStep * kStep;
      CoverMany({parts.first, middle - 1, parts.ofFirst, kFinePerPixel});
      CoverMany({middle, parts.last, kFinePerPixel, parts.ofLast});
      return;
    }
  }
#endif
  CoverFew(parts);
}

/// `limit` turns the depth of a pixel and its coverage by a line without ends into the coverage.
template <typename Limit>
void Stepper::CoverSlice(std::int32_t slice, const Limit& limit) const {
  const std::int64_t begin = Begin(slice) >> (kPixelBits - kFineBits);
  const std::int64_t end = begin + extent_;
  const auto first = static_cast<std::int32_t>(std::max<std::int64_t>(begin >> kFineBits, 0));
  const auto past =
      static_cast<std::int32_t>(std::min<std::int64_t>((end + kFinePerPixel - 1) >> kFineBits, depth_));
  std::uint32_t* at = At(slice, first);
  for (std::int32_t depth = first; depth < past; ++depth, at += next_) {
    const std::int64_t top = std::int64_t{depth} * kFinePerPixel;
    const auto plain = static_cast<std::int32_t>(std::min(top + kFinePerPixel, end) - std::max(top, begin));
    if (const std::int32_t coverage = limit(depth, plain); coverage > 0)
      ink_.Cover(*at, coverage);
  }
}

void Stepper::CoverPart(std::int32_t slice, const Parts& parts) const {
  const std::int32_t part = std::min(slice == parts.first ? parts.ofFirst : kFinePerPixel,
                                     slice == parts.last ? parts.ofLast : kFinePerPixel);
  CoverSlice(slice, [part](std::int32_t, std::int32_t plain) { return (plain * part) >> kFineBits; });
}

/// Part of a run. The ends are cut along the slices; the parts of the first and of the last slice are such
/// that two lines that meet cover the slice between them.
void Stepper::DrawPart() {
  const auto slope = static_cast<std::size_t>(std::abs(step_) >> (kPixelBits - kFineBits));
  extent_ = (kThinExtents[slope] * width_) >> kFineBits;
  const std::int32_t aside = (width_ - kFinePerPixel) / 2;
  const std::int32_t from = from_.x - aside * (1 - openFrom_);
  const std::int32_t to = to_.x + aside * (1 - openTo_);
  // The last slice whose middle is before the line, and the first whose middle is after it.
  std::int32_t first = ((from + kHalfPixel - 1) >> kFineBits) - 1;
  std::int32_t last = ((to - kHalfPixel) >> kFineBits) + 1;
  const std::int32_t firstPart = kFinePerPixel - (from - MiddleOf(first)) * (1 - openFrom_);
  const std::int32_t lastPart = kFinePerPixel - (MiddleOf(last) - to) * (1 - openTo_);
  first += openFrom_;
  last -= openTo_;
  Parts parts{std::max(first, 0), std::min(last, slices_ - 1), first < 0 ? kFinePerPixel : firstPart,
              last < slices_ ? lastPart : kFinePerPixel};
  // Slices that are clipped are at the ends.
  for (; parts.first <= parts.last && !IsInside(parts.first); ++parts.first) {
    CoverPart(parts.first, parts);
    parts.ofFirst = kFinePerPixel;
  }
  for (; parts.first <= parts.last && !IsInside(parts.last); --parts.last) {
    CoverPart(parts.last, parts);
    parts.ofLast = kFinePerPixel;
  }
  if (parts.last - parts.first < kManySlices)
    CoverFew(parts);
  else
    CoverMany(parts);
}

/// The most that the ends of a stroke allow: all before them, nothing beyond.
std::int32_t Stepper::EndCoverage(std::int32_t slice, std::int32_t depth, float slope, float cosine) const {
  const auto beyond = [&](FinePoint end) {
    const auto along = static_cast<float>(MiddleOf(slice) - end.x);
    const auto across = static_cast<float>(MiddleOf(depth) - end.y);
    return (along + across * slope) * cosine;
  };
  const float distance = std::max(-beyond(from_), beyond(to_));
  constexpr float kFull = kFinePerPixel;
  return static_cast<std::int32_t>(std::clamp(kFull - distance, 0.0F, kFull));
}

bool Stepper::CoverInVectors(std::int32_t first, std::int32_t last, float slope, float cosine) const {
#ifdef ZERBAL_AVX2
  if (HasRoom(first, last + 1 - first) && HasAvx2()) {
    CoverStrokeByAvx2(ink_.ToRule(), Slices(first, last + 1 - first),
                      {.from = {from_.x - first * kFinePerPixel, from_.y},
                       .to = {to_.x - first * kFinePerPixel, to_.y},
                       .slope = slope,
                       .cosine = cosine});
    return true;
  }
#endif
  return false;
}

void Stepper::DrawStroke() {
  const double slope = std::ldexp(static_cast<double>(step_), -kPixelBits);
  const double slant = std::sqrt(1 + slope * slope);
  const auto cosine = static_cast<float>(1 / slant);
  extent_ = static_cast<std::int32_t>(width_ * slant + 0.5);
  const std::int32_t reach = extent_ / 2 + kHalfPixel;
  const auto sliceAt = [&](std::int64_t fine) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(fine >> kFineBits, -1, slices_));
  };
  const std::int32_t first = std::max(sliceAt(std::int64_t{from_.x} - reach), 0);
  const std::int32_t last = std::min(sliceAt(std::int64_t{to_.x} + reach), slices_ - 1);
  if (CoverInVectors(first, last, static_cast<float>(slope), cosine))
    return;
  // Slices between these are not near the ends.
  const std::int32_t plainFirst = sliceAt(std::int64_t{from_.x} + reach) + 1;
  const std::int32_t plainLast = sliceAt(std::int64_t{to_.x} - reach) - 1;
  for (std::int32_t slice = first; slice <= last; ++slice) {
    if (slice >= plainFirst && slice <= plainLast)
      CoverSlice(slice, [](std::int32_t, std::int32_t plain) { return plain; });
    else
      CoverSlice(slice, [&](std::int32_t depth, std::int32_t plain) {
        return std::min(plain, EndCoverage(slice, depth, static_cast<float>(slope), cosine));
      });
  }
}

}  // namespace

void DrawSmoothLine(const PixelGrid& grid, FinePoint from, FinePoint to, std::int32_t width,
                    const LineInk& ink, LineEnds ends) {
  Stepper stepper(grid, from, to, width, ink, ends);
  if (ends.flat)
    stepper.DrawStroke();
  else
    stepper.DrawPart();
}

}  // namespace zerbal::paint
