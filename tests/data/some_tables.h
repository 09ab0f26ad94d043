// Colours, fonts and regions for tests that read and write settings.
#pragma once

#include <string>
#include <vector>

#include "data/colours.h"
#include "data/fonts.h"
#include "data/regions.h"

namespace zerbal::data {

inline const std::vector<std::string> kInstalled = {"Arial", "Courier New", "Verdana", "\xC3\x96ko"};

inline FontTable SomeFonts() {
  FontTable fonts;
  fonts.rows[0] = {"Verdana", 6, "LowResolution"};
  fonts.rows[1] = {"Courier New", 10, "HighResolution"};
  return fonts;
}

inline ColourTable SomeColours() {
  ColourTable colours;
  for (std::size_t i = 0; i < colours.rows.size(); ++i) {
    const auto shade = static_cast<std::uint8_t>(10 * i);
    colours.rows[i] = {{shade, 2, 255}, "Entry" + std::to_string(i)};
  }
  return colours;
}

/// The world and one region.
inline RegionTable SomeRegions() {
  RegionTable regions;
  regions.rows = {{}, {"EU", "Europe", 160, 20, 220, 60}};
  return regions;
}

}  // namespace zerbal::data
