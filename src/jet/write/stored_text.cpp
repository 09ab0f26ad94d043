#include "jet/write/stored_text.h"

#include <algorithm>
#include <cstddef>

#include "base/utf8.h"
#include "jet/format/bytes.h"
#include "jet/format/text.h"
#include "jet/write/refusal.h"

namespace zerbal::jet {
namespace {

constexpr char16_t kMark = 0xFEFF;  // stored as kCompressedMark
constexpr std::size_t kShortestCompressed = 3;

bool Compressible(std::u16string_view text) {
  return text.size() >= kShortestCompressed &&
         std::ranges::all_of(text, [](char16_t unit) { return unit > 0 && unit <= 0xFF; });
}

}  // namespace

std::u16string ToUtf16Strictly(std::string_view utf8) {
  for (std::string_view rest = utf8; !rest.empty();) {
    const std::size_t length = base::Utf8Length(rest);
    if (length == 0)
      throw Refusal("the text is not UTF-8");
    rest.remove_prefix(length);
  }
  std::u16string text;
  ToUtf16(utf8, text);
  return text;
}

std::string StoredText(std::u16string_view text, bool compress) {
  if (text.starts_with(kMark))
    throw Refusal("a text that begins with the character U+FEFF cannot be stored");
  std::string stored;
  if (compress && Compressible(text)) {
    stored = kCompressedMark;
    for (char16_t unit : text)
      stored += static_cast<char>(unit);
    return stored;
  }
  stored.reserve(2 * text.size());
  for (char16_t unit : text)
    AppendLittleEndian(stored, 2, unit);
  return stored;
}

}  // namespace zerbal::jet
