// What the three flight finding dialogs remember until the program ends.
#pragma once

#include <string>
#include <vector>

#include "settings/ini_file.h"

namespace zerbal::data {

/// The values of settings::kRandomFlights.
enum class HowMany { kOneFlight = 1, kRoundTrip = 2 };

/// One drawn flight with both of its list lines.
struct DrawnFlight {
  std::string key;
  std::string line;            ///< without city names for stopovers
  std::string lineWithCities;  ///< with them
};

struct FlightFinderState {
  int chosenService = 0;  ///< list position of the flight selection: 0 all services, n the n-th
  int chosenAirport = 0;  ///< list position of the airport search
  // Types of airport that the search looks at.
  bool searchOrigin = settings::kSearchOrigin.byDefault;
  bool searchStopovers = settings::kSearchStopovers.byDefault;
  bool searchDestination = settings::kSearchDestination.byDefault;
  // Random flights.
  HowMany howMany = HowMany::kRoundTrip;
  int drawnService = 0;  ///< 1-based; 0 before any draw
  std::vector<DrawnFlight> drawnFlights;
};

/// Reads the settings of the flight finding dialogs. Goes on after a failed write.
inline void ReadFlightFinderSettings(settings::IniFile& ini, FlightFinderState& finder) {
  using settings::kRandomFlights;
  finder.howMany = static_cast<HowMany>(ini.Read(kRandomFlights).value_or(kRandomFlights.byDefault));
  finder.searchOrigin = ini.Read(settings::kSearchOrigin);
  finder.searchStopovers = ini.Read(settings::kSearchStopovers);
  finder.searchDestination = ini.Read(settings::kSearchDestination);
}

}  // namespace zerbal::data
