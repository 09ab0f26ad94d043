#include "zerbal-map/gather_routes.h"

#include <exception>
#include <map>
#include <set>
#include <utility>

#include "data/great_circle.h"
#include "map/layers.h"

namespace zerbal::mapcommand {
namespace {

/// Nothing when the position is not on the globe.
std::optional<GeoPosition> OnGlobe(MapPosition position) {
  // Not-a-number fails every comparison.
  if (!(position.lon >= 0) || !(position.lon <= 360) || !(position.lat >= 0) || !(position.lat <= 180))
    return std::nullopt;
  return ToGeoPosition(position);
}

std::optional<double> Length(const std::vector<GeoPosition>& points) {
  if (points.empty())
    return std::nullopt;
  double metres = 0;
  for (std::size_t i = 1; i < points.size(); ++i)
    metres += data::GreatCircleMetres(points[i - 1], points[i]).value_or(0);
  return metres;
}

class Gatherer {
 public:
  Gatherer(const map::MapScene& scene, map::FlightExtent extent) : scene_(scene), extent_(extent) {
    routes_.destinationRgb = scene.style.colours[data::ColourCode::kApDest];
    routes_.airportRgb = scene.style.colours[data::ColourCode::kApAll];
  }

  Routes Gather() && {
    map::VisitFlights(scene_, extent_,
                      [this](const data::Flight& flight, const data::FlightService* service) {
                        AddFlight(flight, service);
                      });
    // Destinations first: their values hold where an airport is in both tables.
    if (scene_.options.flightAirports)
      AddFlightAirports();
    if (scene_.options.destinations)
      AddDestinations();
    if (scene_.options.allAirports)
      AddAllAirports();
    for (auto& [code, airport] : airports_)
      routes_.airports.push_back(std::move(airport));
    return std::move(routes_);
  }

 private:
  void AddFlight(const data::Flight& flight, const data::FlightService* service) {
    // Several flights may have no key.
    if (!flight.key.empty() && !keys_.insert(flight.key).second)
      return;
    RouteFlight added{flight.key, flight.number, ServiceOf(flight, service), flight.route, {}, {}};
    for (const std::string& code : flight.route) {
      const auto airport = scene_.databases.destinations.Find(code);
      const auto position = airport ? OnGlobe(airport->Position()) : std::nullopt;
      if (!position) {
        added.points.clear();
        break;
      }
      added.points.push_back(*position);
    }
    added.metres = Length(added.points);
    routes_.flights.push_back(std::move(added));
  }

  std::size_t ServiceOf(const data::Flight& flight, const data::FlightService* service) {
    const auto [known, isNew] = services_.emplace(flight.service, routes_.services.size());
    if (isNew && service != nullptr)
      routes_.services.push_back({flight.service, service->displayText, service->rgb});
    else if (isNew)
      routes_.services.push_back({flight.service, flight.service, {}});
    return known->second;
  }

  void AddFlightAirports() {
    for (const RouteFlight& flight : routes_.flights) {
      for (const std::string& code : flight.route) {
        if (const auto airport = scene_.databases.destinations.Find(code))
          AddAirport(*airport, true);
      }
    }
  }

  void AddDestinations() {
    scene_.databases.destinations.VisitMeeting(scene_.destinationCriteria, {}, [this](const auto& airport) {
      if (IsWanted(airport))
        AddAirport(airport, true);
    });
  }

  void AddAllAirports() {
    scene_.databases.allAirports.VisitMeeting(scene_.allAirportCriteria, {}, [this](const auto& airport) {
      if (IsWanted(airport))
        AddAirport(airport, scene_.databases.destinations.Find(airport.Code()).has_value());
    });
  }

  bool IsWanted(const data::Airport& airport) const {
    try {
      return extent_ == map::FlightExtent::kAll ||
             map::ProjectAirport(scene_.viewport, airport.Position()).has_value();
    } catch (const std::exception&) {
      return false;
    }
  }

  /// An airport that cannot be read is left out, as on the map.
  void AddAirport(const data::Airport& airport, bool destination) {
    try {
      const auto position = OnGlobe(airport.Position());
      const std::string code(airport.Code());
      if (!position || airports_.contains(code))
        return;
      airports_.emplace(code, RouteAirport{code, std::string(airport.Name()), std::string(airport.City()),
                                           *position, airport.Elevation(), airport.Runways(),
                                           airport.LongestRunway(), airport.HasIls(), destination});
    } catch (const std::exception&) {
      return;
    }
  }

  const map::MapScene& scene_;
  map::FlightExtent extent_;
  Routes routes_;
  std::set<std::string> keys_;
  std::map<std::string, std::size_t> services_;
  std::map<std::string, RouteAirport> airports_;
};

}  // namespace

Routes GatherRoutes(const map::MapScene& scene, map::FlightExtent extent) {
  return Gatherer(scene, extent).Gather();
}

}  // namespace zerbal::mapcommand
