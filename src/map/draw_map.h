// One complete redraw of the map: a function of viewport, options, tables and databases onto a surface.
#pragma once

#include <string>
#include <vector>

#include "data/databases.h"
#include "data/reference_tables.h"
#include "map/criteria.h"
#include "map/surface.h"
#include "map/viewport.h"

namespace zerbal::map {

/// What the menu entries with a check mark stand for; the entries are only its view.
struct DisplayOptions {
  bool centreOfMap = false;
  bool rivers = false;
  bool boundaries = false;
  bool allAirports = false;
  bool destinations = false;
  bool flightAirports = true;
  bool flightNumbers = true;
  bool legNumbers = false;
  bool aircraftSymbols = false;
  bool operator==(const DisplayOptions&) const = default;
};

/// Which flights are drawn: every flight of the services whose flag is set, or the selected ones.
struct FlightSelection {
  bool serviceMode = true;
  std::vector<std::string> selectedFlights;  ///< Flit_2015 keys
};

/// Everything a redraw reads. The databases are not const: a recordset is a cursor.
struct MapScene {
  Viewport& viewport;
  const DisplayOptions& options;
  const data::ReferenceTables& tables;
  data::Databases& databases;
  const AirportCriteria& allAirportCriteria;
  const AirportCriteria& destinationCriteria;
  const FlightSelection& flights;
};

/// Draws everything, in the fixed order background, centre mark, coast, rivers, boundaries, airports,
/// destinations, flights. Does nothing when the drawing area is empty. After the centre mark no error gets
/// out: the step that fails is skipped and the next one is drawn.
void DrawMap(MapScene& scene, Surface& surface);

/// The font of airport labels and flight texts in the current mode.
TextFont MapFont(const Viewport& viewport, const data::FontTable& fonts);

}  // namespace zerbal::map
