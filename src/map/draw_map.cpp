#include "map/draw_map.h"

#include <exception>

#include "jet/database.h"
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

/// A table that is not there or cannot be opened is an empty one.
void DrawTable(const jet::Database& database, const std::string& table, data::Rgb colour,
               const Viewport& viewport, Surface& surface) {
  Contained([&] {
    if (database.HasTable(table))
      DrawLineLayer(database.OpenTable(table), colour, viewport, surface);
  });
}

void DrawTiles(const jet::Database& database, data::Rgb colour, const Viewport& viewport, Surface& surface) {
  for (const std::string& tile : viewport.DetailTiles())
    DrawTable(database, tile + "wdb2", colour, viewport, surface);
}

void DrawCoast(const MapScene& scene, Surface& surface) {
  const data::Rgb colour = scene.tables.colours[ColourCode::kCoast];
  surface.BeginLayer(Layer::kCoast);
  if (scene.viewport.DetailMode())
    DrawTiles(scene.databases.coast, colour, scene.viewport, surface);
  else
    DrawTable(scene.databases.coast, "wcl", colour, scene.viewport, surface);
}

/// Rivers and boundaries are drawn in detail mode only; in overview mode the view has no tiles.
void DrawDetailLayer(Layer layer, const std::optional<jet::Database>& database, ColourCode colour,
                     const MapScene& scene, Surface& surface) {
  surface.BeginLayer(layer);
  if (database)
    DrawTiles(*database, scene.tables.colours[colour], scene.viewport, surface);
}

}  // namespace

void DrawMap(MapScene& scene, Surface& surface) {
  const Viewport& viewport = scene.viewport;
  const data::DisplayOptions& options = scene.options;
  const data::ColourTable& colours = scene.tables.colours;
  data::Databases& databases = scene.databases;
  if (!viewport.HasArea())
    return;

  surface.BeginLayer(Layer::kBackground);
  surface.Clear(colours[ColourCode::kMapBg]);
  surface.BeginLayer(Layer::kCentre);
  if (options.centreOfMap)
    DrawCentreMark(viewport, surface, colours[ColourCode::kCentre]);

  Contained([&] { DrawCoast(scene, surface); });
  if (options.rivers)
    Contained([&] { DrawDetailLayer(Layer::kRiver, databases.river, ColourCode::kRiver, scene, surface); });
  if (options.boundaries)
    Contained(
        [&] { DrawDetailLayer(Layer::kBoundary, databases.ibound, ColourCode::kIBound, scene, surface); });

  Canvas canvas{scene.viewport, surface, MapFont(viewport, scene.tables.fonts)};
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
