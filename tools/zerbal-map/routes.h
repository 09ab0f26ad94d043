// Flights and airports as map data: what every format of such files contains.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "base/coordinates.h"
#include "base/null.h"
#include "data/rgb.h"

namespace zerbal::mapcommand {

struct RouteService {
  std::string key;
  std::string name;  ///< as in lists; the key when the service is not in the table
  data::Rgb rgb;
};

struct RouteFlight {
  std::string key;
  std::string number;
  std::size_t service = 0;         ///< position in Routes::services
  std::vector<std::string> route;  ///< airport codes
  /// Of the airports of the route; none when one of them is not among the destinations or not on the globe.
  std::vector<GeoPosition> points;
  std::optional<double> metres;  ///< great-circle length of all legs
};

struct RouteAirport {
  std::string code;
  std::string name;
  std::string city;
  GeoPosition position;
  std::optional<std::int32_t> elevation;      ///< feet
  std::optional<std::int32_t> runways;        ///< how many
  std::optional<std::int32_t> longestRunway;  ///< feet
  std::optional<bool> ils;
  bool destination = false;
};

struct Routes {
  std::vector<RouteService> services;  ///< of the flights, in the order of their first flights
  std::vector<RouteFlight> flights;    ///< each key once
  std::vector<RouteAirport> airports;  ///< each code once, in the order of the codes
  data::Rgb destinationRgb;
  data::Rgb airportRgb;  ///< of airports that are no destinations

  data::Rgb ColourOf(const RouteAirport& airport) const {
    return airport.destination ? destinationRgb : airportRgb;
  }
};

/// A property of a flight or an airport. Without a value it is null.
struct Attribute {
  const char* name;
  const char* type;  ///< in SQL
  std::variant<base::Null, std::string, std::int64_t, double, bool> value;

  bool IsNull() const { return std::holds_alternative<base::Null>(value); }
};

std::vector<Attribute> AttributesOf(const RouteFlight& flight, const RouteService& service);
std::vector<Attribute> AttributesOf(const RouteAirport& airport);

/// Numbers, `true` and `false` as JSON and XML write them; texts as `escape` gives them; nothing for null.
std::string ValueText(const Attribute& attribute, std::string (*escape)(std::string_view text));

/// "OSL BGO": the codes with blanks between them.
std::string RouteText(const std::vector<std::string>& codes);

/// "#rrggbb".
std::string ColourText(data::Rgb rgb);

/// At most `decimals` decimals, without zeros at the end. Does not depend on the locale.
std::string NumberText(double value, int decimals);

/// Decimals of degrees: 0.1 m on the earth.
inline constexpr int kDegreeDecimals = 6;

/// Decimals of kilometres in texts.
inline constexpr int kLengthDecimals = 3;

/// Width of a route in the styles, pixels.
inline constexpr int kRouteWidth = 2;

}  // namespace zerbal::mapcommand
