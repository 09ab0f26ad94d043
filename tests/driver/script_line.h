// One line of a script: a command and its words.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zerbal::drive {

struct Word {
  std::string text;
  bool quoted = false;  ///< stood in double quotes, so it is a text even where it looks like a number
};

struct ScriptLine {
  std::vector<Word> words;  ///< the command first; empty for blank lines and comments
  std::string rest;         ///< everything behind the command as it stands, outer blanks dropped

  bool Empty() const { return words.empty(); }
  const std::string& Command() const { return words.front().text; }
};

/// Splits a line. nullopt when a quotation mark is not closed or something follows it without a blank; lines
/// that begin with a command whose argument is free text are never refused (their words are not used).
std::optional<ScriptLine> ParseLine(std::string_view line);

}  // namespace zerbal::drive
