// What is drawn near a place of the map, in words.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/coordinates.h"
#include "map/draw_map.h"

namespace zerbal::map {

inline constexpr int kNearPixels = 6;  ///< logical pixels, from an airport's position or from a leg
inline constexpr std::size_t kMostNearbyLines = 8;

/// One line of text for each airport and each leg of a flight that is drawn near the place. Airports come
/// before legs, nearer ones first; those at the same distance in whole pixels keep the order of drawing.
/// Reads all that is shown, as a redraw does. A layer that cannot be read ends where its drawing ends.
std::vector<std::string> FindNearby(const MapScene& scene, TwipPosition place);

/// The first kMostNearbyLines lines, then a line with the number of the others. Empty when there is none.
std::string NearbyText(const std::vector<std::string>& lines);

}  // namespace zerbal::map
