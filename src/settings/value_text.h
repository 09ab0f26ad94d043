// Settings values that are lists.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zerbal::settings {

/// Splits at the first character of `delimiter` into exactly n fields, numbered from 1 (element 0 is empty
/// and not used). Missing fields are empty; what follows the n-th delimiter is dropped.
std::vector<std::string> SplitList(std::string_view text, int n, std::string_view delimiter);

}  // namespace zerbal::settings
