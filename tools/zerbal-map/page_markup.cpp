#include "zerbal-map/page_markup.h"

#include <cmath>
#include <numbers>
#include <set>
#include <string_view>
#include <tuple>
#include <vector>

#include "zerbal-map/page_data.h"
#include "zerbal-map/page_lines.h"
#include "zerbal-map/routes.h"
#include "zerbal-map/xml_text.h"

namespace zerbal::mapcommand {
namespace {

std::tuple<std::int32_t, std::int32_t> Pair(TwipPoint point) {
  return {point.x, point.y};
}

/// The same for both directions of a line.
std::string UndirectedPath(map::ContentsLine line) {
  if (Pair(line.back()) < Pair(line.front()))
    std::ranges::reverse(line);
  return PathText(line);
}

std::string Place(double x, double y) {
  return "--x:" + NumberText(x, 1) + "px;--y:" + NumberText(y, 1) + "px";
}

/// At a quarter of the line's first part, in its direction, as on the drawn map.
std::string AircraftElement(const map::ContentsLine& line) {
  const double dx = static_cast<double>(line[1].x) - line[0].x;
  const double dy = static_cast<double>(line[1].y) - line[0].y;
  if (dx == 0 && dy == 0)
    return "";
  const double turn = std::atan2(dy, dx) * 180 / std::numbers::pi;
  return "<use class=\"aircraft\" href=\"#aircraft\" style=\"" +
         Place(line[0].x + dx / 4, line[0].y + dy / 4) + ";--turn:" + NumberText(turn, 1) + "deg\"/>";
}

std::string DotsPath(const Page& page, bool destinations) {
  std::string path;
  for (const map::ContentsAirport& airport : page.contents.airports) {
    if (airport.destination == destinations)
      path += "M" + std::to_string(airport.centre.x) + " " + std::to_string(airport.centre.y) + "h0";
  }
  return path;
}

/// Everything but letters and digits of ASCII as "%" and two hexadecimal digits.
std::string PercentEncoded(std::string_view text) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string encoded;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    if ((byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z'))
      encoded += character;
    else
      encoded.append({'%', kDigits[byte / 16], kDigits[byte % 16]});
  }
  return encoded;
}

std::string FlightRow(const Page& page, std::size_t at) {
  const map::ContentsFlight& flight = page.contents.flights[at];
  return "<tr id=\"flight-" + std::to_string(at) +
         "\"><th scope=\"row\"><a href=\"#flight=" + PercentEncoded(FlightId(page, at)) + "\">" +
         XmlText(flight.number) + "</a></th><td>" + XmlText(RouteText(flight.route)) + "</td><td>" +
         LengthText(flight) + "</td></tr>\n";
}

std::vector<std::size_t> FlightsOf(const Page& page, std::size_t service) {
  std::vector<std::size_t> positions;
  for (std::size_t i = 0; i < page.contents.flights.size(); ++i) {
    if (page.contents.flights[i].service == service)
      positions.push_back(i);
  }
  return positions;
}

/// Swatch, name and number of flights of a service.
std::string ServiceText(const Page& page, std::size_t service, std::size_t flights) {
  return "<span class=\"swatch\"></span><span class=\"name\">" +
         XmlText(page.contents.services[service].name) + "</span><span class=\"count\">" +
         std::to_string(flights) + "</span>";
}

}  // namespace

std::string ServiceLines(const Page& page) {
  const std::size_t count = page.contents.services.size();
  std::vector<std::set<std::string>> paths(count);
  std::vector<std::set<std::string>> symbols(count);
  for (const map::ContentsFlight& flight : page.contents.flights) {
    for (const map::ContentsLeg& leg : flight.legs) {
      for (const map::ContentsLine& line : leg.lines) {
        paths[flight.service].insert(UndirectedPath(line));
        if (page.display.aircraftSymbols)
          symbols[flight.service].insert(AircraftElement(line));
      }
    }
  }
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    text += "<g class=\"s" + std::to_string(i) + "\"><path d=\"";
    for (const std::string& path : paths[i])
      text += path;
    text += "\"/>";
    for (const std::string& symbol : symbols[i])
      text += symbol;
    text += "</g>\n";
  }
  return text;
}

std::string Marks(const Page& page) {
  std::string text = "<path class=\"airports\" d=\"" + DotsPath(page, false) +
                     "\"/>\n<path class=\"destinations\" d=\"" + DotsPath(page, true) + "\"/>\n";
  if (page.display.centreOfMap)
    text += "<path class=\"centre\" d=\"M-4 0a4 4 0 1 0 8 0a4 4 0 1 0-8 0h8M0-4v8\" style=\"" +
            Place(page.width / 2.0, page.height / 2.0) + "\"/>\n";
  return text;
}

std::string ServiceBoxes(const Page& page) {
  std::string text;
  for (std::size_t i = 0; i < page.contents.services.size(); ++i)
    text += "<li class=\"s" + std::to_string(i) +
            "\"><label><input type=\"checkbox\" checked autocomplete=\"off\">" +
            ServiceText(page, i, FlightsOf(page, i).size()) + "</label></li>\n";
  return text;
}

std::string FlightLists(const Page& page) {
  std::string text;
  for (std::size_t i = 0; i < page.contents.services.size(); ++i) {
    const std::vector<std::size_t> flights = FlightsOf(page, i);
    text += "<details class=\"s" + std::to_string(i) + "\"><summary>" + ServiceText(page, i, flights.size()) +
            "</summary>\n<table><thead><tr><th scope=\"col\">Flight</th><th scope=\"col\">Route</th>"
            "<th scope=\"col\">Length</th></tr></thead><tbody>\n";
    for (const std::size_t flight : flights)
      text += FlightRow(page, flight);
    text += "</tbody></table></details>\n";
  }
  return text.empty() ? "<p class=\"note\">The map shows no flights.</p>\n" : text;
}

}  // namespace zerbal::mapcommand
