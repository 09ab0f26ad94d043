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

  void Cover(const LineSlices& slices) const {
    // What the first pixel of each slice has before the line: where it begins, without whole pixels.
    Fractions fractions;
    for (std::uint32_t lane = 0; lane < kLanes; ++lane)
      fractions[lane] =
          static_cast<std::uint32_t>(slices.begin) + lane * static_cast<std::uint32_t>(slices.step);
    const std::uint32_t nextFractions = kLanes * static_cast<std::uint32_t>(slices.step);
    std::uint32_t* slice = slices.pixels;
    std::int64_t begin = slices.begin;
    for (int left = slices.count; left > 0; left -= kLanes, fractions += nextFractions) {
      std::uint32_t* at[kLanes];
      for (std::uint32_t*& first : at) {
        first = slice + (begin >> LineSlices::kPositionBits) * slices.next;
        slice += slices.nextSlice;
        begin += slices.step;
      }
      CoverLanes(at, slices.next, reinterpret_cast<Numbers>(fractions >> 24), slices.extent);
    }
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

  /// The pixels of one slice per lane: the first pixel has what `before` leaves of it.
  void CoverLanes(std::uint32_t** at, std::ptrdiff_t next, Numbers before, std::int32_t extent) const {
    Numbers coverage = LineInk::kFull - before;
    Numbers rest = extent - coverage;
    for (;;) {
      CoverPixels(at, coverage);
      if (!Any(rest > 0))
        return;
      coverage = rest > LineInk::kFull ? Numbers{} + LineInk::kFull : rest > 0 ? rest : Numbers{};
      rest -= coverage;
      for (int lane = 0; lane < kLanes; ++lane)
        at[lane] += next;
    }
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
    // Often a line is drawn again, on the way back.
    if (!Any(changes))
      return;
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

  static Numbers Larger(Numbers a, Numbers b) {
    return a > b ? a : b;
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
