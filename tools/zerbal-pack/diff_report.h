// The differences between two schedules for people and for other programs.
#pragma once

#include <filesystem>
#include <iosfwd>

#include "zerbal-pack/schedule_diff.h"

namespace zerbal::pack {

/// The two schedules that were compared, and the result.
struct ComparedSchedules {
  PlainSchedule before, after;
  ScheduleDiff diff;
};

/// One paragraph for each kind of difference that there is.
void PrintDiff(const ComparedSchedules& compared, std::ostream& out);

/// Writes one file for each kind of difference into `folder`, with a header alone where there is none.
/// Throws base::FileError.
void WriteDiff(const ComparedSchedules& compared, const std::filesystem::path& folder);

}  // namespace zerbal::pack
