// The commands of zerbal-pack, from the words of the command line to the exit status.
#pragma once

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace zerbal::pack {

enum ExitStatus { kExitGood = 0, kExitBadData = 1, kExitBadUsage = 2 };

/// The environment of a run.
struct RunContext {
  std::ostream& out;
  std::ostream& err;
  bool errIsTerminal = false;        ///< a progress bar is shown
  std::filesystem::path executable;  ///< its location leads to the sources of the sample data
  std::function<bool()> interrupted = [] { return false; };
};

/// Runs one command; `words` are those after the program's name.
int RunPack(const std::vector<std::string>& words, const RunContext& context);

/// The exit status when the command cannot do its work. That of `diff` is not the one for schedules that
/// differ.
int FailureStatus(const std::vector<std::string>& words);

/// The folder with the CSV files of the sample data: that of the source tree in which the executable was
/// built, or of its installation. Empty when there is none.
std::filesystem::path FindSources(const std::filesystem::path& executable);

}  // namespace zerbal::pack
