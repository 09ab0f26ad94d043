// Colours for flight services that have none of their own.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zerbal::pack {

struct ServiceColour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

/// Any two of them can be told apart, also by colour-blind eyes, and each from the background of the map.
/// Services beyond the last colour begin again with the first one.
inline constexpr std::array<ServiceColour, 17> kServicePalette = {{{0, 120, 232},
                                                                   {238, 90, 126},
                                                                   {85, 105, 0},
                                                                   {160, 92, 129},
                                                                   {27, 60, 39},
                                                                   {136, 122, 170},
                                                                   {76, 62, 0},
                                                                   {51, 77, 190},
                                                                   {206, 58, 59},
                                                                   {81, 73, 110},
                                                                   {5, 161, 130},
                                                                   {89, 31, 68},
                                                                   {100, 127, 93},
                                                                   {72, 20, 131},
                                                                   {0, 105, 93},
                                                                   {185, 133, 0},
                                                                   {156, 16, 64}}};

/// `index` counts the services from 0.
constexpr const ServiceColour& ColourOfService(std::size_t index) {
  return kServicePalette[index % kServicePalette.size()];
}

}  // namespace zerbal::pack
