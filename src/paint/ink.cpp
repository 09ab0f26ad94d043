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
using PixelLanes = std::uint32_t __attribute__((vector_size(16)));
using LanePairs = std::uint64_t __attribute__((vector_size(16)));
static_assert(std::endian::native == std::endian::little);  // a lane is a byte followed by a zero byte

/// Per coverage: the weight of the colour in 256ths, in the four lanes of a pixel.
constexpr std::array<std::uint64_t, 256> kWeights = [] {
  std::array<std::uint64_t, 256> result = {};
  for (std::uint64_t i = 0; i < result.size(); ++i)
    result[i] = (i + i / 128) * 0x0001'0001'0001'0001;
  return result;
}();

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

Bytes UpperBytes(LanePair lanes) {
  return __builtin_shufflevector(std::bit_cast<Bytes>(lanes.low), std::bit_cast<Bytes>(lanes.high), 1, 3, 5,
                                 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31);
}

Bytes FourTimes(std::uint32_t pixel) {
  return std::bit_cast<Bytes>(PixelLanes{pixel, pixel, pixel, pixel});
}

/// Mixes each pixel with the colour by its coverage.
Bytes Mixed(Bytes pixels, Bytes colour, const std::uint8_t* coverage) {
  const auto weights = [&](int first) {
    return std::bit_cast<Lanes>(LanePairs{kWeights[coverage[first]], kWeights[coverage[first + 1]]});
  };
  const LanePair from = Spread(pixels);
  const LanePair to = Spread(colour);
  // Products and sums overflow, but not in the bytes that are kept.
  return pixels + UpperBytes({(to.low - from.low) * weights(0), (to.high - from.high) * weights(2)});
}

Bytes Larger(Bytes a, Bytes b) {
  return a > b ? a : b;
}

Bytes Distance(Bytes a, Bytes b) {
  return Larger(a, b) - (a < b ? a : b);
}

using Distances = std::array<std::uint32_t, 256>;

/// Blends the colour into four pixels. `plain` holds the distances of the blended background.
inline void CoverFour(std::uint32_t* at, const std::uint8_t* coverage, Bytes colour, const Distances& plain) {
  Bytes pixels;
  std::memcpy(&pixels, at, sizeof pixels);
  const auto limits = std::bit_cast<Bytes>(
      PixelLanes{plain[coverage[0]], plain[coverage[1]], plain[coverage[2]], plain[coverage[3]]});
  // A pixel none of whose components is farther from the colour than on the background stays unchanged.
  const Bytes larger = Larger(Distance(pixels, colour), limits);
  const auto stays =
      std::bit_cast<Bytes>(std::bit_cast<PixelLanes>(larger) == std::bit_cast<PixelLanes>(limits));
  pixels = (pixels & stays) | (Mixed(pixels, colour, coverage) & ~stays);
  std::memcpy(at, &pixels, sizeof pixels);
}

}  // namespace

Ink::Ink(std::uint32_t background, std::uint32_t colour) : background_(background), colour_(colour) {
  const Bytes full = FourTimes(colour);
  for (std::size_t i = 0; i < distances_.size(); ++i) {
    std::array<std::uint8_t, 4> coverage;
    coverage.fill(static_cast<std::uint8_t>(i));
    const Bytes plain = Mixed(FourTimes(background), full, coverage.data());
    distances_[i] = std::bit_cast<PixelLanes>(Distance(plain, full))[0];
  }
}

void Ink::Cover(const PixelBlock& block, const std::uint8_t* coverage, std::ptrdiff_t coverageStride) const {
  const Bytes colour = FourTimes(colour_);
  const int rest = block.width % 4;
  const int past = block.width - rest;
  std::uint32_t* row = block.pixels;
  for (int left = block.height; left > 0; --left, row += block.stride, coverage += coverageStride) {
    for (int column = 0; column < past; column += 4)
      CoverFour(row + column, coverage + column, colour, distances_);
    if (rest == 0)
      continue;
    std::array<std::uint8_t, 4> lastCoverage = {};
    std::array<std::uint32_t, 4> last = {};
    std::copy_n(coverage + past, rest, lastCoverage.begin());
    std::copy_n(row + past, rest, last.begin());
    CoverFour(last.data(), lastCoverage.data(), colour, distances_);
    std::copy_n(last.begin(), rest, row + past);
  }
}

}  // namespace zerbal::paint
