// Schedules in memory, and where their airports are.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "zerbal-pack/schedule_stats.h"

namespace zerbal::pack::test {

/// On the equator, at distances that all differ. E and F are on both sides of 180 degrees.
inline const AirportPositions kPositions = {{"A", {0, 0}},  {"B", {10, 0}},   {"C", {21, 0}},
                                            {"D", {33, 0}}, {"E", {-180, 0}}, {"F", {175, 0}}};

/// The route has one letter per airport. Numbers are ascending.
inline PlainSchedule FlightsOnTheEquator(
    const std::vector<std::pair<std::string, std::string>>& servicesAndRoutes) {
  PlainSchedule schedule;
  schedule.services = {{"Y", "Why", {}}, {"X", "Ex", {}}};
  for (const auto& [service, route] : servicesAndRoutes) {
    const std::string number = "N" + std::to_string(schedule.flights.size() + 1);
    data::Flight& flight = schedule.flights.emplace_back(data::Flight{number, service, number, {}});
    for (const char code : route)
      flight.route.emplace_back(1, code);
  }
  return schedule;
}

inline ScheduleFigures Count(const std::vector<std::pair<std::string, std::string>>& servicesAndRoutes) {
  return CountSchedule(FlightsOnTheEquator(servicesAndRoutes), kPositions);
}

}  // namespace zerbal::pack::test
