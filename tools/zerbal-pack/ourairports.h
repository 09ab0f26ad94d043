// The airports and runways of OurAirports.
#pragma once

#include <filesystem>

#include "zerbal-pack/airport_table.h"
#include "zerbal-pack/csv.h"
#include "zerbal-pack/problems.h"

namespace zerbal::pack {

bool IsOurAirportsHeader(const CsvRecord& record);

/// Adds all airports but closed ones. `runways` may be empty; airports then have no runways. Rows that cannot
/// be used are reported as errors.
void ReadOurAirports(const std::filesystem::path& airports, const std::filesystem::path& runways,
                     AirportTable& table, Problems& problems);

}  // namespace zerbal::pack
