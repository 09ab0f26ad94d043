#include "print/leg_groups.h"

#include <algorithm>
#include <map>
#include <utility>

namespace zerbal::print {
namespace {

struct ServiceCount {
  const PlacedLeg* first;
  int flights;
};

/// A group while it is counted.
struct Counted {
  LegGroup group;
  std::vector<ServiceCount> services;

  void Add(const PlacedLeg& leg) {
    ++group.flights;
    if (std::find(group.labels.begin(), group.labels.end(), leg.label) == group.labels.end())
      group.labels.push_back(leg.label);
    const auto service = std::find_if(services.begin(), services.end(), [&](const ServiceCount& count) {
      return count.first->service == leg.service;
    });
    if (service == services.end())
      services.push_back({&leg, 1});
    else
      ++service->flights;
  }

  LegGroup Result() && {
    const auto most =
        std::max_element(services.begin(), services.end(),
                         [](const ServiceCount& a, const ServiceCount& b) { return a.flights < b.flights; });
    group.service = most->first->service;
    group.colour = most->first->colour;
    return std::move(group);
  }
};

}  // namespace

std::vector<LegGroup> GroupLegs(const std::vector<PlacedLeg>& legs) {
  std::vector<Counted> counted;
  std::map<std::pair<std::string, std::string>, std::size_t> known;
  for (const PlacedLeg& leg : legs) {
    const auto [at, isNew] = known.try_emplace(std::minmax(leg.from, leg.to), counted.size());
    if (isNew)
      counted.push_back({{.first = &leg, .service = {}, .colour = {}, .labels = {}}, {}});
    counted[at->second].Add(leg);
  }
  std::vector<LegGroup> groups;
  for (Counted& one : counted)
    groups.push_back(std::move(one).Result());
  return groups;
}

std::string SharedLabel(const std::vector<std::string>& labels) {
  if (labels.empty())
    return {};
  if (labels.size() == 1)
    return labels.front();
  if (labels.size() == 2)
    return labels[0] + "/" + labels[1];
  return labels.front() + " +" + std::to_string(labels.size() - 1);
}

std::vector<FlightStep> FlightStepsOf(const std::vector<LegGroup>& groups) {
  std::vector<int> flights;
  for (const LegGroup& group : groups)
    flights.push_back(group.flights);
  return FlightSteps(std::move(flights));
}

}  // namespace zerbal::print
