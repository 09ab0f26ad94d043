// The small reference tables that live in memory for the whole run: colours, fonts, regions, the grid bands
// of the detail map tables, and the flight services. Drawing and the settings dialogs read and change them in
// place.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace zerbal::data {

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  bool operator==(const Rgb&) const = default;
};

/// Limits three components to 0..255.
Rgb ClampRgb(std::int16_t red, std::int16_t green, std::int16_t blue);

/// Rows of ColourTable, in its order.
enum class ColourCode { kMapBg, kZoom, kCentre, kCoast, kRiver, kIBound, kApAll, kApDest, kAcSymb };
inline constexpr int kColourCount = 9;

struct Colour {
  std::string code;  ///< "MAPBG" and so on
  Rgb rgb;
  std::string entry;  ///< key in section "Colors" of the settings file
};

struct ColourTable {
  std::array<Colour, kColourCount> rows;
  const Rgb& operator[](ColourCode code) const { return rows[static_cast<std::size_t>(code)].rgb; }
};

enum class FontCode { kLoRes, kHiRes };
inline constexpr int kFontCount = 2;

struct Font {
  std::string code;       ///< "LORES" or "HIRES"
  std::string name;       ///< family
  std::int16_t size = 0;  ///< points
  std::string entry;      ///< key in section "Fonts" of the settings file
};

struct FontTable {
  std::array<Font, kFontCount> rows;
  const Font& operator[](FontCode code) const { return rows[static_cast<std::size_t>(code)]; }
  Font& operator[](FontCode code) { return rows[static_cast<std::size_t>(code)]; }
};

/// A region's bounds in the map frame (degrees): longitude 0..360 from 180 W eastwards, latitude 0..180 from
/// the North Pole downwards. The east bound may be below the west bound: the region then runs through 360.
struct Region {
  std::string code;
  std::string name;
  double fromLon = 0;
  double fromLat = 0;
  double toLon = 0;
  double toLat = 0;
};

/// Row 0 is the world view; rows 1..RegionCount() are the regions in display order.
struct RegionTable {
  std::vector<Region> rows;
  std::string centreWorld = "1";  ///< "0" Greenwich, "1" 75 W, "2" centreWorldAtLon
  float centreWorldAtLon = 0;     ///< geographic longitude, -180..180

  std::int16_t RegionCount() const {
    return rows.empty() ? std::int16_t{0} : static_cast<std::int16_t>(rows.size() - 1);
  }
  /// Geographic longitude of the world view's centre, by centreWorld.
  float WorldCentre() const;
  /// Fills row 0: 350 degrees around the centre meridian, pole to pole.
  void ComputeWorldRow();
};

struct GridBand {
  std::int16_t lower = 0;
  std::int16_t upper = 0;
  char letter = ' ';
};

/// The bands that cut the world into the cells of the detail tables: nine of 40 degrees of map longitude,
/// nine of 20 degrees of map latitude. A cell's name is its longitude letter followed by its latitude letter.
struct GridBands {
  std::array<GridBand, 9> lon;
  std::array<GridBand, 9> lat;
};
GridBands BuildGridBands();

struct FlightService {
  std::string key;          ///< value of Flit_FSrv in the flights
  std::string displayText;  ///< line number, " - ", name
  bool displayFlag = false;
  Rgb rgb;
  bool randomPick = true;  ///< offered for random flights
};

using FlightServiceTable = std::vector<FlightService>;

struct ReferenceTables {
  ColourTable colours;
  FontTable fonts;
  RegionTable regions;
  GridBands bands;
  FlightServiceTable services;
};

}  // namespace zerbal::data
