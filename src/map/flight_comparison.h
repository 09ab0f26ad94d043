// What a map shows of the changes since an older schedule.
#pragma once

#include <set>
#include <tuple>
#include <vector>

#include "data/airports.h"
#include "data/flight.h"
#include "data/rgb.h"

namespace zerbal::map {

struct FlightOrder {
  bool operator()(const data::Flight& a, const data::Flight& b) const {
    return std::tie(a.key, a.number, a.service, a.route) < std::tie(b.key, b.number, b.service, b.route);
  }
};

struct FlightComparison {
  /// Drawn below all other flights, in this order, with dashed lines and everything in kDroppedColour.
  std::vector<data::Flight> dropped;
  const data::Airports& oldDestinations;  ///< the airports of dropped flights
  /// Drawn with lines of kAddedWidth where they are shown.
  std::set<data::Flight, FlightOrder> added;
};

inline constexpr data::Rgb kDroppedColour{120, 120, 120};  ///< readable on light and on dark maps
inline constexpr int kAddedWidth = 3;                      ///< logical pixels

}  // namespace zerbal::map
