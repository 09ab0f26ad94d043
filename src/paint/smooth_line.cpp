#include "paint/smooth_line.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace zerbal::paint {
namespace {

constexpr std::int32_t kHalfPixel = kFinePerPixel / 2;
constexpr int kFineBits = 8;
/// Positions across the line have 32 bits below the pixel, so that they stay exact along the longest line.
constexpr int kPixelBits = 32;
static_assert(kFinePerPixel == 1 << kFineBits && LineInk::kFull == kFinePerPixel);

/// What a line one pixel wide has of a slice, per 256th of its slope.
const std::array<std::int32_t, kFinePerPixel + 1> kThinExtents = [] {
  std::array<std::int32_t, kFinePerPixel + 1> result = {};
  for (std::size_t i = 0; i < result.size(); ++i)
    result[i] = static_cast<std::int32_t>(std::lround(std::hypot(static_cast<double>(i), kFinePerPixel)));
  return result;
}();

/// A line in steps along the axis that it is closer to. A step is the row or column of pixels ("slice") with
/// the same position along. Each slice has the part of the line between two parallels of it; its pixels are
/// covered by what they have of that part at their middle. So the sum of a slice is the same everywhere.
class Stepper {
 public:
  Stepper(const PixelGrid& grid, FinePoint from, FinePoint to, std::int32_t width, const LineInk& ink,
          LineEnds ends)
      : ink_(ink), pixels_(grid.pixels), width_(width) {
    // Selections instead of branches: the direction of a coast's next part cannot be predicted.
    const int direction = DirectionOf(from, to);
    const bool steep = direction >= 2;
    slice_ = steep ? grid.stride : 1;
    next_ = steep ? 1 : grid.stride;
    slices_ = steep ? grid.height : grid.width;
    depth_ = steep ? grid.width : grid.height;
    const FinePoint a = {steep ? from.y : from.x, steep ? from.x : from.y};
    const FinePoint b = {steep ? to.y : to.x, steep ? to.x : to.y};
    // Always rightwards or downwards, so that both directions of a line give the same pixels.
    const bool back = direction % 2 != 0;
    from_ = {back ? b.x : a.x, back ? b.y : a.y};
    to_ = {back ? a.x : b.x, back ? a.y : b.y};
    ends_ = {back ? ends.openTo : ends.openFrom, back ? ends.openFrom : ends.openTo, ends.flat};
    const std::int32_t length = to_.x - from_.x;
    const double slope = length > 0 ? static_cast<double>(to_.y - from_.y) / length : 0;
    step_ = static_cast<std::int64_t>(slope * (std::int64_t{1} << kPixelBits));
    slope_ = slope;
  }

  void DrawThin();
  void DrawWide();

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
  /// Whether a thin line needs no clipping in two slices and all between them.
  bool IsInside(std::int32_t first, std::int32_t last) const {
    const std::int64_t begin = Begin(first) >> kPixelBits;
    const std::int64_t lastBegin = Begin(last) >> kPixelBits;
    return first >= 0 && last < slices_ && std::min(begin, lastBegin) >= 0 &&
           std::max(begin, lastBegin) + 2 < depth_;
  }
  void CoverInside(std::int32_t first, std::int32_t last, std::int32_t firstPart,
                   std::int32_t lastPart) const;
  template <typename Limit>
  void CoverSlice(std::int32_t slice, const Limit& limit) const;
  std::int32_t EndCoverage(std::int32_t slice, std::int32_t depth) const;

  const LineInk& ink_;
  std::uint32_t* pixels_;
  // x is along, y across the axis.
  FinePoint from_;
  FinePoint to_;
  LineEnds ends_;
  std::int32_t width_;
  std::int32_t extent_ = 0;  ///< of the line in a slice
  double slope_ = 0;
  float cosine_ = 1;          ///< of the angle with the axis; of wide lines
  std::int64_t step_ = 0;     ///< across per slice, in 2^-32 pixels
  std::ptrdiff_t slice_ = 0;  ///< pixels from one slice to the next
  std::ptrdiff_t next_ = 0;   ///< pixels to the next pixel of a slice
  std::int32_t slices_ = 0;
  std::int32_t depth_ = 0;  ///< pixels of a slice
};

/// All slices of a thin line, which covers at most three pixels of each.
void Stepper::CoverInside(std::int32_t first, std::int32_t last, std::int32_t firstPart,
                          std::int32_t lastPart) const {
  const LineInk& ink = ink_;
  const std::ptrdiff_t next = next_;
  const std::int32_t extent = extent_;
  std::int64_t begin = Begin(first);
  std::uint32_t* slice = At(first, 0);
  std::int32_t part = firstPart;
  for (std::int32_t left = last - first; left >= 0; --left, slice += slice_, begin += step_) {
    part = left == 0 ? std::min(part, lastPart) : part;
    std::uint32_t* at = slice + (begin >> kPixelBits) * next;
    const auto before = static_cast<std::int32_t>(begin >> (kPixelBits - kFineBits) & (kFinePerPixel - 1));
    const std::int32_t rest = extent - (kFinePerPixel - before);
    ink.Cover(*at, ((kFinePerPixel - before) * part) >> kFineBits);
    ink.Cover(at[next], (std::min(rest, kFinePerPixel) * part) >> kFineBits);
    if (rest > kFinePerPixel)
      ink.Cover(at[2 * next], ((rest - kFinePerPixel) * part) >> kFineBits);
    part = kFinePerPixel;
  }
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
    ink_.Cover(*at, limit(depth, plain));
  }
}

