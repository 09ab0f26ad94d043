// Numbers and their texts: rounding, the leading-number parse, and shortest decimal text. Nothing here
// depends on the locale or fails.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace zerbal::base {

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

/// The number that `text` begins with: leading blanks skipped, optional sign, digits and "." as far as they
/// go; 0 when there is none. What is too large for the type is its largest value.
double LeadingNumber(std::string_view text);

/// LeadingNumber, rounded to nearest (ties to even) and limited to the type's range.
std::int16_t LeadingInt16(std::string_view text);
std::int32_t LeadingInt32(std::string_view text);

/// Plain decimal text: whole numbers without decimals, fractions with "." and as few digits as read back the
/// same value of the type. Not-a-number gives "0", infinity the largest value.
std::string DecimalText(double value);
std::string DecimalText(float value);

}  // namespace zerbal::base
