#include "base/code_page_1252.h"

#include <algorithm>
#include <array>

#include "base/utf8.h"

namespace zerbal::base {
namespace {

/// The characters of the bytes 80 to 9F; every other byte is the number of its character.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

char16_t CharacterOf1252(std::uint8_t byte) {
  return byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80u] : char16_t{byte};
}

std::optional<std::uint8_t> ByteOf1252(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
    return static_cast<std::uint8_t>(character);
  const auto found = std::ranges::find(kUpperControls, character);
  if (found == kUpperControls.end())
    return std::nullopt;
  return static_cast<std::uint8_t>(0x80 + (found - kUpperControls.begin()));
}

std::string ToCodePage1252(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty())
    bytes += static_cast<char>(ByteOf1252(TakeUtf8(utf8)).value_or('?'));
  return bytes;
}

std::string FromCodePage1252(std::string_view bytes) {
  std::string utf8;
  utf8.reserve(bytes.size());
  for (const char byte : bytes)
    AppendUtf8(CharacterOf1252(static_cast<std::uint8_t>(byte)), utf8);
  return utf8;
}

}  // namespace zerbal::base
