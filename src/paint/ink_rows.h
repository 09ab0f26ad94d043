// How `Ink` blends, as many pixels at once as fit into a vector of the processor that a source is compiled
// for. Internal to `Ink`. Sources that are compiled for different processors must not share functions, so the
// class is in an unnamed namespace.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "paint/ink.h"

namespace zerbal::paint {

/// `Ink::Cover` for processors with AVX2.
void CoverByAvx2(std::uint32_t background, std::uint32_t colour, const PixelBlock& block,
                 const std::uint8_t* coverage, std::ptrdiff_t coverageStride);

namespace {

class InkRows {
 public:
  InkRows(std::uint32_t background, std::uint32_t colour)
      : background_(Each(background)), colour_(Each(colour)) {}

  /// As `Ink::Cover`.
  void Cover(const PixelBlock& block, const std::uint8_t* coverage, std::ptrdiff_t coverageStride) const {
    const int rest = block.width % kPixels;
    const int past = block.width - rest;
    std::uint32_t* row = block.pixels;
    for (int left = block.height; left > 0; --left, row += block.stride, coverage += coverageStride) {
      for (int column = 0; column < past; column += kPixels)
        CoverPixels(row + column, coverage + column);
      if (rest != 0)
        CoverRest(row + past, coverage + past, static_cast<std::size_t>(rest));
    }
  }

 private:
#ifdef __AVX2__
  static constexpr int kPixels = 8;
#else
  static constexpr int kPixels = 4;
#endif

  // Compilers turn these types into vector instructions, which are many times faster than a loop over bytes.
  // All of them hold kPixels pixels. A lane is two components of a pixel.
  using Bytes = std::uint8_t __attribute__((vector_size(4 * kPixels)));
  using Lanes = std::uint16_t __attribute__((vector_size(4 * kPixels)));
  using Pixels = std::uint32_t __attribute__((vector_size(4 * kPixels)));
  static_assert(std::endian::native == std::endian::little);  // a lane's even component is its lower byte
  static constexpr std::uint16_t kLowerByte = 0x00FF;
  static constexpr std::uint16_t kUpperByte = 0xFF00;

  static Bytes Each(std::uint32_t pixel) {
    return std::bit_cast<Bytes>(Pixels{} + pixel);
  }

  /// One number per pixel, in each byte of the pixel.
  static Bytes SpreadOverPixels(const std::uint8_t* numbers) {
#ifdef __AVX2__
    using Eights = std::uint64_t __attribute__((vector_size(4 * kPixels)));
    std::uint64_t eight = 0;
    std::memcpy(&eight, numbers, sizeof eight);
    const auto bytes = std::bit_cast<Bytes>(Eights{} + eight);
    return __builtin_shufflevector(bytes, bytes, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3,  //
                                   20, 20, 20, 20, 21, 21, 21, 21, 22, 22, 22, 22, 23, 23, 23, 23);
#else
    std::uint32_t four = 0;
    std::memcpy(&four, numbers, sizeof four);
    const auto bytes = std::bit_cast<Bytes>(Pixels{four, 0, 0, 0});
    const auto twice = std::bit_cast<Lanes>(
        __builtin_shufflevector(bytes, bytes, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7));
    return std::bit_cast<Bytes>(__builtin_shufflevector(twice, twice, 0, 0, 1, 1, 2, 2, 3, 3));
#endif
  }

  static Bytes Larger(Bytes a, Bytes b) {
    return a > b ? a : b;
  }
  static Bytes Distance(Bytes a, Bytes b) {
    return Larger(a, b) - (a < b ? a : b);
  }

  /// Moves the components towards the colour by weights in 256ths.
  Bytes Mixed(Bytes from, Lanes weights) const {
    const auto fromLanes = std::bit_cast<Lanes>(from);
    const auto toLanes = std::bit_cast<Lanes>(colour_);
    // Differences and products overflow, but not in the bytes that are kept.
    const Lanes even = ((toLanes & kLowerByte) - (fromLanes & kLowerByte)) * weights;
    const Lanes odd = ((toLanes >> 8) - (fromLanes >> 8)) * weights;
    return from + std::bit_cast<Bytes>(even >> 8 | (odd & kUpperByte));
  }

  void CoverPixels(std::uint32_t* at, const std::uint8_t* coverage) const {
    const Lanes shares = std::bit_cast<Lanes>(SpreadOverPixels(coverage)) & kLowerByte;
    const Lanes weights = shares + (shares >> 7);
    Bytes pixels;
    std::memcpy(&pixels, at, sizeof pixels);
    const Bytes limits = Distance(Mixed(background_, weights), colour_);
    const Bytes larger = Larger(Distance(pixels, colour_), limits);
    // A pixel none of whose components is farther from the colour than on the background stays unchanged.
    const Pixels result = std::bit_cast<Pixels>(larger) == std::bit_cast<Pixels>(limits)
                              ? std::bit_cast<Pixels>(pixels)
                              : std::bit_cast<Pixels>(Mixed(pixels, weights));
    std::memcpy(at, &result, sizeof result);
  }

  void CoverRest(std::uint32_t* at, const std::uint8_t* coverage, std::size_t count) const {
    std::uint8_t lastCoverage[kPixels] = {};
    std::uint32_t last[kPixels] = {};
    std::memcpy(lastCoverage, coverage, count);
    std::memcpy(last, at, count * sizeof *last);
    CoverPixels(last, lastCoverage);
    std::memcpy(at, last, count * sizeof *last);
  }

  Bytes background_;
  Bytes colour_;
};

}  // namespace
}  // namespace zerbal::paint
