// Numbers and their texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zerbal::jet {

/// A number in a field or text. Whole numbers are exact.
struct Number {
  bool whole = true;
  std::int64_t integer = 0;
  double real = 0;

  static Number Of(std::int64_t value) { return {true, value, static_cast<double>(value)}; }
  static Number Of(double value) { return {false, 0, value}; }
};

/// The number that `text` consists of: digits, optional sign, decimal point and exponent. nullopt otherwise.
std::optional<Number> ParseNumber(std::string_view text);

/// The number in `text` without its decimal point, extended to `decimals` decimals: "1.5" with 4 is 15000.
/// nullopt when the text is not a number, has more decimals, or the result does not fit.
std::optional<std::int64_t> ParseScaled(std::string_view text, std::size_t decimals);

/// Append the fewest digits that read back as the same value: 0.1, 1e16, 1.5e-7.
void AppendNumber(float value, std::string& out);
void AppendNumber(double value, std::string& out);

/// Appends `magnitude` (decimal digits) with a point before the last `scale` digits.
void AppendScaled(bool negative, std::string_view magnitude, int scale, std::string& out);

/// The normal form of a decimal number: "+07.50" and "7.5" both give "7.5". nullopt for other texts.
std::optional<std::string> NormalDecimal(std::string_view text);

}  // namespace zerbal::jet
