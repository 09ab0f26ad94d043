#include "zerbal-pack/layout.h"

#include <cassert>
#include <cstdlib>
#include <limits>
#include <utility>

#include <fmt/format.h>

#include "data/error.h"
#include "data/flight.h"

namespace zerbal::pack {

namespace {

using jet::ColumnType;

constexpr int kCodeLength = 20;  // characters, as all lengths of texts
constexpr int kIataLength = 3;
constexpr int kEntryLength = 50;
constexpr int kNameLength = 255;

ColumnLayout Text(std::string field, std::string title, ColumnUse use, int length) {
  ColumnLayout column;
  column.field = {.name = std::move(field), .type = ColumnType::kText, .length = length, .compressed = true};
  column.title = std::move(title);
  column.use = use;
  column.optional = use == ColumnUse::kStop || use == ColumnUse::kCode;
  return column;
}

ColumnLayout Number(std::string field, std::string title, ColumnUse use, ColumnType type, int size,
                    std::int64_t least = 0, std::int64_t most = 0) {
  ColumnLayout column;
  column.field = {.name = std::move(field), .type = type, .length = size, .fixed = true};
  column.title = std::move(title);
  column.use = use;
  column.optional = use == ColumnUse::kSort;
  column.least = least;
  column.most = most;
  return column;
}

/// For fields that the program does not read: they order the rows or inform a reader of the table.
ColumnLayout NotRead(ColumnLayout column) {
  column.read = false;
  return column;
}

ColumnLayout SettingsKey(ColumnLayout column) {
  column.settingsKey = true;
  return column;
}

ColumnLayout Component(std::string field, std::string title) {
  return Number(std::move(field), std::move(title), ColumnUse::kWhole, ColumnType::kByte, 1, 0, 255);
}

ColumnLayout Long(std::string field, std::string title, std::int64_t least) {
  return Number(std::move(field), std::move(title), ColumnUse::kWhole, ColumnType::kLong, 4, least,
                std::numeric_limits<std::int32_t>::max());
}

ColumnLayout Sort(std::string field) {
  return NotRead(Number(std::move(field), "Sort", ColumnUse::kSort, ColumnType::kLong, 4,
                        std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

ColumnLayout NotStored(ColumnLayout column) {
  column.read = false;
  column.stored = false;
  return column;
}

jet::IndexInfo Unique(std::string name, std::string field) {
  return {.name = std::move(name),
          .columns = {{.name = std::move(field), .ascending = true}},
          .unique = true,
          .primary = true,
          .required = true};
}

jet::IndexInfo Ordering(std::string name, std::string field) {
  return {.name = std::move(name), .columns = {{.name = std::move(field), .ascending = true}}};
}

TableLayout Airports(std::string name, std::string rowName) {
  TableLayout table;
  table.name = std::move(name);
  table.rowName = std::move(rowName);
  table.columns = {
      Text("AP", "Code", ColumnUse::kKey, kCodeLength),
      Text("AP_Name", "Name", ColumnUse::kText, kNameLength),
      Text("AP_City", "City", ColumnUse::kText, kNameLength),
      Number("AP_Lon", "Longitude", ColumnUse::kLongitude, ColumnType::kSingle, 4),
      Number("AP_Lat", "Latitude", ColumnUse::kLatitude, ColumnType::kSingle, 4),
      Long("AP_Elev", "Elevation", std::numeric_limits<std::int32_t>::min()),
      Long("AP_RwyNr", "Runways", 0),
      Long("AP_RwyMaxL", "Longest runway", 0),
      Text("AP_ILS", "ILS", ColumnUse::kFlag, 1),
      NotStored(Text("AP_IATA", "IATA", ColumnUse::kCode, kIataLength)),
  };
  table.indexes = {Unique("aprt", "AP")};
  return table;
}

TableLayout Colours() {
  return {.name = "col",
          .rowName = "colour",
          .columns = {NotRead(Text("Col", "Code", ColumnUse::kKey, kCodeLength)),
                      NotRead(Text("Col_Name", "Name", ColumnUse::kText, kNameLength)),
                      Component("Col_R", "Red"), Component("Col_G", "Green"), Component("Col_B", "Blue"),
                      SettingsKey(Text("Col_Entry", "Entry", ColumnUse::kRequiredText, kEntryLength))},
          .indexes = {Unique("colcode", "Col")}};
}

TableLayout Fonts() {
  // The program replaces sizes outside 6 to 14 points by its own.
  return {.name = "fon",
          .rowName = "font",
          .columns = {NotRead(Text("Fon", "Code", ColumnUse::kKey, kCodeLength)),
                      Text("Fon_Name", "Font", ColumnUse::kRequiredText, kNameLength),
                      Number("Fon_Size", "Size", ColumnUse::kWhole, ColumnType::kInteger, 2, 6, 14),
                      SettingsKey(Text("Fon_Entry", "Entry", ColumnUse::kRequiredText, kEntryLength))},
          .indexes = {Unique("foncode", "Fon")}};
}

TableLayout Regions() {
  return {.name = "reg",
          .rowName = "region",
          .columns = {Text("Reg", "Region", ColumnUse::kKey, kCodeLength), Sort("Reg_Sort"),
                      Text("Reg_Name", "Name", ColumnUse::kRequiredText, kNameLength),
                      Number("Reg_FromLon", "West", ColumnUse::kLongitude, ColumnType::kDouble, 8),
                      Number("Reg_FromLat", "North", ColumnUse::kLatitude, ColumnType::kDouble, 8),
                      Number("Reg_ToLon", "East", ColumnUse::kLongitude, ColumnType::kDouble, 8),
                      Number("Reg_ToLat", "South", ColumnUse::kLatitude, ColumnType::kDouble, 8)},
          .indexes = {Unique("code", "Reg"), Ordering("sort", "Reg_Sort")}};
}

TableLayout Services() {
  return {.name = "fsrv",
          .rowName = "flight service",
          .columns = {SettingsKey(Text("FSrv", "Service", ColumnUse::kKey, kCodeLength)), Sort("FSrv_Sort"),
                      Text("FSrv_LiNr", "Line", ColumnUse::kText, kCodeLength),
                      Text("FSrv_Name", "Name", ColumnUse::kRequiredText, kNameLength),
                      Component("FSrv_R", "Red"), Component("FSrv_G", "Green"), Component("FSrv_B", "Blue")},
          .indexes = {Unique("code", "FSrv"), Ordering("sort", "FSrv_Sort")}};
}

TableLayout Flights() {
  TableLayout table;
  table.name = "flit";
  table.rowName = "flight";
  table.columns = {Text("Flit_FSrv", "Service", ColumnUse::kReference, kCodeLength),
                   Text("Flit", "Flight", ColumnUse::kRequiredText, kCodeLength),
                   Text("Flit_2015", "Key", ColumnUse::kKey, kEntryLength),
                   Text("Flit_Dep", "From", ColumnUse::kReference, kCodeLength)};
  for (int stop = 1; stop <= data::kMaxStopovers; ++stop) {
    const std::string number = std::to_string(stop);
    table.columns.push_back(Text(std::string("Flit_Stop").append(number), std::string("Stop ").append(number),
                                 ColumnUse::kStop, kCodeLength));
  }
  table.columns.push_back(Text("Flit_Arr", "To", ColumnUse::kReference, kCodeLength));
  // Flights of one service follow each other in stored order, which is the order of the CSV file.
  table.indexes = {Unique("flituni", "Flit_2015"), Ordering("fsrv", "Flit_FSrv")};
  return table;
}

}  // namespace

std::size_t TableLayout::ColumnIndex(std::string_view field) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].field.name == field)
      return i;
  }
  assert(false);
  std::abort();
}

