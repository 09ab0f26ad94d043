// Cuts lines at the borders of the map's tiles.
#pragma once

#include <cstddef>
#include <vector>

#include "zerbal-pack/map_point.h"

namespace zerbal::pack {

/// The frame divided into equal tiles, counted from its north-west corner. A tile includes its four borders.
struct TileGrid {
  int columns = 1;
  int rows = 1;

  std::int32_t TileWidth() const { return kFrameWidth / columns; }
  std::int32_t TileHeight() const { return kFrameHeight / rows; }
  std::size_t TileCount() const { return static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows); }
  std::size_t TileIndex(int column, int row) const {
    return static_cast<std::size_t>(column) * static_cast<std::size_t>(rows) + static_cast<std::size_t>(row);
  }
};

/// Cuts pieces into the tiles that they run through.
///
/// A segment that crosses a border is cut at the border. The point there ends the line on one side and
/// begins it on the other, so that each tile draws its part up to the border. A segment that runs along a
/// border belongs to the tiles on both sides. Longitudes wrap: a line that continues beyond 360 degrees is
/// cut at exactly 360 and continues at exactly 0.
class TileCutter {
 public:
  explicit TileCutter(TileGrid grid) : grid_(grid), tiles_(grid.TileCount()) {}

  /// Longitudes 0 to 720 degrees, latitudes 0 to 180. Points equal to the one before are dropped, and so are
  /// pieces without two different points.
  void Add(const MapPiece& piece);

  const TileGrid& Grid() const { return grid_; }
  /// The pieces in a tile, longitudes 0 to 360, in the order of adding; by TileIndex.
  std::vector<std::vector<MapPiece>>& Tiles() { return tiles_; }

 private:
  struct Run {  // a line being followed in one tile; column is not wrapped yet
    int column = 0;
    int row = 0;
    MapLine points;
    bool extended = false;
  };

  void AddSegment(MapPoint from, MapPoint to);
  void AddUncut(MapPoint from, MapPoint to);
  void Extend(int column, int row, MapPoint from, MapPoint to);
  bool InOnlyRun(MapPoint from, MapPoint to) const;
  void Store(Run& run);

  TileGrid grid_;
  std::vector<std::vector<MapPiece>> tiles_;
  std::vector<Run> runs_;  // open runs of the piece being cut: one, or up to four along borders
  std::vector<MapPoint> cuts_;
  std::int32_t group_ = 0;
};

}  // namespace zerbal::pack
