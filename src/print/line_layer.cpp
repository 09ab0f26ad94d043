#include <limits>

#include "map/contained.h"
#include "print/layers.h"

namespace zerbal::print {
namespace {

/// All of them.
constexpr std::uint32_t kEvery = std::numeric_limits<std::uint32_t>::max();
constexpr data::StoredBounds kWorld{{0, kEvery}, {0, kEvery}, false};

GeoPosition ToGlobe(data::StoredPoint point) {
  return {point.lon / double{data::kStoredDegree} - 180, 90 - point.lat / double{data::kStoredDegree}};
}

}  // namespace

void DrawLineLayer(const map::MapScene& scene, const Projection& projection, const LineLayer& layer,
                   PrintSurface& surface) {
  const map::Pen pen{.colour = layer.colour, .width = map::kLineWidth};
  const LineSink draw = [&](std::span<const TwipPoint> part) { surface.Polyline(part, pen); };
  std::vector<GeoPosition> line;
  const data::BaseMap::Visitor project = [&](std::span<const data::StoredPoint> points) {
    line.clear();
    for (const data::StoredPoint point : points)
      line.push_back(ToGlobe(point));
    projection.ProjectLine(line, draw);
  };
  const data::BaseMap& baseMap = scene.databases.baseMap;
  if (!scene.viewport.DetailMode() && layer.kind == data::LineKind::kCoast)
    map::Contained(scene, layer.name, [&] { baseMap.VisitOverview(kWorld, project); });
  for (const std::string& tile : scene.viewport.DetailTiles())
    map::Contained(scene, layer.name, [&] { baseMap.VisitTile(layer.kind, tile, kWorld, project); });
}

}  // namespace zerbal::print
