// Figures of a schedule.
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "zerbal-pack/airport_positions.h"
#include "zerbal-pack/plain_schedule.h"

namespace zerbal::pack {

/// How many airports and pairs are listed.
inline constexpr std::size_t kBusiest = 5;

struct MeasuredLeg {
  std::string from, to;
  std::string flight;  ///< number of the first flight that has it
  double metres = 0;
};

struct BusyAirport {
  std::string code;
  std::size_t legs = 0;  ///< that begin or end there; one that does both counts twice
};

struct BusyPair {
  std::pair<std::string, std::string> codes;  ///< in their order
  std::size_t legs = 0;                       ///< in both directions
};

/// Of all flights, or of those of one service.
struct FlightFigures {
  std::string service;  ///< its key
  std::string name;
  std::size_t flights = 0;
  std::size_t legs = 0;
  std::size_t airports = 0;  ///< different ones
  double metres = 0;         ///< of all legs that can be measured
  std::size_t unmeasured = 0;
  std::optional<MeasuredLeg> shortest, longest;
  std::vector<BusyAirport> busiestAirports;  ///< at most kBusiest, by legs, then by code
  std::vector<BusyPair> busiestPairs;
};

struct ScheduleFigures {
  FlightFigures all;
  std::vector<FlightFigures> services;    ///< in display order, then services that are not in the table
  std::set<std::string> unknownAirports;  ///< without a position
};

/// Lengths are those of great circles (ellipsoid WGS 84).
ScheduleFigures CountSchedule(const PlainSchedule& schedule, const AirportPositions& positions);

}  // namespace zerbal::pack
