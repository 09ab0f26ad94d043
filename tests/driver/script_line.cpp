#include "script_line.h"

namespace zerbal::drive {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r';
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

/// True for commands whose argument runs to the end of the line.
bool TakesFreeText(std::string_view command) {
  return command == "expect" || command == "expect-op" || command == "expect-no-op" || command == "echo";
}

/// Moves the first word of `text` to `word`. Returns false when its quotation marks are not balanced.
bool TakeWord(std::string_view& text, Word& word) {
  word = {};
  if (text.front() != '"') {
    while (!text.empty() && !IsBlank(text.front())) {
      word.text += text.front();
      text.remove_prefix(1);
    }
    return true;
  }
  word.quoted = true;
  text.remove_prefix(1);
  while (!text.empty() && text.front() != '"') {
    // Only \" and \\ are escapes here; the commands interpret other backslashes.
    if (text.front() == '\\' && text.size() > 1 && (text[1] == '"' || text[1] == '\\'))
      text.remove_prefix(1);
    word.text += text.front();
    text.remove_prefix(1);
  }
  if (text.empty())
    return false;
  text.remove_prefix(1);
  return text.empty() || IsBlank(text.front());
}

}  // namespace

std::optional<ScriptLine> ParseLine(std::string_view line) {
  ScriptLine result;
  std::string_view text = Trimmed(line);
  if (text.empty() || text.front() == '#')
    return result;
  const std::string_view command = text.substr(0, text.find_first_of(" \t"));
  result.rest = Trimmed(text.substr(command.size()));
  if (TakesFreeText(command)) {
    result.words = {{std::string(command), false}};
    return result;
  }
  while (!text.empty()) {
    Word word;
    if (!TakeWord(text, word))
      return std::nullopt;
    result.words.push_back(std::move(word));
    text = Trimmed(text);
  }
  return result;
}

}  // namespace zerbal::drive
