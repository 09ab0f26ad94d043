#include "jet/read/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

namespace zerbal::jet {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

struct Decimal {
  bool negative = false;
  std::string_view whole;
  std::string_view fraction;
};

/// Splits "-12.50" into its parts, without superfluous zeros; nullopt when `text` is not a decimal number.
std::optional<Decimal> SplitDecimal(std::string_view text) {
  Decimal decimal;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    decimal.negative = text.front() == '-';
    text.remove_prefix(1);
  }
  const std::size_t point = std::min(text.find('.'), text.size());
  decimal.whole = text.substr(0, point);
  decimal.fraction = point < text.size() ? text.substr(point + 1) : std::string_view();
  if (decimal.whole.empty() && decimal.fraction.empty())
    return std::nullopt;
  if (!std::all_of(decimal.whole.begin(), decimal.whole.end(), IsDigit) ||
      !std::all_of(decimal.fraction.begin(), decimal.fraction.end(), IsDigit))
    return std::nullopt;
  decimal.whole.remove_prefix(std::min(decimal.whole.find_first_not_of('0'), decimal.whole.size()));
  decimal.fraction = decimal.fraction.substr(0, decimal.fraction.find_last_not_of('0') + 1);
  return decimal;
}

template <class Real>
void AppendReal(Real value, std::string& out) {
  if (!std::isfinite(value)) {
    out += std::isnan(value) ? "nan" : value < 0 ? "-inf" : "inf";
    return;
  }
  // Gets the shortest digits as "-d.ddde-XX", then moves the decimal point.
  std::array<char, 40> buffer = {};
  const auto end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific).ptr;
  std::string_view shortest(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  if (shortest.front() == '-') {
    out += '-';
    shortest.remove_prefix(1);
  }
  const std::size_t mark = shortest.find('e');
  std::string digits(shortest.substr(0, mark));
  std::erase(digits, '.');
  int exponent = 0;
  const std::size_t skip = shortest[mark + 1] == '+' ? 2 : 1;
  std::from_chars(shortest.data() + mark + skip, shortest.data() + shortest.size(), exponent);
  const int count = static_cast<int>(digits.size());
  if (exponent < -5 || exponent >= 16) {
    out += digits[0];
    if (count > 1)
      out.append(".").append(digits, 1);
    out.append("e").append(std::to_string(exponent));
  } else if (exponent < 0) {
    out.append("0.").append(static_cast<std::size_t>(-exponent - 1), '0').append(digits);
  } else if (count <= exponent + 1) {
    out.append(digits).append(static_cast<std::size_t>(exponent + 1 - count), '0');
  } else {
    const auto point = static_cast<std::size_t>(exponent) + 1;
    out.append(digits, 0, point).append(".").append(digits, point);
  }
}

}  // namespace

std::optional<Number> ParseNumber(std::string_view text) {
  std::string_view digits = text;
  if (digits.starts_with('+'))
    digits.remove_prefix(1);
  std::string_view unsignedPart = digits;
  if (unsignedPart.starts_with('-') && digits.size() == text.size())
    unsignedPart.remove_prefix(1);
  if (unsignedPart.empty() || !(IsDigit(unsignedPart.front()) || unsignedPart.front() == '.'))
    return std::nullopt;
  const char* end = digits.data() + digits.size();
  std::int64_t integer = 0;
  if (const auto read = std::from_chars(digits.data(), end, integer);
      read.ec == std::errc() && read.ptr == end)
    return Number::Of(integer);
  double real = 0;
  const auto read = std::from_chars(digits.data(), end, real);
  if (read.ptr != end || read.ec == std::errc::invalid_argument)
    return std::nullopt;
  if (read.ec == std::errc::result_out_of_range)
    real = digits.front() == '-' ? -HUGE_VAL : HUGE_VAL;
  return Number::Of(real);
}

std::optional<std::int64_t> ParseScaled(std::string_view text, std::size_t decimals) {
  const std::optional<Decimal> decimal = SplitDecimal(text);
  if (!decimal || decimal->fraction.size() > decimals)
    return std::nullopt;
  std::string digits = decimal->negative ? "-" : "";
  digits.append(decimal->whole).append(decimal->fraction).append(decimals - decimal->fraction.size(), '0');
  std::int64_t value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (read.ec != std::errc())
    return std::nullopt;
  return value;
}

void AppendNumber(float value, std::string& out) {
  AppendReal(value, out);
}
void AppendNumber(double value, std::string& out) {
  AppendReal(value, out);
}

void AppendScaled(bool negative, std::string_view magnitude, int scale, std::string& out) {
  const auto decimals = static_cast<std::size_t>(std::max(scale, 0));
  std::string digits(magnitude);
  if (digits.size() <= decimals)
    digits.insert(0, decimals + 1 - digits.size(), '0');
  if (negative)
    out += '-';
  out.append(digits, 0, digits.size() - decimals);
  if (decimals > 0)
    out.append(".").append(digits, digits.size() - decimals);
}

std::optional<std::string> NormalDecimal(std::string_view text) {
  const std::optional<Decimal> decimal = SplitDecimal(text);
  if (!decimal)
    return std::nullopt;
  const bool zero = decimal->whole.empty() && decimal->fraction.empty();
  std::string normal = decimal->negative && !zero ? "-" : "";
  normal.append(decimal->whole.empty() ? "0" : decimal->whole);
  if (!decimal->fraction.empty())
    normal.append(".").append(decimal->fraction);
  return normal;
}

}  // namespace zerbal::jet
