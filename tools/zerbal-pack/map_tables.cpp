#include "zerbal-pack/map_tables.h"

#include <cstddef>
#include <cstdint>
#include <utility>

#include "zerbal-pack/map_join.h"
#include "zerbal-pack/map_tiles.h"

namespace zerbal::pack {

namespace {

constexpr TileGrid kWorldGrid{1, 1};
constexpr TileGrid kDetailGrid{9, 9};
constexpr char kBandLetters[] = "ACEGIKMOQ";

// The low resolution is accurate to 5 km, so the shape of a smaller island is lost; smaller lakes would be
// dots that hide the coasts.
constexpr double kOverviewIslandKm2 = 10;
constexpr double kOverviewLakeKm2 = 1000;

bool IsPermanentRiver(const MapFeature& feature) {
  return feature.level >= kMajorRiver && feature.level <= kMinorRiver;
}

// The banks of wide rivers are taken from the shores, because only there they have their islands.
bool IsWideRiver(const MapFeature& feature) {
  return feature.riverLake;
}

bool IsNationalBoundary(const MapFeature& feature) {
  return feature.level == kNationalBoundary;
}

using Selection = bool (*)(const MapFeature&);

std::string TileTableName(const TileGrid& grid, std::size_t tile) {
  if (grid.TileCount() == 1)
    return "wcl";
  const std::size_t rows = static_cast<std::size_t>(grid.rows);
  return std::string{kBandLetters[tile / rows], kBandLetters[tile % rows]} + "wdb2";
}

// Reads sources of one detail and cuts them into tiles.
class SourceCutter {
 public:
  SourceCutter(const TileGrid& grid, MapDetail detail, const std::filesystem::path& folder)
      : cutter_(grid), detail_(detail), folder_(folder) {}

  void Add(MapTheme theme, Selection selection) {
    for (SourcePiece& piece : ReadMapSource(folder_, theme, detail_, selection)) {
      // Shores have numbers from 0; rivers and boundaries differ by level only.
      const int group = theme == MapTheme::kCoast ? piece.feature.polygon : -1 - piece.feature.level;
      cutter_.Add({std::move(piece.points), group});
    }
  }

  TileCutter& Cutter() { return cutter_; }

 private:
  TileCutter cutter_;
  MapDetail detail_;
  const std::filesystem::path& folder_;
};

enum class Repeats {
  kKeep,  // shores: rings, in which a repeated segment is harmless
  kDrop,
};

void AppendTables(TileCutter& cutter, Repeats repeats, std::int32_t longestSegment,
                  std::vector<MapTable>& tables) {
  for (std::size_t tile = 0; tile < cutter.Tiles().size(); ++tile) {
    std::vector<MapPiece> pieces = std::move(cutter.Tiles()[tile]);
    if (pieces.empty())
      continue;
    if (repeats == Repeats::kDrop)
      DropRepeatedSegments(pieces);
    MapTable table{TileTableName(cutter.Grid(), tile), JoinPieces(std::move(pieces))};
    for (MapLine& line : table.lines)
      SubdivideLongSegments(line, longestSegment);
    SortForDrawing(table.lines);
    tables.push_back(std::move(table));
  }
}

}  // namespace

// Antarctica is shown by its ice front. Wide rivers are
// shown with the other rivers.
bool InDetailCoast(const MapFeature& feature) {
  return feature.level != kGroundingLine && !feature.riverLake;
}

bool InOverview(const MapFeature& feature) {
  if (!InDetailCoast(feature) || feature.level == kIslandPond)
    return false;
  return feature.areaKm2 >= (feature.level == kLandShore ? kOverviewIslandKm2 : kOverviewLakeKm2);
}

std::vector<MapTable> MakeMapTables(MapTheme theme, MapDetail detail,
                                    const std::filesystem::path& sourceFolder) {
  std::vector<MapTable> tables;
  SourceCutter details(kDetailGrid, detail, sourceFolder);
  switch (theme) {
    case MapTheme::kCoast: {
      SourceCutter overview(kWorldGrid, MapDetail::kLow, sourceFolder);
      overview.Add(MapTheme::kCoast, InOverview);
      AppendTables(overview.Cutter(), Repeats::kKeep, kLongestOverviewSegment, tables);
      details.Add(MapTheme::kCoast, InDetailCoast);
      break;
    }
    case MapTheme::kRiver:
      details.Add(MapTheme::kRiver, IsPermanentRiver);
      details.Add(MapTheme::kCoast, IsWideRiver);
      break;
    case MapTheme::kBoundary:
      details.Add(MapTheme::kBoundary, IsNationalBoundary);
      break;
  }
  const Repeats repeats = theme == MapTheme::kCoast ? Repeats::kKeep : Repeats::kDrop;
  AppendTables(details.Cutter(), repeats, kLongestDetailSegment, tables);
  return tables;
}

}  // namespace zerbal::pack
