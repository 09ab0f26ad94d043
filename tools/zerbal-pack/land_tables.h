// The polygons of land for filled maps: tables of coast.mdb that the window of the program does not read.
#pragma once

#include <vector>

#include "zerbal-pack/map_tables.h"

namespace zerbal::pack {

/// The tables of the overview and of the chosen detail (data::kLandTable, data::kFineLandTable). Each line is
/// a ring without its first point at the end. Land is inside an odd number of rings. Polygons that cross 180
/// degrees are cut there, and that around the South Pole is closed along it. Shores of land are left-handed
/// on a map with the north up, those of lakes right-handed, so that both parts of a polygon that was cut have
/// the same direction.
std::vector<MapTable> MakeLandTables(MapDetail detail, const std::filesystem::path& sourceFolder);

/// The rings of one polygon, whose lines end at their beginning or at the edge of the map frame. `isLand`:
/// left-handed.
std::vector<MapLine> CloseRings(std::vector<MapLine> lines, bool isLand);

}  // namespace zerbal::pack
