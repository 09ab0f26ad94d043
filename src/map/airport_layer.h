// Airports: a round marker and a label each.
#pragma once

#include <string>

#include "data/airport_criteria.h"
#include "data/reference_tables.h"
#include "jet/recordset.h"
#include "map/canvas.h"

namespace zerbal::map {

struct AirportTexts {
  std::string code;
  std::string name;
  std::string city;
};

/// The code alone in overview mode; in detail mode with the name, and with the city when the name does not
/// hold it.
void AppendAirportLabel(std::string& label, const AirportTexts& texts, bool detailMode);

/// Draws marker and label when the position is in view.
void DrawAirport(Canvas& canvas, const AirportTexts& texts, MapPosition position, data::Rgb colour);

/// Draws every airport of a table, in its current order, that passes the criteria and is in view.
///
/// A field that cannot be read does not stop the layer. A number that a criterion asks for then counts as 0,
/// a text as empty; an airport whose position or label cannot be read is left out. When the cursor cannot go
/// on, the error ends the layer and gets out.
void DrawAirportLayer(Canvas& canvas, jet::Recordset& airports, const data::AirportCriteria& criteria,
                      data::Rgb colour);

}  // namespace zerbal::map
