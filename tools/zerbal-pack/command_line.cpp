#include "zerbal-pack/command_line.h"

#include <algorithm>
#include <iterator>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

namespace zerbal::pack {

namespace {

void AddOption(CLI::App& app, const std::string& name, std::string& value, bool required = false) {
  const auto notEmpty = [](const std::string& text) { return text.empty() ? "no value" : ""; };
  app.add_option(name, value)->check(notEmpty)->required(required);
}

void AddFlag(CLI::App& app, const std::string& name, bool& value) {
  app.add_flag(name, value)->disable_flag_override()->multi_option_policy(CLI::MultiOptionPolicy::Throw);
}

void AddImportArguments(CLI::App& app, ImportWords& words) {
  app.add_option("FILE", words.files)->required();
  AddOption(app, "--from", words.from, true);
  AddOption(app, "--airports", words.airports, true);
  AddOption(app, "--runways", words.runways);
  AddOption(app, "--out", words.out, true);
  AddOption(app, "--schedule", words.schedule);
  AddOption(app, "--season", words.season);
  AddOption(app, "--from-date", words.fromDate);
  AddOption(app, "--to-date", words.toDate);
  AddOption(app, "--on", words.on);
  AddOption(app, "--days", words.days);
  AddOption(app, "--airline", words.airline);
  AddOption(app, "--services-by", words.servicesBy);
  AddOption(app, "--codes", words.codes);
  AddFlag(app, "--keep-variations", words.keepVariations);
  AddFlag(app, "--strict", words.strict);
}

/// Those of the commands that change no database. False when the command is none of them.
bool AddReadingArguments(CLI::App& app, CommandLine& line) {
  if (line.command == "export") {
    app.add_option("FILE.mdb", line.file)->required();
    app.add_option("DIR", line.folder)->required();
    AddOption(app, "--table", line.table);
    AddOption(app, "--index", line.index);
    AddFlag(app, "--schema", line.schema);
  } else if (line.command == "check") {
    app.add_option("DIR", line.folder)->required();
  } else if (line.command == "diff") {
    app.add_option("OLD", line.before)->required();
    app.add_option("NEW", line.after)->required();
    AddOption(app, "--csv", line.csvFolder);
  } else if (line.command == "stats") {
    app.add_option("DIR", line.stats.source)->required();
    AddFlag(app, "--csv", line.stats.csv);
    AddFlag(app, "--json", line.stats.json);
  } else {
    return false;
  }
  return true;
}

/// The options and arguments of the line's command.
void AddArguments(CLI::App& app, CommandLine& line) {
  if (line.command == "build") {
    AddOption(app, "--out", line.out, true);
    AddOption(app, "--detail", line.detail);
    AddOption(app, "--pack", line.sources);
  } else if (line.command == "schedule") {
    AddOption(app, "--out", line.out, true);
    AddOption(app, "--services", line.services, true);
    AddOption(app, "--destinations", line.destinations, true);
    AddOption(app, "--flights", line.flights, true);
  } else if (line.command == "import") {
    AddImportArguments(app, line.import);
  } else if (line.command == "airports") {
    app.add_option("AIRPORTS", line.airports.files)->required();
    AddOption(app, "--out", line.airports.out, true);
    AddOption(app, "--min-runway", line.airports.minRunway);
    AddOption(app, "--ils", line.airports.ils);
  } else if (!AddReadingArguments(app, line)) {
    throw base::UsageError(fmt::format("there is no command '{}'", line.command));
  }
}

/// The library's error in the words of the other messages.
std::string Reason(const CLI::App& app, const CLI::ParseError& error) {
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
    std::vector<std::string> extras = app.remaining();
    const auto optionsEnd = std::ranges::find(extras, "--");
    if (optionsEnd != extras.end() && extras.size() > 1)
      extras.erase(optionsEnd);
    return fmt::format("'{}' is one argument too many", extras.front());
  }
  // The message begins with the name of the option or argument, sometimes without dashes.
  std::string text = error.what();
  std::string name = text.substr(0, text.find_first_of(": "));
  const CLI::Option* option = app.get_option_no_throw(name);
  if (option == nullptr)
    option = app.get_option_no_throw(name.insert(0, "--"));
  if (option == nullptr)
    return text;
  if (!option->get_positional())
    name = fmt::format("option '{}'", name);
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr)
    return name + " is missing";
  if (option->count() > 1)
    return name + " is given twice";
  return name + " needs a value";
}

/// Refuses the options that the library takes for arguments or gives a wrong value: `begin` is after the
/// command, `end` where options end.
void CheckOptions(const CLI::App& app, std::vector<std::string>::const_iterator begin,
                  std::vector<std::string>::const_iterator end) {
  for (auto word = begin; word != end; ++word) {
    if (word->size() < 2 || !word->starts_with('-'))
      continue;
    const std::size_t equals = word->find('=');
    const std::string name = word->substr(0, equals);
    const CLI::Option* option = app.get_option_no_throw(name);
    if (option == nullptr)
      throw base::UsageError(fmt::format("there is no option '{}' here", name));
    const bool takesValue = option->get_expected_max() > 0;
    if (equals != std::string::npos && !takesValue)
      throw base::UsageError(fmt::format("option '{}' takes no value", name));
    if (equals == word->size() - 1)
      throw base::UsageError(fmt::format("option '{}' needs a value", name));
    if (takesValue && equals == std::string::npos && std::next(word) != end)
      ++word;  // its value
  }
}

}  // namespace

CommandLine ParseCommandLine(std::vector<std::string> words) {
  CommandLine line;
  if (words.empty())
    throw base::UsageError("a command is missing");
  line.command = words.front();
  const auto optionsEnd = std::ranges::find(words, "--");
  for (auto word = words.begin(); word != optionsEnd; ++word) {
    if (*word == "--help" || *word == "-h")
      line.command = "--help";
  }
  if (line.command == "--help" || line.command == "--version")
    return line;
  CLI::App app;
  app.set_help_flag();
  app.allow_windows_style_options(false);  // a path may begin with a slash
  AddArguments(app, line);
  CheckOptions(app, std::next(words.begin()), optionsEnd);
  try {
    words.erase(words.begin());
    std::ranges::reverse(words);  // the library reads from the end
    app.parse(std::move(words));
  } catch (const CLI::ParseError& error) {
    throw base::UsageError(Reason(app, error));
  }
  return line;
}

}  // namespace zerbal::pack
