// What a map for print looks like: colours, widths and fonts of everything.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <span>
#include <string>

#include "data/map_style.h"
#include "data/rgb.h"
#include "map/surface.h"
#include "print/flight_steps.h"

namespace zerbal::print {

/// Widths are logical pixels.
struct PrintStyle {
  // Of the map
  data::Rgb background;
  std::optional<data::Rgb> land;   ///< nothing: not filled
  std::optional<data::Rgb> water;  ///< nothing: as the background
  data::Rgb coast, river, boundary, centre;
  data::Rgb airport, destination;  ///< of markers and labels
  data::Rgb symbol;                ///< of aircraft
  data::Rgb graticule;
  std::array<data::Rgb, kMostFlightSteps> frequency{};  ///< of legs, from few flights to many
  std::map<std::string, data::Rgb> services{};  ///< by the key of a flight service, ASCII letters small
  double contrast = 1;  ///< the least one of services with the background (print/contrast.h)
  // Of title, legend, scale bar and north arrow
  data::Rgb text, box, frame;

  double coastWidth = 1, riverWidth = 1, boundaryWidth = 1, graticuleWidth = 0.5;
  double flightWidth = 1;
  std::array<double, kMostFlightSteps> flightWidths{1, 2, 3.5, 5};  ///< from few flights to many
  double airportWidth = 0;  ///< of markers; 0: as the window draws them
  double frameWidth = 1;

  std::optional<map::TextFont> label;  ///< of airports and flights; nothing: the font of the mode
  map::TextFont legend, title;
};

/// The map's own colours and fonts, and what goes with them.
PrintStyle StyleOf(const data::MapStyle& map);

/// Sets graticule, frequency, text, box and frame to colours that go with the background.
void DeriveColours(PrintStyle& style);

/// Replaces fonts that are not installed, as data::CheckFonts does.
void CheckFonts(PrintStyle& style, std::span<const std::string> installedFonts);

/// Gives the style's colours and font to the map, and its colours to the services.
void ApplyStyle(const PrintStyle& style, data::MapStyle& map, data::FlightServiceTable& services);

}  // namespace zerbal::print
