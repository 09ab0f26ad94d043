// ASCII letter case, for names that are found without regard to it.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace zerbal::pack {

inline char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string LowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) { return LowerCase(c); });
  return lower;
}

inline bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

}  // namespace zerbal::pack
