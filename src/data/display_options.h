// What the map shows besides coastlines: the options behind the check marks of the menus.
#pragma once

namespace zerbal::data {

/// Menus and check boxes show these values; drawing reads them. The initial values are those of the design.
struct DisplayOptions {
  bool centreOfMap = false;
  bool rivers = false;
  bool boundaries = false;
  bool allAirports = false;
  bool destinations = false;
  bool flightAirports = true;
  bool flightNumbers = true;
  bool legNumbers = false;
  bool aircraftSymbols = false;
  bool operator==(const DisplayOptions&) const = default;
};

}  // namespace zerbal::data
