#include "zerbal-map/gpkg_style.h"

#include "zerbal-map/xml_text.h"

namespace zerbal::mapcommand {
namespace {

std::string Category(const RouteService& service, const std::string& symbol) {
  return "<category value=\"" + XmlText(service.key) + "\" label=\"" + XmlText(service.name) +
         "\" symbol=\"" + symbol + "\" type=\"string\" render=\"true\"/>\n";
}

std::string Property(const char* key, const std::string& value) {
  return std::string("<prop k=\"") + key + "\" v=\"" + value + "\"/>";
}

std::string Symbol(data::Rgb rgb, const std::string& symbol) {
  const std::string colour =
      std::to_string(rgb.red) + "," + std::to_string(rgb.green) + "," + std::to_string(rgb.blue) + ",255";
  return "<symbol name=\"" + symbol + "\" type=\"line\" alpha=\"1\"><layer class=\"SimpleLine\" pass=\"0\">" +
         Property("line_color", colour) + Property("line_style", "solid") +
         Property("line_width", std::to_string(kRouteWidth)) + Property("line_width_unit", "Pixel") +
         "</layer></symbol>\n";
}

}  // namespace

std::string FlightStyleOf(const std::vector<RouteService>& services) {
  std::string categories;
  std::string symbols;
  for (std::size_t i = 0; i < services.size(); ++i) {
    categories += Category(services[i], std::to_string(i));
    symbols += Symbol(services[i].rgb, std::to_string(i));
  }
  return "<qgis version=\"3.0\" styleCategories=\"Symbology\">\n"
         "<renderer-v2 type=\"categorizedSymbol\" attr=\"service\" symbollevels=\"0\">\n<categories>\n" +
         categories + "</categories>\n<symbols>\n" + symbols + "</symbols>\n</renderer-v2>\n</qgis>\n";
}

}  // namespace zerbal::mapcommand
