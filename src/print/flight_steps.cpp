#include "print/flight_steps.h"

#include <algorithm>

#include "base/assert.h"

namespace zerbal::print {

std::vector<FlightStep> FlightSteps(std::vector<int> flightsOfLegs) {
  constexpr std::size_t kPercentiles[] = {50, 75, 90, 100};
  static_assert(std::size(kPercentiles) == kMostFlightSteps);
  std::vector<FlightStep> steps;
  if (flightsOfLegs.empty())
    return steps;
  std::sort(flightsOfLegs.begin(), flightsOfLegs.end());
  int least = flightsOfLegs.front();
  for (const std::size_t percentile : kPercentiles) {
    // The smallest number that at least so many of all legs do not exceed.
    const std::size_t rank = (flightsOfLegs.size() * percentile + 99) / 100;
    const int most = flightsOfLegs[rank - 1];
    if (most < least)
      continue;
    steps.push_back({least, most});
    least = most + 1;
  }
  return steps;
}

std::size_t StepOf(std::span<const FlightStep> steps, int flights) {
  const auto found =
      std::find_if(steps.begin(), steps.end(), [&](const FlightStep& step) { return flights <= step.most; });
  ZERBAL_ASSERT(found != steps.end());
  return static_cast<std::size_t>(found - steps.begin());
}

std::string StepText(const FlightStep& step) {
  std::string text = std::to_string(step.least);
  if (step.most != step.least)
    text += "–" + std::to_string(step.most);
  return text;
}

}  // namespace zerbal::print
