// Reads the routes of OpenFlights.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "zerbal-pack/airport_sources.h"
#include "zerbal-pack/left_out.h"
#include "zerbal-pack/problems.h"

namespace zerbal::pack {

/// From one airport to another; the way back is another route.
struct OpenFlightsRoute {
  std::size_t line = 0;
  std::string airline;
  AirportIndex departure = 0;
  AirportIndex arrival = 0;
  bool codeshare = false;  ///< flown by another airline
  int stops = 0;           ///< nobody knows where
  std::string equipment;   ///< aircraft types with a blank between; may be empty
};

struct OpenFlightsRoutes {
  std::vector<OpenFlightsRoute> routes;  ///< in the order of the file
  std::vector<LeftOut> leftOut;
};

/// Airports are found by their codes, else by their ids.
OpenFlightsRoutes ReadOpenFlightsRoutes(const std::filesystem::path& file, const AirportList& airports,
                                        Problems& problems);

/// The same from a text in memory; `name` is for messages.
OpenFlightsRoutes ParseOpenFlightsRoutes(std::string bytes, std::string name, const AirportList& airports,
                                         Problems& problems);

}  // namespace zerbal::pack
