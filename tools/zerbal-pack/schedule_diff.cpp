#include "zerbal-pack/schedule_diff.h"

#include <set>
#include <string_view>
#include <utility>

namespace zerbal::pack {

namespace {

using data::FlightPair;

bool IsRecoloured(const FlightPair& pair, const PlainSchedule& before, const PlainSchedule& after) {
  if (pair.before->service != pair.after->service)
    return true;
  const PlainService* old = before.FindService(pair.before->service);
  const PlainService* now = after.FindService(pair.after->service);
  return (old == nullptr) != (now == nullptr) || (old != nullptr && old->rgb != now->rgb);
}

/// The airports of `some` that `others` lacks.
std::vector<const PlainAirport*> Without(const std::vector<PlainAirport>& some,
                                         const std::vector<PlainAirport>& others) {
  std::set<std::string_view> codes;
  for (const PlainAirport& airport : others)
    codes.insert(airport.code);
  std::vector<const PlainAirport*> rest;
  for (const PlainAirport& airport : some) {
    if (!codes.contains(airport.code))
      rest.push_back(&airport);
  }
  return rest;
}

}  // namespace

bool ScheduleDiff::IsEmpty() const {
  return added.empty() && dropped.empty() && rerouted.empty() && renumbered.empty() && recoloured.empty() &&
         newDestinations.empty() && droppedDestinations.empty();
}

ScheduleDiff Compare(const PlainSchedule& before, const PlainSchedule& after) {
  data::FlightPairs flights = data::PairFlights(before.flights, after.flights);
  ScheduleDiff diff;
  for (const FlightPair& pair : flights.pairs) {
    if (pair.before->route != pair.after->route)
      diff.rerouted.push_back(pair);
    else if (pair.before->number != pair.after->number)
      diff.renumbered.push_back(pair);
    if (IsRecoloured(pair, before, after))
      diff.recoloured.push_back(pair);
  }
  diff.added = std::move(flights.added);
  diff.dropped = std::move(flights.dropped);
  diff.newDestinations = Without(after.destinations, before.destinations);
  diff.droppedDestinations = Without(before.destinations, after.destinations);
  return diff;
}

}  // namespace zerbal::pack
