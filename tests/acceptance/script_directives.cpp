#include "script_directives.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <sstream>

namespace zerbal::test {
namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(kBlanks);
  return begin == std::string_view::npos ? std::string_view()
                                         : text.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
}

/// Removes the first word from `text` and the blanks after it.
std::string TakeWord(std::string_view& text) {
  const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
  text = Trimmed(text.substr(word.size()));
  return std::string(word);
}

template <class Number>
Number NumberIn(const std::string& text) {
  Number number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size())
    throw std::invalid_argument('\'' + text + "' is not a number");
  return number;
}

using Arguments = std::vector<std::string>;

enum class Position { kBeforeFirstCommand, kBeforeCommandsOfRun, kAnywhere };

struct DirectiveKind {
  std::string_view name;
  std::size_t arguments;
  Position position;
  void (*apply)(AcceptanceScript& script, const Arguments& arguments);
};

constexpr DirectiveKind kDirectives[] = {
    {"without-file", 1, Position::kBeforeFirstCommand,
     [](AcceptanceScript& script, const Arguments& words) { script.world.LeaveOut(words[0]); }},
    {"without-row", 3, Position::kBeforeFirstCommand,
     [](AcceptanceScript& script, const Arguments& words) {
       script.world.TableOf(words[0]).RemoveRow(words[1], words[2]);
     }},
    {"empty-table", 1, Position::kBeforeFirstCommand,
     [](AcceptanceScript& script, const Arguments& words) { script.world.TableOf(words[0]).rows.clear(); }},
    {"setting", 3, Position::kBeforeFirstCommand,
     [](AcceptanceScript& script, const Arguments& words) {
       script.settings.push_back({words[0], words[1], words[2]});
     }},
    {"revision", 2, Position::kBeforeFirstCommand,
     [](AcceptanceScript& script, const Arguments& words) {
       script.revisions.push_back({"RevZBL", words[0], words[1]});
     }},
    {"read-only", 1, Position::kBeforeCommandsOfRun,
     [](AcceptanceScript& script, const Arguments& words) {
       script.runs.back().readOnlyFiles.push_back(words[0]);
     }},
    {"minimum-seconds", 1, Position::kBeforeCommandsOfRun,
     [](AcceptanceScript& script, const Arguments& words) {
       script.runs.back().minimumSeconds = NumberIn<double>(words[0]);
     }},
    {"exit-status", 1, Position::kBeforeCommandsOfRun,
     [](AcceptanceScript& script, const Arguments& words) {
       script.runs.back().exitStatus = NumberIn<int>(words[0]);
     }},
    {"next-run", 0, Position::kAnywhere,
     [](AcceptanceScript& script, const Arguments&) { script.runs.emplace_back(); }},
};

/// Null when there is no such directive.
const DirectiveKind* KindOf(std::string_view name) {
  const auto* kind = std::ranges::find(kDirectives, name, &DirectiveKind::name);
  return kind == std::end(kDirectives) ? nullptr : kind;
}

class Parser {
 public:
  AcceptanceScript Parse(const std::string& text) {
    script_.runs.emplace_back();
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      ++line_;
      const std::string_view words = Trimmed(line);
      if (words.starts_with("#:"))
        TakeDirective(Trimmed(words.substr(2)));
      else if (words.starts_with('#'))
        TakeComment(words.substr(1));
      else if (!words.empty())
        TakeCommand(line);
    }
    RequireCommands();
    return std::move(script_);
  }

 private:
  void TakeComment(std::string_view text) const {
    if (!text.empty() && text.front() != ' ')
      Fail("a directive begins with '#:', a comment with '#' and a blank");
    text = Trimmed(text);
    if (KindOf(TakeWord(text)) != nullptr)
      Fail("a directive begins with '#:'");
  }

  void TakeCommand(const std::string& line) {
    std::string& commands = script_.runs.back().commands;
    // Lines without a command become empty lines.
    commands.append(static_cast<std::size_t>(line_ - 1 - linesInRun_), '\n');
    commands += line + '\n';
    linesInRun_ = line_;
    hasCommands_ = true;
  }

  void TakeDirective(std::string_view words) {
    const std::string name = TakeWord(words);
    const DirectiveKind* kind = KindOf(name);
    if (kind == nullptr)
      Fail("unknown directive '" + name + '\'');
    RequirePosition(*kind);
    Apply(*kind, ArgumentsOf(*kind, words));
  }

  Arguments ArgumentsOf(const DirectiveKind& kind, std::string_view words) const {
    Arguments arguments;
    while (arguments.size() + 1 < kind.arguments && !words.empty())
      arguments.push_back(TakeWord(words));
    if (!words.empty())
      arguments.emplace_back(words);
    if (arguments.size() != kind.arguments) {
      Fail('\'' + std::string(kind.name) + "' takes " + std::to_string(kind.arguments) + " arguments, not " +
           std::to_string(arguments.size()));
    }
    return arguments;
  }

  void RequirePosition(const DirectiveKind& kind) const {
    const bool firstRun = script_.runs.size() == 1;
    if ((kind.position != Position::kAnywhere && hasCommands_) ||
        (kind.position == Position::kBeforeFirstCommand && !firstRun))
      Fail('\'' + std::string(kind.name) + "' stands after a command");
  }

  void RequireCommands() const {
    if (!hasCommands_)
      Fail("the run has no commands");
  }

  void Apply(const DirectiveKind& kind, const Arguments& arguments) {
    if (kind.position == Position::kAnywhere) {
      RequireCommands();
      hasCommands_ = false;
      linesInRun_ = 0;
    }
    try {
      kind.apply(script_, arguments);
    } catch (const std::logic_error& error) {
      Fail(error.what());
    }
  }

  [[noreturn]] void Fail(const std::string& reason) const { throw ScriptError(line_, reason); }

  AcceptanceScript script_;
  int line_ = 0;
  bool hasCommands_ = false;  ///< in this run
  int linesInRun_ = 0;        ///< lines that the run's text has so far
};

}  // namespace

AcceptanceScript ParseScript(const std::string& text) {
  return Parser().Parse(text);
}

}  // namespace zerbal::test
