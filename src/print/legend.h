// What the legend lists.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "data/flight.h"
#include "print/flight_steps.h"
#include "print/print_style.h"
#include "print/print_surface.h"

namespace zerbal::print {

struct LegendRow {
  std::string text;
  StrokeStyle sample{};
  bool heading = false;  ///< without a sample
};

struct LegendContents {
  const data::FlightServiceTable& services;
  std::set<std::string> shownServices;  ///< keys; none when colours do not stand for services
  std::vector<FlightStep> steps;        ///< none when neither widths nor colours stand for them
  bool stepWidths = false;
  bool stepColours = false;
};

/// Services in the order of their table, then the steps. Headings only where steps are listed.
std::vector<LegendRow> LegendRows(const LegendContents& contents, const PrintStyle& style);

}  // namespace zerbal::print
