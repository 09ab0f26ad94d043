// The flight services of the airline, each with a colour of its own.
#pragma once

#include <string>
#include <vector>

#include "data/rgb.h"

namespace zerbal::data {

struct FlightService {
  std::string key;          ///< as in Flight::service
  std::string displayText;  ///< line number, " - ", name
  bool displayFlag = false;
  Rgb rgb;
  bool randomPick = true;  ///< offered for random flights
};

/// In display order. Keys are not unique.
using FlightServiceTable = std::vector<FlightService>;

}  // namespace zerbal::data
