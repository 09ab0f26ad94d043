// One complete redraw of the map: a function of viewport, options, style and databases onto a surface.
#pragma once

#include <string>

#include "data/airport_criteria.h"
#include "data/databases.h"
#include "data/display_options.h"
#include "data/flight.h"
#include "data/map_style.h"
#include "map/flight_comparison.h"
#include "map/surface.h"
#include "map/viewport.h"

namespace zerbal::map {

/// Everything a redraw reads.
struct MapScene {
  const Viewport& viewport;
  const data::DisplayOptions& options;
  const data::MapStyle& style;
  const data::FlightServiceTable& services;
  const data::Databases& databases;
  const data::AirportCriteria& allAirportCriteria;
  const data::AirportCriteria& destinationCriteria;
  const data::FlightSelection& flights;
  /// Called with one line of text for each step of the drawing that an error ended; nullptr for none.
  void (*logError)(const std::string& line) = nullptr;
  /// nullptr when the flights are not compared with an older schedule.
  const FlightComparison* comparison = nullptr;
};

/// Draws everything, in the fixed order background, centre mark, coast, rivers, boundaries, airports,
/// destinations, flights. Does nothing when the drawing area is empty. After the centre mark no error leaves
/// this function: it ends the step that fails and is logged, and the next step is drawn.
void DrawMap(const MapScene& scene, Surface& surface);

/// The last three of these steps.
void DrawAirportsAndFlights(const MapScene& scene, Surface& surface);

/// The font of airport labels and flight texts in the current mode.
TextFont MapFont(const Viewport& viewport, const data::FontTable& fonts);

}  // namespace zerbal::map
