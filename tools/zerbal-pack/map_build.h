// Builds the three databases of the base map from the public map data.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "zerbal-pack/map_source.h"

namespace zerbal::pack {

struct MapBuildOptions {
  MapDetail detail = MapDetail::kHigh;
  std::filesystem::path outputFolder;  ///< app_map/ is made in it if need be
  std::filesystem::path sourceFolder = kMapSourceFolder;
};

/// Told how much of the work is done, from 0 to 1, growing. May be empty.
using ProgressSink = std::function<void(double)>;

struct MapTableSize {
  std::string file;   ///< "coast.mdb"
  std::string table;  ///< "wcl" or a tile's name and "wdb2"
  std::size_t rows = 0;
  std::size_t lines = 0;
};

/// Writes app_map/coast.mdb, river.mdb and ibound.mdb. Returns what they hold, in order of writing. The same
/// sources give the same bytes.
/// Throws MapSourceError for a missing or damaged source and jet::EngineError for a file that cannot be
/// written; files finished before that stay.
std::vector<MapTableSize> BuildMapDatabases(const MapBuildOptions& options, const ProgressSink& progress);

}  // namespace zerbal::pack
