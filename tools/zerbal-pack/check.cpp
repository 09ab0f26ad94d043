#include "zerbal-pack/check.h"

#include <array>
#include <functional>
#include <optional>
#include <set>
#include <string_view>

#include <fmt/format.h>

#include "base/case_folding.h"
#include "base/find_file.h"
#include "data/flight_reader.h"
#include "data/map_style.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/pair_reader.h"
#include "jet/recordset.h"
#include "zerbal-pack/check_region.h"
#include "zerbal-pack/check_table.h"
#include "zerbal-pack/csv_value.h"
#include "zerbal-pack/find_index.h"
#include "zerbal-pack/layout.h"
#include "zerbal-pack/map_point.h"

namespace zerbal::pack {

namespace fs = std::filesystem;

namespace {

std::string TableOf(const std::string& file, const std::string& table) {
  return fmt::format("{}: table '{}'", file, table);
}

class FolderCheck {
 public:
  FolderCheck(fs::path folder, CheckReport& report) : folder_(std::move(folder)), report_(report) {}

  void Run() {
    CheckProgramData();
    CheckSchedule();
    CheckAirports();
    CheckMap("coast.mdb", true);
    CheckMap("river.mdb", false);
    CheckMap("ibound.mdb", false);
    if (!Find("app_data/zblrev.ini"))
      report_.AddNote("app_data/zblrev.ini", "is missing; revision numbers show as Unknown");
  }

 private:
  using RowAction = std::function<void(const jet::Recordset&)>;

  std::optional<fs::path> Find(const std::string& name) const { return base::FindFile(folder_, name); }

  std::optional<jet::Database> Open(const std::string& name, bool required, std::string_view without) {
    const std::optional<fs::path> path = Find(name);
    if (!path && required)
      report_.Add(name, "file", "the file is missing; the program does not start without it");
    else if (!path)
      report_.AddNote(name, "is missing; " + std::string(without));
    if (!path)
      return std::nullopt;
    try {
      return jet::Database::Open(*path);
    } catch (const jet::EngineError& error) {
      report_.Add(name, "file", "cannot be opened: " + error.Reason());
      return std::nullopt;
    }
  }

  /// The number of rows of the table; nullopt when they could not be checked.
  std::optional<std::size_t> Check(const jet::Database& database, const std::string& file,
                                   const TableLayout& layout, const RowAction& action) {
    const std::string where = TableOf(file, layout.name);
    std::optional<jet::Recordset> rows = OpenChecked(database, where, layout.name, report_);
    if (!rows)
      return std::nullopt;
    std::size_t count = 0;
    const bool walked = CheckTable(*rows, layout, where, report_, [&](const jet::Recordset& row) {
      ++count;
      action(row);
    });
    if (!walked)
      return std::nullopt;
    return count;
  }

  void CheckProgramData() {
    const std::string file = "app_data/zbldata.mdb";
    const std::optional<jet::Database> database = Open(file, true, "");
    if (!database)
      return;
    Check(*database, file, ColourLayout(), [](const jet::Recordset&) {});
    CheckCodes(*database, file, "col", "colcode", data::kColourRules);
    Check(*database, file, FontLayout(), [](const jet::Recordset&) {});
    CheckCodes(*database, file, "fon", "foncode", data::kFontRules);
    const auto regions =
        Check(*database, file, RegionLayout(), [&](const jet::Recordset& row) { CheckRegion(row); });
    if (regions)
      report_.AddCount(*regions, "region", "regions");
    CheckCount(file, RegionLayout(), regions);
  }

  void CheckCount(const std::string& file, const TableLayout& layout, std::optional<std::size_t> rows) {
    if (!rows)
      return;
    if (const std::optional<std::string> fault = CountFault(layout, *rows))
      report_.Add(TableOf(file, layout.name), "rows", *fault);
  }

