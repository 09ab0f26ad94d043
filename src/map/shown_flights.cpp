#include "map/shown_flights.h"

#include "map/route.h"

namespace zerbal::map {
namespace {

bool HasLineInView(const Route& route, const Viewport& viewport) {
  bool found = false;
  route.Visit(
      viewport, [&](std::size_t, TwipPoint, TwipPoint) { found = true; },
      [](const RoutePoint&, MapPosition) {});
  return found;
}

}  // namespace

void VisitFlights(const MapScene& scene, FlightExtent extent, const FlightVisitor& visit) {
  Route route(scene.databases.destinations, false);
  VisitShownFlights(scene, [&](const data::Flight& flight, const data::FlightService* service) {
    if (extent == FlightExtent::kAll ||
        (route.Read(flight, scene.viewport) && HasLineInView(route, scene.viewport)))
      visit(flight, service);
  });
}

}  // namespace zerbal::map
