// A map with all layers.
#pragma once

#include "data/display_options.h"

namespace zerbal::test {

inline constexpr data::DisplayOptions kEverythingShown{.centreOfMap = true,
                                                       .rivers = true,
                                                       .boundaries = true,
                                                       .allAirports = true,
                                                       .destinations = true,
                                                       .flightAirports = true,
                                                       .flightNumbers = true,
                                                       .legNumbers = true,
                                                       .aircraftSymbols = true};

}  // namespace zerbal::test
