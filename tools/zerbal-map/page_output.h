// Writing the map as a page for browsers.
#pragma once

#include "zerbal-map/map_job.h"

namespace zerbal::mapcommand {

/// Writes the options' file completely or not at all. Throws base::Error when it cannot be written, another
/// exception when the data cannot be read.
void WritePage(const MapJob& job, const Options& options);

}  // namespace zerbal::mapcommand
