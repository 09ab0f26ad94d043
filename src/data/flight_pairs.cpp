#include "data/flight_pairs.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/natural_order.h"

namespace zerbal::data {

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
std::optional<std::string> Identity(const Flight& flight, unsigned parts) {
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
  Pairing(std::span<const Flight> before, std::span<const Flight> after)
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

  std::span<const Flight> before_, after_;
  std::vector<bool> beforeDone_;
  std::vector<std::optional<std::size_t>> partner_;  ///< of each new flight
};

}  // namespace

void SortFlights(std::vector<Flight>& flights) {
  std::ranges::stable_sort(flights, [](const Flight& a, const Flight& b) {
    return a.number == b.number ? base::NaturalLess(a.key, b.key) : base::NaturalLess(a.number, b.number);
  });
}

FlightPairs PairFlights(std::span<const Flight> before, std::span<const Flight> after) {
  Pairing pairing(before, after);
  for (const unsigned parts : kSteps)
    pairing.Step(parts);
  return pairing.Result();
}

}  // namespace zerbal::data
