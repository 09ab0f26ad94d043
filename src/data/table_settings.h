// What the settings file says about the reference tables and the flight finding dialogs. Every key that is
// missing is written with the value that holds without it.
#pragma once

#include <span>
#include <string>

#include "data/flight_finder.h"
#include "data/reference_tables.h"
#include "settings/ini_values.h"

namespace zerbal::data {

// The functions that answer bool: false when a setting could not be read because its default could not be
// written (the box has been shown); start-up then ends.

/// Section "Fonts": name and size of each row; then CheckFonts.
bool ReadFontSettings(settings::IniFile& ini, FontTable& fonts, std::span<const std::string> installedFonts);

/// A name that is not installed (letter case does not matter) becomes "Arial"; a size outside 6..14 points
/// becomes 7 for LORES, 8 for HIRES.
void CheckFonts(FontTable& fonts, std::span<const std::string> installedFonts);

/// Section "Colors": components are limited to 0..255, what is no number counts as 0.
bool ReadColourSettings(settings::IniFile& ini, ColourTable& colours);

/// Section "FlightColors", likewise, by the services' keys.
bool ReadFlightColourSettings(settings::IniFile& ini, FlightServiceTable& services);

/// Section "Region": fills the choice of the world's centre and computes row 0.
/// Throws jet::EngineError when no region has been loaded: row 0 exists only beside others.
bool ReadRegionSettings(settings::IniFile& ini, RegionTable& regions);

/// Section "Program". Nothing here ends the start-up: what cannot be read or is none of the allowed values
/// gives the default.
void ReadFlightFinderSettings(settings::IniFile& ini, FlightFinderState& finder);

/// The value of a colour key: "red,green,blue".
std::string ColourText(const Rgb& rgb);
/// The value of a font key: "name,size".
std::string FontText(const Font& font);

}  // namespace zerbal::data
