// The text of a CSV file as spreadsheets write it: its encoding, and the character between its fields.
#pragma once

#include <string>
#include <string_view>

namespace zerbal::pack {

enum class TextEncoding { kUtf8, kMarkedUtf8, kUtf16LittleEndian, kUtf16BigEndian, kCodePage1252 };

/// A file's text as UTF-8 without byte order mark. What is no character of its encoding is kNoCharacter,
/// which is not valid UTF-8, so that a reader finds its place.
struct SpreadsheetText {
  static constexpr char kNoCharacter = '\xFF';

  TextEncoding encoding = TextEncoding::kUtf8;
  std::string text;
};

/// A byte order mark tells UTF-8 and UTF-16. Without one the text is UTF-8 if all of it is valid, else code
/// page 1252.
SpreadsheetText DecodeSpreadsheet(std::string bytes);

std::string_view EncodingName(TextEncoding encoding);

/// The most frequent of comma, semicolon and tab in the first line that is not empty, outside of quotation
/// marks and of notes in brackets; a comma when there is none.
char FindSeparator(std::string_view text);

/// How the file was read, as a note for the user; empty for UTF-8 without a mark and with commas.
std::string ReadingNote(TextEncoding encoding, char separator);

/// Whether numbers may have a comma before their decimals.
inline bool HasDecimalComma(char separator) {
  return separator != ',';
}

}  // namespace zerbal::pack
