// Routes as GeoJSON (RFC 7946).
#pragma once

#include <string>

#include "zerbal-map/routes.h"

namespace zerbal::mapcommand {

/// A collection of features, one a line: flights as MultiLineString with the property `stroke`, then airports
/// as Point with `marker-color`. The geometry of a flight without points is null.
std::string GeoJsonOf(const Routes& routes);

}  // namespace zerbal::mapcommand
