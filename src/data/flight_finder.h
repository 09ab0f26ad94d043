// What the three flight finding dialogs remember until the program ends.
#pragma once

#include <string>
#include <vector>

#include "settings/ini_values.h"

namespace zerbal::data {

enum class HowMany { kOneFlight, kRoundTrip };

/// One drawn flight with both of its list lines.
struct DrawnFlight {
  std::string key;
  std::string line;            ///< without city names for stopovers
  std::string lineWithCities;  ///< with them
};

struct FlightFinderState {
  int chosenService = 0;  ///< list position of the flight selection: 0 all services, n the n-th
  int chosenAirport = 0;  ///< list position of the airport search
  // Types of airport that the search looks at, from section "Program" of the settings.
  bool searchOrigin = true;
  bool searchStopovers = true;
  bool searchDestination = true;
  // Random flights. Setting "RandomFlitHowMany", changed by each draw.
  HowMany howMany = HowMany::kRoundTrip;
  int drawnService = 0;  ///< 1-based; 0 before any draw
  std::vector<DrawnFlight> drawnFlights;
};

/// Section "Program". A value that cannot be read or is not allowed gives the default; missing keys are
/// written with it.
void ReadFlightFinderSettings(settings::IniFile& ini, FlightFinderState& finder);

}  // namespace zerbal::data
