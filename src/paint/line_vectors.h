// Covers the pixels of long lines, as many at once as fit into a vector of the processor that a source is
// compiled for. Internal to `DrawSmoothLine`. Sources that are compiled for different processors must not
// share functions, so the class is in an unnamed namespace and calls none of the standard library.
#pragma once

#include <cstddef>
#include <cstdint>

#include "paint/line_slices.h"

namespace zerbal::paint {
namespace {

class LineVectors {
 public:
  explicit LineVectors(const LineInk::Rule& rule)
      : background_(Each(rule.background)),
        colour_(Each(rule.colour)),
        shift_(static_cast<std::int32_t>(rule.shift)),
        flip_(static_cast<std::int32_t>(rule.flip)),
        fullLevel_(static_cast<std::int32_t>((rule.colour >> rule.shift & 0xFF) ^ rule.flip)),
        difference_(rule.difference),
        reciprocal_(rule.reciprocal) {}

  void Cover(const LineSlices& slices, const SliceParts& parts) const {
    VisitSlices(slices, [&](std::uint32_t** at, int slice, const Depths& depths) {
      const Numbers number = Ascending() + slice;
      Numbers part = number < slices.count ? Numbers{} + LineInk::kFull : Numbers{};
      part = number == 0 ? Numbers{} + parts.first : part;
      part = number == slices.count - 1 ? Smaller(part, Numbers{} + parts.last) : part;
      CoverLanes(at, slices, depths.before, [&](int, Numbers plain) { return (plain * part) >> 8; });
    });
  }

  /// Slices after the last are so far beyond the end that they have nothing of the stroke.
  void Cover(const LineSlices& slices, const StrokeEnds& ends) const {
    VisitSlices(slices, [&](std::uint32_t** at, int slice, const Depths& depths) {
      const Numbers number = Ascending() + slice;
      const Numbers along = number * LineInk::kFull + LineInk::kFull / 2;
      const Numbers across = depths.first * LineInk::kFull + LineInk::kFull / 2;
      CoverLanes(at, slices, depths.before, [&](int row, Numbers plain) {
        return Smaller(plain, EndCoverage(ends, along, across + row * LineInk::kFull));
      });
    });
  }

 private:
#ifdef __AVX2__
  static constexpr int kLanes = 8;
#else
  static constexpr int kLanes = 4;
#endif
  static_assert(LineSlices::kStep % kLanes == 0);

  // Compilers turn these types into vector instructions. All of them hold kLanes pixels or numbers.
  using Numbers = std::int32_t __attribute__((vector_size(4 * kLanes)));
  using Fractions = std::uint32_t __attribute__((vector_size(4 * kLanes)));  ///< 2^-32
  using Bytes = std::uint8_t __attribute__((vector_size(4 * kLanes)));
  using Floats = float __attribute__((vector_size(4 * kLanes)));

  static Numbers Each(std::uint32_t pixel) {
    return Numbers{} + static_cast<std::int32_t>(pixel);
  }
  /// The numbers of the lanes.
  static Numbers Ascending() {
    Numbers result;
    for (int lane = 0; lane < kLanes; ++lane)
      result[lane] = lane;
    return result;
  }
  static Numbers Larger(Numbers a, Numbers b) {
    return a > b ? a : b;
  }
  static Numbers Smaller(Numbers a, Numbers b) {
    return a < b ? a : b;
  }

  /// Where the line begins in each of kLanes slices.
  struct Depths {
    Numbers first;   ///< pixel
    Numbers before;  ///< 256ths of that pixel
  };

  /// Gives kLanes slices after the other: pointers to their first pixels, the number of the first one.
  template <typename Visitor>
  static void VisitSlices(const LineSlices& slices, const Visitor& visit) {
    const auto step = static_cast<std::uint32_t>(slices.step);
    Fractions fractions =
        static_cast<std::uint32_t>(slices.begin) + reinterpret_cast<Fractions>(Ascending()) * step;
    std::uint32_t* slice = slices.pixels;
    std::int64_t begin = slices.begin;
    for (int number = 0; number < slices.count; number += kLanes, fractions += kLanes * step) {
      std::uint32_t* at[kLanes];
      Numbers firsts{};
      for (int lane = 0; lane < kLanes; ++lane) {
        const std::int64_t first = begin >> LineSlices::kPositionBits;
        firsts[lane] = static_cast<std::int32_t>(first);
        at[lane] = slice + first * slices.next;
        slice += slices.nextSlice;
        begin += slices.step;
      }
      visit(at, number, Depths{firsts, reinterpret_cast<Numbers>(fractions >> 24)});
    }
  }

