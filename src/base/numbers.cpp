#include "base/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <system_error>

namespace zerbal::base {
namespace {

constexpr std::string_view kBlanks = " \t\v\r\n";
constexpr double kLargest = std::numeric_limits<double>::max();
/// Room for the longest plain decimal form of a double.
constexpr std::size_t kMaxNumberText = 512;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The length of the digits, with at most one "." among them, that `text` begins with.
std::size_t NumberLength(std::string_view text) {
  bool point = false;
  std::size_t length = 0;
  for (; length < text.size(); ++length) {
    if (IsDigit(text[length]))
      continue;
    if (text[length] != '.' || point)
      break;
    point = true;
  }
  return length;
}

/// The value of digits with at most one "."; what is too large for the type is its largest value.
double Magnitude(std::string_view digits) {
  double value = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
  if (error == std::errc())
    return value;
  if (error == std::errc::invalid_argument)
    return 0;
  // Out of range: too large if a digit other than 0 stands before the point, else too small.
  const std::string_view whole = digits.substr(0, digits.find('.'));
  return whole.find_first_not_of('0') == std::string_view::npos ? 0 : kLargest;
}

template <typename Number>
std::string ShortestDecimal(Number value) {
  if (std::isnan(value) || value == 0)
    return "0";
  const Number largest = std::numeric_limits<Number>::max();
  char text[kMaxNumberText];
  const auto result =
      std::to_chars(text, text + sizeof text, std::clamp(value, -largest, largest), std::chars_format::fixed);
  return std::string(text, result.ptr);
}

}  // namespace

double LeadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  const bool negative = !text.empty() && text.front() == '-';
  if (negative || (!text.empty() && text.front() == '+'))
    text.remove_prefix(1);
  const double value = Magnitude(text.substr(0, NumberLength(text)));
  return negative && value != 0 ? -value : value;
}

std::int16_t LeadingInt16(std::string_view text) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(
      std::clamp<std::int32_t>(LeadingInt32(text), Limits::min(), Limits::max()));
}

std::int32_t LeadingInt32(std::string_view text) {
  return ToInt32(Round(LeadingNumber(text)));
}

std::string DecimalText(double value) {
  return ShortestDecimal(value);
}

std::string DecimalText(float value) {
  return ShortestDecimal(value);
}

}  // namespace zerbal::base
