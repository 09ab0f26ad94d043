// In the place of map_build.cpp, for builds without netCDF.
#include "zerbal-pack/map_build.h"

namespace zerbal::pack {

std::vector<MapTableSize> BuildMapDatabases(const MapBuildOptions& /*options*/,
                                            const ProgressSink& /*progress*/) {
  throw MapSourceError("this zerbal-pack cannot build the base map: it was made without the netCDF library");
}

}  // namespace zerbal::pack
