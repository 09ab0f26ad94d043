// The flights of the schedule, their services, and which of them the map shows.
#pragma once

#include <string>
#include <vector>

#include "data/rgb.h"

namespace zerbal::data {

inline constexpr int kMaxStopovers = 10;

struct Flight {
  std::string key;      ///< unique in the schedule
  std::string service;  ///< key of its flight service
  std::string number;   ///< as lists and labels show it
  /// Airport codes: origin, stopovers up to the first that is Null or no text, destination.
  std::vector<std::string> route;

  const std::string& Origin() const { return route.front(); }
  const std::string& Destination() const { return route.back(); }
};

/// A group of flights with a colour of its own.
struct FlightService {
  std::string key;          ///< as in Flight::service
  std::string displayText;  ///< line number, " - ", name
  bool displayFlag = false;
  Rgb rgb;
  bool randomPick = true;  ///< offered for random flights
};

/// In display order. Keys are not unique.
using FlightServiceTable = std::vector<FlightService>;

/// Either every flight of the services whose display flag is set, or the selected flights.
struct FlightSelection {
  bool serviceMode = true;
  std::vector<std::string> selectedFlights;  ///< flight keys, in the order in which they are drawn
};

}  // namespace zerbal::data
