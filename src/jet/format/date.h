// Dates are stored as days since day zero, with the time of day as fraction.
#pragma once

#include <chrono>

namespace zerbal::jet {

inline constexpr std::chrono::sys_days kDayZero{std::chrono::December / 30 / 1899};

}  // namespace zerbal::jet
