// Compares two schedules.
#pragma once

#include <filesystem>
#include <iosfwd>

namespace zerbal::pack {

struct DiffOptions {
  std::filesystem::path before, after;
  std::filesystem::path csv;  ///< folder for the files; empty: none
};

// What `diff` ends with.
inline constexpr int kExitEqual = 0;
inline constexpr int kExitDifferent = 1;
inline constexpr int kExitNotCompared = 2;

/// Prints the differences. Returns one of the above, the last after faults in CSV files, which are printed on
/// `err`. Throws what ReadPlainSchedule() and WriteDiff() throw.
int DiffSchedules(const DiffOptions& options, std::ostream& out, std::ostream& err);

}  // namespace zerbal::pack
