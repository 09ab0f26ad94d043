// Pens and coordinates that the tests of several surfaces use.
#pragma once

#include <cstdint>
#include <limits>

#include "map/surface.h"

namespace zerbal::paint {

inline constexpr data::Rgb kBlack{0, 0, 0};
inline constexpr map::Pen kPen{.colour = kBlack};
inline constexpr std::int32_t kFar = std::numeric_limits<std::int32_t>::max();
inline constexpr std::int32_t kFarNegative = std::numeric_limits<std::int32_t>::min();

}  // namespace zerbal::paint
