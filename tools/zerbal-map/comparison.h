// What has changed since an older schedule, for --compare.
#pragma once

#include <functional>
#include <string>

#include "data/databases.h"
#include "map/flight_comparison.h"

namespace zerbal::mapcommand {

/// Opens a schedule database, or the one of a data folder. Throws base::Error when there is none,
/// jet::EngineError when it cannot be opened.
data::ScheduleFile OpenOldSchedule(const std::string& path);

/// Compares all flights. Takes those of the dropped ones that `isShown` wants. The result refers to `old`.
map::FlightComparison CompareFlights(const data::ScheduleFile& old, const data::Schedule& schedule,
                                     const std::function<bool(const data::Flight&)>& isShown);

}  // namespace zerbal::mapcommand
