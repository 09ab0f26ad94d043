#include "map/position_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace zerbal::map {

namespace {

/// Adds one to the last digit of a decimal number without a point.
void Increment(std::string& digits) {
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (*digit != '9') {
      ++*digit;
      return;
    }
    *digit = '0';
  }
  digits.insert(digits.begin(), '1');
}

/// Pads a whole number with zeros on the left.
std::string AtLeast(std::string whole, int digits) {
  const auto width = static_cast<std::size_t>(digits);
  if (whole.size() < width)
    whole.insert(0, width - whole.size(), '0');
  return whole;
}

template <typename Number>
std::string TwoDecimalsOf(Number value, int wholeDigits) {
  if (!std::isfinite(value))
    return std::isnan(value) ? "nan" : "inf";
  std::array<char, 512> buffer;  // the shortest decimal form of a double has at most about 340 characters
  const Number magnitude = std::fabs(value);
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::fixed).ptr;
  std::string digits(buffer.data(), end);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  std::string decimals = point < digits.size() ? digits.substr(point + 1) : "";
  digits.resize(point);
  decimals.resize(std::max<std::size_t>(decimals.size(), 3), '0');
  const bool up = decimals[2] >= '5';
  digits += decimals.substr(0, 2);
  if (up)
    Increment(digits);
  const bool negative = value < 0 && digits.find_first_not_of('0') != std::string::npos;
  const std::string whole = AtLeast(digits.substr(0, digits.size() - 2), wholeDigits);
  return (negative ? "-" : "") + whole + "." + digits.substr(digits.size() - 2);
}

std::string DegreesAndMinutes(double degrees, int wholeDigits) {
  const double whole = std::floor(degrees);
  std::string text = TwoDecimals(whole, wholeDigits);
  if (text.size() > 3)
    text.resize(text.size() - 3);  // without its ".00"
  return text + "° " + TwoDecimals((degrees - whole) * 60.0, 2) + "'";
}

}  // namespace

std::string TwoDecimals(float value, int wholeDigits) {
  return TwoDecimalsOf(value, wholeDigits);
}

std::string TwoDecimals(double value, int wholeDigits) {
  return TwoDecimalsOf(value, wholeDigits);
}

std::string LonText(double lon) {
  return (lon < 0 ? "W" : "E") + DegreesAndMinutes(std::fabs(lon), 3);
}

std::string LatText(double lat) {
  return (lat < 0 ? "S" : "N") + DegreesAndMinutes(std::min(std::fabs(lat), 90.0), 2);
}

}  // namespace zerbal::map
