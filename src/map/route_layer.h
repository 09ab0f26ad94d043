// The flights: routes of straight legs over the map's plane.
#pragma once

#include "map/canvas.h"
#include "map/draw_map.h"

namespace zerbal::map {

/// Draws every flight of every service whose display flag is set, service by service.
void DrawServiceFlights(Canvas& canvas, const MapScene& scene);

/// Draws the selected flights in the order of their list. A flight of a service that is not in the table is
/// black.
void DrawSelectedFlights(Canvas& canvas, const MapScene& scene);

}  // namespace zerbal::map