  /// Seeks as the program does.
  template <typename Rules>
  void CheckCodes(const jet::Database& database, const std::string& file, const std::string& table,
                  const std::string& index, const Rules& rules) {
    const std::string where = TableOf(file, table);
    try {
      if (!database.HasTable(table))
        return;
      jet::Recordset rows = database.OpenTable(table);
      rows.SetIndex(index);
      for (const auto& rule : rules) {
        rows.Seek(rule.code);
        if (rows.NoMatch())
          report_.Add(where, "code", "there is no row with code " + Quoted(rule.code));
      }
    } catch (const jet::EngineError& error) {
      if (HasIndexFor(database, table, index))
        report_.Add(where, "damage", error.Reason());
    }
  }

  /// A missing index was reported with the table.
  static bool HasIndexFor(const jet::Database& database, const std::string& table, const std::string& index) {
    try {
      const jet::Recordset rows = database.OpenTable(table);
      return FindIndex(rows, index) != nullptr;
    } catch (const jet::EngineError&) {
      return false;
    }
  }

  void CheckRegion(const jet::Recordset& row) {
    const std::string where = "app_data/zbldata.mdb: table 'reg'";
    try {
      const std::string name = RowName(row, RegionLayout());
      const RegionBounds bounds{row["Reg_FromLon"].AsDouble(), row["Reg_FromLat"].AsDouble(),
                                row["Reg_ToLon"].AsDouble(), row["Reg_ToLat"].AsDouble()};
      if (bounds.west == bounds.east)
        report_.Add(where, "width", name + " has no width; choosing it shows nothing");
      if (bounds.top >= bounds.bottom)
        report_.Add(where, "height", name + ": Reg_ToLat is not south of Reg_FromLat");
      else if (const std::optional<std::string> note = CutOffNote(bounds); note && bounds.west != bounds.east)
        report_.AddNote(where, name + ": " + *note);
    } catch (const jet::ConversionError&) {
      return;  // reported with the values
    }
  }

  void CheckSchedule() {
    const std::string file = "app_data/qavdata.mdb";
    const std::optional<jet::Database> database = Open(file, true, "");
    if (!database)
      return;
    const auto services = Check(*database, file, ServiceLayout(),
                                [&](const jet::Recordset& row) { services_.insert(row["FSrv"].AsText()); });
    CheckCount(file, ServiceLayout(), services);
    const auto destinations = Check(*database, file, DestinationLayout(),
                                    [&](const jet::Recordset& row) { CheckDestination(row); });
    knowDestinations_ = destinations.has_value();
    knowServices_ = services.has_value();
    const auto flights =
        Check(*database, file, FlightLayout(), [&](const jet::Recordset& row) { CheckFlight(row); });
    report_.AddCount(services.value_or(0), "flight service", "flight services");
    report_.AddCount(destinations.value_or(0), "destination", "destinations");
    report_.AddCount(flights.value_or(0), "flight", "flights");
  }

  void CheckDestination(const jet::Recordset& row) {
    const std::string code = row["AP"].AsText();
    if (!airports_.insert(code).second)
      report_.Add("app_data/qavdata.mdb: table 'dest'", "twice",
                  fmt::format("destination {} is there twice", Quoted(code)));
  }

  void CheckFlight(const jet::Recordset& row) {
    const std::string where = "app_data/qavdata.mdb: table 'flit'";
    data::Flight flight;
    data::ReadFlight(row, data::FlightFields(row), flight);
    const std::string name = fmt::format("flight {} (key {})", Quoted(flight.number), Quoted(flight.key));
    if (!flights_.insert(flight.key).second)
      report_.Add(where, "twice", name + ": another flight has the same key");
    if (knowServices_ && !services_.contains(flight.service))
      report_.Add(where, "service",
                  fmt::format("{}: there is no flight service {}, so it is drawn black or not at all", name,
                              Quoted(flight.service)));
    for (const std::string& code : flight.route) {
      if (!knowDestinations_ || airports_.contains(code))
        continue;
      report_.Add(where, "airport",
                  fmt::format("{}: airport {} is not among the destinations, so it is never drawn", name,
                              Quoted(code)));
      break;
    }
    CheckStops(row, flight, where, name);
  }

