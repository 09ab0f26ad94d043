#include "data/reference_tables.h"

#include <algorithm>

#include "base/coordinates.h"

namespace zerbal::data {

Rgb ClampRgb(std::int16_t red, std::int16_t green, std::int16_t blue) {
  const auto clamp = [](std::int16_t value) {
    return static_cast<std::uint8_t>(std::clamp<std::int16_t>(value, 0, 255));
  };
  return {clamp(red), clamp(green), clamp(blue)};
}

float RegionTable::WorldCentre() const {
  if (centreWorld == "0")
    return 0.0F;
  return centreWorld == "2" ? centreWorldAtLon : -75.0F;
}

void RegionTable::ComputeWorldRow() {
  constexpr double kSpan = 350;
  double from = ToMapLon(WorldCentre()) - kSpan / 2;
  if (from < 0)
    from += 360;
  double to = from + kSpan;
  if (to > 360)
    to -= 360;
  Region& world = rows.at(0);
  world.fromLon = from;
  world.fromLat = 0;
  world.toLon = to;
  world.toLat = 180;
}

GridBands BuildGridBands() {
  GridBands bands;
  for (int i = 0; i < 9; ++i) {
    const char letter = static_cast<char>('A' + 2 * i);
    const auto band = [&](int width) {
      return GridBand{static_cast<std::int16_t>(width * i), static_cast<std::int16_t>(width * (i + 1)),
                      letter};
    };
    const auto at = static_cast<std::size_t>(i);
    bands.lon[at] = band(40);
    bands.lat[at] = band(20);
  }
  return bands;
}

}  // namespace zerbal::data
