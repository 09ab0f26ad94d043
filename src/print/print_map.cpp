#include "print/print_map.h"

#include "base/error.h"
#include "map/contained.h"
#include "print/annotation.h"
#include "print/contents.h"
#include "print/layers.h"

namespace zerbal::print {
namespace {

using data::ColourCode;

Contents PlaceContents(const PrintScene& scene, const Projection& projection) {
  const map::MapScene& map = scene.map;
  Contents contents;
  if (map.options.allAirports)
    map::Contained(map, "airports", [&] { PlaceAllAirports(map, projection, contents); });
  if (map.options.destinations)
    map::Contained(map, "destinations", [&] { PlaceDestinations(map, projection, contents); });
  map::Contained(map, "flights", [&] { PlaceFlights(map, scene.options, projection, contents); });
  return contents;
}

void FillAreas(const PrintScene& scene, const Projection& projection, PrintSurface& surface) {
  surface.BeginPrintLayer(PrintLayer::kWater);
  const std::optional<data::Rgb> water = scene.options.water ? scene.options.water : scene.style.water;
  if (water)
    FillGlobe(projection, *water, surface);
  surface.BeginPrintLayer(PrintLayer::kLand);
  map::Contained(scene.map, "land", [&] {
    // A style is for any base map; without polygons it fills nothing.
    std::optional<data::Rgb> land = scene.options.land;
    if (!land && scene.map.databases.baseMap.HasLand(scene.map.viewport.DetailMode()))
      land = scene.style.land;
    if (land)
      FillLand(scene.map, projection, *land, surface);
  });
}

void DrawLines(const PrintScene& scene, const Projection& projection, PrintSurface& surface) {
  surface.BeginPrintLayer(PrintLayer::kLines);
  const PrintStyle& style = scene.style;
  const auto draw = [&](data::LineKind kind, const char* name, data::Rgb colour, double width) {
    DrawLineLayer(scene.map, projection, {kind, name, colour, width}, surface);
  };
  draw(data::LineKind::kCoast, "coast", style.coast, style.coastWidth);
  if (scene.map.options.rivers)
    draw(data::LineKind::kRiver, "rivers", style.river, style.riverWidth);
  if (scene.map.options.boundaries)
    draw(data::LineKind::kBoundary, "boundaries", style.boundary, style.boundaryWidth);
  if (HasOutline(scene.options.projection))
    DrawOutline(projection, style.coast, style.coastWidth, surface);
}

}  // namespace

void CheckPrintScene(const PrintScene& scene) {
  if (scene.options.land && !scene.map.databases.baseMap.HasLand(scene.map.viewport.DetailMode()))
    throw base::Error(
        "--land: the base map has no polygons of land. Build the data anew with 'zerbal-pack build'.");
  MakeProjection(scene.options.projection, scene.map.viewport, scene.wholeWorld);
}

void DrawPrintMap(const PrintScene& scene, PrintSurface& surface) {
  const map::MapScene& map = scene.map;
  if (!map.viewport.HasArea())
    return;
  surface.BeginPrintLayer(PrintLayer::kBackground);
  surface.Clear(map.style.colours[ColourCode::kMapBg]);
  const auto projection = MakeProjection(scene.options.projection, map.viewport, scene.wholeWorld);
  FillAreas(scene, *projection, surface);
  DrawLines(scene, *projection, surface);
  const Contents contents = PlaceContents(scene, *projection);
  Annotation annotation(scene, *projection, contents, surface);
  annotation.DrawGraticule();
  const std::int32_t radius = annotation.MarkerRadius();
  surface.BeginPrintLayer(PrintLayer::kAirports);
  DrawAirportMarkers(contents.allAirports, radius, surface);
  DrawAirportMarkers(contents.destinations, radius, surface);
  surface.BeginPrintLayer(PrintLayer::kFlights);
  map::Canvas canvas{map.viewport, surface, annotation.LabelFont()};
  annotation.DrawLegLines();
  DrawLegSymbols(canvas, map, contents.legs);
  DrawAirportMarkers(contents.legAirports, radius, surface);
  annotation.DrawLabels(canvas);
  annotation.DrawFurniture();
}

}  // namespace zerbal::print
