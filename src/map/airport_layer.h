// Airports: a round marker and a label each.
#pragma once

#include <string>
#include <string_view>

#include "data/airport_criteria.h"
#include "data/airports.h"
#include "data/rgb.h"
#include "map/canvas.h"

namespace zerbal::map {

struct AirportTexts {
  std::string_view code;
  std::string_view name{};  ///< detail mode only, as the city
  std::string_view city{};
};

/// The code alone in overview mode; in detail mode also the name, and the city when the name does not contain
/// it.
void AppendAirportLabel(std::string& label, const AirportTexts& texts, bool detailMode);

/// Draws marker and label when the position is in view.
void DrawAirport(Canvas& canvas, const AirportTexts& texts, MapPosition position, data::Rgb colour);

/// Draws every airport that meets the criteria and is in view. An airport whose position or label cannot be
/// read is left out. When the airports after it cannot be read either, the error is thrown.
void DrawAirportLayer(Canvas& canvas, const data::Airports& airports, const data::AirportCriteria& criteria,
                      data::Rgb colour);

}  // namespace zerbal::map
