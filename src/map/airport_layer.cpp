#include <cstdint>
#include <optional>

#include "map/layers.h"

namespace zerbal::map {

namespace {

constexpr std::int32_t kRadiusOverview = 20;
constexpr std::int32_t kRadiusDetail = 30;
constexpr std::int32_t kLabelOffset = 50;  ///< right of and below the marker's centre

void DrawAt(TwipPoint centre, Canvas& canvas, std::string_view label, data::Rgb colour) {
  DrawAirportMarker(canvas, centre, colour);
  DrawAirportLabel(canvas, centre, label, colour);
}

}  // namespace

std::int32_t MarkerRadius(bool detailMode) {
  return detailMode ? kRadiusDetail : kRadiusOverview;
}

void DrawAirportMarker(Canvas& canvas, TwipPoint centre, data::Rgb colour) {
  canvas.surface.Circle(centre, MarkerRadius(canvas.viewport.DetailMode()), colour, true);
}

void DrawAirportLabel(Canvas& canvas, TwipPoint centre, std::string_view label, data::Rgb colour) {
  canvas.surface.Text({centre.x + kLabelOffset, centre.y + kLabelOffset}, label, colour, canvas.font);
}

std::optional<TwipPoint> ProjectAirport(const Viewport& viewport, MapPosition position) {
  // The longitude of the marker in line tables is not a position here either.
  if (position.lon == kPenUpLon)
    return std::nullopt;
  return viewport.ProjectPoint(position);
}

data::MapBounds BoundsOf(const Viewport& viewport) {
  constexpr float kRounding = 0.001F;  // of the longitudes that ProjectPoint shifts
  data::MapBounds bounds;
  bounds.top = viewport.MapLatMin();
  bounds.bottom = viewport.MapLatMax();
  const float east = viewport.MapWrap() ? viewport.MapLonMax() - 360.0F + kRounding : viewport.MapLonMax();
  if (viewport.MapWrap() && !(east < viewport.MapLonMin()))
    return bounds;  // all longitudes
  bounds.west = viewport.MapLonMin();
  bounds.east = east;
  return bounds;
}

void AppendAirportLabel(std::string& label, const AirportTexts& texts, bool detailMode) {
  label += texts.code;
  if (!detailMode)
    return;
  label += " - ";
  label += texts.name;
  if (texts.name.find(texts.city) == std::string_view::npos) {
    label += " (";
    label += texts.city;
    label += ')';
  }
}

void DrawAirport(Canvas& canvas, const AirportTexts& texts, MapPosition position, data::Rgb colour) {
  const std::optional<TwipPoint> centre = ProjectAirport(canvas.viewport, position);
  if (!centre)
    return;
  std::string label;
  AppendAirportLabel(label, texts, canvas.viewport.DetailMode());
  DrawAt(*centre, canvas, label, colour);
}

void DrawAirportLayer(Canvas& canvas, const data::Airports& airports, const data::AirportCriteria& criteria,
                      data::Rgb colour) {
  const bool detailMode = canvas.viewport.DetailMode();
  std::string label;
  VisitAirportsInView(canvas.viewport, airports, criteria,
                      [&](const data::Airport& airport, TwipPoint centre) {
                        AirportTexts texts{airport.Code()};
                        if (detailMode)
                          texts = {texts.code, airport.Name(), airport.City()};
                        label.clear();
                        AppendAirportLabel(label, texts, detailMode);
                        DrawAt(centre, canvas, label, colour);
                      });
}

}  // namespace zerbal::map
