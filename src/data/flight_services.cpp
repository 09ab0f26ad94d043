#include "data/flight_services.h"

#include <algorithm>

#include "data/colours.h"

namespace zerbal::data {

bool ReadFlightColourSettings(settings::IniFile& ini, FlightServiceTable& services) {
  return std::all_of(services.begin(), services.end(), [&](FlightService& service) {
    return ReadColourSetting(ini, settings::kFlightColours, service.key, service.rgb);
  });
}

void WriteFlightColourSettings(settings::IniFile& ini, const FlightServiceTable& services) {
  for (const FlightService& service : services)
    WriteColourSetting(ini, settings::kFlightColours, service.key, service.rgb);
}

}  // namespace zerbal::data
