#include "zerbal-pack/run.h"

#include <exception>
#include <ostream>

#include <fmt/format.h>

#include "base/error.h"
#include "base/path_text.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/airports_command.h"
#include "zerbal-pack/build.h"
#include "zerbal-pack/check.h"
#include "zerbal-pack/command_line.h"
#include "zerbal-pack/diff_command.h"
#include "zerbal-pack/export.h"
#include "zerbal-pack/help_text.h"
#include "zerbal-pack/import_command.h"
#include "zerbal-pack/map_build.h"
#include "zerbal-pack/progress.h"
#include "zerbal-pack/stats_command.h"
#include "zerbal-pack/write_tables.h"

namespace zerbal::pack {

namespace fs = std::filesystem;

namespace {

/// The folder of the sources contains this file.
constexpr const char* kTellTale = "airports.csv";

/// Prints the problems. True when there are errors, so that nothing can be written.
bool RefusedFor(const Problems& problems, const RunContext& context) {
  problems.Print(context.err);
  const std::size_t count = problems.Count(Severity::kError);
  if (count == 0)
    return false;
  context.err << "zerbal-pack: " << count << (count == 1 ? " problem" : " problems")
              << "; nothing was written\n";
  return true;
}

MapDetail ToDetail(const std::string& name) {
  if (name == "high")
    return MapDetail::kHigh;
  if (name == "low")
    return MapDetail::kLow;
  if (name == "intermediate")
    return MapDetail::kIntermediate;
  if (name == "full")
    return MapDetail::kFull;
  throw base::UsageError(fmt::format("detail '{}' is none of low, intermediate, high and full", name));
}

MapBuilder MapBuilderFor(MapDetail detail) {
  return [detail](const fs::path& parent, const std::function<void(double)>& progress) {
    MapBuildOptions options;
    options.detail = detail;
    options.outputFolder = parent;
    std::vector<TableSize> sizes;
    for (const MapTableSize& size : BuildMapDatabases(options, progress))
      sizes.push_back({std::string(kMapFolder) + "/" + size.file, size.table, size.rows});
    return sizes;
  };
}

int Build(const CommandLine& line, const RunContext& context) {
  const MapDetail detail = ToDetail(line.detail);
  const BuildOptions options{base::PathOf(line.out), line.sources.empty() ? FindSources(context.executable)
                                                                          : base::PathOf(line.sources)};
  if (options.sources.empty())
    throw base::UsageError("the sources of the sample data are not found; name their folder with --pack");
  Problems problems;
  std::vector<TableSize> sizes;
  {
    ProgressBar bar(context.err, context.errIsTerminal);
    const auto progress = [&](double done, const std::string& what) {
      if (context.interrupted())
        throw base::Cancelled("interrupted; nothing was written");
      bar.Show(done, what);
    };
    sizes = BuildFolder(options, MapBuilderFor(detail), progress, problems);
  }
  if (RefusedFor(problems, context))
    return kExitBadData;
  for (const TableSize& size : sizes)
    context.out << size.file << " " << size.table << ": " << size.rows
                << (size.rows == 1 ? " row\n" : " rows\n");
  return kExitGood;
}

int MakeSchedule(const CommandLine& line, const RunContext& context) {
  Problems problems;
  const Schedule schedule = ReadSchedule(
      {base::PathOf(line.services), base::PathOf(line.destinations), base::PathOf(line.flights)}, problems);
  if (RefusedFor(problems, context))
    return kExitBadData;
  WriteSchedule(base::PathOf(line.out), schedule);
  context.out << schedule.services.rows.size() << " flight services, " << schedule.destinations.rows.size()
              << " destinations, " << schedule.flights.rows.size() << " flights\n";
  return kExitGood;
}

int Export(const CommandLine& line, const RunContext& context) {
  ExportOptions options;
  options.file = base::PathOf(line.file);
  options.folder = base::PathOf(line.folder);
  options.table = line.table;
  options.index = line.index;
  options.schema = line.schema;
  return ExportTables(options, context.err) ? kExitGood : kExitBadData;
}

int Check(const CommandLine& line, const RunContext& context) {
  const fs::path folder = base::PathOf(line.folder);
  if (!fs::is_directory(folder))
    throw base::Error(line.folder + " is not a folder");
  const CheckReport report = CheckFolder(folder);
  report.Print(context.out);
  return report.AllIsWell() ? kExitGood : kExitBadData;
}

int RunCommand(const CommandLine& line, const RunContext& context) {
  if (line.command == "build")
    return Build(line, context);
  if (line.command == "schedule")
    return MakeSchedule(line, context);
  if (line.command == "import")
    return ImportSchedule(ToImportOptions(line.import), context.out, context.err) ? kExitGood : kExitBadData;
  if (line.command == "airports")
    return MakeAirports(ToAirportsOptions(line.airports), context.out, context.err) ? kExitGood
                                                                                    : kExitBadData;
  if (line.command == "export")
    return Export(line, context);
  if (line.command == "check")
    return Check(line, context);
  if (line.command == "diff")
    return DiffSchedules({base::PathOf(line.before), base::PathOf(line.after), base::PathOf(line.csvFolder)},
                         context.out, context.err);
  if (line.command == "stats")
    return PrintStats(ToStatsOptions(line.stats), context.out, context.err) ? kExitGood : kExitBadData;
  if (line.command == "--version")
    context.out << "zerbal-pack " << ZERBAL_VERSION << "\n";
  else
    context.out << kHelpText;
  return kExitGood;
}

}  // namespace

int RunPack(const std::vector<std::string>& words, const RunContext& context) {
  try {
    return RunCommand(ParseCommandLine(words), context);
  } catch (const base::UsageError& error) {
    context.err << "zerbal-pack: " << error.what() << "\nTry 'zerbal-pack --help'.\n";
    return kExitBadUsage;
  } catch (const std::exception& error) {
    context.err << "zerbal-pack: " << error.what() << "\n";
    return FailureStatus(words);
  }
}

int FailureStatus(const std::vector<std::string>& words) {
  return !words.empty() && words.front() == "diff" ? kExitNotCompared : kExitBadData;
}

fs::path FindSources(const fs::path& executable) {
  for (fs::path folder = executable.parent_path(); !folder.empty(); folder = folder.parent_path()) {
    for (const char* below : {"pack", "share/zerbal/pack"}) {
      if (fs::exists(folder / below / kTellTale))
        return folder / below;
    }
    if (folder == folder.parent_path())
      break;
  }
  const fs::path installed = base::PathOf(ZERBAL_PACK_FOLDER);
  return fs::exists(installed / kTellTale) ? installed : fs::path();
}

}  // namespace zerbal::pack
