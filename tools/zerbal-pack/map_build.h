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
  std::filesystem::path outputFolder;  ///< app_map is created in it when missing
  std::filesystem::path sourceFolder = kMapSourceFolder;
};

/// Called with the share of the work that is done, which grows from 0 to 1. May be empty.
using ProgressSink = std::function<void(double)>;

struct MapTableSize {
  std::string file;   ///< "coast.mdb"
  std::string table;  ///< as in the database: "wcl" or that of a tile
  std::size_t rows = 0;
  std::size_t lines = 0;
};

/// Writes app_map/coast.mdb, river.mdb and ibound.mdb. Returns the sizes of their tables in the order of
/// writing. The same sources give the same bytes. Throws MapSourceError for a missing or damaged source and
/// jet::EngineError for a file that cannot be written; files finished before that stay.
std::vector<MapTableSize> BuildMapDatabases(const MapBuildOptions& options, const ProgressSink& progress);

}  // namespace zerbal::pack
