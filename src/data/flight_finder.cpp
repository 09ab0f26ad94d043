#include "data/flight_finder.h"

namespace zerbal::data {

void ReadFlightFinderSettings(settings::IniFile& ini, FlightFinderState& finder) {
  using settings::kRandomFlights;
  finder.howMany = static_cast<HowMany>(ini.Read(kRandomFlights).value_or(kRandomFlights.byDefault));
  finder.searchOrigin = ini.Read(settings::kSearchOrigin);
  finder.searchStopovers = ini.Read(settings::kSearchStopovers);
  finder.searchDestination = ini.Read(settings::kSearchDestination);
}

}  // namespace zerbal::data
