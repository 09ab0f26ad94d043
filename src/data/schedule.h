// Reading the schedule: the rows of one flight service, a flight by its key, an airport by its code. Drawing
// and the flight finding dialogs all go through here, so that a rule such as "the first Null ends the
// stopovers" stands once.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "data/airports.h"
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

/// Reads rows of `flit` into a flight whose memory is used again and again, for those who read thousands; the
/// fields are looked up by name once.
class FlightReader {
 public:
  explicit FlightReader(const jet::Recordset& flit);
  /// Reads the current row of the same recordset. The result lasts until the next reading.
  const Flight& Read(const jet::Recordset& flit);

 private:
  void AppendToRoute(const jet::Field& airport, std::size_t position);

  int key_;
  int service_;
  int number_;
  int origin_;
  int destination_;
  std::array<int, kMaxStopovers> stops_;  ///< looked up when a flight first gets that far
  Flight flight_;
};

/// Reads the current row of `flit`.
Flight ReadFlight(const jet::Recordset& flit);

/// Calls `row` for each flight of a service, with `flit` standing on it, in the order of index "fsrv" (which
/// it selects): from the first row with that key as long as Flit_FSrv equals it. Nothing happens when there
/// is none. `row` returns false to stop.
void ForEachFlightOfService(jet::Recordset& flit, std::string_view service,
                            const std::function<bool(const jet::Recordset&)>& row);

/// The line by which every flight list shows a flight: number, origin and destination with their cities where
/// they are among the destinations, and the stopovers, with their cities when `citiesForStopovers`.
std::string FlightLine(const Flight& flight, const Airports& destinations, bool citiesForStopovers);

}  // namespace zerbal::data
