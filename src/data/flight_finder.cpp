#include "data/flight_finder.h"

#include <string_view>

#include "base/numbers.h"

namespace zerbal::data {

void ReadFlightFinderSettings(settings::IniFile& ini, FlightFinderState& finder) {
  constexpr char kSection[] = "Program";
  const auto howMany = ini.Read(kSection, "RandomFlitHowMany", "2");
  finder.howMany = howMany && base::LeadingInt16(*howMany) == 1 ? HowMany::kOneFlight : HowMany::kRoundTrip;
  // A read that fails or a value that is neither counts as "1".
  const auto isChecked = [&](std::string_view key) { return ini.Read(kSection, key, "1") != "0"; };
  finder.searchOrigin = isChecked("SeleDestCheckDest");
  finder.searchStopovers = isChecked("SeleDestCheckStop");
  finder.searchDestination = isChecked("SeleDestCheckArr");
}

}  // namespace zerbal::data
