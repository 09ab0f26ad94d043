// What the map shows besides coastlines: the options behind the check marks of the menus.
#pragma once

#include "settings/catalogue.h"

namespace zerbal::data {

/// Menus and check boxes show these values; drawing reads them.
struct DisplayOptions {
  bool centreOfMap = settings::kViewCentreOfMap.byDefault;
  bool rivers = settings::kViewRivers.byDefault;
  bool boundaries = settings::kViewBoundaries.byDefault;
  bool allAirports = settings::kViewAllAirports.byDefault;
  bool destinations = settings::kViewDestinations.byDefault;
  bool flightAirports = settings::kShowAirports.byDefault;
  bool flightNumbers = settings::kShowFlightNumbers.byDefault;
  bool legNumbers = settings::kShowLegNumbers.byDefault;
  bool aircraftSymbols = settings::kShowAircraftSymbols.byDefault;
  bool operator==(const DisplayOptions&) const = default;
};

}  // namespace zerbal::data
