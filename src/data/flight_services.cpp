#include "data/flight_services.h"

#include <algorithm>

#include "data/colours.h"

namespace zerbal::data {
namespace {

constexpr char kSection[] = "FlightColors";

}  // namespace

bool ReadFlightColourSettings(settings::IniFile& ini, FlightServiceTable& services) {
  return std::all_of(services.begin(), services.end(), [&](FlightService& service) {
    return ReadColourSetting(ini, kSection, service.key, service.rgb);
  });
}

void WriteFlightColourSettings(settings::IniFile& ini, const FlightServiceTable& services) {
  for (const FlightService& service : services)
    WriteColourSetting(ini, kSection, service.key, service.rgb);
}

}  // namespace zerbal::data
