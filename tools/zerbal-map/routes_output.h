// Writing flights and airports as map data.
#pragma once

#include "zerbal-map/map_job.h"

namespace zerbal::mapcommand {

/// Writes the options' file of routes completely or not at all. Throws base::Error when it cannot be written,
/// another exception when the data cannot be read.
void WriteRoutes(const MapJob& job, const Options& options);

}  // namespace zerbal::mapcommand
