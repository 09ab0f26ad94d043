// The map as a page for browsers: one file that needs no other.
#pragma once

#include <cstdint>
#include <string>

#include "data/colours.h"
#include "data/display_options.h"
#include "map/map_contents.h"

namespace zerbal::mapcommand {

/// All that a page shows. Lengths and places are twips of a drawing area that is kPageGrid times as large as
/// the map without zoom, so that the map can be looked at closely.
struct Page {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::string place;        ///< name of the region; empty for bounds
  std::string description;  ///< of the map, for screen readers
  data::DisplayOptions display;
  data::ColourTable colours;
  std::string base;  ///< coasts, rivers and boundaries as elements of SVG
  map::MapContents contents;
};

inline constexpr int kPageGrid = 4;

/// The bytes of the file. Texts of the data never become markup or script.
std::string HtmlOf(const Page& page);

}  // namespace zerbal::mapcommand
