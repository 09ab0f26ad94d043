// Fuzz target: spreadsheets of any bytes, as tables, as flights of phpVMS and as routes of OpenFlights. A
// text gives the same table in UTF-8 and UTF-16.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/utf8.h"
#include "require.h"
#include "support/utf16_text.h"
#include "zerbal-pack/airport_sources.h"
#include "zerbal-pack/csv_table.h"
#include "zerbal-pack/openflights_routes.h"
#include "zerbal-pack/phpvms_reader.h"
#include "zerbal-pack/spreadsheet.h"

namespace {

using namespace zerbal;
using fuzz::Require;

pack::AirportList LetterList() {
  pack::AirportList list;
  for (char c = 'A'; c <= 'Z'; ++c) {
    pack::Airport airport;
    airport.iata = std::string(3, c);
    airport.code = "E" + airport.iata;
    list.ids[std::to_string(c)] = static_cast<pack::AirportIndex>(list.table.Size());
    list.table.Add(airport);
  }
  return list;
}

void CheckEncodings(const std::string& bytes) {
  const pack::SpreadsheetText decoded = pack::DecodeSpreadsheet(bytes);
  const char separator = pack::FindSeparator(decoded.text);
  Require(separator == ',' || separator == ';' || separator == '\t', "an impossible separator");
  if (!base::IsUtf8(decoded.text))
    return;
  pack::Problems plain;
  const pack::CsvTable table =
      pack::ParseCsvTable("\xEF\xBB\xBF" + decoded.text, "f", pack::RegionLayout(), plain);
  for (const bool littleEndian : {true, false}) {
    const std::string utf16 = test::ToUtf16(decoded.text, littleEndian);
    Require(pack::DecodeSpreadsheet(utf16).text == decoded.text, "a text changes in UTF-16");
    pack::Problems problems;
    const pack::CsvTable same = pack::ParseCsvTable(utf16, "f", pack::RegionLayout(), problems);
    Require(same.rows.size() == table.rows.size(), "the number of rows differs");
    Require(problems.List().size() == plain.List().size(), "the number of problems differs");
    for (std::size_t i = 0; i < same.rows.size(); ++i)
      Require(same.rows[i].line == table.rows[i].line && same.rows[i].values == table.rows[i].values,
              "a row differs");
  }
}

void CheckPhpVms(const std::string& bytes, const pack::AirportList& airports) {
  pack::Problems problems;
  const pack::PhpVmsSchedule schedule = pack::ParsePhpVms(bytes, "f", airports.table, problems);
  std::size_t line = 0;
  for (const pack::PhpVmsFlight& flight : schedule.flights) {
    Require(flight.line > line, "flights are not in the order of the file");
    line = flight.line;
    Require(flight.route.size() >= 2 && flight.route.size() <= 12, "an impossible route");
    Require(flight.Name().size() <= 20, "a name is too long");
    Require(flight.operation.days != 0 && !flight.operation.period.Empty(), "a flight never leaves");
  }
  Require(schedule.leftOut.empty() || problems.HasErrors(), "rows are left out silently");
}

void CheckRoutes(const std::string& bytes, const pack::AirportList& airports) {
  pack::Problems problems;
  const pack::OpenFlightsRoutes routes = pack::ParseOpenFlightsRoutes(bytes, "f", airports, problems);
  for (const pack::OpenFlightsRoute& route : routes.routes)
    Require(route.departure != route.arrival && route.stops >= 0, "an impossible route");
  Require(routes.leftOut.empty() || problems.HasErrors(), "routes are left out silently");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const pack::AirportList kAirports = LetterList();
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  CheckEncodings(bytes);
  CheckPhpVms(bytes, kAirports);
  CheckRoutes(bytes, kAirports);
  return 0;
}
