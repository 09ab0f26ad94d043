// What the map shows, in words.
#pragma once

#include <string>

#include "map/draw_map.h"

namespace zerbal::map {

/// The region, or else the bounds; the layers; the number of airports and flights in view. Reads the airports
/// and flights that are shown, which takes as long as drawing them. A layer that cannot be read counts as far
/// as it can be.
std::string DescribeView(const MapScene& scene);

}  // namespace zerbal::map
