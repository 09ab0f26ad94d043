// Where the airports of a schedule are.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>

#include "base/coordinates.h"
#include "zerbal-pack/plain_schedule.h"

namespace zerbal::pack {

/// By airport code.
using AirportPositions = std::map<std::string, GeoPosition, std::less<>>;

/// The positions of the destinations. Airports of flights that are not among them come from
/// app_data/allaprt.mdb when `source` is a data folder that has it. Throws jet::EngineError.
AirportPositions FindPositions(const PlainSchedule& schedule, const std::filesystem::path& source);

}  // namespace zerbal::pack
