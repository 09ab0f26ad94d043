#include "zerbal-pack/stats_command.h"

#include <cstddef>
#include <ostream>
#include <string>

#include "base/error.h"
#include "base/path_text.h"
#include "zerbal-pack/csv_value.h"
#include "zerbal-pack/stats_report.h"

namespace zerbal::pack {

StatsOptions ToStatsOptions(const StatsWords& words) {
  if (words.csv && words.json)
    throw base::UsageError("--csv and --json exclude each other");
  StatsOptions options;
  options.source = base::PathOf(words.source);
  if (words.csv)
    options.format = StatsFormat::kCsv;
  if (words.json)
    options.format = StatsFormat::kJson;
  return options;
}

bool PrintStats(const StatsOptions& options, std::ostream& out, std::ostream& err) {
  Problems problems;
  const PlainSchedule schedule = ReadPlainSchedule(options.source, problems);
  problems.Print(err);
  if (const std::size_t count = problems.Count(Severity::kError); count > 0) {
    err << "zerbal-pack: " << count << (count == 1 ? " problem" : " problems") << "; nothing was counted\n";
    return false;
  }
  const ScheduleFigures figures = CountSchedule(schedule, FindPositions(schedule, options.source));
  if (options.format == StatsFormat::kCsv)
    PrintFiguresAsCsv(figures, out);
  else if (options.format == StatsFormat::kJson)
    PrintFiguresAsJson(figures, out);
  else
    PrintFigures(figures, out);
  for (const std::string& code : figures.unknownAirports)
    err << "zerbal-pack: the position of airport " << Quoted(code) << " is not known\n";
  return figures.unknownAirports.empty();
}

}  // namespace zerbal::pack
