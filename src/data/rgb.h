// A colour of a screen.
#pragma once

#include <algorithm>
#include <cstdint>

namespace zerbal::data {

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Rgb&) const = default;
};

/// Limits three components to 0..255.
inline Rgb ClampRgb(int red, int green, int blue) {
  const auto clamp = [](int value) { return static_cast<std::uint8_t>(std::clamp(value, 0, 255)); };
  return {clamp(red), clamp(green), clamp(blue)};
}

}  // namespace zerbal::data
