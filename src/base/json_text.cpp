#include "base/json_text.h"

#include "base/utf8.h"

namespace zerbal::base {

std::string JsonText(std::string_view text) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string json = "\"";
  while (!text.empty()) {
    const char32_t character = TakeUtf8(text);
    if (character == '"' || character == '\\')
      json.append({'\\', static_cast<char>(character)});
    else if (character < 0x20)
      json.append("\\u00").append({kDigits[character / 16], kDigits[character % 16]});
    else
      AppendUtf8(character, json);
  }
  return json + '"';
}

}  // namespace zerbal::base
