// Finds the database files of the program and keeps them open.
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
  /// Required files that do not exist, in the order of DataFiles.
  std::vector<std::filesystem::path> missing;
};

/// Looks for all files in the folders `app_data` and `app_map` of a folder. The letter case of names does not
/// matter. Files of rivers and boundaries are optional.
FoundFiles FindDataFiles(const std::filesystem::path& folder);

/// Everything that is open while the program runs.
struct Databases {
  Schedule schedule;
  Airports destinations;
  Airports allAirports;
  BaseMap baseMap;
};

/// What a schedule database contains.
struct ScheduleFile {
  Schedule schedule;
  Airports destinations;
};

/// Throws jet::EngineError when it cannot be opened.
ScheduleFile OpenSchedule(const std::filesystem::path& file);

/// Opens all of them. Throws jet::EngineError when one cannot be opened.
Databases OpenDatabases(const DataFiles& files);

}  // namespace zerbal::data
