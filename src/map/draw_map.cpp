#include "map/draw_map.h"

#include <span>
#include <string>

#include "map/contained.h"
#include "map/layers.h"

namespace zerbal::map {

namespace {

using data::ColourCode;

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
void DrawLines(data::LineKind kind, const char* name, Layer layer, ColourCode colour, const MapScene& scene,
               Surface& surface) {
  const Viewport& viewport = scene.viewport;
  const data::BaseMap& baseMap = scene.databases.baseMap;
  surface.BeginLayer(layer);
  LinePainter painter(viewport, surface, scene.style.colours[colour]);
  const data::BaseMap::Visitor draw = [&](std::span<const data::StoredPoint> points) {
    painter.Draw(points);
  };
  if (!viewport.DetailMode() && kind == data::LineKind::kCoast)
    Contained(scene, name, [&] { baseMap.VisitOverview(painter.Bounds(), draw); });
  // Rivers and boundaries are drawn in detail mode only; in overview mode the view has no tiles.
  for (const std::string& tile : viewport.DetailTiles())
    Contained(scene, name, [&] { baseMap.VisitTile(kind, tile, painter.Bounds(), draw); });
}

void DrawBaseMap(const MapScene& scene, Surface& surface) {
  const auto draw = [&](data::LineKind kind, const char* name, Layer layer, ColourCode colour) {
    Contained(scene, name, [&] { DrawLines(kind, name, layer, colour, scene, surface); });
  };
  draw(data::LineKind::kCoast, "coast", Layer::kCoast, ColourCode::kCoast);
  if (scene.options.rivers)
    draw(data::LineKind::kRiver, "rivers", Layer::kRiver, ColourCode::kRiver);
  if (scene.options.boundaries)
    draw(data::LineKind::kBoundary, "boundaries", Layer::kBoundary, ColourCode::kIBound);
}

void DrawAirports(const MapScene& scene, Canvas& canvas) {
  const auto draw = [&](const char* name, Layer layer, const data::Airports& airports,
                        const data::AirportCriteria& criteria, ColourCode colour) {
    Contained(scene, name, [&] {
      canvas.surface.BeginLayer(layer);
      DrawAirportLayer(canvas, airports, criteria, scene.style.colours[colour]);
    });
  };
  if (scene.options.allAirports)
    draw("airports", Layer::kAirports, scene.databases.allAirports, scene.allAirportCriteria,
         ColourCode::kApAll);
  if (scene.options.destinations)
    draw("destinations", Layer::kDestinations, scene.databases.destinations, scene.destinationCriteria,
         ColourCode::kApDest);
}

}  // namespace

void DrawMap(const MapScene& scene, Surface& surface) {
  const data::ColourTable& colours = scene.style.colours;
  if (!scene.viewport.HasArea())
    return;
  surface.BeginLayer(Layer::kBackground);
  surface.Clear(colours[ColourCode::kMapBg]);
  surface.BeginLayer(Layer::kCentre);
  if (scene.options.centreOfMap)
    DrawCentreMark(scene.viewport, surface, colours[ColourCode::kCentre]);
  DrawBaseMap(scene, surface);
  DrawAirportsAndFlights(scene, surface);
}

void DrawAirportsAndFlights(const MapScene& scene, Surface& surface) {
  Canvas canvas{scene.viewport, surface, MapFont(scene.viewport, scene.style.fonts)};
  DrawAirports(scene, canvas);
  Contained(scene, "flights", [&] {
    surface.BeginLayer(Layer::kFlights);
    if (scene.comparison != nullptr)
      DrawDroppedFlights(canvas, scene);
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
