// The shown flights, and where their legs run over the map's plane. Internal to map/.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "data/airports.h"
#include "data/flight.h"
#include "data/schedule.h"
#include "map/draw_map.h"
#include "map/leg.h"
#include "map/viewport.h"

namespace zerbal::map {

struct RoutePoint {
  MapPosition position;
  std::string code;
  std::string name, city;  ///< only when they are asked for
};

/// The airports of one flight after the other. Looks each airport up once, so it serves one drawing: it does
/// not notice that the table changes afterwards.
class Route {
 public:
  Route(const data::Airports& destinations, bool withTexts)
      : destinations_(destinations), withTexts_(withTexts) {}

  /// False when an airport is not among the destinations.
  bool Read(const data::Flight& flight, const Viewport& viewport);

  std::size_t Legs() const { return count_ - 1; }
  /// The ends of leg n (from 1) are the points n - 1 and n.
  const RoutePoint& Point(std::size_t n) const { return *points_[n]; }

  /// In the order of drawing: calls `line(leg, start, end)` for each part of a leg that is in view, and after
  /// each leg `airport(point, position)` for the airport at its start, in view or not; at the end for the
  /// last one. All of it comes again one turn further east when an airport is seen there.
  template <typename Line, typename Airport>
  void Visit(const Viewport& viewport, const Line& line, const Airport& airport) const {
    VisitPass(viewport, 0.0F, line, airport);
    if (secondPass_)
      VisitPass(viewport, 360.0F, line, airport);
  }

 private:
  static MapPosition Shifted(MapPosition position, float offset) {
    return {position.lon + offset, position.lat};
  }

  template <typename Line, typename Airport>
  void VisitPass(const Viewport& viewport, float offset, const Line& line, const Airport& airport) const {
    for (std::size_t leg = 1; leg < count_; ++leg) {
      const MapPosition from = Shifted(Point(leg - 1).position, offset);
      const MapPosition to = Shifted(Point(leg).position, offset);
      const auto draw = [&](TwipPoint start, TwipPoint end) { line(leg, start, end); };
      if (VisitLine(viewport, from, to, draw))
        VisitLine(viewport, Shifted(from, -360.0F), Shifted(to, -360.0F), draw);
      airport(Point(leg - 1), from);
    }
    airport(Point(count_ - 1), Shifted(Point(count_ - 1).position, offset));
  }

  /// Returns whether the leg goes the short way round through 360.
  template <typename Line>
  static bool VisitLine(const Viewport& viewport, MapPosition from, MapPosition to, const Line& line) {
    const bool wrapped = std::fabs(static_cast<double>(from.lon) - to.lon) > 180.0;
    if (wrapped)
      (from.lon < to.lon ? from : to).lon += 360.0F;
    if (ClipLeg(viewport, from, to))
      line(viewport.PictureAt(from), viewport.PictureAt(to));
    return wrapped;
  }

  /// Null when the code is not among the destinations.
  const RoutePoint* Find(const std::string& code);

  const data::Airports& destinations_;
  bool withTexts_;
  std::unordered_map<std::string, std::optional<RoutePoint>> known_;  ///< by code; references stay valid
  std::array<const RoutePoint*, data::kMaxStopovers + 2> points_{};
  std::size_t count_ = 0;
  bool secondPass_ = false;
};

/// The last one of that key; null when there is none.
const data::FlightService* FindService(const data::FlightServiceTable& services, std::string_view key);

/// Calls `visit` with each flight that is shown in service mode, and its service.
template <typename Visit>
void VisitServiceFlights(const MapScene& scene, const Visit& visit) {
  for (const data::FlightService& service : scene.services)
    if (service.displayFlag)
      scene.databases.schedule.VisitFlights(service.key, [&](const data::FlightRow& row) {
        visit(row.Read(), &service);
        return true;
      });
}

/// The same for selected flights. The service is null when it is not in the table.
template <typename Visit>
void VisitSelectedFlights(const MapScene& scene, const Visit& visit) {
  for (const std::string& key : scene.flights.selectedFlights) {
    const std::optional<data::FlightRow> row = scene.databases.schedule.Find(key);
    if (!row)
      continue;
    const data::Flight& flight = row->Read();
    visit(flight, FindService(scene.services, flight.service));
  }
}

template <typename Visit>
void VisitShownFlights(const MapScene& scene, const Visit& visit) {
  if (scene.flights.serviceMode)
    VisitServiceFlights(scene, visit);
  else
    VisitSelectedFlights(scene, visit);
}

}  // namespace zerbal::map
