#include "zerbal-map/routes_output.h"

#include "base/file_replacement.h"
#include "zerbal-map/routes_geojson.h"
#include "zerbal-map/routes_gpkg.h"
#include "zerbal-map/routes_kml.h"

namespace zerbal::mapcommand {
namespace {

std::string BytesOf(const Routes& routes, RouteFileKind kind) {
  switch (kind) {
    case RouteFileKind::kKml:
      return KmlOf(routes);
    case RouteFileKind::kGeoPackage:
      return GeoPackageOf(routes);
    case RouteFileKind::kGeoJson:
      break;
  }
  return GeoJsonOf(routes);
}

}  // namespace

void WriteRoutes(const MapJob& job, const Options& options) {
  // Opened first, as for pictures.
  auto file = base::FileReplacement::OfUserFile(options.outputFile);
  file.Write(BytesOf(job.GatherRoutes(), *options.routes));
  file.Commit();
}

}  // namespace zerbal::mapcommand
