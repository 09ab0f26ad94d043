#include "zerbal-pack/airline.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include <fmt/format.h>

#include "base/case_folding.h"
#include "data/flight.h"
#include "data/map_style.h"
#include "jet/writer.h"
#include "zerbal-pack/csv_value.h"

namespace zerbal::pack {

namespace {

/// The keys of one table, to which rows of another refer.
class KeySet {
 public:
  KeySet(const CsvTable& table, std::string_view field) : known_(table.headerRead) {
    const std::size_t column = table.layout->ColumnIndex(field);
    for (const CsvRow& row : table.rows)
      keys_.emplace(base::LowerAscii(row.Text(column)), row.Text(column));
  }

  /// Why `key` refers to no row; nullopt when it does, or when the keys could not be read.
  std::optional<std::string> Fault(std::string_view key, std::string_view what) const {
    if (!known_)
      return std::nullopt;
    const auto found = keys_.find(base::LowerAscii(key));
    if (found != keys_.end() && found->second == key)
      return std::nullopt;
    std::string reason = std::string("unknown ").append(what).append(" ").append(Quoted(key));
    if (found != keys_.end())
      reason.append(" (letter case counts: there is ").append(Quoted(found->second)).append(")");
    return reason;
  }

 private:
  bool known_;
  std::map<std::string, std::string_view> keys_;  // by lower case
};

void CheckReference(const CsvTable& table, const CsvRow& row, std::size_t column, const KeySet& keys,
                    std::string_view what, Problems& problems) {
  const std::string_view key = row.Text(column);
  if (key.empty())
    return;  // no stopover, or reported as bad already
  if (std::optional<std::string> fault = keys.Fault(key, what))
    table.Report(problems, row, column, *std::move(fault));
}

/// The first empty stopover ends a flight's stopovers; the program ignores those after it.
void CheckStopGaps(const CsvTable& flights, const CsvRow& row, Problems& problems) {
  const std::size_t first = flights.layout->ColumnIndex("Flit_Stop1");
  for (std::size_t stop = 1; stop < data::kMaxStopovers; ++stop) {
    const bool before = !std::holds_alternative<jet::Null>(row.values[first + stop - 1]);
    const bool here = !std::holds_alternative<jet::Null>(row.values[first + stop]);
    if (here && !before) {
      flights.Report(problems, row, first + stop,
                     fmt::format("{} follows an empty stopover {}", Quoted(row.Text(first + stop)), stop));
      return;
    }
  }
}

void CheckFlight(const CsvTable& flights, const CsvRow& row, const KeySet& services, const KeySet& airports,
                 Problems& problems) {
  CheckReference(flights, row, flights.layout->ColumnIndex("Flit_FSrv"), services, "flight service",
                 problems);
  const std::size_t arrival = flights.layout->ColumnIndex("Flit_Arr");
  for (std::size_t column = flights.layout->ColumnIndex("Flit_Dep"); column <= arrival; ++column)
    CheckReference(flights, row, column, airports, "airport", problems);
  CheckStopGaps(flights, row, problems);
}

template <typename Rules>
void CheckCodes(const CsvTable& table, std::string_view field, const Rules& rules, Problems& problems) {
  if (!table.headerRead)
    return;
  const std::size_t column = table.layout->ColumnIndex(field);
  for (const auto& rule : rules) {
    const std::string_view code = rule.code;
    bool found = false;
    for (const CsvRow& row : table.rows)
      found = found || row.Text(column) == code;
    if (!found)
      problems.Add({table.file, 0, "", "there is no row with code " + Quoted(code)});
  }
}

void CheckCount(const CsvTable& table, Problems& problems) {
  if (!table.headerRead)
    return;
  if (std::optional<std::string> fault = CountFault(*table.layout, table.rows.size()))
    problems.Add({table.file, 0, "", *std::move(fault)});
}

void CheckRegionBounds(const CsvTable& regions, Problems& problems) {
  const auto bound = [&](const CsvRow& row, std::string_view field) {
    const auto* value = std::get_if<double>(&row.values[regions.layout->ColumnIndex(field)]);
    return value ? std::optional<double>(*value) : std::nullopt;
  };
  for (const CsvRow& row : regions.rows) {
    const auto west = bound(row, "Reg_FromLon"), east = bound(row, "Reg_ToLon");
    const auto top = bound(row, "Reg_FromLat"), bottom = bound(row, "Reg_ToLat");
    if (west && east && *west == *east)
      regions.Report(problems, row, regions.layout->ColumnIndex("Reg_ToLon"),
                     "is the same as the west bound");
    if (top && bottom && *top >= *bottom)
      regions.Report(problems, row, regions.layout->ColumnIndex("Reg_ToLat"),
                     "is not south of the north bound");
  }
}

}  // namespace

Schedule ReadSchedule(const ScheduleSources& sources, Problems& problems) {
  Schedule schedule;
  schedule.services = ReadCsvTable(sources.services, ServiceLayout(), problems);
  schedule.destinations = ReadCsvTable(sources.destinations, DestinationLayout(), problems);
  schedule.flights = ReadCsvTable(sources.flights, FlightLayout(), problems);
  CheckSchedule(schedule, problems);
  return schedule;
}

ProgramData ReadProgramData(const std::filesystem::path& folder, Problems& problems) {
  ProgramData data;
  data.colours = ReadCsvTable(folder / "colours.csv", ColourLayout(), problems);
  data.fonts = ReadCsvTable(folder / "fonts.csv", FontLayout(), problems);
  data.regions = ReadCsvTable(folder / "regions.csv", RegionLayout(), problems);
  CheckProgramData(data, problems);
  return data;
}

CsvTable ReadAirports(const std::filesystem::path& file, Problems& problems) {
  return ReadCsvTable(file, AirportLayout(), problems);
}

void CheckSchedule(const Schedule& schedule, Problems& problems) {
  CheckCount(schedule.services, problems);
  const KeySet services(schedule.services, "FSrv");
  const KeySet airports(schedule.destinations, "AP");
  for (const CsvRow& row : schedule.flights.rows)
    CheckFlight(schedule.flights, row, services, airports, problems);
}

void CheckProgramData(const ProgramData& program, Problems& problems) {
  CheckCodes(program.colours, "Col", data::kColourRules, problems);
  CheckCodes(program.fonts, "Fon", data::kFontRules, problems);
  CheckCount(program.regions, problems);
  CheckRegionBounds(program.regions, problems);
}

}  // namespace zerbal::pack
