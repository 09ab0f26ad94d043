#include "zerbal-pack/build.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/file_replacement.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/staged_folders.h"
#include "zerbal-pack/write_tables.h"

namespace zerbal::pack {

namespace fs = std::filesystem;

namespace {

constexpr double kDataShare = 0.08;  // of the whole work

/// Marks the revision file of folders that zerbal-pack made and may replace.
constexpr const char* kMark = "MadeBy=zerbal-pack";

struct Sources {
  Schedule schedule;
  ProgramData program;
  CsvTable airports;
  std::string revision;
};

/// "" when the file cannot be read.
std::string ReadText(const fs::path& file) {
  return base::ReadFile(file).value_or("");
}

/// The revision file with the line ends of settings files, and the mark at the end.
std::string RevisionText(const std::string& source) {
  std::string text;
  for (std::string_view rest = source; !rest.empty();) {
    std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    if (line.ends_with('\r'))
      line.remove_suffix(1);
    text.append(line).append("\r\n");
  }
  return text.append("\r\n[Pack]\r\n").append(kMark).append("\r\n");
}

void CheckReplaceable(const fs::path& out) {
  if (fs::exists(out) && !fs::is_directory(out))
    throw BuildRefused(out.string() + " is not a folder");
  const bool ours = ReadText(out / kDataFolder / kRevisionFile).find(kMark) != std::string::npos;
  for (const char* name : {kDataFolder, kMapFolder}) {
    const fs::path folder = out / name;
    if (fs::exists(folder) && !ours && !(fs::is_directory(folder) && fs::is_empty(folder)))
      throw BuildRefused(folder.string() +
                         " was not made by zerbal-pack; move it away or choose another folder");
  }
}

Sources ReadSources(const fs::path& folder, Problems& problems) {
  Sources sources;
  sources.program = ReadProgramData(folder, problems);
  sources.schedule =
      ReadSchedule({folder / "services.csv", folder / "destinations.csv", folder / "flights.csv"}, problems);
  sources.airports = ReadAirports(folder / "airports.csv", problems);
  sources.revision = ReadText(folder / kRevisionFile);
  if (sources.revision.find("[RevZBL]") == std::string::npos)
    problems.Add({(folder / kRevisionFile).string(), 0, "", "cannot be read or has no section [RevZBL]"});
  return sources;
}

void AddSize(std::vector<TableSize>& sizes, const std::string& file, const CsvTable& table) {
  sizes.push_back({std::string(kDataFolder) + "/" + file, table.layout->name, table.rows.size()});
}

std::vector<TableSize> WriteData(const fs::path& folder, const Sources& sources) {
  std::vector<TableSize> sizes;
  WriteProgramData(folder / "zbldata.mdb", sources.program);
  for (const CsvTable* table : {&sources.program.colours, &sources.program.fonts, &sources.program.regions})
    AddSize(sizes, "zbldata.mdb", *table);
  WriteSchedule(folder / "qavdata.mdb", sources.schedule);
  for (const CsvTable* table :
       {&sources.schedule.services, &sources.schedule.destinations, &sources.schedule.flights})
    AddSize(sizes, "qavdata.mdb", *table);
  WriteAirports(folder / "allaprt.mdb", sources.airports);
  AddSize(sizes, "allaprt.mdb", sources.airports);
  base::FileReplacement revision(folder / kRevisionFile);
  revision.Write(RevisionText(sources.revision));
  revision.Commit();
  return sizes;
}

}  // namespace

std::vector<TableSize> BuildFolder(const BuildOptions& options, const MapBuilder& buildMap,
                                   const BuildProgress& progress, Problems& problems) {
  CheckReplaceable(options.out);
  progress(0, "reading");
  const Sources sources = ReadSources(options.sources, problems);
  if (problems.HasErrors())
    return {};
  StagedFolders staged(options.out, {kDataFolder, kMapFolder});
  progress(kDataShare / 2, "airports and flights");
  std::vector<TableSize> sizes = WriteData(staged.WorkFolder() / kDataFolder, sources);
  progress(kDataShare, "map");
  const auto mapProgress = [&](double done) { progress(kDataShare + (1 - kDataShare) * done, "map"); };
  for (TableSize& size : buildMap(staged.WorkFolder(), mapProgress))
    sizes.push_back(std::move(size));
  staged.Commit();
  return sizes;
}

}  // namespace zerbal::pack
