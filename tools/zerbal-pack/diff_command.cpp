#include "zerbal-pack/diff_command.h"

#include <cstddef>
#include <ostream>

#include "zerbal-pack/diff_report.h"

namespace zerbal::pack {

int DiffSchedules(const DiffOptions& options, std::ostream& out, std::ostream& err) {
  Problems problems;
  ComparedSchedules compared;
  compared.before = ReadPlainSchedule(options.before, problems);
  compared.after = ReadPlainSchedule(options.after, problems);
  problems.Print(err);
  if (const std::size_t count = problems.Count(Severity::kError); count > 0) {
    err << "zerbal-pack: " << count << (count == 1 ? " problem" : " problems") << "; nothing was compared\n";
    return kExitNotCompared;
  }
  compared.diff = Compare(compared.before, compared.after);
  if (!options.csv.empty())
    WriteDiff(compared, options.csv);
  PrintDiff(compared, out);
  return compared.diff.IsEmpty() ? kExitEqual : kExitDifferent;
}

}  // namespace zerbal::pack