  void CheckStops(const jet::Recordset& row, const data::Flight& flight, const std::string& where,
                  const std::string& name) {
    const int used = static_cast<int>(flight.route.size()) - 2;
    for (int stop = used + 1; stop <= data::kMaxStopovers; ++stop) {
      if (row[fmt::format("Flit_Stop{}", stop)].IsNull())
        continue;
      report_.Add(
          where, "gap",
          fmt::format("{}: stopover {} is ignored, because stopover {} is empty", name, stop, used + 1));
      return;
    }
  }

  void CheckAirports() {
    const std::string file = "app_data/allaprt.mdb";
    const std::optional<jet::Database> database = Open(file, true, "");
    if (!database)
      return;
    const auto count = Check(*database, file, AirportLayout(), [](const jet::Recordset&) {});
    report_.AddCount(count.value_or(0), "airport", "airports");
  }

  void CheckMap(const std::string& name, bool coast) {
    const std::string file = "app_map/" + name;
    const std::optional<jet::Database> database = Open(file, coast, "its lines are never drawn");
    if (!database)
      return;
    if (coast && !database->HasTable("wcl"))
      report_.Add(file, "wcl", "table 'wcl' is missing; there is no coastline in wide views");
    std::size_t tables = 0;
    for (const std::string& table : database->TableNames()) {
      const bool detail = IsTileTable(table);
      tables += detail ? 1 : 0;
      if (detail || (coast && IsWorldTable(table)))
        CheckLines(*database, TableOf(file, table), table);
    }
    if (tables == 0)
      report_.Add(file, "cells", "there is no table of a grid cell; close views show no lines");
    report_.AddCount(tables, "cell in " + name, "cells in " + name);
  }

  /// The overview, or polygons of land.
  static bool IsWorldTable(const std::string& name) {
    return base::EqualsIgnoringAsciiCase(name, "wcl") ||
           base::EqualsIgnoringAsciiCase(name, data::kLandTable) ||
           base::EqualsIgnoringAsciiCase(name, data::kFineLandTable);
  }

  /// A tile's name, two of the letters A, C, E, ... Q, and "wdb2".
  static bool IsTileTable(std::string_view name) {
    const std::string plain = base::LowerAscii(name);
    const auto isBand = [](char c) { return c >= 'a' && c <= 'q' && (c - 'a') % 2 == 0; };
    return plain.size() == 6 && isBand(plain[0]) && isBand(plain[1]) && plain.ends_with("wdb2");
  }

  void CheckLines(const jet::Database& database, const std::string& where, const std::string& table) {
    const std::optional<jet::Recordset> rows = OpenChecked(database, where, table, report_);
    if (!rows)
      return;
    bool fields = true;
    for (const char* field : {"Lon", "Lat"}) {
      if (rows->FindField(field))
        continue;
      report_.Add(where, "field", "field '" + std::string(field) + "' is missing");
      fields = false;
    }
    try {
      if (fields)
        CheckPoints(*rows, where);
    } catch (const jet::EngineError& error) {
      report_.Add(where, "damage", error.Reason());
    }
  }

  void CheckPoints(const jet::Recordset& rows, const std::string& where) {
    jet::PairReader reader(rows, "Lon", "Lat");
    std::array<jet::LongPair, 1024> points;
    std::size_t number = 0;
    while (const std::size_t count = reader.Read(points)) {
      for (std::size_t i = 0; i < count; ++i) {
        ++number;
        const auto [lon, lat] = points[i];
        if (lon == kPenUp || (lon >= 0 && lon <= kFrameWidth && lat >= 0 && lat <= kFrameHeight))
          continue;
        report_.Add(where, "point",
                    fmt::format("row {}: the point {}, {} is outside the map frame", number, lon, lat));
      }
    }
    NoteLostRows(rows, number, where, report_);
  }

  fs::path folder_;
  CheckReport& report_;
  std::set<std::string> services_;
  std::set<std::string> airports_;
  std::set<std::string> flights_;
  bool knowServices_ = false;
  bool knowDestinations_ = false;
};

}  // namespace

CheckReport CheckFolder(const fs::path& folder) {
  CheckReport report;
  FolderCheck(folder, report).Run();
  return report;
}

}  // namespace zerbal::pack
