#include "jet/format/text.h"

#include <algorithm>
#include <optional>

#include "base/assert.h"

namespace zerbal::jet {
namespace {

char32_t Lower(char32_t c) {
  if (c < 0x80)
    return c >= 'A' && c <= 'Z' ? c + 32 : c;
  if ((c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 0x391 && c <= 0x3A9) || (c >= 0x410 && c <= 0x42F))
    return c + 32;
  if (c >= 0x400 && c <= 0x40F)
    return c + 80;
  if (c == 0x178)
    return 0xFF;
  const bool oddIsUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
  const bool evenIsUpper = (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177);
  if ((oddIsUpper && c % 2 == 1) || (evenIsUpper && c % 2 == 0))
    return c + 1;
  return c;
}

bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != '\0'; });
}

}  // namespace

int EncodeUtf8(char32_t c, char* out) {
  const auto put = [out](int i, char32_t byte) { out[i] = static_cast<char>(byte); };
  if (c < 0x80) {
    put(0, c);
    return 1;
  }
  if (c < 0x800) {
    put(0, 0xC0 | c >> 6);
    put(1, 0x80 | (c & 0x3F));
    return 2;
  }
  if (c < 0x10000) {
    put(0, 0xE0 | c >> 12);
    put(1, 0x80 | (c >> 6 & 0x3F));
    put(2, 0x80 | (c & 0x3F));
    return 3;
  }
  put(0, 0xF0 | c >> 18);
  put(1, 0x80 | (c >> 12 & 0x3F));
  put(2, 0x80 | (c >> 6 & 0x3F));
  put(3, 0x80 | (c & 0x3F));
  return 4;
}

char32_t TakeUtf8(std::string_view& text) {
  ZERBAL_ASSERT(!text.empty());
  const auto first = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  if (first < 0x80)
    return first;
  const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  constexpr char32_t kSmallest[] = {0, 0x80, 0x800, 0x10000};
  if (first < 0xC2 || first > 0xF4 || text.size() < more)
    return kReplacement;
  char32_t c = first & (0x3Fu >> more);
  for (std::size_t i = 0; i < more; ++i) {
    if (!IsContinuation(text[i]))
      return kReplacement;
    c = c << 6 | (static_cast<unsigned char>(text[i]) & 0x3Fu);
  }
  if (c < kSmallest[more] || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000))
    return kReplacement;
  text.remove_prefix(more);
  return c;
}

std::string UnpackToUtf16(ByteView bytes) {
  std::string out;
  out.reserve(2 * bytes.Size());
  bool wide = false;
  for (std::size_t i = 0; i < bytes.Size(); ++i) {
    const auto byte = static_cast<char>(bytes.Data()[i]);
    if (byte == 0) {
      wide = !wide;
    } else if (!wide) {
      out += byte;
      out += '\0';
    } else if (i + 1 < bytes.Size()) {
      out += byte;
      out += static_cast<char>(bytes.Data()[++i]);
    }
  }
  return out;
}

void AppendStoredText(ByteView bytes, const CodePage* codePage, std::string& out) {
  DecodeText(bytes, codePage, [&out](char32_t c) {
    char buffer[4];
    out.append(buffer, static_cast<std::size_t>(EncodeUtf8(c, buffer)));
    return true;
  });
}

bool StoredTextEquals(ByteView bytes, const CodePage* codePage, std::string_view text) {
  // Most texts are ASCII with one byte per character; their bytes can be compared directly.
  const std::string_view narrow = codePage != nullptr   ? bytes.Chars()
                                  : IsCompressed(bytes) ? bytes.From(kCompressedMark.size()).Chars()
                                                        : "";
  if (!narrow.empty() && narrow == text && IsAscii(text))
    return true;
  const bool all = DecodeText(bytes, codePage, [&text](char32_t c) {
    char buffer[4];
    const std::string_view encoded(buffer, static_cast<std::size_t>(EncodeUtf8(c, buffer)));
    if (!text.starts_with(encoded))
      return false;
    text.remove_prefix(encoded.size());
    return true;
  });
  return all && text.empty();
}

void ToUtf16(std::string_view text, std::u16string& out) {
  out.clear();
  while (!text.empty()) {
    const char32_t c = TakeUtf8(text);
    if (c < 0x10000) {
      out += static_cast<char16_t>(c);
    } else {
      out += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
      out += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
  }
}

bool ToCodePage(std::string_view text, std::string& out) {
  out.clear();
  while (!text.empty()) {
    const std::optional<std::uint8_t> byte = CodePage::Western().ByteOf(TakeUtf8(text));
    if (!byte)
      return false;
    out += static_cast<char>(*byte);
  }
  return true;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    if (Lower(TakeUtf8(a)) != Lower(TakeUtf8(b)))
      return false;
  }
  return a.empty() && b.empty();
}

std::string FoldCase(std::string_view text) {
  std::string folded;
  char buffer[4];
  while (!text.empty())
    folded.append(buffer, static_cast<std::size_t>(EncodeUtf8(Lower(TakeUtf8(text)), buffer)));
  return folded;
}

}  // namespace zerbal::jet
