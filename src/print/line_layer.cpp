#include "map/contained.h"
#include "print/layers.h"
#include "print/map_data_bounds.h"

namespace zerbal::print {

void DrawPart(std::span<const TwipPoint> part, data::Rgb colour, double width, PrintSurface& surface) {
  if (width == map::kLineWidth)
    surface.Polyline(part, {.colour = colour, .width = map::kLineWidth});
  else
    surface.Stroke(part, {.colour = colour, .width = width});
}

void DrawLineLayer(const map::MapScene& scene, const Projection& projection, const LineLayer& layer,
                   PrintSurface& surface) {
  const LineSink draw = [&](std::span<const TwipPoint> part) {
    DrawPart(part, layer.colour, layer.width, surface);
  };
  std::vector<GeoPosition> line;
  const data::BaseMap::Visitor project = [&](std::span<const data::StoredPoint> points) {
    line.clear();
    for (const data::StoredPoint point : points)
      line.push_back(ToGlobe(point));
    projection.ProjectLine(line, draw);
  };
  const data::BaseMap& baseMap = scene.databases.baseMap;
  const data::StoredBounds bounds = StoredBoundsOf(projection.Visible());
  if (!scene.viewport.DetailMode() && layer.kind == data::LineKind::kCoast)
    map::Contained(scene, layer.name, [&] { baseMap.VisitOverview(bounds, project); });
  if (!scene.viewport.DetailMode())
    return;
  for (const std::string& tile : TilesIn(projection.Visible()))
    map::Contained(scene, layer.name, [&] { baseMap.VisitTile(layer.kind, tile, bounds, project); });
}

void DrawOutline(const Projection& projection, data::Rgb colour, double width, PrintSurface& surface) {
  for (Ring ring : projection.Globe()) {
    ring.push_back(ring.front());
    DrawPart(ring, colour, width, surface);
  }
}

}  // namespace zerbal::print
