#include <exception>
#include <string>
#include <string_view>

#include "map/dashes.h"
#include "map/layers.h"
#include "map/leg.h"
#include "map/route.h"

namespace zerbal::map {

namespace {

struct AirportsOfFlights {
  const data::Airports& destinations;
  data::Rgb colour;
};

struct FlightLine {
  Pen pen;
  bool dashed = false;
};

/// Draws one flight after the other; keeps its buffers.
class FlightPainter {
 public:
  FlightPainter(Canvas& canvas, const data::DisplayOptions& options, const AirportsOfFlights& airports,
                data::Rgb symbolColour)
      : canvas_(canvas),
        options_(options),
        airportColour_(airports.colour),
        symbolColour_(symbolColour),
        route_(airports.destinations, options_.flightAirports) {}

  void Draw(const data::Flight& flight, const FlightLine& line) {
    if (!route_.Read(flight, canvas_.viewport))
      return;
    route_.Visit(
        canvas_.viewport,
        [&](std::size_t leg, TwipPoint start, TwipPoint end) {
          DrawLine(start, end, line);
          DrawSymbol(flight.number, leg, start, end, line.pen.colour);
        },
        [&](const RoutePoint& point, MapPosition position) { DrawRouteAirport(point, position); });
  }

 private:
  void DrawLine(TwipPoint start, TwipPoint end, const FlightLine& line) {
    const auto draw = [&](TwipPoint from, TwipPoint to) { canvas_.surface.Line(from, to, line.pen); };
    if (line.dashed)
      VisitDashes(start, end, draw);
    else
      draw(start, end);
  }

  void DrawSymbol(std::string_view number, std::size_t leg, TwipPoint start, TwipPoint end,
                  data::Rgb colour) {
    if (!options_.flightNumbers && !options_.aircraftSymbols)
      return;
    MakeLegLabel(label_, number, options_.legNumbers, leg, route_.Legs());
    DrawLegSymbol(canvas_, start, end, label_,
                  {.symbol = options_.aircraftSymbols,
                   .label = options_.flightNumbers,
                   .symbolColour = symbolColour_,
                   .labelColour = colour});
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

FlightPainter PainterOfShown(Canvas& canvas, const MapScene& scene) {
  const data::ColourTable& colours = scene.style.colours;
  return {canvas,
          scene.options,
          {scene.databases.destinations, colours[data::ColourCode::kApDest]},
          colours[data::ColourCode::kAcSymb]};
}

/// A flight without a service is black.
FlightLine LineOf(const MapScene& scene, const data::Flight& flight, const data::FlightService* service) {
  const bool isNew = scene.comparison != nullptr && scene.comparison->added.contains(flight);
  return {{.colour = service != nullptr ? service->rgb : data::Rgb{}, .width = isNew ? kAddedWidth : 1}};
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
  FlightPainter painter = PainterOfShown(canvas, scene);
  VisitServiceFlights(scene, [&](const data::Flight& flight, const data::FlightService* service) {
    painter.Draw(flight, LineOf(scene, flight, service));
  });
}

void DrawSelectedFlights(Canvas& canvas, const MapScene& scene) {
  FlightPainter painter = PainterOfShown(canvas, scene);
  VisitSelectedFlights(scene, [&](const data::Flight& flight, const data::FlightService* service) {
    painter.Draw(flight, LineOf(scene, flight, service));
  });
}

void DrawDroppedFlights(Canvas& canvas, const MapScene& scene) {
  const FlightComparison& comparison = *scene.comparison;
  FlightPainter painter(canvas, scene.options, {comparison.oldDestinations, kDroppedColour}, kDroppedColour);
  for (const data::Flight& flight : comparison.dropped)
    painter.Draw(flight, {.pen = {.colour = kDroppedColour}, .dashed = true});
}

int CountFlightsInView(const MapScene& scene) {
  LineCounter counter;
  Canvas canvas{scene.viewport, counter, {}};
  FlightPainter painter = PainterOfShown(canvas, scene);
  int flights = 0;
  VisitShownFlights(scene, [&](const data::Flight& flight, const data::FlightService* service) {
    const int before = counter.Lines();
    painter.Draw(flight, LineOf(scene, flight, service));
    flights += counter.Lines() > before ? 1 : 0;
  });
  return flights;
}

}  // namespace zerbal::map
