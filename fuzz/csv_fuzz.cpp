// Planners' CSV files of any bytes: what was read can be written and then reads the same, and every table
// that is made of it holds only values that fit.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "zerbal-pack/airline.h"
#include "zerbal-pack/csv.h"
#include "zerbal-pack/csv_table.h"
#include "zerbal-pack/csv_value.h"

namespace {

using namespace zerbal;

void Require(bool condition, const char* what) {
  if (condition)
    return;
  std::fprintf(stderr, "broken: %s\n", what);
  std::abort();
}

std::string Written(const std::vector<pack::CsvField>& fields) {
  std::string text;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0)
      text += ',';
    if (fields[i].quoted)
      pack::AppendCsvText(fields[i].text, text);
    else
      text += fields[i].text;
  }
  text += pack::kCsvLineEnd;
  return text;
}

void CheckRecords(std::string_view text) {
  pack::CsvReader reader(text);
  std::size_t line = 0;
  for (pack::CsvRecord record; reader.Next(record);) {
    Require(record.line > line, "lines do not grow");
    line = record.line;
    if (record.fault) {
      Require(record.fault->line >= record.line, "a fault before its record");
      Require(record.fault->field == record.fields.size(), "a fault in no field");
      continue;
    }
    const std::string written = "x\n" + Written(record.fields);
    pack::CsvReader again(written);
    pack::CsvRecord copy;
    Require(again.Next(copy) && again.Next(copy) && !copy.fault, "a written record cannot be read");
    Require(copy.fields.size() == record.fields.size(), "the number of fields");
    for (std::size_t i = 0; i < copy.fields.size(); ++i) {
      Require(copy.fields[i].text == record.fields[i].text, "a field reads differently");
      Require(copy.fields[i].quoted == record.fields[i].quoted, "Null and the empty text are mixed up");
    }
    Require(!again.Next(copy), "more than one record");
  }
}

void CheckValue(const jet::Value& value, const pack::ColumnLayout& column) {
  if (const auto* text = std::get_if<std::string>(&value))
    Require(pack::CharacterCount(*text) <= static_cast<std::size_t>(column.field.length), "a text too long");
  if (const auto* whole = std::get_if<std::int32_t>(&value))
    Require(*whole >= column.least && *whole <= column.most, "a whole number that does not fit");
  const double most = column.use == pack::ColumnUse::kLongitude ? 360 : 180;
  if (const auto* degrees = std::get_if<float>(&value))
    Require(*degrees >= 0 && *degrees <= most, "a position outside the map frame");
  if (const auto* degrees = std::get_if<double>(&value))
    Require(*degrees >= 0 && *degrees <= most, "a bound outside the map frame");
}

void CheckTable(std::string_view text, const pack::TableLayout& layout) {
  pack::Problems problems;
  const pack::CsvTable table = pack::ParseCsvTable(text, "fuzz.csv", layout, problems);
  Require(table.headerRead || table.rows.empty(), "rows without a header");
  Require(table.headerRead || !problems.Empty(), "no header and nothing said");
  for (const pack::CsvRow& row : table.rows) {
    Require(row.values.size() == layout.columns.size(), "a row of another length");
    for (std::size_t i = 0; i < row.values.size(); ++i)
      CheckValue(row.values[i], layout.columns[i]);
  }
}

void CheckSchedule(std::string_view text) {
  pack::Problems problems;
  pack::Schedule schedule;
  schedule.services = pack::ParseCsvTable(text, "s", pack::ServiceLayout(), problems);
  schedule.destinations = pack::ParseCsvTable(text, "d", pack::DestinationLayout(), problems);
  schedule.flights = pack::ParseCsvTable(text, "f", pack::FlightLayout(), problems);
  pack::CheckSchedule(schedule, problems);
  Require(!problems.Empty(), "one text cannot be three tables");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CheckRecords(text);
  CheckTable(text, pack::AirportLayout());
  CheckTable(text, pack::RegionLayout());
  CheckTable(text, pack::FlightLayout());
  CheckSchedule(text);
  return 0;
}
