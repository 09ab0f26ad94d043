// Fuzz target: CSV files of any bytes. A record that was read can be written and read again with the same
// result, and every table made of a file has only values within the limits of its columns.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "require.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/csv.h"
#include "zerbal-pack/csv_table.h"
#include "zerbal-pack/csv_value.h"

namespace {

using namespace zerbal;
using fuzz::Require;

std::string ToCsv(const std::vector<pack::CsvField>& fields) {
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
    Require(record.line > line, "line numbers do not increase");
    line = record.line;
    if (record.fault) {
      Require(record.fault->line >= record.line, "the error is before its record");
      Require(record.fault->field == record.fields.size(), "the error is not in the last field");
      continue;
    }
    const std::string written = "x\n" + ToCsv(record.fields);
    pack::CsvReader again(written);
    pack::CsvRecord copy;
    Require(again.Next(copy) && again.Next(copy) && !copy.fault, "a written record is not readable");
    Require(copy.fields.size() == record.fields.size(), "the number of fields differs");
    for (std::size_t i = 0; i < copy.fields.size(); ++i) {
      Require(copy.fields[i].text == record.fields[i].text, "a written field differs");
      Require(copy.fields[i].quoted == record.fields[i].quoted, "Null and the empty text are confused");
    }
    Require(!again.Next(copy), "one record became several");
  }
}

void CheckValue(const jet::Value& value, const pack::ColumnLayout& column) {
  if (const auto* text = std::get_if<std::string>(&value))
    Require(pack::CharacterCount(*text) <= static_cast<std::size_t>(column.field.length),
            "a text is too long");
  if (const auto* whole = std::get_if<std::int32_t>(&value))
    Require(*whole >= column.least && *whole <= column.most, "a whole number is out of range");
  const double most = column.use == pack::ColumnUse::kLongitude ? 360 : 180;
  if (const auto* degrees = std::get_if<float>(&value))
    Require(*degrees >= 0 && *degrees <= most, "a position is outside of the map frame");
  if (const auto* degrees = std::get_if<double>(&value))
    Require(*degrees >= 0 && *degrees <= most, "a bound is outside of the map frame");
}

void CheckTable(std::string_view text, const pack::TableLayout& layout) {
  pack::Problems problems;
  const pack::CsvTable table = pack::ParseCsvTable(text, "fuzz.csv", layout, problems);
  Require(table.headerRead || table.rows.empty(), "rows without a header");
  Require(table.headerRead || !problems.Empty(), "a missing header is not reported");
  for (const pack::CsvRow& row : table.rows) {
    Require(row.values.size() == layout.columns.size(), "a row has another number of values");
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
  Require(!problems.Empty(), "one text is three tables");
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
