// Texts in the forms in which the file stores them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "jet/format/bytes.h"
#include "jet/format/code_page.h"

namespace zerbal::jet {

/// Decodes UTF-16. Calls `sink` with each character until it returns false; returns whether it never did. An
/// odd last byte is dropped; half a surrogate pair gives kReplacement.
template <class Sink>
bool DecodeUtf16(ByteView bytes, Sink&& sink) {
  for (std::size_t i = 0; i + 1 < bytes.Size(); i += 2) {
    char32_t unit = LoadU16(bytes.Data() + i);
    if (unit >= 0xD800 && unit < 0xE000) {
      const char32_t next = i + 3 < bytes.Size() ? LoadU16(bytes.Data() + i + 2) : 0;
      if (unit < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
        unit = 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00);
        i += 2;
      } else {
        unit = kReplacement;
      }
    }
    if (!sink(unit))
      return false;
  }
  return true;
}

/// With it begins a compressed text of the 2000 format; others are UTF-16.
inline constexpr std::string_view kCompressedMark = "\xFF\xFE";
inline bool IsCompressed(ByteView bytes) {
  return bytes.Chars().starts_with(kCompressedMark);
}

/// Expands a compressed text: one byte per character; a zero byte switches to UTF-16 and back.
std::string UnpackToUtf16(ByteView bytes);

// Stored texts in the code page of a 1997-format file; nullptr stands for the 2000 format.

template <class Sink>
bool DecodeText(ByteView bytes, const CodePage* codePage, Sink&& sink) {
  if (codePage != nullptr)
    return codePage->Decode(bytes, sink);
  if (!IsCompressed(bytes))
    return DecodeUtf16(bytes, sink);
  const ByteView packed = bytes.From(kCompressedMark.size());
  if (packed.Chars().find('\0') != std::string_view::npos) {
    const std::string unpacked = UnpackToUtf16(packed);
    return DecodeUtf16({reinterpret_cast<const std::uint8_t*>(unpacked.data()), unpacked.size()}, sink);
  }
  for (std::size_t i = 0; i < packed.Size(); ++i) {
    if (!sink(char32_t{packed.Data()[i]}))
      return false;
  }
  return true;
}

void AppendStoredText(ByteView bytes, const CodePage* codePage, std::string& out);
/// Whether a stored text is exactly `text` (UTF-8). Allocates only for a compressed text that mixes both
/// widths.
bool StoredTextEquals(ByteView bytes, const CodePage* codePage, std::string_view text);

/// Replaces `out` by the UTF-16 form of `text`.
void ToUtf16(std::string_view text, std::u16string& out);
/// Replaces `out` by the code page 1252 form; false when a character is not in it.
bool ToCodePage(std::string_view text, std::string& out);

}  // namespace zerbal::jet
