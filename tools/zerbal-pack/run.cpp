#include "zerbal-pack/run.h"

#include <array>
#include <exception>
#include <ostream>
#include <stdexcept>

#include "zerbal-pack/airline.h"
#include "zerbal-pack/build.h"
#include "zerbal-pack/check.h"
#include "zerbal-pack/command_line.h"
#include "zerbal-pack/export.h"
#include "zerbal-pack/help_text.h"
#include "zerbal-pack/map_build.h"
#include "zerbal-pack/progress.h"
#include "zerbal-pack/write_tables.h"

namespace zerbal::pack {

namespace fs = std::filesystem;

namespace {

/// One file of the sources, by which their folder is recognised.
constexpr const char* kTellTale = "airports.csv";

int ReportProblems(const Problems& problems, const RunContext& context) {
  problems.Print(context.err);
  const std::size_t count = problems.List().size();
  context.err << "zerbal-pack: " << count << (count == 1 ? " problem" : " problems")
              << "; nothing was written\n";
  return kExitBadData;
}

MapDetail ToDetail(const std::string& name) {
  if (name.empty() || name == "high")
    return MapDetail::kHigh;
  if (name == "low")
    return MapDetail::kLow;
  if (name == "intermediate")
    return MapDetail::kIntermediate;
  if (name == "full")
    return MapDetail::kFull;
  throw UsageError("detail '" + name + "' is none of low, intermediate, high and full");
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
  const MapDetail detail = ToDetail(line.Value("--detail"));
  const BuildOptions options{line.Value("--out"), line.Has("--pack") ? fs::path(line.Value("--pack"))
                                                                     : FindSources(context.executable)};
  if (options.sources.empty())
    throw UsageError("the sources of the sample data are not found; name their folder with --pack");
  Problems problems;
  std::vector<TableSize> sizes;
  {
    ProgressBar bar(context.err, context.errIsTerminal);
    const auto progress = [&](double done, const std::string& what) {
      if (context.interrupted())
        throw std::runtime_error("interrupted; nothing was written");
      bar.Show(done, what);
    };
    sizes = BuildFolder(options, MapBuilderFor(detail), progress, problems);
  }
  if (!problems.Empty())
    return ReportProblems(problems, context);
  for (const TableSize& size : sizes)
    context.out << size.file << " " << size.table << ": " << size.rows
                << (size.rows == 1 ? " row\n" : " rows\n");
  return kExitGood;
}

int MakeSchedule(const CommandLine& line, const RunContext& context) {
  Problems problems;
  const Schedule schedule = ReadSchedule(
      {line.Value("--services"), line.Value("--destinations"), line.Value("--flights")}, problems);
  if (!problems.Empty())
    return ReportProblems(problems, context);
  WriteSchedule(line.Value("--out"), schedule);
  context.out << schedule.services.rows.size() << " flight services, " << schedule.destinations.rows.size()
              << " destinations, " << schedule.flights.rows.size() << " flights\n";
  return kExitGood;
}

int Export(const CommandLine& line, const RunContext& context) {
  ExportOptions options;
  options.file = line.operands[0];
  options.folder = line.operands[1];
  options.table = line.Value("--table");
  options.index = line.Value("--index");
  options.schema = line.Has("--schema");
  return ExportTables(options, context.err) ? kExitGood : kExitBadData;
}

int Check(const CommandLine& line, const RunContext& context) {
  const fs::path folder = line.operands[0];
  if (!fs::is_directory(folder))
    throw std::runtime_error(folder.string() + " is not a folder");
  const CheckReport report = CheckFolder(folder);
  report.Print(context.out);
  return report.AllIsWell() ? kExitGood : kExitBadData;
}

struct Command {
  std::string name;
  CommandSyntax syntax;
  int (*run)(const CommandLine&, const RunContext&);
};

const std::array<Command, 4>& Commands() {
  static const std::array<Command, 4> kCommands = {
      {{"build", {{}, {"--out"}, {"--detail", "--pack"}, {}}, Build},
       {"schedule", {{}, {"--out", "--services", "--destinations", "--flights"}, {}, {}}, MakeSchedule},
       {"export", {{"FILE.mdb", "DIR"}, {}, {"--table", "--index"}, {"--schema"}}, Export},
       {"check", {{"DIR"}, {}, {}, {}}, Check}}};
  return kCommands;
}

bool AsksForHelp(const std::vector<std::string>& words) {
  for (const std::string& word : words) {
    if (word == "--")
      return false;
    if (word == "--help" || word == "-h")
      return true;
  }
  return false;
}

int RunCommand(const std::vector<std::string>& words, const RunContext& context) {
  if (AsksForHelp(words)) {
    context.out << kHelpText;
    return kExitGood;
  }
  if (words.empty())
    throw UsageError("a command is missing");
  if (words.front() == "--version") {
    context.out << "zerbal-pack " << ZERBAL_VERSION << "\n";
    return kExitGood;
  }
  for (const Command& command : Commands()) {
    if (words.front() != command.name)
      continue;
    const std::vector<std::string> rest(words.begin() + 1, words.end());
    return command.run(ParseCommandLine(rest, command.syntax), context);
  }
  throw UsageError("there is no command '" + words.front() + "'");
}

}  // namespace

int RunPack(const std::vector<std::string>& words, const RunContext& context) {
  try {
    return RunCommand(words, context);
  } catch (const UsageError& error) {
    context.err << "zerbal-pack: " << error.what() << "\nTry 'zerbal-pack --help'.\n";
    return kExitBadUsage;
  } catch (const std::exception& error) {
    context.err << "zerbal-pack: " << error.what() << "\n";
    return kExitBadData;
  }
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
  const fs::path installed = ZERBAL_PACK_FOLDER;
  return fs::exists(installed / kTellTale) ? installed : fs::path();
}

}  // namespace zerbal::pack
