// Reading the schedule: the rows of one flight service, a flight by its key, an airport by its code. Drawing
// and the flight finding dialogs all go through here, so that a rule such as "the first Null ends the
// stopovers" stands once.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jet/recordset.h"

namespace zerbal::data {

inline constexpr int kMaxStopovers = 10;

/// One row of `flit`. Route holds origin, stopovers in order up to the first that holds no text, destination.
struct Flight {
  std::string key;                 ///< Flit_2015
  std::string service;             ///< Flit_FSrv
  std::string number;              ///< Flit
  std::vector<std::string> route;  ///< 2 to 12 airport codes

  const std::string& Origin() const { return route.front(); }
  const std::string& Destination() const { return route.back(); }
};

/// Reads the current row of `flit`.
Flight ReadFlight(const jet::Recordset& flit);

/// Calls `row` for each flight of a service, with `flit` standing on it, in the order of index "fsrv" (which
/// it selects): from the first row with that key as long as Flit_FSrv equals it. Nothing happens when there
/// is none. `row` returns false to stop.
void ForEachFlightOfService(jet::Recordset& flit, std::string_view service,
                            const std::function<bool(const jet::Recordset&)>& row);

/// The line by which every flight list shows a flight: number, origin and destination with their cities where
/// `dest` has them, and the stopovers, with their cities when `citiesForStopovers`.
std::string FlightLine(const Flight& flight, jet::Recordset& dest, bool citiesForStopovers);

}  // namespace zerbal::data
