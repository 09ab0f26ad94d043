#include "print/legend.h"

#include <algorithm>

namespace zerbal::print {
namespace {

constexpr double kThinnestSample = 2;  ///< logical pixels; the colour of thinner lines is hard to see

/// The part of a service's display text after its line number.
std::string ServiceName(const data::FlightService& service) {
  const std::size_t at = service.displayText.find(" - ");
  return at == std::string::npos ? service.displayText : service.displayText.substr(at + 3);
}

}  // namespace

std::vector<LegendRow> LegendRows(const LegendContents& contents, const PrintStyle& style) {
  std::vector<LegendRow> rows;
  const auto heading = [&](const char* text) {
    if (!contents.steps.empty())
      rows.push_back({.text = text, .heading = true});
  };
  std::set<std::string> left = contents.shownServices;
  if (!left.empty())
    heading("Flight services");
  const double width = std::max(style.flightWidth, kThinnestSample);
  for (const data::FlightService& service : contents.services)
    if (left.erase(service.key) > 0)
      rows.push_back({.text = ServiceName(service), .sample = {.colour = service.rgb, .width = width}});
  // Flights of a service that is not in the table are black.
  for (const std::string& key : left)
    rows.push_back({.text = key, .sample = {.width = width}});
  heading("Flights on a leg");
  for (std::size_t i = 0; i < contents.steps.size(); ++i)
    rows.push_back({.text = StepText(contents.steps[i]),
                    .sample = {.colour = contents.stepColours ? style.frequency[i] : style.text,
                               .width = contents.stepWidths ? style.flightWidths[i] : width}});
  return rows;
}

}  // namespace zerbal::print
