#include "zerbal-map/page_data.h"

#include <cmath>
#include <string_view>

#include "base/json_text.h"
#include "data/great_circle.h"

namespace zerbal::mapcommand {
namespace {

using base::JsonText;

/// Joins texts with commas.
class JsonList {
 public:
  void Add(const std::string& item) { text_.append(text_.empty() ? "" : ",").append(item); }
  std::string Array() const { return "[" + text_ + "]"; }

 private:
  std::string text_;
};

std::string Flag(bool value) {
  return value ? "true" : "false";
}

/// The rest of a text after its beginning.
std::string_view After(std::string_view beginning, std::string_view text) {
  return text.substr(beginning.size());
}

std::string AirportJson(const map::ContentsAirport& airport) {
  return "{\"code\":" + JsonText(airport.code) + ",\"label\":" + JsonText(airport.label) +
         ",\"facts\":" + JsonText(After(airport.label, airport.text)) +
         ",\"x\":" + std::to_string(airport.centre.x) + ",\"y\":" + std::to_string(airport.centre.y) +
         ",\"destination\":" + Flag(airport.destination) + ",\"layer\":" + Flag(airport.ofLayer) + "}";
}

std::string LegJson(const map::ContentsFlight& flight, const map::ContentsLeg& leg) {
  JsonList lines;
  for (const map::ContentsLine& line : leg.lines) {
    JsonList numbers;
    for (const TwipPoint point : line) {
      numbers.Add(std::to_string(point.x));
      numbers.Add(std::to_string(point.y));
    }
    lines.Add(numbers.Array());
  }
  return "{\"text\":" + JsonText(After(flight.text + ": ", leg.text)) + ",\"lines\":" + lines.Array() + "}";
}

std::string FlightJson(const Page& page, std::size_t at) {
  const map::ContentsFlight& flight = page.contents.flights[at];
  JsonList route;
  for (const std::string& code : flight.route)
    route.Add(JsonText(code));
  JsonList legs;
  for (const map::ContentsLeg& leg : flight.legs)
    legs.Add(LegJson(flight, leg));
  return "{\"id\":" + JsonText(FlightId(page, at)) + ",\"number\":" + JsonText(flight.number) +
         ",\"service\":" + std::to_string(flight.service) + ",\"text\":" + JsonText(flight.text) +
         ",\"length\":" + JsonText(LengthText(flight)) + ",\"route\":" + route.Array() +
         ",\"legs\":" + legs.Array() + "}";
}

std::string OptionsJson(const data::DisplayOptions& display) {
  return "{\"numbers\":" + Flag(display.flightNumbers) + ",\"legNumbers\":" + Flag(display.legNumbers) + "}";
}

std::string WithoutMarkup(const std::string& json) {
  std::string text;
  for (const char character : json) {
    if (character == '<')
      text += "\\u003c";
    else
      text += character;
  }
  return text;
}

}  // namespace

std::string PageData(const Page& page) {
  JsonList services;
  for (const map::ContentsService& service : page.contents.services)
    services.Add(JsonText(service.name));
  JsonList airports;
  for (const map::ContentsAirport& airport : page.contents.airports)
    airports.Add("\n" + AirportJson(airport));
  JsonList flights;
  for (std::size_t i = 0; i < page.contents.flights.size(); ++i)
    flights.Add("\n" + FlightJson(page, i));
  return WithoutMarkup("{\"width\":" + std::to_string(page.width) +
                       ",\"height\":" + std::to_string(page.height) +
                       ",\"options\":" + OptionsJson(page.display) + ",\"services\":" + services.Array() +
                       ",\"airports\":" + airports.Array() + ",\"flights\":" + flights.Array() + "}");
}

std::string FlightId(const Page& page, std::size_t flight) {
  const std::string& key = page.contents.flights[flight].key;
  return key.empty() ? "." + std::to_string(flight) : key;
}

std::string LengthText(const map::ContentsFlight& flight) {
  return flight.metres ? std::to_string(std::llround(*flight.metres / data::kMetresPerKilometre)) + " km"
                       : std::string();
}

}  // namespace zerbal::mapcommand
