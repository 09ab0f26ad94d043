// What the map looks like, and which parts of the world it offers.
#pragma once

#include <filesystem>

#include "data/colours.h"
#include "data/fonts.h"
#include "data/regions.h"

namespace zerbal::data {

struct MapStyle {
  ColourTable colours;
  FontTable fonts;
  RegionTable regions;
};

/// Loads the parts in their order. Throws LoadError when colours or fonts are missing.
inline MapStyle LoadMapStyle(const std::filesystem::path& zbldata) {
  return {LoadColours(zbldata), LoadFonts(zbldata), LoadRegions(zbldata)};
}

}  // namespace zerbal::data
