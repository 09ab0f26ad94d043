// The flight lists of the flight finding dialogs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/airports.h"
#include "data/flight.h"
#include "data/schedule.h"

namespace zerbal::data {

/// Flights as a list shows them: `keys[i]` is the key of the flight in `lines[i]`.
struct FlightList {
  std::vector<std::string> lines;
  std::vector<std::string> keys;
};

/// The roles of an airport that a search looks at.
struct AirportRoles {
  bool origin = true;
  bool stopover = true;
  bool destination = true;
};

/// What the lists are read from.
struct FlightSource {
  const Schedule& schedule;
  const Airports& destinations;
  const FlightServiceTable& services;
};

/// The line that shows a flight in every list: number, origin and destination with their cities where
/// they are among the destinations, and the stopovers, with their cities when `citiesForStopovers`.
std::string FlightLine(const Flight& flight, const Airports& destinations, bool citiesForStopovers);

/// All flights of service `position` (1-based), or of every service in table order when it is 0. Within a
/// service they come in the order of the schedule.
FlightList FlightsOfService(FlightSource source, int position, bool citiesForStopovers);

/// All flights of all services that touch the airport in one of the roles, each once. Throws OverflowError
/// beyond 32767 flights.
FlightList FlightsTouching(FlightSource source, std::string_view airport, AirportRoles roles,
                           bool citiesForStopovers);

}  // namespace zerbal::data
