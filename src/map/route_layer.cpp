
#include <array>
#include <cmath>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include "data/schedule.h"
#include "map/layers.h"
#include "map/leg.h"

namespace zerbal::map {

namespace {

constexpr std::size_t kMaxPoints = data::kMaxStopovers + 2;

struct RoutePoint {
  MapPosition position;
  std::string_view code;
  std::string name, city;  ///< only when airports are drawn
};

/// Draws one flight after the other; keeps its buffers.
class FlightPainter {
 public:
  FlightPainter(Canvas& canvas, const MapScene& scene)
      : canvas_(canvas),
        options_(scene.options),
        airportColour_(scene.style.colours[data::ColourCode::kApDest]),
        symbolColour_(scene.style.colours[data::ColourCode::kAcSymb]),
        destinations_(scene.databases.destinations) {}

  void Draw(const data::Flight& flight, data::Rgb colour) {
    if (!ReadRoute(flight))
      return;
    colour_ = colour;
    DrawPass(flight, 0.0F);
    if (secondPass_)
      DrawPass(flight, 360.0F);
  }

 private:
  /// Looks every airport up. False when one is not among the destinations.
  bool ReadRoute(const data::Flight& flight) {
    count_ = 0;
    secondPass_ = false;
    for (const std::string& code : flight.route) {
      const std::optional<data::Airport> airport = destinations_.Find(code);
      if (!airport)
        return false;
      RoutePoint& point = points_.at(count_++);
      point.position = airport->Position();
      point.code = code;
      if (options_.flightAirports) {
        point.name = airport->Name();
        point.city = airport->City();
      }
      // West of a view that runs through 360: this end is seen one turn further east.
      if (canvas_.viewport.MapWrap() && point.position.lon < canvas_.viewport.MapLonMin())
        secondPass_ = true;
    }
    return true;
  }

  void DrawPass(const data::Flight& flight, float offset) {
    for (std::size_t leg = 1; leg < count_; ++leg) {
      const MapPosition from = Shifted(points_[leg - 1].position, offset);
      const MapPosition to = Shifted(points_[leg].position, offset);
      MakeLabel(flight.number, leg);
      if (DrawFlightLeg(from, to))
        DrawFlightLeg(Shifted(from, -360.0F), Shifted(to, -360.0F));
      DrawRouteAirport(points_[leg - 1], offset);
    }
    DrawRouteAirport(points_[count_ - 1], offset);
  }

  static MapPosition Shifted(MapPosition position, float offset) {
    return {position.lon + offset, position.lat};
  }

  void MakeLabel(std::string_view number, std::size_t leg) {
    label_ = number;
    if (options_.legNumbers)
      label_.append(" (")
          .append(std::to_string(leg))
          .append("/")
          .append(std::to_string(count_ - 1))
          .append(")");
  }

  /// Returns whether the leg goes the short way round through 360.
  bool DrawFlightLeg(MapPosition from, MapPosition to) {
    const bool wrapped = std::fabs(static_cast<double>(from.lon) - to.lon) > 180.0;
    if (wrapped)
      (from.lon < to.lon ? from : to).lon += 360.0F;
    if (!ClipLeg(canvas_.viewport, from, to))
      return wrapped;
    const TwipPoint start = canvas_.viewport.PictureAt(from);
    const TwipPoint end = canvas_.viewport.PictureAt(to);
    canvas_.surface.Line(start, end, {.colour = colour_});
    if (options_.flightNumbers || options_.aircraftSymbols)
      DrawLegSymbol(canvas_, start, end, label_,
                    {.symbol = options_.aircraftSymbols,
                     .label = options_.flightNumbers,
                     .symbolColour = symbolColour_,
                     .labelColour = colour_});
    return wrapped;
  }

  void DrawRouteAirport(const RoutePoint& point, float offset) {
    if (!options_.flightAirports)
      return;
    try {
      DrawAirport(canvas_, {point.code, point.name, point.city}, Shifted(point.position, offset),
                  airportColour_);
    } catch (const std::exception&) {
      // An airport that cannot be drawn costs neither its flight nor the others.
    }
  }

  Canvas& canvas_;
  const data::DisplayOptions& options_;
  data::Rgb airportColour_;
  data::Rgb symbolColour_;
  const data::Airports& destinations_;

  data::Rgb colour_;
  std::array<RoutePoint, kMaxPoints> points_;
  std::size_t count_ = 0;
  bool secondPass_ = false;
  std::string label_;
};

/// Every service of that name has its say; the last one counts.
data::Rgb ServiceColour(const data::FlightServiceTable& services, std::string_view name) {
  data::Rgb colour;
  for (const data::FlightService& service : services)
    if (service.key == name)
      colour = service.rgb;
  return colour;
}

/// Calls `visit` with each flight that is shown and its colour.
template <typename Visit>
void VisitServiceFlights(const MapScene& scene, const Visit& visit) {
  for (const data::FlightService& service : scene.services)
    if (service.displayFlag)
      scene.databases.schedule.VisitFlights(service.key, [&](const data::FlightRow& row) {
        visit(row.Read(), service.rgb);
        return true;
      });
}

template <typename Visit>
void VisitSelectedFlights(const MapScene& scene, const Visit& visit) {
  for (const std::string& key : scene.flights.selectedFlights) {
    const std::optional<data::FlightRow> row = scene.databases.schedule.Find(key);
    if (!row)
      continue;
    const data::Flight& flight = row->Read();
    visit(flight, ServiceColour(scene.services, flight.service));
  }
}

/// Counts what would be drawn.
class LineCounter final : public Surface {
 public:
  int Lines() const { return lines_; }

  void BeginLayer(Layer) override {}
  void Clear(data::Rgb) override {}
  void Polyline(std::span<const TwipPoint>, const Pen&) override { ++lines_; }
  void Rectangle(TwipPoint, TwipPoint, const Pen&) override {}
  void Circle(TwipPoint, std::int32_t, data::Rgb, bool) override {}
  void Text(TwipPoint, std::string_view, data::Rgb, const TextFont&) override {}

 private:
  int lines_ = 0;
};

}  // namespace

void DrawServiceFlights(Canvas& canvas, const MapScene& scene) {
  FlightPainter painter(canvas, scene);
  VisitServiceFlights(scene,
                      [&](const data::Flight& flight, data::Rgb colour) { painter.Draw(flight, colour); });
}

void DrawSelectedFlights(Canvas& canvas, const MapScene& scene) {
  FlightPainter painter(canvas, scene);
  VisitSelectedFlights(scene,
                       [&](const data::Flight& flight, data::Rgb colour) { painter.Draw(flight, colour); });
}

int CountFlightsInView(const MapScene& scene) {
  LineCounter counter;
  Canvas canvas{scene.viewport, counter, {}};
  FlightPainter painter(canvas, scene);
  int flights = 0;
  const auto count = [&](const data::Flight& flight, data::Rgb colour) {
    const int before = counter.Lines();
    painter.Draw(flight, colour);
    flights += counter.Lines() > before ? 1 : 0;
  };
  if (scene.flights.serviceMode)
    VisitServiceFlights(scene, count);
  else
    VisitSelectedFlights(scene, count);
  return flights;
}

}  // namespace zerbal::map