  /// The pixels of one slice per lane: the first pixel has what `before` leaves of it. `limit` turns the row
  /// and the coverage by a line without ends into the coverage.
  template <typename Limit>
  void CoverLanes(std::uint32_t** at, const LineSlices& slices, Numbers before, const Limit& limit) const {
    Numbers coverage = LineInk::kFull - before;
    Numbers rest = slices.extent - coverage;
    for (int row = 0;; ++row) {
      CoverPixels(at, limit(row, coverage));
      if (!Any(rest > 0))
        return;
      coverage = Smaller(Larger(rest, Numbers{}), Numbers{} + LineInk::kFull);
      rest -= coverage;
      for (int lane = 0; lane < kLanes; ++lane)
        at[lane] += slices.next;
    }
  }

  /// The most that the ends of a stroke allow: all before them, nothing beyond.
  static Numbers EndCoverage(const StrokeEnds& ends, Numbers along, Numbers across) {
    const auto beyond = [&](FinePoint end) {
      return (__builtin_convertvector(along - end.x, Floats) +
              __builtin_convertvector(across - end.y, Floats) * ends.slope) *
             ends.cosine;
    };
    const Floats beforeFrom = -beyond(ends.from);
    const Floats afterTo = beyond(ends.to);
    const Numbers left =
        __builtin_convertvector(LineInk::kFull - (beforeFrom > afterTo ? beforeFrom : afterTo), Numbers);
    return Smaller(Larger(left, Numbers{}), Numbers{} + LineInk::kFull);
  }

  static bool Any(Numbers mask) {
#ifdef __AVX2__
    return __builtin_ia32_movmskps256(reinterpret_cast<Floats>(mask)) != 0;
#else
    std::int32_t any = 0;
    for (int lane = 0; lane < kLanes; ++lane)
      any |= mask[lane];
    return any != 0;
#endif
  }

  void CoverPixels(std::uint32_t** at, Numbers coverage) const {
    Numbers below;
    for (int lane = 0; lane < kLanes; ++lane)
      below[lane] = static_cast<std::int32_t>(*at[lane]);
    const Numbers left = LineInk::kFull - coverage;
    const Numbers plain = (difference_ * left + LineInk::kFull / 2) >> 8;
    const Numbers distance = Distance(below, colour_);
    const Numbers changes = distance > plain;
    const Numbers onBackground = IsOnBackground(below);
    const Numbers part = onBackground ? plain * reciprocal_
                                      : Larger(plain * Reciprocal(distance), left * (65536 / LineInk::kFull));
    const Numbers mixed = Mixed(onBackground ? background_ : below, part);
    const Numbers result = changes ? mixed : below;
    for (int lane = 0; lane < kLanes; ++lane)
      *at[lane] = static_cast<std::uint32_t>(result[lane]);
  }

  /// Whether pixels are blends of colour and background.
  Numbers IsOnBackground(Numbers pixels) const {
    const Numbers left = fullLevel_ - ((pixels >> shift_ & 0xFF) ^ flip_);
    const Numbers known = (left >= 0) & (left <= difference_);
    const Numbers blend =
        left == difference_ ? background_ : Mixed(background_, (left & known) * reciprocal_);
    return (pixels == blend) & known;
  }

  /// The largest distance of a component.
  static Numbers Distance(Numbers pixels, Numbers others) {
    const auto a = reinterpret_cast<Bytes>(pixels);
    const auto b = reinterpret_cast<Bytes>(others);
    const auto apart = reinterpret_cast<Numbers>((a > b ? a : b) - (a < b ? a : b));
    return Larger(Larger(apart & 0xFF, apart >> 8 & 0xFF), apart >> 16 & 0xFF);
  }

  /// 2^16 divided by numbers of 1 to 255, rounded; no quotient is halfway between two numbers.
  static Numbers Reciprocal(Numbers numbers) {
    const Numbers positive = Larger(numbers, Numbers{} + 1);
    return __builtin_convertvector(65536.0F / __builtin_convertvector(positive, Floats) + 0.5F, Numbers);
  }

  /// The colour with `part` (in 2^-16) of its difference from others left.
  Numbers Mixed(Numbers others, Numbers part) const {
    const auto component = [&](int shift) {
      const Numbers colour = colour_ >> shift & 0xFF;
      return (colour << 16) + 0x8000 + ((others >> shift & 0xFF) - colour) * part;
    };
    return static_cast<std::int32_t>(0xFF000000) | (component(16) & 0xFF0000) | (component(8) >> 8 & 0xFF00) |
           (component(0) >> 16 & 0xFF);
  }

  Numbers background_;
  Numbers colour_;
  std::int32_t shift_;
  std::int32_t flip_;
  std::int32_t fullLevel_;
  std::int32_t difference_;
  std::int32_t reciprocal_;
};

}  // namespace
}  // namespace zerbal::paint
