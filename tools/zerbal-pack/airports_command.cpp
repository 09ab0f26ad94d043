#include "zerbal-pack/airports_command.h"

#include <optional>
#include <ostream>
#include <string>

#include <fmt/format.h>

#include "base/error.h"
#include "base/path_text.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/airport_csv.h"
#include "zerbal-pack/csv_file.h"
#include "zerbal-pack/write_tables.h"

namespace zerbal::pack {

AirportsOptions ToAirportsOptions(const AirportsWords& words) {
  AirportsOptions options;
  if (words.files.size() > 2)
    throw base::UsageError(fmt::format("'{}' is one argument too many", words.files[2]));
  options.source.airports = base::PathOf(words.files.front());
  if (words.files.size() == 2)
    options.source.runways = base::PathOf(words.files.back());
  options.out = base::PathOf(words.out);
  if (!words.minRunway.empty()) {
    const std::optional<int> feet = WholeNumber(words.minRunway);
    if (!feet || *feet < 0)
      throw base::UsageError(
          fmt::format("--min-runway: '{}' is not a whole number of feet", words.minRunway));
    options.leastRunway = *feet;
  }
  options.estimateIls = words.ils == "unknown=estimate";
  if (!words.ils.empty() && !options.estimateIls && words.ils != "unknown=no")
    throw base::UsageError(fmt::format("--ils '{}' is neither unknown=no nor unknown=estimate", words.ils));
  return options;
}

bool MakeAirports(const AirportsOptions& options, std::ostream& out, std::ostream& err) {
  Problems problems;
  const AirportList list = ReadAirportList(options.source, problems);
  std::string csv = AirportCsvHeader();
  for (std::size_t i = 0; i < list.table.Size(); ++i) {
    const Airport& airport = list.table[static_cast<AirportIndex>(i)];
    const bool ils = airport.ils.value_or(options.estimateIls && airport.likelyIls);
    if (airport.airfield && airport.longestRunway >= options.leastRunway)
      AppendAirportCsv(airport, airport.code, ils, csv);
  }
  const CsvTable airports = ParseCsvTable(csv, options.source.airports.string(), AirportLayout(), problems);
  problems.Print(err, true);
  if (const std::size_t errors = problems.Count(Severity::kError); errors > 0) {
    err << "zerbal-pack: " << errors << (errors == 1 ? " error" : " errors") << "; nothing was written\n";
    return false;
  }
  WriteAirports(options.out, airports);
  out << airports.rows.size() << (airports.rows.size() == 1 ? " airport\n" : " airports\n");
  return true;
}

}  // namespace zerbal::pack
