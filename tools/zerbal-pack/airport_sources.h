// Airports from the lists that there are.
#pragma once

#include <filesystem>
#include <map>
#include <string>

#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/problems.h"

namespace zerbal::pack {

struct AirportSource {
  /// Our own CSV file, airports.csv of OurAirports, or airports.dat of OpenFlights; the file's first record
  /// tells which. A folder stands for the file airports.csv in it.
  std::filesystem::path airports;
  /// runways.csv of OurAirports. Empty: the file beside `airports` whose name has "runways" in place of
  /// "airports", if there is one.
  std::filesystem::path runways;
};

struct AirportList {
  AirportTable table;
  std::map<std::string, AirportIndex, std::less<>> ids;  ///< of OpenFlights, as texts
};

/// Rows that cannot be used are reported as errors and left out.
AirportList ReadAirportList(const AirportSource& source, Problems& problems);

/// Whether the file is a list of airports of OpenFlights.
bool IsOpenFlightsAirports(const std::filesystem::path& file);

}  // namespace zerbal::pack
