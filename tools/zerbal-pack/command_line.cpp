#include "zerbal-pack/command_line.h"

#include <algorithm>
#include <optional>

namespace zerbal::pack {

namespace {

bool Contains(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

class Parser {
 public:
  Parser(const std::vector<std::string>& words, const CommandSyntax& syntax)
      : words_(words), syntax_(syntax) {}

  CommandLine Parse() {
    bool optionsEnded = false;
    while (at_ < words_.size()) {
      const std::string& word = words_[at_++];
      if (optionsEnded || word.size() < 2 || !word.starts_with('-'))
        line_.operands.push_back(word);
      else if (word == "--")
        optionsEnded = true;
      else
        ReadOption(word);
    }
    CheckComplete();
    return line_;
  }

 private:
  void ReadOption(const std::string& word) {
    const std::size_t equals = word.find('=');
    const std::string name = word.substr(0, equals);
    std::optional<std::string> value;
    if (equals != std::string::npos)
      value = word.substr(equals + 1);
    const bool flag = Contains(syntax_.flags, name);
    if (!flag && !Contains(syntax_.neededOptions, name) && !Contains(syntax_.possibleOptions, name))
      throw UsageError("there is no option '" + name + "' here");
    if (line_.Has(name))
      throw UsageError("option '" + name + "' is given twice");
    if (flag && value)
      throw UsageError("option '" + name + "' takes no value");
    if (!flag && !value && at_ < words_.size())
      value = words_[at_++];
    if (!flag && value.value_or("").empty())
      throw UsageError("option '" + name + "' needs a value");
    line_.options[name] = value.value_or("");
  }

  void CheckComplete() const {
    if (line_.operands.size() > syntax_.operands.size())
      throw UsageError("'" + line_.operands[syntax_.operands.size()] + "' is one argument too many");
    if (line_.operands.size() < syntax_.operands.size())
      throw UsageError(syntax_.operands[line_.operands.size()] + " is missing");
    for (const std::string& option : syntax_.neededOptions) {
      if (!line_.Has(option))
        throw UsageError("option '" + option + "' is missing");
    }
  }

  const std::vector<std::string>& words_;
  const CommandSyntax& syntax_;
  std::size_t at_ = 0;
  CommandLine line_;
};

}  // namespace

std::string CommandLine::Value(const std::string& option) const {
  const auto found = options.find(option);
  return found == options.end() ? std::string() : found->second;
}

CommandLine ParseCommandLine(const std::vector<std::string>& words, const CommandSyntax& syntax) {
  return Parser(words, syntax).Parse();
}

}  // namespace zerbal::pack
