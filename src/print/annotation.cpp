#include "print/annotation.h"

#include <algorithm>
#include <cmath>

#include "map/contained.h"
#include "print/layers.h"

namespace zerbal::print {
namespace {

std::int32_t RadiusOfMarkers(const PrintScene& scene) {
  const double width = scene.style.airportWidth;
  return width > 0 ? static_cast<std::int32_t>(std::lround(width * kTwipsPerPixel / 2))
                   : map::MarkerRadius(scene.map.viewport.DetailMode());
}

/// Calls `visit` every few pixels along a line.
template <typename Visit>
void VisitAlong(std::span<const TwipPoint> line, const Visit& visit) {
  constexpr double kStep = 10 * kTwipsPerPixel;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const double dx = static_cast<double>(line[i].x) - line[i - 1].x;
    const double dy = static_cast<double>(line[i].y) - line[i - 1].y;
    const int steps = std::max(1, static_cast<int>(std::hypot(dx, dy) / kStep));
    for (int step = 0; step < steps; ++step)
      visit(TwipPoint{line[i - 1].x + static_cast<std::int32_t>(dx * step / steps),
                      line[i - 1].y + static_cast<std::int32_t>(dy * step / steps)});
  }
}

}  // namespace

Annotation::Annotation(const PrintScene& scene, const Projection& projection, const Contents& contents,
                       PrintSurface& surface)
    : scene_(scene),
      projection_(projection),
      contents_(contents),
      surface_(surface),
      picture_{0, 0, scene.map.viewport.MapWidth(), scene.map.viewport.MapHeight()},
      markerRadius_(RadiusOfMarkers(scene)),
      labelFont_(map::MapFont(scene.map.viewport, scene.map.style.fonts)),
      groups_(GroupLegs(contents.legs)),
      steps_(FlightStepsOf(groups_)),
      maker_(scene.style, picture_, surface),
      furniture_(MakeFurniture(), picture_, BusyPoints()) {
  if (scene.options.graticule > 0)
    map::Contained(scene.map, "graticule",
                   [&] { graticule_ = MakeGraticule(projection, scene.options.graticule); });
}

std::vector<FurnitureItem> Annotation::MakeFurniture() const {
  const PrintOptions& options = scene_.options;
  std::vector<FurnitureItem> items;
  if (!options.title.empty())
    items.push_back(maker_.Title(options.title));
  std::vector<LegendRow> rows = LegendRows(Legend(), scene_.style);
  if (options.legend.shown && !rows.empty())
    items.push_back(maker_.Legend(std::move(rows), options.legend.corner));
  if (options.scaleBar.shown)
    if (std::optional<FurnitureItem> scale = maker_.Scale(projection_, options.scaleBar.corner))
      items.push_back(std::move(*scale));
  if (options.north.shown)
    items.push_back(maker_.North(projection_, options.north.corner));
  return items;
}

LegendContents Annotation::Legend() const {
  LegendContents contents{.services = scene_.map.services,
                          .shownServices = {},
                          .steps = {},
                          .stepWidths = scene_.options.widthByFlights,
                          .stepColours = scene_.options.colourBy == ColourLegsBy::kFrequency};
  if (contents.stepWidths || contents.stepColours)
    contents.steps = steps_;
  if (contents.stepColours)
    return contents;
  if (DrawsGroups())
    for (const LegGroup& group : groups_)
      contents.shownServices.insert(group.service);
  else
    for (const PlacedLeg& leg : contents_.legs)
      contents.shownServices.insert(leg.service);
  return contents;
}

std::vector<TwipPoint> Annotation::BusyPoints() const {
  std::vector<TwipPoint> points;
  const auto add = [&](TwipPoint point) { points.push_back(point); };
  for (const auto* airports : {&contents_.allAirports, &contents_.destinations, &contents_.legAirports})
    for (const PlacedAirport& airport : *airports)
      add(airport.centre);
  for (const LegGroup& group : groups_)
    for (const std::vector<TwipPoint>& part : group.first->parts)
      VisitAlong(part, add);
  return points;
}

void Annotation::DrawGraticule() {
  surface_.BeginPrintLayer(PrintLayer::kGraticule);
  for (const GraticuleLine& line : graticule_)
    for (const std::vector<TwipPoint>& part : line.parts)
      DrawPart(part, scene_.style.graticule, scene_.style.graticuleWidth, surface_);
}

void Annotation::DrawLegLines() {
  const PrintStyle& style = scene_.style;
  if (!DrawsGroups()) {
    DrawLegs(contents_.legs, style.flightWidth, surface_);
    return;
  }
  // Legs with many flights are drawn over those with few.
  std::vector<const LegGroup*> order;
  for (const LegGroup& group : groups_)
    order.push_back(&group);
  std::stable_sort(order.begin(), order.end(),
                   [](const LegGroup* a, const LegGroup* b) { return a->flights < b->flights; });
  for (const LegGroup* group : order) {
    const std::size_t step = StepOf(steps_, group->flights);
    const bool byFrequency = scene_.options.colourBy == ColourLegsBy::kFrequency;
    for (const std::vector<TwipPoint>& part : group->first->parts)
      DrawPart(part, byFrequency ? style.frequency[step] : group->colour,
               scene_.options.widthByFlights ? style.flightWidths[step] : style.flightWidth, surface_);
  }
}

double Annotation::WidestLeg() const {
  return scene_.options.widthByFlights ? std::max(scene_.style.flightWidths.back(), scene_.style.flightWidth)
                                       : scene_.style.flightWidth;
}

void Annotation::PlaceLabels(LabelPlan& plan) const {
  const data::DisplayOptions& shown = scene_.map.options;
  const bool byFrequency = scene_.options.colourBy == ColourLegsBy::kFrequency;
  for (const TwipBox& box : furniture_.Boxes())
    plan.AddObstacle(box);
  plan.AddMarkers(contents_, markerRadius_);
  const PrintStyle& style = scene_.style;
  if (scene_.options.labelsPlaced)
    plan.AddAirports(contents_, markerRadius_, labelFont_);
  plan.AddGraticule(graticule_, style.text, labelFont_);
  if (scene_.options.labelsPlaced && shown.flightNumbers)
    plan.AddLegs(groups_, byFrequency ? std::optional(style.text) : std::nullopt, WidestLeg(), labelFont_);
}

void Annotation::DrawLabels(map::Canvas& canvas) {
  surface_.BeginPrintLayer(PrintLayer::kLabels);
  if (!scene_.options.labelsPlaced) {
    DrawAirportLabels(canvas, contents_.allAirports);
    DrawAirportLabels(canvas, contents_.destinations);
    DrawLegLabels(canvas, scene_.map, contents_.legs);
    DrawAirportLabels(canvas, contents_.legAirports);
  }
  map::Contained(scene_.map, "labels", [&] {
    LabelPlan plan(surface_, picture_, scene_.style.background);
    PlaceLabels(plan);
    plan.Draw(surface_);
  });
}

void Annotation::DrawFurniture() {
  surface_.BeginPrintLayer(PrintLayer::kFurniture);
  furniture_.Draw(surface_);
}

}  // namespace zerbal::print
