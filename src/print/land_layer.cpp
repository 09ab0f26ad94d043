#include <algorithm>

#include "print/layers.h"
#include "print/map_data_bounds.h"

namespace zerbal::print {
namespace {

GeoBox BoxOf(std::span<const data::StoredPoint> ring) {
  const auto [west, east] = std::minmax_element(
      ring.begin(), ring.end(), [](data::StoredPoint a, data::StoredPoint b) { return a.lon < b.lon; });
  const auto [north, south] = std::minmax_element(
      ring.begin(), ring.end(), [](data::StoredPoint a, data::StoredPoint b) { return a.lat < b.lat; });
  return {ToGlobe(*west).lon, ToGlobe(*east).lon, ToGlobe(*south).lat, ToGlobe(*north).lat};
}

}  // namespace

void FillGlobe(const Projection& projection, data::Rgb colour, PrintSurface& surface) {
  surface.Fill(projection.Globe(), colour);
}

void FillLand(const map::MapScene& scene, const Projection& projection, data::Rgb colour,
              PrintSurface& surface) {
  const GeoBox visible = projection.Visible();
  std::vector<GeoRing> rings;
  scene.databases.baseMap.VisitLand(scene.viewport.DetailMode(),
                                    [&](std::span<const data::StoredPoint> points) {
                                      if (!Touch(visible, BoxOf(points)))
                                        return;
                                      GeoRing& ring = rings.emplace_back();
                                      for (const data::StoredPoint point : points)
                                        ring.push_back(ToGlobe(point));
                                    });
  surface.Fill(projection.ProjectArea(rings), colour);
}

}  // namespace zerbal::print
