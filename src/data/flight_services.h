// The flight services of the airline, each with a colour of its own.
#pragma once

#include <string>
#include <vector>

#include "data/rgb.h"
#include "settings/ini_file.h"

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

/// settings::kFlightColours, by the keys of the services. A missing key is written with the colour of the
/// table. False when that fails.
bool ReadFlightColourSettings(settings::IniFile& ini, FlightServiceTable& services);
void WriteFlightColourSettings(settings::IniFile& ini, const FlightServiceTable& services);

}  // namespace zerbal::data
