// UTF-8, one character at a time. A byte that does not begin a valid character counts as one invalid
// character of its own; surrogates, overlong forms and numbers above 10FFFF are invalid.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zerbal::base {

inline constexpr char32_t kReplacement = 0xFFFD;  ///< stands for an invalid character

/// The number of bytes (1 to 4) of the character at the beginning of `text`; 0 when it is invalid or `text`
/// is empty.
std::size_t Utf8Length(std::string_view text);

bool IsUtf8(std::string_view text);

/// Removes the first character of `text`, which must not be empty, and returns it. An invalid byte is removed
/// alone and returned as kReplacement.
char32_t TakeUtf8(std::string_view& text);

/// Writes `character` to `out`, which has room for four bytes, and returns the number of bytes.
std::size_t EncodeUtf8(char32_t character, char* out);

inline void AppendUtf8(char32_t character, std::string& out) {
  if (character < 0x80) {
    out.push_back(static_cast<char>(character));
    return;
  }
  char bytes[4];
  out.append(bytes, EncodeUtf8(character, bytes));
}

}  // namespace zerbal::base
