// What differs between two schedules.
#pragma once

#include <span>
#include <vector>

#include "data/flight.h"
#include "zerbal-pack/plain_schedule.h"

namespace zerbal::pack {

/// A flight of the old schedule and the same one of the new.
struct FlightPair {
  const data::Flight* before = nullptr;
  const data::Flight* after = nullptr;
};

/// Each flight is in one pair at most.
struct FlightPairs {
  std::vector<FlightPair> pairs;             ///< in the order of the new flights
  std::vector<const data::Flight*> added;    ///< new ones without a pair, in their order
  std::vector<const data::Flight*> dropped;  ///< old ones without a pair, in their order
};

/// Makes pairs in steps, each of what the steps before left: flights with the same key, number and route;
/// number and route; key and number; number; key and route; route; key. Where the key does not decide,
/// flights of the same service come first. Several candidates are paired in the order of the flights, first
/// with first. An empty number or key is never the same.
FlightPairs PairFlights(std::span<const data::Flight> before, std::span<const data::Flight> after);

/// Points into both schedules. All lists are in the order of the new schedule, those of what is dropped in
/// that of the old one.
struct ScheduleDiff {
  std::vector<const data::Flight*> added, dropped;
  std::vector<FlightPair> rerouted;    ///< other airports
  std::vector<FlightPair> renumbered;  ///< the same airports, another number
  std::vector<FlightPair> recoloured;  ///< another service, or another colour of the same one
  std::vector<const PlainAirport*> newDestinations, droppedDestinations;

  bool IsEmpty() const;
};

/// A pair is rerouted or renumbered or neither, and recoloured besides. Names and other data of services and
/// destinations do not count, nor does the key of a flight.
ScheduleDiff Compare(const PlainSchedule& before, const PlainSchedule& after);

}  // namespace zerbal::pack
