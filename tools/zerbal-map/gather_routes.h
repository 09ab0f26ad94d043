// Reads the flights and airports that a map shows.
#pragma once

#include "map/draw_map.h"
#include "map/shown_flights.h"
#include "zerbal-map/routes.h"

namespace zerbal::mapcommand {

/// The shown flights; their airports when the options show these; the airports of the layers that the options
/// show. With FlightExtent::kView only what is in view, but of flights in view the whole route. Throws when
/// the data cannot be read.
Routes GatherRoutes(const map::MapScene& scene, map::FlightExtent extent);

}  // namespace zerbal::mapcommand
