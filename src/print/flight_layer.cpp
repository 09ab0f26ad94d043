#include <algorithm>
#include <cmath>

#include "map/leg.h"
#include "print/layers.h"
#include "print/line_runner.h"

namespace zerbal::print {
namespace {

/// Twips. A part shorter than an aircraft has none.
constexpr double kShortestPart = 200;

/// Of two points.
PlanePoint Difference(TwipPoint from, TwipPoint to) {
  return {static_cast<double>(to.x) - from.x, static_cast<double>(to.y) - from.y};
}

double Distance(TwipPoint from, TwipPoint to) {
  const PlanePoint step = Difference(from, to);
  return std::hypot(step.x, step.y);
}

double LengthOf(std::span<const TwipPoint> part) {
  double length = 0;
  for (std::size_t i = 1; i < part.size(); ++i)
    length += Distance(part[i - 1], part[i]);
  return length;
}

/// Calls `visit` with the parts that have a symbol: those that are long enough, else the longest one.
template <typename Visit>
void VisitSymbolParts(const PlacedLeg& leg, const Visit& visit) {
  const auto longest = std::max_element(leg.parts.begin(), leg.parts.end(), [](const auto& a, const auto& b) {
    return LengthOf(a) < LengthOf(b);
  });
  for (auto part = leg.parts.begin(); part != leg.parts.end(); ++part) {
    if (part == longest || LengthOf(*part) >= kShortestPart)
      visit(*part);
  }
}

void DrawBeside(map::Canvas& canvas, const PlacedLeg& leg, const map::LegSymbolOptions& options) {
  VisitSymbolParts(leg, [&](std::span<const TwipPoint> part) {
    const auto [from, to] = StraightAtQuarter(part);
    map::DrawLegSymbol(canvas, from, to, leg.label, options);
  });
}

}  // namespace

StraightLeg StraightAtQuarter(std::span<const TwipPoint> part) {
  if (part.size() <= 2)
    return {part.front(), part.back()};
  const double whole = LengthOf(part);
  double left = whole / 4;
  std::size_t end = 1;
  for (; end + 1 < part.size() && left > Distance(part[end - 1], part[end]); ++end)
    left -= Distance(part[end - 1], part[end]);
  const TwipPoint from = part[end - 1];
  const double length = std::max(Distance(from, part[end]), 1.0);
  const PlanePoint step = Difference(from, part[end]);
  // As long as the whole part, so that rounding does not turn it.
  const auto at = [&](double distance) {
    return TwipPoint{static_cast<std::int32_t>(std::lround(from.x + step.x / length * distance)),
                     static_cast<std::int32_t>(std::lround(from.y + step.y / length * distance))};
  };
  return {at(left - whole / 4), at(left + whole * 3 / 4)};
}

void DrawAirportMarkers(const std::vector<PlacedAirport>& airports, std::int32_t radius,
                        PrintSurface& surface) {
  for (const PlacedAirport& airport : airports)
    surface.Circle(airport.centre, radius, airport.colour, true);
}

void DrawAirportLabels(map::Canvas& canvas, const std::vector<PlacedAirport>& airports) {
  for (const PlacedAirport& airport : airports)
    map::DrawAirportLabel(canvas, airport.centre, airport.label, airport.colour);
}

void DrawLegs(const std::vector<PlacedLeg>& legs, double width, PrintSurface& surface) {
  for (const PlacedLeg& leg : legs) {
    for (const auto& part : leg.parts)
      DrawPart(part, leg.colour, width, surface);
  }
}

void DrawLegSymbols(map::Canvas& canvas, const map::MapScene& scene, const std::vector<PlacedLeg>& legs) {
  if (!scene.options.aircraftSymbols)
    return;
  for (const PlacedLeg& leg : legs)
    DrawBeside(
        canvas, leg,
        {.symbol = true, .symbolColour = scene.style.colours[data::ColourCode::kAcSymb], .labelColour = {}});
}

void DrawLegLabels(map::Canvas& canvas, const map::MapScene& scene, const std::vector<PlacedLeg>& legs) {
  if (!scene.options.flightNumbers)
    return;
  for (const PlacedLeg& leg : legs)
    DrawBeside(canvas, leg, {.label = true, .symbolColour = {}, .labelColour = leg.colour});
}

}  // namespace zerbal::print
