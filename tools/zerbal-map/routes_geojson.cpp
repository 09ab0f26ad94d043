#include "zerbal-map/routes_geojson.h"

#include <string_view>

#include "base/json_text.h"
#include "zerbal-map/route_line.h"

namespace zerbal::mapcommand {
namespace {

std::string JsonValue(const Attribute& attribute) {
  return attribute.IsNull() ? "null" : ValueText(attribute, base::JsonText);
}

std::string PositionText(GeoPosition position) {
  return "[" + NumberText(position.lon, kDegreeDecimals) + "," + NumberText(position.lat, kDegreeDecimals) +
         "]";
}

std::string LineText(const RouteLine& line) {
  std::string text;
  for (const GeoPosition position : line)
    text.append(text.empty() ? "[" : ",").append(PositionText(position));
  return text + "]";
}

std::string FlightGeometry(const RouteFlight& flight) {
  std::string text;
  for (const RouteLine& line : CutAtAntimeridian(flight.points, CutAt::kStraightLine))
    text.append(text.empty() ? "[" : ",").append(LineText(line));
  return text.empty() ? "null" : R"({"type":"MultiLineString","coordinates":)" + text + "]}";
}

std::string AirportGeometry(const RouteAirport& airport) {
  return R"({"type":"Point","coordinates":)" + PositionText(airport.position) + "}";
}

std::string Feature(std::string_view kind, const std::vector<Attribute>& attributes, const std::string& style,
                    const std::string& geometry) {
  std::string text = R"({"type":"Feature","properties":{"kind":)" + base::JsonText(kind);
  for (const Attribute& attribute : attributes)
    text.append(",").append(base::JsonText(attribute.name)).append(":").append(JsonValue(attribute));
  return text + style + R"(},"geometry":)" + geometry + "}";
}

std::string FlightFeature(const RouteFlight& flight, const RouteService& service) {
  return Feature("flight", AttributesOf(flight, service),
                 R"(,"stroke":)" + base::JsonText(ColourText(service.rgb)) + R"(,"stroke-width":)" +
                     std::to_string(kRouteWidth),
                 FlightGeometry(flight));
}

std::string AirportFeature(const RouteAirport& airport, data::Rgb rgb) {
  return Feature("airport", AttributesOf(airport), R"(,"marker-color":)" + base::JsonText(ColourText(rgb)),
                 AirportGeometry(airport));
}

}  // namespace

std::string GeoJsonOf(const Routes& routes) {
  std::string text = R"({"type":"FeatureCollection","features":[)";
  const char* before = "\n";
  const auto add = [&](const std::string& feature) {
    text.append(before).append(feature);
    before = ",\n";
  };
  for (const RouteFlight& flight : routes.flights)
    add(FlightFeature(flight, routes.services.at(flight.service)));
  for (const RouteAirport& airport : routes.airports)
    add(AirportFeature(airport, routes.ColourOf(airport)));
  return text + "\n]}\n";
}

}  // namespace zerbal::mapcommand