/// Lines one pixel wide, which are most. Their ends are cut along the slices; the part of the first and of
/// the last slice is such that two lines that meet cover the slice between them.
void Stepper::DrawThin() {
  extent_ = kThinExtents[static_cast<std::size_t>(std::abs(step_) >> (kPixelBits - kFineBits))];
  // The last slice whose middle is before the line, and the first whose middle is after it.
  std::int32_t first = ((from_.x + kHalfPixel - 1) >> kFineBits) - 1;
  std::int32_t last = ((to_.x - kHalfPixel) >> kFineBits) + 1;
  const std::int32_t firstPart = ends_.openFrom ? kFinePerPixel : kFinePerPixel - (from_.x - MiddleOf(first));
  const std::int32_t lastPart = ends_.openTo ? kFinePerPixel : kFinePerPixel - (MiddleOf(last) - to_.x);
  first += ends_.openFrom ? 1 : 0;
  last -= ends_.openTo ? 1 : 0;
  if (IsInside(first, last)) {
    CoverInside(first, last, firstPart, lastPart);
    return;
  }
  for (std::int32_t slice = std::max(first, 0); slice <= std::min(last, slices_ - 1); ++slice) {
    const std::int32_t part =
        std::min(slice == first ? firstPart : kFinePerPixel, slice == last ? lastPart : kFinePerPixel);
    CoverSlice(slice, [part](std::int32_t, std::int32_t plain) { return (plain * part) >> kFineBits; });
  }
}

/// The most that the ends allow: all before them; beyond, what is near enough to the end's position, or to
/// the line across it when the ends are flat.
std::int32_t Stepper::EndCoverage(std::int32_t slice, std::int32_t depth) const {
  const auto slope = static_cast<float>(slope_);
  const auto beyond = [&](FinePoint end, float sign) {
    const auto along = static_cast<float>(MiddleOf(slice) - end.x);
    const auto across = static_cast<float>(MiddleOf(depth) - end.y);
    const float distance = sign * (along + across * slope) * cosine_;
    if (distance <= 0 || ends_.flat)
      return distance;
    return std::sqrt(along * along + across * across);
  };
  const float distance = std::max(beyond(from_, -1), beyond(to_, 1));
  const float reach = static_cast<float>(ends_.flat ? kFinePerPixel : (width_ + kFinePerPixel) / 2);
  return static_cast<std::int32_t>(std::clamp(reach - distance, 0.0F, static_cast<float>(kFinePerPixel)));
}

void Stepper::DrawWide() {
  const double slant = std::sqrt(1 + slope_ * slope_);
  cosine_ = static_cast<float>(1 / slant);
  extent_ = static_cast<std::int32_t>(width_ * slant + 0.5);
  const std::int32_t reach = extent_ / 2 + kHalfPixel;
  const auto sliceAt = [&](std::int64_t fine) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(fine >> kFineBits, -1, slices_));
  };
  const std::int32_t first = std::max(sliceAt(std::int64_t{from_.x} - reach), 0);
  const std::int32_t last = std::min(sliceAt(std::int64_t{to_.x} + reach), slices_ - 1);
  // Slices between these are not near the ends.
  const std::int32_t plainFirst = sliceAt(std::int64_t{from_.x} + reach) + 1;
  const std::int32_t plainLast = sliceAt(std::int64_t{to_.x} - reach) - 1;
  for (std::int32_t slice = first; slice <= last; ++slice) {
    if (slice >= plainFirst && slice <= plainLast)
      CoverSlice(slice, [](std::int32_t, std::int32_t plain) { return plain; });
    else
      CoverSlice(slice, [&](std::int32_t depth, std::int32_t plain) {
        return std::min(plain, EndCoverage(slice, depth));
      });
  }
}

}  // namespace

void DrawSmoothLine(const PixelGrid& grid, FinePoint from, FinePoint to, std::int32_t width,
                    const LineInk& ink, LineEnds ends) {
  Stepper stepper(grid, from, to, width, ink, ends);
  if (width <= kFinePerPixel)
    stepper.DrawThin();
  else
    stepper.DrawWide();
}

}  // namespace zerbal::paint
