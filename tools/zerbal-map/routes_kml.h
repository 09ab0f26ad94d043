// Routes as KML 2.2.
#pragma once

#include <string>

#include "zerbal-map/routes.h"

namespace zerbal::mapcommand {

/// A style and a folder per service, with the placemarks of its flights in it, and a folder of airports.
/// Lines cross 180 degrees where the great circle does. A flight without points has no geometry.
std::string KmlOf(const Routes& routes);

}  // namespace zerbal::mapcommand
