// What differs between two schedules.
#pragma once

#include <vector>

#include "data/flight_pairs.h"
#include "zerbal-pack/plain_schedule.h"

namespace zerbal::pack {

/// Points into both schedules. All lists are in the order of the new schedule, those of what is dropped in
/// that of the old one.
struct ScheduleDiff {
  std::vector<const data::Flight*> added, dropped;
  std::vector<data::FlightPair> rerouted;    ///< other airports
  std::vector<data::FlightPair> renumbered;  ///< the same airports, another number
  std::vector<data::FlightPair> recoloured;  ///< another service, or another colour of the same one
  std::vector<const PlainAirport*> newDestinations, droppedDestinations;

  bool IsEmpty() const;
};

/// A pair is rerouted or renumbered or neither, and recoloured besides. Names and other data of services and
/// destinations do not count, nor does the key of a flight.
ScheduleDiff Compare(const PlainSchedule& before, const PlainSchedule& after);

}  // namespace zerbal::pack
