#include "map/view_description.h"

#include <algorithm>
#include <exception>
#include <set>
#include <string_view>

#include "map/layers.h"
#include "map/position_text.h"

namespace zerbal::map {
namespace {

/// Collects the airports that are drawn: the text after a marker is the label of the airport.
class AirportCollector final : public Surface {
 public:
  std::size_t Count() const { return codes_.size(); }

  void BeginLayer(Layer) override {}
  void Clear(data::Rgb) override {}
  void Polyline(std::span<const TwipPoint>, const Pen&) override {}
  void Rectangle(TwipPoint, TwipPoint, const Pen&) override {}
  void Circle(TwipPoint, std::int32_t, data::Rgb, bool fill) override { marker_ = fill; }
  void Text(TwipPoint, std::string_view text, data::Rgb, const TextFont&) override {
    if (marker_)
      codes_.emplace(text.substr(0, text.find(' ')));
    marker_ = false;
  }

 private:
  bool marker_ = false;
  std::set<std::string> codes_;
};

bool Requests(const Viewport& viewport, const data::Region& region) {
  return viewport.ReqLonMin() == static_cast<float>(region.fromLon) &&
         viewport.ReqLatMin() == static_cast<float>(region.fromLat) &&
         viewport.ReqLonMax() == static_cast<float>(region.toLon) &&
         viewport.ReqLatMax() == static_cast<float>(region.toLat);
}

std::string PlaceText(const Viewport& viewport, const data::RegionTable& regions) {
  const auto region =
      std::ranges::find_if(regions.rows, [&](const data::Region& row) { return Requests(viewport, row); });
  if (region == regions.rows.begin() && region != regions.rows.end())
    return "World";
  if (region != regions.rows.end())
    return "Region " + region->name;
  const GeoPosition northWest = ToGeoPosition(MapPosition{viewport.MapLonMin(), viewport.MapLatMin()});
  const GeoPosition southEast = ToGeoPosition(MapPosition{viewport.MapLonMax(), viewport.MapLatMax()});
  return LatText(northWest.lat) + " to " + LatText(southEast.lat) + ", " + LonText(northWest.lon) + " to " +
         LonText(southEast.lon);
}

bool ShowsFlights(const MapScene& scene) {
  if (!scene.flights.serviceMode)
    return !scene.flights.selectedFlights.empty();
  return std::ranges::any_of(scene.services, &data::FlightService::displayFlag);
}

std::string LayersText(const MapScene& scene) {
  const data::DisplayOptions& options = scene.options;
  const bool detail = scene.viewport.DetailMode();
  std::string text = "coastlines";
  const auto add = [&](bool shown, std::string_view layer) {
    if (shown)
      text.append(", ").append(layer);
  };
  add(options.rivers && detail, "rivers");
  add(options.boundaries && detail, "boundaries");
  add(options.allAirports, "all airports");
  add(options.destinations, "destinations");
  add(ShowsFlights(scene), "flights");
  return text;
}

std::string CountText(std::size_t count, std::string_view one, std::string_view several) {
  return std::to_string(count).append(" ").append(count == 1 ? one : several);
}

std::size_t FlightCount(const MapScene& scene) {
  try {
    return static_cast<std::size_t>(CountFlightsInView(scene));
  } catch (const std::exception&) {
    return 0;  // the map shows none either
  }
}

}  // namespace

std::string DescribeView(const MapScene& scene) {
  AirportCollector airports;
  MapScene silent = scene;
  silent.logError = nullptr;  // the redraw has logged what cannot be read
  DrawAirportsAndFlights(silent, airports);
  return PlaceText(scene.viewport, scene.style.regions) + ". Layers: " + LayersText(scene) +
         ". In view: " + CountText(airports.Count(), "airport", "airports") + ", " +
         CountText(FlightCount(scene), "flight", "flights") + ".";
}

}  // namespace zerbal::map
