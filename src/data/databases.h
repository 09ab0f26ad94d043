// The database files of the program and the recordsets that stay open for the whole run.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "data/airports.h"
#include "data/base_map.h"
#include "data/schedule.h"

namespace zerbal::data {

/// Where the program's files are.
struct DataFiles {
  std::filesystem::path zbldata, qavdata, allaprt, coast;
  std::optional<std::filesystem::path> river, ibound;
};

struct FoundFiles {
  DataFiles files;
  /// Required files that are not there, in the order in which they are looked for.
  std::vector<std::filesystem::path> missing;
};

/// Looks in a folder's `app_data` and `app_map` for all of them. Names are found without regard to letter
/// case, since databases come from case-blind disks. The map may go without rivers and boundaries.
FoundFiles FindDataFiles(const std::filesystem::path& folder);

/// Everything that is open for the whole run. Destroying it closes it, in the reverse order of opening.
struct Databases {
  Schedule schedule;
  Airports destinations;
  Airports allAirports;
  BaseMap baseMap;
};

/// Opens all of them. Throws an error of the engine when one cannot be opened.
Databases OpenDatabases(const DataFiles& files);

}  // namespace zerbal::data
