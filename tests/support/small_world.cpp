#include "support/small_world.h"

#include <algorithm>
#include <stdexcept>

#include "support/small_world_rows.h"

namespace zerbal::test {

Row AirportRow(std::string code, std::string name, std::string city, double longitude, double latitude,
               Cell elevation, int runways, int longestRunway, Cell ils) {
  return {std::move(code),
          std::move(name),
          std::move(city),
          static_cast<float>(longitude + 180),
          static_cast<float>(90 - latitude),
          std::move(elevation),
          runways,
          longestRunway,
          std::move(ils)};
}

Row FlightRow(Cell service, std::string number, std::string key, std::string origin, std::vector<Cell> stops,
              std::string destination) {
  constexpr std::size_t kStops = 10;
  if (stops.size() > kStops)
    throw std::logic_error("flight " + number + " has more than ten stops");
  stops.resize(kStops, Null());
  Row row = {std::move(service), std::move(number), std::move(key), std::move(origin),
             std::move(destination)};
  row.insert(row.end(), stops.begin(), stops.end());
  return row;
}

Table ColourTable() {
  return {"col",
          {Text("Col", 10), Text("Col_Name", 40), Byte("Col_R"), Byte("Col_G"), Byte("Col_B"),
           Text("Col_Entry", 30)},
          {Unique("colcode", "Col")},
          {}};
}

Table FontTable() {
  return {"fon",
          {Text("Fon", 10), Text("Fon_Name", 50), Integer("Fon_Size"), Text("Fon_Entry", 30)},
          {Unique("foncode", "Fon")},
          {}};
}

Table RegionTable() {
  return {"reg",
          {Text("Reg", 6), Integer("Reg_Sort"), Text("Reg_Name", 50), Double("Reg_FromLon"),
           Double("Reg_FromLat"), Double("Reg_ToLon"), Double("Reg_ToLat")},
          {Index("sort", "Reg_Sort"), Unique("code", "Reg")},
          {}};
}

Table ServiceTable() {
  return {"fsrv",
          {Text("FSrv", 10), Text("FSrv_Name", 40), Text("FSrv_LiNr", 4), Byte("FSrv_R"), Byte("FSrv_G"),
           Byte("FSrv_B"), Integer("FSrv_Sort")},
          {Index("sort", "FSrv_Sort")},
          {}};
}

namespace {

std::vector<jet::ColumnInfo> AirportColumns() {
  return {Text("AP", 4),   Text("AP_Name", 60), Text("AP_City", 40), Single("AP_Lon"), Single("AP_Lat"),
          Long("AP_Elev"), Long("AP_RwyNr"),    Long("AP_RwyMaxL"),  Text("AP_ILS", 1)};
}

}  // namespace

Table DestinationTable() {
  return {"dest", AirportColumns(), {Index("aprt", "AP")}, {}};
}

Table AllAirportsTable() {
  return {"allaprt", AirportColumns(), {Primary("aprt", "AP")}, {}};
}

Table FlightTable() {
  Table table{"flit",
              {Text("Flit_FSrv", 10), Text("Flit", 12), Text("Flit_2015", 12), Text("Flit_Dep", 4),
               Text("Flit_Arr", 4)},
              {Index("fsrv", "Flit_FSrv"), Unique("flituni", "Flit_2015")},
              {}};
  for (int stop = 1; stop <= 10; ++stop)
    table.columns.push_back(Text("Flit_Stop" + std::to_string(stop), 4));
  return table;
}

SmallWorld::SmallWorld() {
  AddReferenceRows(col, fon, reg, fsrv);
  AddAirportRows(dest, allaprt);
  AddFlightRows(flit);
  coast = CoastTables();
  river = RiverTables();
  ibound = BoundaryTables();
}

void SmallWorld::LeaveOut(const std::string& file) {
  const auto named = [&file](const std::filesystem::path& path) { return path.filename() == file; };
  if (std::ranges::none_of(kDatabaseFiles, named))
    throw std::logic_error("the world has no file " + file);
  missing_.insert(file);
}

Table& SmallWorld::TableOf(std::string_view name) {
  for (Table* table : {&col, &fon, &reg, &fsrv, &dest, &flit, &allaprt}) {
    if (table->name == name)
      return *table;
  }
  throw std::logic_error("the world has no table " + std::string(name));
}

Table& SmallWorld::MapTableOf(std::vector<Table>& tables, std::string_view name) {
  const auto table = std::ranges::find(tables, name, &Table::name);
  if (table == tables.end())
    throw std::logic_error("no map table " + std::string(name));
  return *table;
}

void SmallWorld::WriteFile(const std::filesystem::path& file, const std::vector<Table>& tables) const {
  if (missing_.contains(file.filename().string()))
    std::filesystem::remove(file);
  else
    WriteDatabase(file, tables);
}

void SmallWorld::Write(const std::filesystem::path& folder) const {
  const std::array<std::vector<Table>, kDatabaseFiles.size()> contents = {
      {{col, fon, reg}, {fsrv, dest, flit}, {allaprt}, coast, river, ibound}};
  for (std::size_t i = 0; i < contents.size(); ++i) {
    const std::filesystem::path file = folder / kDatabaseFiles[i];
    std::filesystem::create_directories(file.parent_path());
    WriteFile(file, contents[i]);
  }
}

}  // namespace zerbal::test
