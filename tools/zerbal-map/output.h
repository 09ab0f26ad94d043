// Writing a map as a picture, a page or a drawing.
#pragma once

#include "zerbal-map/map_job.h"
#include "zerbal-map/progress.h"

namespace zerbal::mapcommand {

/// Draws the map and writes it to the options' file, which is written completely or not at all. Throws
/// base::Error when it cannot be written.
void WriteMap(MapJob& job, const Options& options, ProgressLine& progress);

}  // namespace zerbal::mapcommand
