#include "map/draw_map.h"

#include <exception>
#include <span>
#include <string>

#include "map/airport_layer.h"
#include "map/canvas.h"
#include "map/line_layer.h"
#include "map/route_layer.h"

namespace zerbal::map {

namespace {

using data::ColourCode;

/// Runs one step of the drawing. An error skips what is left of it and nobody hears of it.
template <typename Step>
void Contained(const Step& step) {
  try {
    step();
  } catch (const std::exception&) {
    // The next step is drawn.
  }
}

void DrawCentreMark(const Viewport& viewport, Surface& surface, data::Rgb colour) {
  constexpr std::int32_t kRadius = 60;
  const TwipPoint centre{viewport.MapWidth() / 2, viewport.MapHeight() / 2};
  const Pen pen{.colour = colour};
  surface.Circle(centre, kRadius, colour, false);
  surface.Line(centre, {centre.x + kRadius, centre.y}, pen);
  surface.Line(centre, {centre.x, centre.y + kRadius}, pen);
  surface.Line(centre, {centre.x - kRadius, centre.y}, pen);
  surface.Line(centre, {centre.x, centre.y - kRadius}, pen);
}

/// Each table of lines is a step of its own.
void DrawLines(data::LineKind kind, Layer layer, ColourCode colour, const MapScene& scene, Surface& surface) {
  const Viewport& viewport = scene.viewport;
  const data::BaseMap& baseMap = scene.databases.baseMap;
  surface.BeginLayer(layer);
  LinePainter painter(viewport, surface, scene.style.colours[colour]);
  const data::BaseMap::Visitor draw = [&](std::span<const data::StoredPoint> points) {
    painter.Draw(points);
  };
  if (!viewport.DetailMode() && kind == data::LineKind::kCoast)
    Contained([&] { baseMap.VisitOverview(painter.Bounds(), draw); });
  // Rivers and boundaries are drawn in detail mode only; in overview mode the view has no tiles.
  for (const std::string& tile : viewport.DetailTiles())
    Contained([&] { baseMap.VisitTile(kind, tile, painter.Bounds(), draw); });
}

}  // namespace

void DrawMap(const MapScene& scene, Surface& surface) {
  const Viewport& viewport = scene.viewport;
  const data::DisplayOptions& options = scene.options;
  const data::ColourTable& colours = scene.style.colours;
  const data::Databases& databases = scene.databases;
  if (!viewport.HasArea())
    return;

  surface.BeginLayer(Layer::kBackground);
  surface.Clear(colours[ColourCode::kMapBg]);
  surface.BeginLayer(Layer::kCentre);
  if (options.centreOfMap)
    DrawCentreMark(viewport, surface, colours[ColourCode::kCentre]);

  const auto drawLines = [&](data::LineKind kind, Layer layer, ColourCode colour) {
    Contained([&] { DrawLines(kind, layer, colour, scene, surface); });
  };
  drawLines(data::LineKind::kCoast, Layer::kCoast, ColourCode::kCoast);
  if (options.rivers)
    drawLines(data::LineKind::kRiver, Layer::kRiver, ColourCode::kRiver);
  if (options.boundaries)
    drawLines(data::LineKind::kBoundary, Layer::kBoundary, ColourCode::kIBound);

  Canvas canvas{scene.viewport, surface, MapFont(viewport, scene.style.fonts)};
  if (options.allAirports)
    Contained([&] {
      surface.BeginLayer(Layer::kAirports);
      DrawAirportLayer(canvas, databases.allAirports, scene.allAirportCriteria, colours[ColourCode::kApAll]);
    });
  if (options.destinations)
    Contained([&] {
      surface.BeginLayer(Layer::kDestinations);
      DrawAirportLayer(canvas, databases.destinations, scene.destinationCriteria,
                       colours[ColourCode::kApDest]);
    });
  Contained([&] {
    surface.BeginLayer(Layer::kFlights);
    if (scene.flights.serviceMode)
      DrawServiceFlights(canvas, scene);
    else
      DrawSelectedFlights(canvas, scene);
  });
}

TextFont MapFont(const Viewport& viewport, const data::FontTable& fonts) {
  const data::Font& font = fonts[viewport.DetailMode() ? data::FontCode::kHiRes : data::FontCode::kLoRes];
  return {.name = font.name, .size = font.size};
}

}  // namespace zerbal::map
