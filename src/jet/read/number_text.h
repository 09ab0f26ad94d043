// Numbers and their texts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zerbal::jet {

/// A number on its way from a field or a text to a caller: whole numbers stay exact.
struct Number {
  bool whole = true;
  std::int64_t integer = 0;
  double real = 0;

  static Number Of(std::int64_t value) { return {true, value, static_cast<double>(value)}; }
  static Number Of(double value) { return {false, 0, value}; }
};

/// The number that the whole of `text` spells: digits with a sign, a decimal point and an exponent where
/// wanted, and nothing else.
std::optional<Number> ParseNumber(std::string_view text);

/// Ten-thousandths, exactly; nothing when the text is no number or has more decimals or too many digits.
std::optional<std::int64_t> ParseCurrency(std::string_view text);

/// The shortest digits that read back as the same value: 0.1, 1e16, 1.5e-7.
void AppendNumber(float value, std::string& out);
void AppendNumber(double value, std::string& out);

/// `magnitude` (decimal digits) with a point before the last `scale` digits.
void AppendScaled(bool negative, std::string_view magnitude, int scale, std::string& out);

/// The same number in one fixed spelling ("+07.50" and "7.5" both "7.5"); nothing for a text that is no plain
/// decimal number.
std::optional<std::string> NormalDecimal(std::string_view text);

}  // namespace zerbal::jet
