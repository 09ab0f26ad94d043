// The two ways in which the program makes whole numbers of fractions.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace zerbal::settings {

/// To nearest, ties to even (the processor's default rounding, which nothing here changes).
inline double Round(double value) {
  return std::nearbyint(value);
}

/// Towards minus infinity.
inline double Int(double value) {
  return std::floor(value);
}

/// A whole number brought into the range of a 32-bit integer; not-a-number gives 0.
inline std::int32_t ToInt32(double whole) {
  if (std::isnan(whole))
    return 0;
  if (whole <= static_cast<double>(std::numeric_limits<std::int32_t>::min()))
    return std::numeric_limits<std::int32_t>::min();
  if (whole >= static_cast<double>(std::numeric_limits<std::int32_t>::max()))
    return std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(whole);
}

}  // namespace zerbal::settings