jet::TableSpec TableLayout::Spec() const {
  jet::TableSpec spec{.name = name, .columns = {}, .indexes = indexes};
  for (const ColumnLayout& column : columns) {
    if (column.stored)
      spec.columns.push_back(column.field);
  }
  return spec;
}

std::optional<std::string> CountFault(const TableLayout& layout, std::size_t rows) {
  if (rows == 0)
    return fmt::format("there is no {}; the program needs at least one", layout.rowName);
  if (rows > std::size_t{data::kLargestCount})
    return fmt::format("there are {} {}s; the program counts up to {}", rows, layout.rowName,
                       data::kLargestCount);
  return std::nullopt;
}

bool CanBeSettingsKey(std::string_view key) {
  return !key.empty() && key.find_first_of("=\r\n") == std::string_view::npos && !key.starts_with('[') &&
         !key.starts_with(';');
}

const TableLayout& ColourLayout() {
  static const TableLayout kTable = Colours();
  return kTable;
}

const TableLayout& FontLayout() {
  static const TableLayout kTable = Fonts();
  return kTable;
}

const TableLayout& RegionLayout() {
  static const TableLayout kTable = Regions();
  return kTable;
}

const TableLayout& ServiceLayout() {
  static const TableLayout kTable = Services();
  return kTable;
}

const TableLayout& DestinationLayout() {
  static const TableLayout kTable = Airports("dest", "destination");
  return kTable;
}

const TableLayout& FlightLayout() {
  static const TableLayout kTable = Flights();
  return kTable;
}

const TableLayout& AirportLayout() {
  static const TableLayout kTable = Airports("allaprt", "airport");
  return kTable;
}

}  // namespace zerbal::pack
