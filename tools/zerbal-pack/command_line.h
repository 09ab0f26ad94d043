// What the user asked for.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace zerbal::pack {

/// The command line makes no sense; what() says why.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What one command takes.
struct CommandSyntax {
  std::vector<std::string> operands;         ///< their names for messages, all needed
  std::vector<std::string> neededOptions;    ///< with a value, as "--out"
  std::vector<std::string> possibleOptions;  ///< with a value
  std::vector<std::string> flags;            ///< without a value
};

struct CommandLine {
  std::vector<std::string> operands;
  std::map<std::string, std::string> options;  ///< a flag has an empty value

  bool Has(const std::string& option) const { return options.contains(option); }
  /// "" when it was not given.
  std::string Value(const std::string& option) const;
};

/// Sorts out the words behind a command: options anywhere, as "--out DIR" or "--out=DIR", each once; after
/// "--" everything is an operand. Throws UsageError.
CommandLine ParseCommandLine(const std::vector<std::string>& words, const CommandSyntax& syntax);

}  // namespace zerbal::pack
