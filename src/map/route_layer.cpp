#include <exception>
#include <string>
#include <string_view>

#include "map/layers.h"
#include "map/leg.h"
#include "map/route.h"

namespace zerbal::map {

namespace {

/// Draws one flight after the other; keeps its buffers.
class FlightPainter {
 public:
  FlightPainter(Canvas& canvas, const MapScene& scene)
      : canvas_(canvas),
        options_(scene.options),
        airportColour_(scene.style.colours[data::ColourCode::kApDest]),
        symbolColour_(scene.style.colours[data::ColourCode::kAcSymb]),
        route_(scene.databases.destinations, options_.flightAirports) {}

  /// A flight without a service is black.
  void Draw(const data::Flight& flight, const data::FlightService* service) {
    if (!route_.Read(flight, canvas_.viewport))
      return;
    const data::Rgb colour = service != nullptr ? service->rgb : data::Rgb{};
    route_.Visit(
        canvas_.viewport,
        [&](std::size_t leg, TwipPoint start, TwipPoint end) {
          canvas_.surface.Line(start, end, {.colour = colour});
          DrawSymbol(flight.number, leg, start, end, colour);
        },
        [&](const RoutePoint& point, MapPosition position) { DrawRouteAirport(point, position); });
  }

 private:
  void DrawSymbol(std::string_view number, std::size_t leg, TwipPoint start, TwipPoint end,
                  data::Rgb colour) {
    if (!options_.flightNumbers && !options_.aircraftSymbols)
      return;
    MakeLabel(number, leg);
    DrawLegSymbol(canvas_, start, end, label_,
                  {.symbol = options_.aircraftSymbols,
                   .label = options_.flightNumbers,
                   .symbolColour = symbolColour_,
                   .labelColour = colour});
  }

  void MakeLabel(std::string_view number, std::size_t leg) {
    label_ = number;
    if (options_.legNumbers)
      label_.append(" (")
          .append(std::to_string(leg))
          .append("/")
          .append(std::to_string(route_.Legs()))
          .append(")");
  }

  void DrawRouteAirport(const RoutePoint& point, MapPosition position) {
    if (!options_.flightAirports)
      return;
    try {
      DrawAirport(canvas_, {point.code, point.name, point.city}, position, airportColour_);
    } catch (const std::exception&) {
      // An airport that cannot be drawn costs neither its flight nor the others.
    }
  }

  Canvas& canvas_;
  const data::DisplayOptions& options_;
  data::Rgb airportColour_;
  data::Rgb symbolColour_;
  Route route_;
  std::string label_;
};

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
  VisitServiceFlights(scene, [&](const data::Flight& flight, const data::FlightService* service) {
    painter.Draw(flight, service);
  });
}

void DrawSelectedFlights(Canvas& canvas, const MapScene& scene) {
  FlightPainter painter(canvas, scene);
  VisitSelectedFlights(scene, [&](const data::Flight& flight, const data::FlightService* service) {
    painter.Draw(flight, service);
  });
}

int CountFlightsInView(const MapScene& scene) {
  LineCounter counter;
  Canvas canvas{scene.viewport, counter, {}};
  FlightPainter painter(canvas, scene);
  int flights = 0;
  VisitShownFlights(scene, [&](const data::Flight& flight, const data::FlightService* service) {
    const int before = counter.Lines();
    painter.Draw(flight, service);
    flights += counter.Lines() > before ? 1 : 0;
  });
  return flights;
}

}  // namespace zerbal::map
