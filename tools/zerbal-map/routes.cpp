#include "zerbal-map/routes.h"

#include <charconv>
#include <cmath>
#include <type_traits>

namespace zerbal::mapcommand {
namespace {

using Value = decltype(Attribute::value);

Value Whole(const std::optional<std::int32_t>& value) {
  return value ? Value(std::int64_t{*value}) : Value();
}

/// Metres are the finest unit, so that the last bits of the computation do not show.
Value Kilometres(const std::optional<double>& metres) {
  return metres ? Value(std::round(*metres) / 1000) : Value();
}

}  // namespace

std::vector<Attribute> AttributesOf(const RouteFlight& flight, const RouteService& service) {
  const std::size_t legs = flight.route.empty() ? 0 : flight.route.size() - 1;
  return {{"number", "TEXT", flight.number},
          {"key", "TEXT", flight.key},
          {"service", "TEXT", service.key},
          {"service_name", "TEXT", service.name},
          {"route", "TEXT", RouteText(flight.route)},
          {"legs", "INTEGER", static_cast<std::int64_t>(legs)},
          {"length_km", "REAL", Kilometres(flight.metres)}};
}

std::vector<Attribute> AttributesOf(const RouteAirport& airport) {
  return {{"code", "TEXT", airport.code},
          {"name", "TEXT", airport.name},
          {"city", "TEXT", airport.city},
          {"elevation_ft", "INTEGER", Whole(airport.elevation)},
          {"runways", "INTEGER", Whole(airport.runways)},
          {"longest_runway_ft", "INTEGER", Whole(airport.longestRunway)},
          {"ils", "BOOLEAN", airport.ils ? Value(*airport.ils) : Value()},
          {"destination", "BOOLEAN", airport.destination}};
}

std::string ValueText(const Attribute& attribute, std::string (*escape)(std::string_view text)) {
  return std::visit(
      [=](const auto& value) -> std::string {
        using Type = std::decay_t<decltype(value)>;
        if constexpr (std::is_same_v<Type, base::Null>)
          return "";
        else if constexpr (std::is_same_v<Type, std::string>)
          return escape(value);
        else if constexpr (std::is_same_v<Type, bool>)
          return value ? "true" : "false";
        else if constexpr (std::is_same_v<Type, double>)
          return NumberText(value, kLengthDecimals);
        else
          return std::to_string(value);
      },
      attribute.value);
}

std::string RouteText(const std::vector<std::string>& codes) {
  std::string text;
  for (const std::string& code : codes)
    text.append(text.empty() ? "" : " ").append(code);
  return text;
}

std::string ColourText(data::Rgb rgb) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text = "#";
  for (const std::uint8_t part : {rgb.red, rgb.green, rgb.blue})
    text.append({kDigits[part / 16], kDigits[part % 16]});
  return text;
}

std::string NumberText(double value, int decimals) {
  char digits[512];
  const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals);
  std::string text(digits, end.ptr);
  if (text.find('.') != std::string::npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
      text.pop_back();
  }
  return text == "-0" ? "0" : text;
}

}  // namespace zerbal::mapcommand
