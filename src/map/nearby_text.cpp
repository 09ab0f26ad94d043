#include "map/nearby_text.h"

#include <cmath>
#include <cstdint>
#include <exception>
#include <optional>
#include <string_view>

#include "data/great_circle.h"
#include "map/layers.h"
#include "map/nearby.h"

namespace zerbal::map {
namespace {

/// Nothing for a text that cannot be read: the map may show the airport without it.
template <typename Read>
std::string ReadableText(const Read& read) {
  try {
    return std::string(read());
  } catch (const std::exception&) {
    return {};
  }
}

std::string Whole(double value) {
  return std::to_string(std::llround(value));
}

/// The airport's city, when it is known, and its code.
std::string CityAndCode(std::string_view code, const data::Airports& destinations) {
  std::string text = ReadableText([&] {
    const std::optional<data::Airport> airport = destinations.Find(code);
    return airport ? airport->City() : std::string_view();
  });
  if (!text.empty())
    text += ' ';
  return text.append(code);
}

std::string LengthText(MapPosition from, MapPosition to) {
  const std::optional<double> metres = data::GreatCircleMetres(ToGeoPosition(from), ToGeoPosition(to));
  if (!metres)
    return {};
  return ", " + Whole(*metres / data::kMetresPerKilometre) + " km, " +
         Whole(*metres / data::kMetresPerNauticalMile) + " nautical miles";
}

}  // namespace

std::string AirportLabel(const data::Airport& airport) {
  const std::string name = ReadableText([&] { return airport.Name(); });
  const std::string city = ReadableText([&] { return airport.City(); });
  std::string label;
  AppendAirportLabel(label, {airport.Code(), name, city}, true);
  return label;
}

std::string AirportText(const data::Airport& airport) {
  std::string text = AirportLabel(airport);
  if (const std::optional<std::int32_t> elevation = airport.Elevation())
    text.append(", elevation ").append(std::to_string(*elevation)).append(" ft");
  if (const std::optional<std::int32_t> runways = airport.Runways())
    text.append(", ").append(std::to_string(*runways)).append(*runways == 1 ? " runway" : " runways");
  if (const std::optional<std::int32_t> longest = airport.LongestRunway())
    text.append(", longest ").append(std::to_string(*longest)).append(" ft");
  if (const std::optional<bool> ils = airport.HasIls())
    text += *ils ? ", ILS" : ", no ILS";
  return text;
}

std::string FlightText(const data::Flight& flight, const data::FlightService* service) {
  return flight.number + " (" + (service != nullptr ? service->displayText : flight.service) + ")";
}

std::string LegText(const data::Flight& flight, const data::FlightService* service, const Route& route,
                    std::size_t leg, const data::Airports& destinations) {
  const RoutePoint& from = route.Point(leg - 1);
  const RoutePoint& to = route.Point(leg);
  std::string text = FlightText(flight, service) + ": ";
  text.append(CityAndCode(from.code, destinations)).append(" -> ").append(CityAndCode(to.code, destinations));
  text.append(", leg ").append(std::to_string(leg)).append(" of ").append(std::to_string(route.Legs()));
  return text.append(LengthText(from.position, to.position));
}

std::string NearbyText(const std::vector<std::string>& lines) {
  std::string text;
  for (std::size_t i = 0; i < lines.size() && i < kMostNearbyLines; ++i)
    text.append(i > 0 ? "\n" : "").append(lines[i]);
  if (lines.size() > kMostNearbyLines)
    text.append("\nand ").append(std::to_string(lines.size() - kMostNearbyLines)).append(" more");
  return text;
}

}  // namespace zerbal::map
