// The command line of zerbal-pack.
#pragma once

#include <string>
#include <vector>

#include "base/error.h"

namespace zerbal::pack {

/// The words of `import`, which ToImportOptions() understands.
struct ImportWords {
  std::string from;
  std::vector<std::string> files;
  std::string airports, runways, out, schedule;
  std::string season, fromDate, toDate, on, days, airline, servicesBy, codes;
  bool keepVariations = false, strict = false;
};

/// The words of `airports`, which ToAirportsOptions() understands.
struct AirportsWords {
  std::vector<std::string> files;
  std::string out, minRunway, ils;
};

/// The words of `stats`, which ToStatsOptions() understands.
struct StatsWords {
  std::string source;
  bool csv = false, json = false;
};

/// What the user asks for. Commands set the members that belong to them; texts that are not given are empty.
struct CommandLine {
  std::string command;  ///< "build", "import", "airports", "schedule", "export", "check", "diff", "stats",
                        ///< "--help" or "--version"
  std::string out;      ///< build: the folder, schedule: the file
  std::string detail = "high", sources;         // build
  std::string services, destinations, flights;  // schedule
  std::string file, folder, table, index;       // export; check: the folder
  bool schema = false;                          // export
  std::string before, after, csvFolder;         // diff
  ImportWords import;
  AirportsWords airports;
  StatsWords stats;
};

/// Reads the words after the program's name. Options may stand anywhere after the command, as "--out DIR" or
/// "--out=DIR", each once. After "--" everything is an argument. Throws base::UsageError.
CommandLine ParseCommandLine(std::vector<std::string> words);

}  // namespace zerbal::pack
