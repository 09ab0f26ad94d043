// The grid that divides the world into the tiles of the detailed map.
#pragma once

#include <array>
#include <cstddef>

namespace zerbal::data {

/// Degrees of the map frame, both bounds inclusive.
struct GridBand {
  int lower = 0;
  int upper = 0;
  char letter = ' ';
};

/// Nine bands of 40 degrees of map longitude, nine of 20 degrees of map latitude. The name of a tile is the
/// letter of its longitude followed by that of its latitude.
struct GridBands {
  std::array<GridBand, 9> lon;
  std::array<GridBand, 9> lat;
};

inline constexpr GridBands kGridBands = [] {
  GridBands bands;
  for (int i = 0; i < 9; ++i) {
    const auto band = [i](int width) {
      return GridBand{width * i, width * (i + 1), static_cast<char>('A' + 2 * i)};
    };
    bands.lon[static_cast<std::size_t>(i)] = band(40);
    bands.lat[static_cast<std::size_t>(i)] = band(20);
  }
  return bands;
}();

}  // namespace zerbal::data
