// Texts as spreadsheets write them in UTF-16.
#pragma once

#include <string>
#include <string_view>

#include "base/utf8.h"

namespace zerbal::test {

/// Valid UTF-8 as bytes of UTF-16, with a byte order mark.
inline std::string ToUtf16(std::string_view utf8, bool littleEndian) {
  std::string bytes;
  const auto append = [&](char32_t unit) {
    const char high = static_cast<char>(unit >> 8U);
    const char low = static_cast<char>(unit & 0xFFU);
    bytes += littleEndian ? std::string{low, high} : std::string{high, low};
  };
  append(0xFEFF);
  while (!utf8.empty()) {
    const char32_t character = base::TakeUtf8(utf8);
    if (character < 0x10000) {
      append(character);
    } else {
      append(0xD800 + ((character - 0x10000) >> 10U));
      append(0xDC00 + ((character - 0x10000) & 0x3FFU));
    }
  }
  return bytes;
}

}  // namespace zerbal::test
