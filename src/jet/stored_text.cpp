#include "jet/stored_text.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "jet/page_bytes.h"
#include "jet/refusal.h"

namespace zerbal::jet {
namespace {

constexpr char16_t kMark = 0xFEFF;  // stored as FF FE
constexpr std::size_t kShortestCompressed = 3;

[[noreturn]] void ThrowNotUtf8() {
  throw Refusal("the text is not UTF-8");
}

// Takes one character off `text`; only the shortest form of a character is valid, and no surrogates are.
char32_t TakeCharacter(std::string_view& text) {
  const auto lead = static_cast<std::uint8_t>(text.front());
  const auto length = static_cast<std::size_t>(lead < 0x80 ? 1 : std::countl_one(lead));
  if (length > 4 || length > text.size() || (length == 1 && lead >= 0x80))
    ThrowNotUtf8();
  char32_t character = length == 1 ? lead : lead & 0x7Fu >> length;
  for (char byte : text.substr(1, length - 1)) {
    const auto next = static_cast<std::uint8_t>(byte);
    if ((next & 0xC0) != 0x80)
      ThrowNotUtf8();
    character = character << 6 | (next & 0x3F);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kSmallest[length] || character > 0x10FFFF || (character >= 0xD800 && character < 0xE000))
    ThrowNotUtf8();
  text.remove_prefix(length);
  return character;
}

bool Compressible(std::u16string_view text) {
  return text.size() >= kShortestCompressed &&
         std::ranges::all_of(text, [](char16_t unit) { return unit > 0 && unit <= 0xFF; });
}

}  // namespace

std::u16string ToUtf16Strictly(std::string_view utf8) {
  std::u16string text;
  text.reserve(utf8.size());
  while (!utf8.empty()) {
    const char32_t character = TakeCharacter(utf8);
    if (character < 0x10000) {
      text += static_cast<char16_t>(character);
    } else {
      text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
      text += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
    }
  }
  return text;
}

std::string StoredText(std::u16string_view text, bool compress) {
  if (text.starts_with(kMark))
    throw Refusal("a text that begins with the character U+FEFF cannot be stored");
  std::string stored;
  if (compress && Compressible(text)) {
    stored = "\xFF\xFE";
    for (char16_t unit : text)
      stored += static_cast<char>(unit);
    return stored;
  }
  stored.reserve(2 * text.size());
  for (char16_t unit : text)
    AppendNumber(stored, 2, unit);
  return stored;
}

}  // namespace zerbal::jet
