#include "paint/ink.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstring>

namespace zerbal::paint {
namespace {

// Four pixels, and two pixels with one lane per colour component. Compilers turn these types into vector
// instructions, which are many times faster than a loop over bytes.
using Bytes = std::uint8_t __attribute__((vector_size(16)));
using Lanes = std::uint16_t __attribute__((vector_size(16)));
using SignedLanes = std::int16_t __attribute__((vector_size(16)));
using PixelLanes = std::int32_t __attribute__((vector_size(16)));
static_assert(std::endian::native == std::endian::little);  // a lane is a byte followed by a zero byte

struct LanePair {
  Lanes low;   ///< the first two pixels
  Lanes high;  ///< the last two
};

/// Widens each byte to a lane.
LanePair Spread(Bytes bytes) {
  const Bytes zero = {};
  return {std::bit_cast<Lanes>(
              __builtin_shufflevector(bytes, zero, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23)),
          std::bit_cast<Lanes>(__builtin_shufflevector(bytes, zero, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13,
                                                       29, 14, 30, 15, 31))};
}

/// The lower byte of each lane.
template <class Vector>
Bytes Gathered(Vector low, Vector high) {
  return __builtin_shufflevector(std::bit_cast<Bytes>(low), std::bit_cast<Bytes>(high), 0, 2, 4, 6, 8, 10, 12,
                                 14, 16, 18, 20, 22, 24, 26, 28, 30);
}

/// The coverages of four pixels, the first in the lowest byte.
std::uint32_t Coverages(const std::uint8_t* at) {
  return std::uint32_t{at[0]} | std::uint32_t{at[1]} << 8 | std::uint32_t{at[2]} << 16 |
         std::uint32_t{at[3]} << 24;
}

/// The weight of the colour in four pixels, in 256ths.
LanePair Weights(std::uint32_t coverages) {
  Lanes parts = Spread(std::bit_cast<Bytes>(PixelLanes{static_cast<std::int32_t>(coverages), 0, 0, 0})).low;
  parts += parts >> 7;
  const auto twice = std::bit_cast<PixelLanes>(__builtin_shufflevector(parts, parts, 0, 0, 1, 1, 2, 2, 3, 3));
  return {std::bit_cast<Lanes>(__builtin_shufflevector(twice, twice, 0, 0, 1, 1)),
          std::bit_cast<Lanes>(__builtin_shufflevector(twice, twice, 2, 2, 3, 3))};
}

Lanes Mixed(Lanes below, Lanes colour, Lanes weights) {
  return (below * (256 - weights) + colour * weights) >> 8;
}

SignedLanes Distance(Lanes pixels, Lanes colour) {
  const auto difference = std::bit_cast<SignedLanes>(pixels - colour);
  return difference < 0 ? -difference : difference;
}

Lanes Twice(std::uint32_t pixel) {
  const auto both = static_cast<std::int32_t>(pixel);
  return Spread(std::bit_cast<Bytes>(PixelLanes{both, both, 0, 0})).low;
}

using Distances = std::array<std::uint64_t, 256>;

/// Blends the colour into four pixels. `plain` holds the distances of the blended background.
Bytes Covered(Bytes pixels, std::uint32_t coverages, Lanes colour, const Distances& plain) {
  const auto plainOf = [&](std::uint32_t first, std::uint32_t second) {
    return std::bit_cast<SignedLanes>(
        std::array<std::uint64_t, 2>{plain[first & 0xFF], plain[second & 0xFF]});
  };
  const LanePair below = Spread(pixels);
  const LanePair weights = Weights(coverages);
  const Bytes mixed =
      Gathered(Mixed(below.low, colour, weights.low), Mixed(below.high, colour, weights.high));
  // A pixel none of whose components is farther from the colour than on the background stays unchanged.
  const Bytes farther = Gathered(Distance(below.low, colour) > plainOf(coverages, coverages >> 8),
                                 Distance(below.high, colour) > plainOf(coverages >> 16, coverages >> 24));
  const auto stays = std::bit_cast<Bytes>(std::bit_cast<PixelLanes>(farther) == 0);
  return (pixels & stays) | (mixed & ~stays);
}

}  // namespace

Ink::Ink(std::uint32_t background, std::uint32_t colour) : background_(background), colour_(colour) {
  const Lanes full = Twice(colour);
  for (std::size_t coverage = 0; coverage < distances_.size(); ++coverage) {
    const Lanes weights = Weights(static_cast<std::uint32_t>(coverage)).low;
    const auto distance =
        std::bit_cast<std::array<std::uint64_t, 2>>(Distance(Mixed(Twice(background), full, weights), full));
    distances_[coverage] = distance[0];
  }
}

void Ink::Cover(std::uint32_t* at, const std::uint8_t* coverage, int count) const {
  const Lanes colour = Twice(colour_);
  Bytes pixels;
  for (; count >= 4; count -= 4, at += 4, coverage += 4) {
    const std::uint32_t coverages = Coverages(coverage);
    if (coverages == 0)
      continue;
    std::memcpy(&pixels, at, sizeof pixels);
    pixels = Covered(pixels, coverages, colour, distances_);
    std::memcpy(at, &pixels, sizeof pixels);
  }
  if (count > 0) {
    std::array<std::uint8_t, 4> rest = {};
    std::array<std::uint32_t, 4> last = {};
    std::copy_n(coverage, count, rest.begin());
    std::copy_n(at, count, last.begin());
    pixels = Covered(std::bit_cast<Bytes>(last), Coverages(rest.data()), colour, distances_);
    std::copy_n(std::bit_cast<std::array<std::uint32_t, 4>>(pixels).begin(), count, at);
  }
}

}  // namespace zerbal::paint
