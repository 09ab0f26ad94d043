#include "zerbal-pack/plain_schedule.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <variant>

#include "base/error.h"
#include "base/find_file.h"
#include "data/flight_pairs.h"
#include "data/flight_reader.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/recordset.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/find_index.h"

namespace zerbal::pack {

namespace fs = std::filesystem;

namespace {

std::optional<GeoPosition> Position(const jet::Recordset& row) {
  try {
    return ToGeoPosition({row["AP_Lon"].AsSingle(), row["AP_Lat"].AsSingle()});
  } catch (const jet::ConversionError&) {
    return std::nullopt;
  }
}

void ReadServices(const jet::Database& database, PlainSchedule& schedule) {
  jet::Recordset rows = database.OpenTable("fsrv");
  if (FindIndex(rows, "sort") != nullptr)
    rows.SetIndex("sort");
  for (; !rows.Eof(); rows.MoveNext())
    schedule.services.push_back(
        {rows["FSrv"].AsText(),
         rows["FSrv_Name"].AsText(),
         {rows["FSrv_R"].AsLong(), rows["FSrv_G"].AsLong(), rows["FSrv_B"].AsLong()}});
}

void ReadDatabase(const fs::path& file, PlainSchedule& schedule) {
  const jet::Database database = jet::Database::Open(file);
  ReadServices(database, schedule);
  for (jet::Recordset rows = database.OpenTable("dest"); !rows.Eof(); rows.MoveNext())
    schedule.destinations.push_back(
        {rows["AP"].AsText(), rows["AP_Name"].AsText(), rows["AP_City"].AsText(), Position(rows)});
  jet::Recordset rows = database.OpenTable("flit");
  const data::FlightFields fields(rows);
  for (; !rows.Eof(); rows.MoveNext())
    data::ReadFlight(rows, fields, schedule.flights.emplace_back());
}

/// The values of a row by the names of their fields.
class NamedValues {
 public:
  NamedValues(const CsvTable& table, const CsvRow& row) : layout_(*table.layout), row_(row) {}

  std::string Text(std::string_view field) const {
    return std::string(row_.Text(layout_.ColumnIndex(field)));
  }

  /// 0 where there is no number.
  double Number(std::string_view field) const {
    return std::visit(
        [](const auto& value) {
          if constexpr (std::is_arithmetic_v<std::decay_t<decltype(value)>>)
            return static_cast<double>(value);
          else
            return 0.0;
        },
        row_.values[layout_.ColumnIndex(field)]);
  }

 private:
  const TableLayout& layout_;
  const CsvRow& row_;
};

void TakeServices(const CsvTable& table, PlainSchedule& schedule) {
  std::vector<std::pair<double, PlainService>> sorted;
  for (const CsvRow& row : table.rows) {
    const NamedValues values(table, row);
    const auto component = [&](std::string_view field) { return static_cast<int>(values.Number(field)); };
    sorted.emplace_back(values.Number("FSrv_Sort"),
                        PlainService{values.Text("FSrv"),
                                     values.Text("FSrv_Name"),
                                     {component("FSrv_R"), component("FSrv_G"), component("FSrv_B")}});
  }
  std::ranges::stable_sort(sorted, {}, &std::pair<double, PlainService>::first);
  for (auto& [sort, service] : sorted)
    schedule.services.push_back(std::move(service));
}

data::Flight ToFlight(const CsvTable& table, const CsvRow& row) {
  const NamedValues values(table, row);
  data::Flight flight{values.Text("Flit_2015"), values.Text("Flit_FSrv"), values.Text("Flit"), {}};
  const std::size_t last = table.layout->ColumnIndex("Flit_Arr");
  flight.route.push_back(values.Text("Flit_Dep"));
  for (std::size_t stop = table.layout->ColumnIndex("Flit_Stop1"); stop < last; ++stop) {
    if (row.Text(stop).empty())
      break;
    flight.route.emplace_back(row.Text(stop));
  }
  flight.route.push_back(values.Text("Flit_Arr"));
  return flight;
}

void ReadFiles(const ScheduleSources& sources, Problems& problems, PlainSchedule& schedule) {
  Problems own;
  const Schedule tables = ReadSchedule(sources, own);
  for (const Problem& problem : own.List())
    problems.Add(problem);
  if (own.HasErrors())
    return;
  TakeServices(tables.services, schedule);
  for (const CsvRow& row : tables.destinations.rows) {
    const NamedValues values(tables.destinations, row);
    const MapPosition position{static_cast<float>(values.Number("AP_Lon")),
                               static_cast<float>(values.Number("AP_Lat"))};
    schedule.destinations.push_back(
        {values.Text("AP"), values.Text("AP_Name"), values.Text("AP_City"), ToGeoPosition(position)});
  }
  for (const CsvRow& row : tables.flights.rows)
    schedule.flights.push_back(ToFlight(tables.flights, row));
}

void ReadFolder(const fs::path& folder, Problems& problems, PlainSchedule& schedule) {
  if (const std::optional<fs::path> database = base::FindFile(folder, "app_data/qavdata.mdb"))
    return ReadDatabase(*database, schedule);
  bool found = false;
  const auto file = [&](const char* name) {
    const std::optional<fs::path> known = base::FindFile(folder, name);
    found = found || known;
    return known.value_or(folder / name);
  };
  const ScheduleSources sources{file("services.csv"), file("destinations.csv"), file("flights.csv")};
  if (!found)
    throw base::Error(folder.string() +
                      " has neither app_data/qavdata.mdb nor services.csv, destinations.csv and flights.csv");
  ReadFiles(sources, problems, schedule);
}

}  // namespace

const PlainService* PlainSchedule::FindService(std::string_view key) const {
  const auto found = std::find_if(services.rbegin(), services.rend(),
                                  [&](const PlainService& service) { return service.key == key; });
  return found == services.rend() ? nullptr : &*found;
}

PlainSchedule ReadPlainSchedule(const fs::path& source, Problems& problems) {
  PlainSchedule schedule;
  if (fs::is_directory(source))
    ReadFolder(source, problems, schedule);
  else
    ReadDatabase(source, schedule);
  std::ranges::stable_sort(schedule.destinations, {}, &PlainAirport::code);
  data::SortFlights(schedule.flights);
  return schedule;
}

std::string RouteText(const data::Flight& flight) {
  std::string text;
  for (const std::string& code : flight.route)
    text.append(text.empty() ? "" : "-").append(code);
  return text;
}

}  // namespace zerbal::pack
