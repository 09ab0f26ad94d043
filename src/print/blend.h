// Blends pixels of 32-bit pictures.
#pragma once

#include <cstdint>

namespace zerbal::print {

/// `coverage` is 0 to 255.
inline std::uint32_t Blended(std::uint32_t below, std::uint32_t colour, std::uint32_t coverage) {
  std::uint32_t result = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    const std::uint32_t from = below >> shift & 0xFF;
    const std::uint32_t to = colour >> shift & 0xFF;
    result |= (from * (255 - coverage) + to * coverage + 127) / 255 << shift;
  }
  return result;
}

}  // namespace zerbal::print
