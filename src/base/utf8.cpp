#include "base/utf8.h"

#include "base/assert.h"

namespace zerbal::base {
namespace {

/// Whether the second byte of a sequence rules out overlong forms, surrogates and numbers above 10FFFF.
bool IsSecondByte(unsigned char lead, unsigned char second) {
  switch (lead) {
    case 0xE0:
      return second >= 0xA0;
    case 0xED:
      return second <= 0x9F;
    case 0xF0:
      return second >= 0x90;
    case 0xF4:
      return second <= 0x8F;
    default:
      return true;
  }
}

}  // namespace

std::size_t Utf8Length(std::string_view text) {
  if (text.empty())
    return 0;
  const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  if (lead < 0x80)
    return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length || !IsSecondByte(lead, byte(1)))
    return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80)
      return 0;
  }
  return length;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    if (length == 0)
      return false;
    text.remove_prefix(length);
  }
  return true;
}

char32_t TakeUtf8(std::string_view& text) {
  ZERBAL_ASSERT(!text.empty());
  const std::size_t length = Utf8Length(text);
  const auto lead = static_cast<unsigned char>(text.front());
  if (length < 2) {
    text.remove_prefix(1);
    return length == 1 ? lead : kReplacement;
  }
  char32_t character = lead & (0xFFu >> (length + 1));
  for (std::size_t i = 1; i < length; ++i)
    character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
  text.remove_prefix(length);
  return character;
}

std::size_t EncodeUtf8(char32_t c, char* out) {
  if (c < 0x80) {
    out[0] = static_cast<char>(c);
    return 1;
  }
  const std::size_t length = c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
  for (std::size_t i = length - 1; i > 0; --i, c >>= 6)
    out[i] = static_cast<char>(0x80 | (c & 0x3F));
  out[0] = static_cast<char>((0xF00 >> length & 0xF0) | c);
  return length;
}

}  // namespace zerbal::base
