// Which flights the map shows.
#pragma once

#include <string>
#include <vector>

namespace zerbal::data {

/// Either every flight of the services whose display flag is set, or the selected flights.
struct FlightSelection {
  bool serviceMode = true;
  std::vector<std::string> selectedFlights;  ///< flight keys, in the order in which they are drawn
};

}  // namespace zerbal::data
