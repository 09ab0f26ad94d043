#include "zerbal-pack/schedule_diff.h"

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace zerbal::pack {

namespace {

// What must be the same in a step.
constexpr unsigned kKey = 1, kNumber = 2, kRoute = 4, kService = 8;

constexpr std::initializer_list<unsigned> kSteps = {kKey | kNumber | kRoute,
                                                    kNumber | kRoute | kService,
                                                    kNumber | kRoute,
                                                    kKey | kNumber,
                                                    kNumber | kService,
                                                    kNumber,
                                                    kKey | kRoute,
                                                    kRoute | kService,
                                                    kRoute,
                                                    kKey};

/// Equal for flights that a step takes for the same; nullopt for those that it does not look at.
std::optional<std::string> Identity(const data::Flight& flight, unsigned parts) {
  std::string text;
  const auto add = [&text](std::string_view part) { text.append(part).push_back('\0'); };
  if ((parts & kKey) != 0) {
    if (flight.key.empty())
      return std::nullopt;
    add(flight.key);
  }
  if ((parts & kNumber) != 0) {
    if (flight.number.empty())
      return std::nullopt;
    add(flight.number);
  }
  if ((parts & kService) != 0)
    add(flight.service);
  if ((parts & kRoute) != 0) {
    for (const std::string& code : flight.route)
      add(code);
  }
  return text;
}

class Pairing {
 public:
  Pairing(std::span<const data::Flight> before, std::span<const data::Flight> after)
      : before_(before), after_(after), beforeDone_(before.size()), partner_(after.size()) {}

  void Step(unsigned parts) {
    std::unordered_map<std::string, Candidates> candidates;
    for (std::size_t i = 0; i < before_.size(); ++i) {
      if (beforeDone_[i])
        continue;
      if (const std::optional<std::string> identity = Identity(before_[i], parts))
        candidates[*identity].flights.push_back(i);
    }
    for (std::size_t i = 0; i < after_.size() && !candidates.empty(); ++i) {
      if (partner_[i])
        continue;
      const std::optional<std::string> identity = Identity(after_[i], parts);
      const auto found = identity ? candidates.find(*identity) : candidates.end();
      if (found == candidates.end() || found->second.next == found->second.flights.size())
        continue;
      partner_[i] = found->second.flights[found->second.next++];
      beforeDone_[*partner_[i]] = true;
    }
  }

  FlightPairs Result() const {
    FlightPairs result;
    for (std::size_t i = 0; i < after_.size(); ++i) {
      if (partner_[i])
        result.pairs.push_back({&before_[*partner_[i]], &after_[i]});
      else
        result.added.push_back(&after_[i]);
    }
    for (std::size_t i = 0; i < before_.size(); ++i) {
      if (!beforeDone_[i])
        result.dropped.push_back(&before_[i]);
    }
    return result;
  }

 private:
  struct Candidates {
    std::vector<std::size_t> flights;
    std::size_t next = 0;
  };

  std::span<const data::Flight> before_, after_;
  std::vector<bool> beforeDone_;
  std::vector<std::optional<std::size_t>> partner_;  ///< of each new flight
};

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

FlightPairs PairFlights(std::span<const data::Flight> before, std::span<const data::Flight> after) {
  Pairing pairing(before, after);
  for (const unsigned parts : kSteps)
    pairing.Step(parts);
  return pairing.Result();
}

bool ScheduleDiff::IsEmpty() const {
  return added.empty() && dropped.empty() && rerouted.empty() && renumbered.empty() && recoloured.empty() &&
         newDestinations.empty() && droppedDestinations.empty();
}

ScheduleDiff Compare(const PlainSchedule& before, const PlainSchedule& after) {
  FlightPairs flights = PairFlights(before.flights, after.flights);
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
