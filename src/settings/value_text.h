// The text forms of settings values: lists and numbers. Nothing here depends on the locale or can fail.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zerbal::settings {

/// Splits at the first character of `delimiter` into exactly n fields, numbered from 1 (element 0 is empty
/// and not used). Missing fields are empty; what follows the n-th delimiter is dropped.
std::vector<std::string> SplitList(std::string_view text, int n, std::string_view delimiter);

/// The number that `text` begins with: leading blanks skipped, optional sign, digits and "." as far as they
/// go; 0 when there is none.
double ParseNumber(std::string_view text);

/// ParseNumber, rounded to nearest (ties to even) and limited to the type's range.
std::int16_t ParseInt16(std::string_view text);
std::int32_t ParseInt32(std::string_view text);

/// Plain decimal text: whole numbers without decimals, fractions with "." and as few digits as read back the
/// same.
std::string NumberText(double value);

/// The same for a single-precision value: 12.3 is written so, not with the digits of its double.
std::string SingleText(float value);

}  // namespace zerbal::settings
