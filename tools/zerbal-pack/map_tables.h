// The contents of the map databases: selects shores, rivers and boundaries and makes tables of lines.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "zerbal-pack/map_point.h"
#include "zerbal-pack/map_source.h"

namespace zerbal::pack {

/// In detail tables no segment spans more than this in either coordinate (a segment is drawn only when both
/// its ends are in view, and the closest view spans about half a degree).
inline constexpr std::int32_t kLongestDetailSegment = kDegree / 20;
/// The same in the overview, whose closest view spans 20 degrees.
inline constexpr std::int32_t kLongestOverviewSegment = kDegree / 2;

/// One table of a map database: its lines, without the markers between them.
struct MapTable {
  std::string name;
  std::vector<MapLine> lines;
};

/// The shores that the tiles have.
bool InDetailCoast(const MapFeature& feature);
/// The shores that the overview has.
bool InOverview(const MapFeature& feature);

/// All tables of lines that coast.mdb, river.mdb or ibound.mdb holds, in the order in which it is written:
/// for the coast first the overview of the world, always from the low resolution, then the tiles that have
/// lines.
std::vector<MapTable> MakeMapTables(MapTheme theme, MapDetail detail,
                                    const std::filesystem::path& sourceFolder);

}  // namespace zerbal::pack
