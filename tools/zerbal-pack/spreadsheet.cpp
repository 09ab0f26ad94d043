#include "zerbal-pack/spreadsheet.h"

#include <cstddef>
#include <cstdint>
#include <utility>

#include "base/code_page_1252.h"
#include "base/utf8.h"

namespace zerbal::pack {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

/// The units of UTF-16 text, one after the other.
class Utf16Units {
 public:
  Utf16Units(std::string_view bytes, bool littleEndian) : bytes_(bytes), littleEndian_(littleEndian) {}

  bool HasNext() const { return at_ + 1 < bytes_.size(); }
  bool HasHalfUnit() const { return at_ + 1 == bytes_.size(); }
  void Skip() { at_ += 2; }

  /// HasNext() must hold.
  char32_t Next() const {
    const auto first = static_cast<std::uint8_t>(bytes_[at_]);
    const auto second = static_cast<std::uint8_t>(bytes_[at_ + 1]);
    return littleEndian_ ? first | second << 8U : first << 8U | second;
  }

 private:
  std::string_view bytes_;
  bool littleEndian_;
  std::size_t at_ = 0;
};

std::string FromUtf16(std::string_view bytes, bool littleEndian) {
  const auto isHigh = [](char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; };
  const auto isLow = [](char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; };
  std::string text;
  text.reserve(bytes.size() / 2);
  Utf16Units units(bytes, littleEndian);
  while (units.HasNext()) {
    const char32_t unit = units.Next();
    units.Skip();
    if (isHigh(unit) && units.HasNext() && isLow(units.Next())) {
      base::AppendUtf8(0x10000 + ((unit - 0xD800) << 10U) + (units.Next() - 0xDC00), text);
      units.Skip();
    } else if (isHigh(unit) || isLow(unit)) {
      text.push_back(SpreadsheetText::kNoCharacter);
    } else {
      base::AppendUtf8(unit, text);
    }
  }
  if (units.HasHalfUnit())
    text.push_back(SpreadsheetText::kNoCharacter);
  return text;
}

/// Unlike base::FromCodePage1252, which keeps every byte, this refuses the five bytes that stand for nothing.
std::string From1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char byte : bytes) {
    const char16_t character = base::CharacterOf1252(static_cast<std::uint8_t>(byte));
    if (character >= 0x80 && character < 0xA0)
      text.push_back(SpreadsheetText::kNoCharacter);
    else
      base::AppendUtf8(character, text);
  }
  return text;
}

std::string_view SeparatorName(char separator) {
  return separator == ';' ? "semicolons" : separator == '\t' ? "tabs" : "commas";
}

}  // namespace

SpreadsheetText DecodeSpreadsheet(std::string bytes) {
  if (bytes.starts_with(kUtf8Mark))
    return {TextEncoding::kMarkedUtf8, bytes.substr(kUtf8Mark.size())};
  if (bytes.starts_with(kLittleEndianMark))
    return {TextEncoding::kUtf16LittleEndian, FromUtf16(std::string_view(bytes).substr(2), true)};
  if (bytes.starts_with(kBigEndianMark))
    return {TextEncoding::kUtf16BigEndian, FromUtf16(std::string_view(bytes).substr(2), false)};
  if (base::IsUtf8(bytes))
    return {TextEncoding::kUtf8, std::move(bytes)};
  return {TextEncoding::kCodePage1252, From1252(bytes)};
}

std::string_view EncodingName(TextEncoding encoding) {
  switch (encoding) {
    case TextEncoding::kUtf8:
    case TextEncoding::kMarkedUtf8:
      return "UTF-8";
    case TextEncoding::kUtf16LittleEndian:
    case TextEncoding::kUtf16BigEndian:
      return "UTF-16";
    case TextEncoding::kCodePage1252:
      return "code page 1252";
  }
  return "";
}

char FindSeparator(std::string_view text) {
  constexpr std::string_view kSeparators = ",;\t";
  std::size_t counts[kSeparators.size()] = {};
  bool quoted = false;
  bool inNote = false;
  bool empty = true;
  for (const char c : text) {
    if (c == '"')
      quoted = !quoted;
    if (quoted)
      continue;
    if ((c == '\n' || c == '\r') && !empty)
      break;
    empty = empty && (c == '\n' || c == '\r');
    if (c == '(' || c == ')')
      inNote = c == '(';
    const std::size_t found = kSeparators.find(c);
    if (found != std::string_view::npos && !inNote)
      ++counts[found];
  }
  std::size_t best = 0;
  for (std::size_t i = 1; i < kSeparators.size(); ++i) {
    if (counts[i] > counts[best])
      best = i;
  }
  return kSeparators[best];
}

std::string ReadingNote(TextEncoding encoding, char separator) {
  if (encoding == TextEncoding::kUtf8 && separator == ',')
    return "";
  std::string note = "read as ";
  note += EncodingName(encoding);
  if (encoding == TextEncoding::kUtf16LittleEndian)
    note += " (little endian)";
  if (encoding == TextEncoding::kUtf16BigEndian)
    note += " (big endian)";
  if (encoding == TextEncoding::kMarkedUtf8)
    note += " with byte order mark";
  note.append(", with ").append(SeparatorName(separator)).append(" between the fields");
  return note;
}

}  // namespace zerbal::pack
