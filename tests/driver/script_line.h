// One line of a script: a command and its arguments.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zerbal::drive {

struct Word {
  std::string text;
  bool quoted = false;  ///< in double quotes: a text even if it looks like a number
};

struct ScriptLine {
  std::vector<Word> words;  ///< the command first; empty for blank lines and comments
  std::string rest;         ///< the line after the command, without outer blanks

  bool Empty() const { return words.empty(); }
  const std::string& Command() const { return words.front().text; }
};

/// Splits a line into words. Returns nullopt when a quotation mark is not closed or has no blank after it.
/// Lines whose command takes free text have only one word, the command.
std::optional<ScriptLine> ParseLine(std::string_view line);

}  // namespace zerbal::drive
