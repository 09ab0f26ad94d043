// The commands of zerbal-pack, from the words of the command line to the exit status.
#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace zerbal::pack {

enum ExitStatus { kExitGood = 0, kExitBadData = 1, kExitBadUsage = 2 };

/// The world around a run.
struct RunContext {
  std::ostream& out;
  std::ostream& err;
  bool errIsTerminal = false;        ///< a progress bar is shown
  std::filesystem::path executable;  ///< by which the sources of the sample data are found
  std::function<bool()> interrupted = [] { return false; };
};

/// Runs one command; `words` are those behind the program's name.
int RunPack(const std::vector<std::string>& words, const RunContext& context);

/// Where the CSV files of the sample data are: beside a source tree that the executable was built in, or
/// where an installation of the executable puts them. Empty when there are none.
std::filesystem::path FindSources(const std::filesystem::path& executable);

}  // namespace zerbal::pack
