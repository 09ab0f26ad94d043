#include "map/map_world.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <utility>

#include "data/flight.h"
#include "map/views.h"

namespace zerbal::map {

namespace {

void WriteLines(const std::filesystem::path& file, const std::map<std::string, Rows>& lines) {
  std::vector<test::Table> lineTables;
  for (const auto& [name, rows] : lines) {
    std::vector<test::Point> points;
    for (const data::StoredPoint& row : rows)
      points.push_back({row.lon, row.lat});
    lineTables.push_back(test::MapTable(name, points));
  }
  test::WriteDatabase(file, lineTables);
}

std::string Bytes(float value) {
  std::string bytes(sizeof value, ' ');
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}

/// One pass that looks up only bytes that may be a placeholder, because the fuzzer has many of them in large
/// files.
void Exchange(const std::filesystem::path& file, const std::vector<std::pair<float, float>>& singles) {
  std::map<std::uint32_t, std::string> exchanged;
  for (const auto& [from, to] : singles)
    exchanged.emplace(std::bit_cast<std::uint32_t>(from), Bytes(to));
  const std::uint32_t least = exchanged.begin()->first;
  const std::uint32_t span = exchanged.rbegin()->first - least;
  std::string bytes = test::ReadBytes(file);
  for (std::size_t at = 0; at + sizeof(float) <= bytes.size(); ++at) {
    std::uint32_t stored = 0;
    std::memcpy(&stored, bytes.data() + at, sizeof stored);
    if (stored - least > span)
      continue;
    if (const auto found = exchanged.find(stored); found != exchanged.end())
      bytes.replace(at, sizeof stored, found->second);
  }
  test::WriteBytes(file, bytes);
}

std::string ShortOf(const Operation& operation) {
  const auto point = [](TwipPoint at) { return std::to_string(at.x) + "," + std::to_string(at.y); };
  switch (operation.kind) {
    case Operation::Kind::kClear:
      return "clear";
    case Operation::Kind::kLine:
      return point(operation.from) + "-" + point(operation.to);
    case Operation::Kind::kRectangle:
      return "rect " + point(operation.from) + "-" + point(operation.to);
    case Operation::Kind::kCircle:
      return "o " + point(operation.from);
    case Operation::Kind::kText:
      break;
  }
  return operation.text + "@" + point(operation.from);
}

}  // namespace

data::StoredPoint At(double lon, double lat) {
  return {static_cast<std::int32_t>(std::lround(lon * 1e6)),
          static_cast<std::int32_t>(std::lround(lat * 1e6))};
}

AirportRow Airport(std::string code, float lon, float lat) {
  AirportRow row;
  row.code = std::move(code);
  row.lon = lon;
  row.lat = lat;
  return row;
}

FlightRow Flight(std::string key, std::string service, std::vector<std::string> route) {
  FlightRow row;
  row.number = key;
  row.key = std::move(key);
  row.service = std::move(service);
  row.origin = route.front();
  row.destination = route.back();
  row.stops.assign(route.begin() + 1, route.end() - 1);
  return row;
}

MapWorld::MapWorld() {
  for (std::size_t i = 0; i < style.colours.rows.size(); ++i)
    style.colours.rows[i].rgb = ColourOf(static_cast<data::ColourCode>(i));
  style.fonts[data::FontCode::kLoRes] = {"Small", 7, "LoRes"};
  style.fonts[data::FontCode::kHiRes] = {"Large", 10, "HiRes"};
  options.flightAirports = false;
  options.flightNumbers = false;
  Show(100, 40, 160, 70);
}

void MapWorld::Show(float west, float top, float east, float bottom) {
  ShowExactly(viewport, west, top, east, bottom);
}

void MapWorld::AddService(std::string key, data::Rgb colour, bool shown) {
  data::FlightService service;
  service.key = std::move(key);
  service.displayFlag = shown;
  service.rgb = colour;
  services.push_back(std::move(service));
}

test::Table MapWorld::AirportTable(const char* name, const std::vector<AirportRow>& rows) const {
  test::Table table{name,
                    {test::Text("AP", 10), test::Text("AP_Name"), test::Text("AP_City"),
                     test::Single("AP_Lon"), test::Single("AP_Lat"), test::Long("AP_Elev"),
                     test::Long("AP_RwyNr"), test::Long("AP_RwyMaxL"), test::Text("AP_ILS")},
                    {test::Index("aprt", "AP")},
                    {}};
  for (const jet::ColumnInfo& column : airportColumns)
    table.columns.at(static_cast<std::size_t>(table.ColumnIndex(column.name))) = column;
  for (const AirportRow& row : rows)
    table.rows.push_back({row.code, row.name, row.city, row.lon, row.lat, row.elevation, row.runways,
                          row.longestRunway, row.ils});
  return table;
}

test::Table MapWorld::FlightTable() const {
  test::Table table{"flit",
                    {test::Text("Flit_2015", 20), test::Text("Flit_FSrv", 20), test::Text("Flit", 20),
                     test::Text("Flit_Dep", 10), test::Text("Flit_Arr", 10)},
                    {test::Index("fsrv", "Flit_FSrv"), test::Index("flituni", "Flit_2015")},
                    {}};
  for (int stop = 1; stop <= data::kMaxStopovers; ++stop)
    table.columns.push_back(test::Text("Flit_Stop" + std::to_string(stop), 10));
  for (const FlightRow& flight : flit) {
    test::Row row{flight.key, flight.service, flight.number, flight.origin, flight.destination};
    row.insert(row.end(), flight.stops.begin(), flight.stops.end());
    row.resize(table.columns.size(), test::Null());
    table.rows.push_back(std::move(row));
  }
  return table;
}

data::DataFiles MapWorld::WriteAll() {
  data::DataFiles files;
  files.qavdata = folder_ / "qavdata.mdb";
  files.allaprt = folder_ / "allaprt.mdb";
  files.coast = folder_ / "coast.mdb";
  test::WriteDatabase(files.qavdata,
                      {test::Table{"fsrv", {test::Text("FSrv")}, {test::Index("sort", "FSrv")}, {}},
                       AirportTable("dest", dest), FlightTable()});
  test::WriteDatabase(files.allaprt, {AirportTable("allaprt", allaprt)});
  if (!storedSingles.empty())
    ChangeStored(storedSingles);
  WriteLines(files.coast, coast);
  if (river) {
    files.river = folder_ / "river.mdb";
    WriteLines(*files.river, *river);
  }
  if (ibound) {
    files.ibound = folder_ / "ibound.mdb";
    WriteLines(*files.ibound, *ibound);
  }
  return files;
}

void MapWorld::ChangeStored(const std::vector<std::pair<float, float>>& singles) {
  Exchange(folder_ / "qavdata.mdb", singles);
  Exchange(folder_ / "allaprt.mdb", singles);
}

data::Databases& MapWorld::Databases() {
  if (!databases_)
    databases_.emplace(data::OpenDatabases(WriteAll()));
  return *databases_;
}

MapScene MapWorld::Scene() {
  return {viewport, options, style, services, Databases(), allAirportCriteria, destinationCriteria, flights};
}

void MapWorld::DrawOn(Surface& surface) {
  DrawMap(Scene(), surface);
}

std::vector<Operation> MapWorld::Draw() {
  Recorder recorder;
  DrawOn(recorder);
  return recorder.Operations();
}

std::vector<Operation> MapWorld::Draw(Layer layer) {
  std::vector<Operation> operations = Draw();
  std::erase_if(operations, [&](const Operation& operation) { return operation.layer != layer; });
  return operations;
}

Operation LineOp(Layer layer, TwipPoint from, TwipPoint to, data::Rgb colour, int width) {
  return {.kind = Operation::Kind::kLine,
          .layer = layer,
          .from = from,
          .to = to,
          .pen = {.colour = colour, .width = width}};
}

Operation CircleOp(Layer layer, TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) {
  return {.kind = Operation::Kind::kCircle,
          .layer = layer,
          .from = centre,
          .radius = radius,
          .fill = fill,
          .pen = {.colour = colour}};
}

Operation TextOp(Layer layer, TwipPoint topLeft, std::string text, data::Rgb colour, TextFont font) {
  return {.kind = Operation::Kind::kText,
          .layer = layer,
          .from = topLeft,
          .pen = {.colour = colour},
          .text = std::move(text),
          .font = std::move(font)};
}

Strings Short(const std::vector<Operation>& operations) {
  Strings result;
  for (const Operation& operation : operations)
    result.push_back(ShortOf(operation));
  return result;
}

Strings Texts(const std::vector<Operation>& operations) {
  Strings result;
  for (const Operation& operation : operations)
    if (operation.kind == Operation::Kind::kText)
      result.push_back(operation.text);
  return result;
}

void PrintTo(const Operation& operation, std::ostream* out) {
  const data::Rgb& colour = operation.pen.colour;
  *out << ShortOf(operation) << " layer " << static_cast<int>(operation.layer) << " colour "
       << int{colour.red} << ' ' << int{colour.green} << ' ' << int{colour.blue} << " width "
       << operation.pen.width << " radius " << operation.radius << (operation.fill ? " filled" : "")
       << " font " << operation.font.name << ' ' << operation.font.size;
}

}  // namespace zerbal::map
