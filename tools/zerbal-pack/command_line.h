// The command line of zerbal-pack.
#pragma once

#include <string>
#include <vector>

#include "base/error.h"

namespace zerbal::pack {

/// What the user asks for. Commands set the members that belong to them; texts that are not given are empty.
struct CommandLine {
  std::string command;                   ///< "build", "schedule", "export", "check", "--help" or "--version"
  std::string out;                       ///< build: the folder, schedule: the file
  std::string detail = "high", sources;  // build
  std::string services, destinations, flights;  // schedule
  std::string file, folder, table, index;       // export; check: the folder
  bool schema = false;                          // export
};

/// Reads the words after the program's name. Options may stand anywhere after the command, as "--out DIR" or
/// "--out=DIR", each once. After "--" everything is an argument. Throws base::UsageError.
CommandLine ParseCommandLine(std::vector<std::string> words);

}  // namespace zerbal::pack
