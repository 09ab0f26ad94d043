#include "zerbal-map/xml_text.h"

#include "base/utf8.h"

namespace zerbal::mapcommand {
namespace {

bool IsPossible(char32_t character) {
  return (character >= 0x20 || character == '\t' || character == '\n' || character == '\r') &&
         character != 0xFFFE && character != 0xFFFF;
}

/// Null for characters that stand for themselves.
const char* EscapeOf(char32_t character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\r':  // would be read as a line end
      return "&#13;";
    default:
      return nullptr;
  }
}

}  // namespace

std::string XmlText(std::string_view text) {
  std::string escaped;
  while (!text.empty()) {
    const char32_t character = base::TakeUtf8(text);
    if (const char* escape = EscapeOf(character))
      escaped += escape;
    else if (IsPossible(character))
      base::AppendUtf8(character, escaped);
  }
  return escaped;
}

}  // namespace zerbal::mapcommand
