// Legs of several flights between the same airports: one line, one label.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "print/contents.h"
#include "print/flight_steps.h"

namespace zerbal::print {

/// All flights between two airports, in both directions.
struct LegGroup {
  const PlacedLeg* first = nullptr;  ///< whose line is drawn
  int flights = 0;
  std::string service;              ///< the one that has the most flights, of equal ones the first
  data::Rgb colour;                 ///< of that service
  std::vector<std::string> labels;  ///< of the flights, each once, in the order of the flights
};

/// In the order of their first flights. The groups refer to `legs`.
std::vector<LegGroup> GroupLegs(const std::vector<PlacedLeg>& legs);

/// "QV303", "QV303/QV304", "QV301 +5".
std::string SharedLabel(const std::vector<std::string>& labels);

std::vector<FlightStep> FlightStepsOf(const std::vector<LegGroup>& groups);

}  // namespace zerbal::print
