#include "zerbal-pack/schedule_stats.h"

#include <algorithm>
#include <functional>
#include <span>
#include <string_view>
#include <unordered_map>

#include "data/great_circle.h"

namespace zerbal::pack {

namespace {

using CodePair = std::pair<std::string_view, std::string_view>;

struct CodePairHash {
  std::size_t operator()(const CodePair& codes) const {
    const std::hash<std::string_view> hash;
    return hash(codes.first) * 31 + hash(codes.second);
  }
};

/// Lengths of legs. Keeps each, because many flights share it.
class LegLengths {
 public:
  explicit LegLengths(const AirportPositions& positions) : positions_(positions) {}

  /// Metres; nothing when the position of an airport is not known.
  std::optional<double> Of(std::string_view from, std::string_view to) {
    const auto [known, isNew] = lengths_.try_emplace(CodePair(from, to));
    if (isNew) {
      const auto start = positions_.find(from);
      const auto end = positions_.find(to);
      if (start != positions_.end() && end != positions_.end())
        known->second = data::GreatCircleMetres(start->second, end->second);
    }
    return known->second;
  }

 private:
  const AirportPositions& positions_;
  std::unordered_map<CodePair, std::optional<double>, CodePairHash> lengths_;
};

/// The first entries by descending count, equal ones in the order of their keys.
template <typename Counts>
auto Busiest(const Counts& counts) {
  std::vector<std::pair<typename Counts::key_type, std::size_t>> busiest(std::min(counts.size(), kBusiest));
  std::ranges::partial_sort_copy(counts, busiest, [](const auto& a, const auto& b) {
    return a.second == b.second ? a.first < b.first : a.second > b.second;
  });
  return busiest;
}

class FlightCounter {
 public:
  FlightCounter(std::string service, std::string name) {
    figures_.service = std::move(service);
    figures_.name = std::move(name);
  }

  /// `lengths` has one for each leg.
  void Add(const data::Flight& flight, std::span<const std::optional<double>> lengths) {
    ++figures_.flights;
    for (std::size_t leg = 1; leg < flight.route.size(); ++leg)
      AddLeg(flight, flight.route[leg - 1], flight.route[leg], lengths[leg - 1]);
  }

  FlightFigures Result() {
    figures_.airports = airports_.size();
    for (const auto& [code, legs] : Busiest(airports_))
      figures_.busiestAirports.push_back({std::string(code), legs});
    for (const auto& [codes, legs] : Busiest(pairs_))
      figures_.busiestPairs.push_back({{std::string(codes.first), std::string(codes.second)}, legs});
    return std::move(figures_);
  }

 private:
  void AddLeg(const data::Flight& flight, const std::string& from, const std::string& to,
              const std::optional<double>& metres) {
    ++figures_.legs;
    ++airports_[from];
    ++airports_[to];
    ++pairs_[std::minmax<std::string_view>(from, to)];
    if (!metres) {
      ++figures_.unmeasured;
      return;
    }
    figures_.metres += *metres;
    if (!figures_.shortest || *metres < figures_.shortest->metres)
      figures_.shortest = {from, to, flight.number, *metres};
    if (!figures_.longest || *metres > figures_.longest->metres)
      figures_.longest = {from, to, flight.number, *metres};
  }

  FlightFigures figures_;
  std::unordered_map<std::string_view, std::size_t> airports_;
  std::unordered_map<CodePair, std::size_t, CodePairHash> pairs_;
};

/// A counter for each service, those of the table first.
class ServiceCounters {
 public:
  explicit ServiceCounters(const PlainSchedule& schedule) {
    for (const PlainService& service : schedule.services)
      Add(service.key, service.name);
    std::set<std::string> others;
    for (const data::Flight& flight : schedule.flights) {
      if (!places_.contains(flight.service))
        others.insert(flight.service);
    }
    for (const std::string& key : others)
      Add(key, "");
  }

  FlightCounter& Of(const std::string& service) { return counters_[places_.at(service)]; }

  std::vector<FlightFigures> Results() {
    std::vector<FlightFigures> results;
    for (FlightCounter& counter : counters_)
      results.push_back(counter.Result());
    return results;
  }

 private:
  /// Of services with the same key, the first one counts.
  void Add(const std::string& key, const std::string& name) {
    if (places_.emplace(key, counters_.size()).second)
      counters_.emplace_back(key, name);
  }

  std::vector<FlightCounter> counters_;
  std::unordered_map<std::string, std::size_t> places_;
};

}  // namespace

ScheduleFigures CountSchedule(const PlainSchedule& schedule, const AirportPositions& positions) {
  LegLengths lengths(positions);
  std::vector<std::optional<double>> metres;
  FlightCounter all("", "");
  ServiceCounters services(schedule);
  ScheduleFigures figures;
  for (const data::Flight& flight : schedule.flights) {
    metres.clear();
    for (std::size_t leg = 1; leg < flight.route.size(); ++leg)
      metres.push_back(lengths.Of(flight.route[leg - 1], flight.route[leg]));
    all.Add(flight, metres);
    services.Of(flight.service).Add(flight, metres);
    for (const std::string& code : flight.route) {
      if (!positions.contains(code))
        figures.unknownAirports.insert(code);
    }
  }
  figures.all = all.Result();
  figures.services = services.Results();
  return figures;
}

}  // namespace zerbal::pack
