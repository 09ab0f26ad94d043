// Which flights of two schedules are the same.
#pragma once

#include <span>
#include <vector>

#include "data/flight.h"

namespace zerbal::data {

/// By number, then by key, both as base::NaturalLess() orders them.
void SortFlights(std::vector<Flight>& flights);

/// A flight of the old schedule and the same one of the new.
struct FlightPair {
  const Flight* before = nullptr;
  const Flight* after = nullptr;
};

/// Each flight is in one pair at most.
struct FlightPairs {
  std::vector<FlightPair> pairs;       ///< in the order of the new flights
  std::vector<const Flight*> added;    ///< new ones without a pair, in their order
  std::vector<const Flight*> dropped;  ///< old ones without a pair, in their order
};

/// Makes pairs in steps, each of what the steps before left: flights with the same key, number and route;
/// number and route; key and number; number; key and route; route; key. Where the key does not decide,
/// flights of the same service come first. Several candidates are paired in the order of the flights, first
/// with first. An empty number or key is never the same.
FlightPairs PairFlights(std::span<const Flight> before, std::span<const Flight> after);

}  // namespace zerbal::data
