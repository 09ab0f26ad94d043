// Classes of legs by how many flights they have.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace zerbal::print {

/// Flights of the legs of a class, inclusive.
struct FlightStep {
  int least = 0;
  int most = 0;
  bool operator==(const FlightStep&) const = default;
};

inline constexpr std::size_t kMostFlightSteps = 4;

/// The numbers of flights of all legs, split at the 50th, 75th and 90th percentile: the busiest tenth of the
/// legs has a class of its own. Ascending, without gaps; fewer steps where percentiles are equal; none
/// without legs.
std::vector<FlightStep> FlightSteps(std::vector<int> flightsOfLegs);

/// The step that holds a number of flights of the legs that the steps were made of.
std::size_t StepOf(std::span<const FlightStep> steps, int flights);

/// "1", "3–5".
std::string StepText(const FlightStep& step);

}  // namespace zerbal::print
