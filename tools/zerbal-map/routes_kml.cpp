#include "zerbal-map/routes_kml.h"

#include <string_view>

#include "zerbal-map/route_line.h"
#include "zerbal-map/xml_text.h"

namespace zerbal::mapcommand {
namespace {

std::string Element(std::string_view name, std::string_view text) {
  return std::string("<").append(name).append(">").append(text).append("</").append(name).append(">");
}

/// An XML name, a different one for each key: bytes other than ASCII letters and digits are ".xx".
std::string StyleId(std::string_view service) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string id = "service-";
  for (const char c : service) {
    const auto byte = static_cast<unsigned char>(c);
    if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'))
      id += c;
    else
      id.append({'.', kDigits[byte / 16], kDigits[byte % 16]});
  }
  return id;
}

/// Opaque, in the order of KML: aabbggrr.
std::string ColourElement(data::Rgb rgb) {
  return Element("color", "ff" + ColourText({rgb.blue, rgb.green, rgb.red}).substr(1));
}

std::string ServiceStyle(const RouteService& service) {
  return "<Style id=\"" + StyleId(service.key) + "\">" +
         Element("LineStyle", ColourElement(service.rgb) + Element("width", std::to_string(kRouteWidth))) +
         "</Style>\n";
}

std::string AirportStyle(const char* id, data::Rgb rgb) {
  return std::string("<Style id=\"") + id + "\">" +
         Element("IconStyle", ColourElement(rgb) + Element("scale", "0.5")) +
         Element("LabelStyle", Element("scale", "0.7")) + "</Style>\n";
}

/// Properties without a value are left out.
std::string ExtendedData(const std::vector<Attribute>& attributes) {
  std::string text;
  for (const Attribute& attribute : attributes) {
    if (!attribute.IsNull())
      text.append("<Data name=\"")
          .append(attribute.name)
          .append("\">")
          .append(Element("value", ValueText(attribute, XmlText)))
          .append("</Data>");
  }
  return Element("ExtendedData", text);
}

std::string Tuple(GeoPosition position) {
  return NumberText(position.lon, kDegreeDecimals) + "," + NumberText(position.lat, kDegreeDecimals);
}

std::string LineElement(const RouteLine& line) {
  std::string tuples;
  for (const GeoPosition position : line)
    tuples.append(tuples.empty() ? "" : " ").append(Tuple(position));
  return Element("LineString", Element("tessellate", "1") + Element("coordinates", tuples));
}

std::string FlightPlacemarks(const RouteFlight& flight) {
  const auto lines = CutAtAntimeridian(flight.points, CutAt::kGreatCircle);
  std::string text;
  for (const RouteLine& line : lines)
    text += LineElement(line);
  return lines.size() > 1 ? Element("MultiGeometry", text) : text;
}

std::string Placemark(std::string_view name, const std::string& style,
                      const std::vector<Attribute>& attributes, const std::string& geometry) {
  return Element("Placemark", Element("name", XmlText(name)) + Element("styleUrl", "#" + style) +
                                  ExtendedData(attributes) + geometry) +
         "\n";
}

std::string Folder(std::string_view name, const std::string& placemarks) {
  return "<Folder>\n" + Element("name", XmlText(name)) + "\n" + placemarks + "</Folder>\n";
}

std::string ServiceFolders(const Routes& routes) {
  std::vector<std::string> placemarks(routes.services.size());
  for (const RouteFlight& flight : routes.flights) {
    const RouteService& service = routes.services.at(flight.service);
    placemarks[flight.service] += Placemark(flight.number, StyleId(service.key),
                                            AttributesOf(flight, service), FlightPlacemarks(flight));
  }
  std::string text;
  for (std::size_t i = 0; i < placemarks.size(); ++i)
    text += Folder(routes.services[i].name, placemarks[i]);
  return text;
}

std::string AirportFolder(const Routes& routes) {
  if (routes.airports.empty())
    return "";
  std::string placemarks;
  for (const RouteAirport& airport : routes.airports)
    placemarks +=
        Placemark(airport.code, airport.destination ? "destination" : "airport", AttributesOf(airport),
                  Element("Point", Element("coordinates", Tuple(airport.position))));
  return Folder("Airports", placemarks);
}

}  // namespace

std::string KmlOf(const Routes& routes) {
  std::string styles;
  for (const RouteService& service : routes.services)
    styles += ServiceStyle(service);
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<kml xmlns=\"http://www.opengis.net/kml/2.2\">\n<Document>\n<name>Flights</name>\n" +
         styles + AirportStyle("destination", routes.destinationRgb) +
         AirportStyle("airport", routes.airportRgb) + ServiceFolders(routes) + AirportFolder(routes) +
         "</Document>\n</kml>\n";
}

}  // namespace zerbal::mapcommand
