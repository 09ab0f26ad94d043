// The flights that the map shows, for callers that do not draw them.
#pragma once

#include <functional>

#include "map/draw_map.h"

namespace zerbal::map {

enum class FlightExtent {
  kView,  ///< flights of which some of a leg is in view
  kAll    ///< wherever they run, also those with an airport that is not among the destinations
};

/// The service is null when it is not in the table. Both are valid during the call.
using FlightVisitor = std::function<void(const data::Flight& flight, const data::FlightService* service)>;

/// Calls `visit` with the shown flights in the order of drawing. A flight that is drawn twice is visited
/// twice. Throws when the schedule cannot be read.
void VisitFlights(const MapScene& scene, FlightExtent extent, const FlightVisitor& visit);

}  // namespace zerbal::map
