// What the three flight finding dialogs remember for the rest of the run.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zerbal::data {

enum class HowMany : std::int16_t { kOneFlight = 1, kRoundTrip = 2 };

/// One drawn flight with both of its list lines.
struct DrawnFlight {
  std::string key;             ///< Flit_2015
  std::string line;            ///< without city names for stopovers
  std::string lineWithCities;  ///< with them
};

struct FlightFinderState {
  std::int16_t chosenService = 0;  ///< list position of the flight selection: 0 all services, n the n-th
  std::int16_t chosenAirport = 0;  ///< list position of the airport search
  // Types of airport that the search looks at, from section "Program" of the settings.
  bool searchOrigin = true;
  bool searchStopovers = true;
  bool searchDestination = true;
  // Random flights. Setting "RandomFlitHowMany", changed by each draw.
  HowMany howMany = HowMany::kRoundTrip;
  std::int16_t drawnService = 0;  ///< 1-based; 0 before any draw
  std::vector<DrawnFlight> drawnFlights;
};

}  // namespace zerbal::data
