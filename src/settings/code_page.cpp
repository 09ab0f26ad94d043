#include "settings/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace zerbal::settings {
namespace {

/// The characters of the bytes 0x80..0x9F; all others are equal to their byte.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr char32_t kNoCharacter = 0xFFFFFFFF;

/// Decodes the character at the beginning of `text` and drops it; for what is no UTF-8 drops one byte.
char32_t TakeCharacter(std::string_view& text) {
  const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(text[i]); };
  const std::uint8_t lead = byte(0);
  const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  constexpr char32_t kLargest = 0x10FFFF;
  char32_t character = length == 1 ? lead : lead & (0xFFu >> (length + 1));
  bool valid = lead < 0x80 || (lead >= 0xC2 && lead <= 0xF4 && text.size() >= length);
  for (std::size_t i = 1; valid && i < length; ++i) {
    valid = (byte(i) & 0xC0) == 0x80;
    character = character << 6 | (byte(i) & 0x3Fu);
  }
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  valid = valid && character >= kSmallest[length] && character <= kLargest && !surrogate;
  text.remove_prefix(valid ? length : 1);
  return valid ? character : kNoCharacter;
}

char ToByte(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
    return static_cast<char>(character);
  const auto found = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  return found == kUpperControls.end() ? '?' : static_cast<char>(0x80 + (found - kUpperControls.begin()));
}

void AppendUtf8(std::string& text, char16_t character) {
  if (character < 0x80) {
    text += static_cast<char>(character);
    return;
  }
  if (character < 0x800) {
    text += static_cast<char>(0xC0 | character >> 6);
  } else {
    text += static_cast<char>(0xE0 | character >> 12);
    text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
  }
  text += static_cast<char>(0x80 | (character & 0x3F));
}

}  // namespace

std::string ToCodePage1252(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty())
    bytes += ToByte(TakeCharacter(utf8));
  return bytes;
}

std::string FromCodePage1252(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<std::uint8_t>(c);
    AppendUtf8(utf8, byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80u] : char16_t{byte});
  }
  return utf8;
}

}  // namespace zerbal::settings
