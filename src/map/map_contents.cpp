#include "map/map_contents.h"

#include <algorithm>
#include <exception>
#include <map>
#include <set>
#include <utility>

#include "data/great_circle.h"
#include "map/layers.h"
#include "map/nearby_text.h"
#include "map/route.h"

namespace zerbal::map {
namespace {

class ContentsLister {
 public:
  ContentsLister(const MapScene& scene, FlightExtent extent)
      : scene_(scene), extent_(extent), route_(scene.databases.destinations, false) {}

  MapContents List() && {
    // The order of the tool tip: of an airport in both tables it shows the values of all airports.
    if (scene_.options.allAirports)
      AddLayer(scene_.databases.allAirports, scene_.allAirportCriteria, false);
    if (scene_.options.destinations)
      AddLayer(scene_.databases.destinations, scene_.destinationCriteria, true);
    VisitShownFlights(scene_, [this](const data::Flight& flight, const data::FlightService* service) {
      if (route_.Read(flight, scene_.viewport))
        AddFlight(flight, service);
    });
    for (auto& [code, airport] : airports_)
      contents_.airports.push_back(std::move(airport));
    return std::move(contents_);
  }

 private:
  void AddLayer(const data::Airports& airports, const data::AirportCriteria& criteria, bool destinations) {
    VisitAirportsInView(scene_.viewport, airports, criteria,
                        [&](const data::Airport& airport, TwipPoint centre) {
                          ContentsAirport& added = AddAirport(airport, centre);
                          added.destination |= destinations;
                          added.ofLayer = true;
                        });
  }

  ContentsAirport& AddAirport(const data::Airport& airport, TwipPoint centre) {
    std::string code(airport.Code());
    const auto known = airports_.find(code);
    if (known != airports_.end())
      return known->second;
    ContentsAirport added{code, AirportLabel(airport), AirportText(airport), centre};
    return airports_.emplace(std::move(code), std::move(added)).first->second;
  }

  void AddFlight(const data::Flight& flight, const data::FlightService* service) {
    // Several flights may have no key.
    if (!flight.key.empty() && keys_.contains(flight.key))
      return;
    std::vector<std::vector<ContentsLine>> lines = LinesOfLegs();
    if (extent_ == FlightExtent::kView && std::ranges::all_of(lines, &std::vector<ContentsLine>::empty))
      return;
    keys_.insert(flight.key);
    ContentsFlight added{
        flight.key, flight.number, ServiceOf(flight, service), FlightText(flight, service), flight.route,
        {},         Length()};
    for (std::size_t leg = 1; leg <= route_.Legs(); ++leg)
      added.legs.push_back(
          {LegText(flight, service, route_, leg, scene_.databases.destinations), std::move(lines[leg - 1])});
    contents_.flights.push_back(std::move(added));
    if (scene_.options.flightAirports)
      AddAirportsOfRoute();
  }

  std::vector<std::vector<ContentsLine>> LinesOfLegs() const {
    std::vector<std::vector<ContentsLine>> lines(route_.Legs());
    route_.Visit(
        scene_.viewport,
        [&](std::size_t leg, TwipPoint start, TwipPoint end) {
          const ContentsLine line{start, end};
          std::vector<ContentsLine>& known = lines[leg - 1];
          if (std::ranges::find(known, line) == known.end())
            known.push_back(line);
        },
        [](const RoutePoint&, MapPosition) {});
    return lines;
  }

  std::optional<double> Length() const {
    double metres = 0;
    for (std::size_t leg = 1; leg <= route_.Legs(); ++leg) {
      const auto length = data::GreatCircleMetres(ToGeoPosition(route_.Point(leg - 1).position),
                                                  ToGeoPosition(route_.Point(leg).position));
      if (!length)
        return std::nullopt;
      metres += *length;
    }
    return metres;
  }

  std::size_t ServiceOf(const data::Flight& flight, const data::FlightService* service) {
    const auto [known, isNew] = services_.emplace(flight.service, contents_.services.size());
    if (isNew && service != nullptr)
      contents_.services.push_back({flight.service, service->displayText, service->rgb});
    else if (isNew)
      contents_.services.push_back({flight.service, flight.service, {}});
    return known->second;
  }

  void AddAirportsOfRoute() {
    for (std::size_t n = 0; n <= route_.Legs(); ++n) {
      const RoutePoint& point = route_.Point(n);
      const auto centre = ProjectAirport(scene_.viewport, point.position);
      if (!centre)
        continue;
      try {
        if (const auto airport = scene_.databases.destinations.Find(point.code))
          AddAirport(*airport, *centre).destination = true;
      } catch (const std::exception&) {
        // This airport is left out.
      }
    }
  }

  const MapScene& scene_;
  FlightExtent extent_;
  Route route_;
  MapContents contents_;
  std::set<std::string> keys_;
  std::map<std::string, std::size_t> services_;
  std::map<std::string, ContentsAirport> airports_;
};

}  // namespace

MapContents ContentsOf(const MapScene& scene, FlightExtent extent) {
  return scene.viewport.HasArea() ? ContentsLister(scene, extent).List() : MapContents();
}

}  // namespace zerbal::map
