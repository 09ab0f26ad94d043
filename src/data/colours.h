// The colours of the map, and the settings of all colours.
#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>

#include "data/flight.h"
#include "data/rgb.h"
#include "settings/ini_file.h"

namespace zerbal::data {

enum class ColourCode { kMapBg, kZoom, kCentre, kCoast, kRiver, kIBound, kApAll, kApDest, kAcSymb };

/// What is the same for all databases.
struct ColourRule {
  ColourCode colour;
  const char* code;     ///< of its row in the database
  const char* caption;  ///< in the colour settings
};

/// In the order of ColourCode, which is also that of the colour settings.
inline constexpr std::array kColourRules = {
    ColourRule{ColourCode::kMapBg, "MAPBG", "Map backcolor"},
    ColourRule{ColourCode::kZoom, "ZOOM", "Zoombox (XOR'ed with map backcolor)"},
    ColourRule{ColourCode::kCentre, "CENTRE", "Centre of map"},
    ColourRule{ColourCode::kCoast, "COAST", "Coastlines"},
    ColourRule{ColourCode::kRiver, "RIVER", "Rivers"},
    ColourRule{ColourCode::kIBound, "IBOUND", "International boundaries"},
    ColourRule{ColourCode::kApAll, "APALL", "All airports"},
    ColourRule{ColourCode::kApDest, "APDEST", "QAV destinations"},
    ColourRule{ColourCode::kAcSymb, "ACSYMB", "Aircraft symbol"},
};

struct Colour {
  Rgb rgb;
  std::string entry;  ///< key in settings::kColours
};

struct ColourTable {
  std::array<Colour, kColourRules.size()> rows;  ///< in the order of kColourRules
  const Rgb& operator[](ColourCode colour) const { return rows[static_cast<std::size_t>(colour)].rgb; }
};

/// Loads the colours from zbldata.mdb. Components beyond 0..255 are limited. Throws LoadError, which lists
/// all codes that are missing.
ColourTable LoadColours(const std::filesystem::path& zbldata);

// A missing key is written with the colour of the table. False when that fails.

/// settings::kColours.
bool ReadColourSettings(settings::IniFile& ini, ColourTable& colours);
void WriteColourSettings(settings::IniFile& ini, const ColourTable& colours);

/// settings::kFlightColours, by the keys of the services.
bool ReadFlightColourSettings(settings::IniFile& ini, FlightServiceTable& services);
void WriteFlightColourSettings(settings::IniFile& ini, const FlightServiceTable& services);

}  // namespace zerbal::data
