#include "jet/format/text.h"

#include <algorithm>
#include <optional>

#include "base/code_page_1252.h"
#include "base/utf8.h"

namespace zerbal::jet {
namespace {

bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != '\0'; });
}

/// The text of a compressed one that is ASCII: its bytes are also those of its UTF-8 form. Empty for others.
std::string_view PlainText(ByteView bytes) {
  if (!IsCompressed(bytes))
    return {};
  const std::string_view text = bytes.From(kCompressedMark.size()).Chars();
  return IsAscii(text) ? text : std::string_view();
}

}  // namespace

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
  const std::string_view plain = codePage == nullptr ? PlainText(bytes) : "";
  if (!plain.empty()) {
    out += plain;
    return;
  }
  DecodeText(bytes, codePage, [&out](char32_t c) {
    base::AppendUtf8(c, out);
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
    const std::string_view encoded(buffer, base::EncodeUtf8(c, buffer));
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
    const char32_t c = base::TakeUtf8(text);
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
    const std::optional<std::uint8_t> byte = base::ByteOf1252(base::TakeUtf8(text));
    if (!byte)
      return false;
    out += static_cast<char>(*byte);
  }
  return true;
}

}  // namespace zerbal::jet
