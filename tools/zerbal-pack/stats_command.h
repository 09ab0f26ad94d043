// Prints figures of a schedule.
#pragma once

#include <filesystem>
#include <iosfwd>

#include "zerbal-pack/command_line.h"

namespace zerbal::pack {

enum class StatsFormat { kText, kCsv, kJson };

struct StatsOptions {
  std::filesystem::path source;
  StatsFormat format = StatsFormat::kText;
};

/// Throws base::UsageError.
StatsOptions ToStatsOptions(const StatsWords& words);

/// False after faults in CSV files, when nothing is counted, and when legs cannot be measured because the
/// position of an airport is not known. Both are reported on `err`. Throws what ReadPlainSchedule() throws.
bool PrintStats(const StatsOptions& options, std::ostream& out, std::ostream& err);

}  // namespace zerbal::pack
