#include "zerbal-pack/map_tiles.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace zerbal::pack {

namespace {

struct Band {  // the one or two rows (or columns) that a part between two borders belongs to
  int first = 0;
  int last = 0;
};

// `from` and `to` are coordinates of two points with no border between them.
Band BandOf(std::int32_t from, std::int32_t to, std::int32_t size) {
  if (from == to && from % size == 0)
    return {from / size - 1, from / size};
  const int band = std::min(from, to) / size;
  return {band, band};
}

// The first border greater than `low`.
std::int32_t NextBorder(std::int32_t low, std::int32_t size) {
  return (low / size + 1) * size;
}

std::int32_t Between(std::int32_t fromA, std::int32_t toA, std::int32_t fromB, std::int32_t toB,
                     std::int32_t b) {
  // Computed from the end with the smaller b, so that both directions are rounded in the same way.
  if (fromB > toB) {
    std::swap(fromA, toA);
    std::swap(fromB, toB);
  }
  const std::int64_t across = std::int64_t{toA} - fromA;
  const std::int64_t step =
      DivideRounded(std::abs(across) * (std::int64_t{b} - fromB), std::int64_t{toB} - fromB);
  return static_cast<std::int32_t>(across < 0 ? fromA - step : fromA + step);
}

}  // namespace

std::int32_t LatitudeAt(MapPoint from, MapPoint to, std::int32_t lon) {
  return Between(from.lat, to.lat, from.lon, to.lon, lon);
}

std::int32_t LongitudeAt(MapPoint from, MapPoint to, std::int32_t lat) {
  return Between(from.lon, to.lon, from.lat, to.lat, lat);
}

void TileCutter::Add(const MapPiece& piece) {
  group_ = piece.group;
  for (std::size_t i = 1; i < piece.points.size(); ++i) {
    if (piece.points[i - 1] != piece.points[i])
      AddSegment(piece.points[i - 1], piece.points[i]);
  }
  for (Run& run : runs_)
    Store(run);
  runs_.clear();
}

void TileCutter::AddSegment(MapPoint from, MapPoint to) {
  if (InOnlyRun(from, to)) {
    runs_.front().points.push_back(to);
    return;
  }
  const std::int32_t width = grid_.TileWidth();
  const std::int32_t height = grid_.TileHeight();
  const auto [west, east] = std::minmax(from.lon, to.lon);
  const auto [north, south] = std::minmax(from.lat, to.lat);
  cuts_.clear();
  for (std::int32_t lon = NextBorder(west, width); lon < east; lon += width)
    cuts_.push_back({lon, LatitudeAt(from, to, lon)});
  for (std::int32_t lat = NextBorder(north, height); lat < south; lat += height)
    cuts_.push_back({LongitudeAt(from, to, lat), lat});
  // Both coordinates are monotonic along the segment, so their sum orders the cuts.
  const auto distance = [from](MapPoint p) {
    return std::int64_t{std::abs(p.lon - from.lon)} + std::abs(p.lat - from.lat);
  };
  std::sort(cuts_.begin(), cuts_.end(),
            [&distance](MapPoint a, MapPoint b) { return distance(a) < distance(b); });
  cuts_.push_back(to);
  for (const MapPoint cut : cuts_) {
    if (cut != from)
      AddUncut(from, cut);
    from = cut;
  }
}

// Whether the segment continues the only open run, away from every border: the usual case.
bool TileCutter::InOnlyRun(MapPoint from, MapPoint to) const {
  if (runs_.size() != 1 || runs_.front().points.back() != from)
    return false;
  const Run& run = runs_.front();
  const std::int32_t west = run.column * grid_.TileWidth();
  const std::int32_t north = run.row * grid_.TileHeight();
  return to.lon > west && to.lon < west + grid_.TileWidth() && to.lat > north &&
         to.lat < north + grid_.TileHeight();
}

void TileCutter::AddUncut(MapPoint from, MapPoint to) {
  const Band columns = BandOf(from.lon, to.lon, grid_.TileWidth());
  const Band rows = BandOf(from.lat, to.lat, grid_.TileHeight());
  for (Run& run : runs_)
    run.extended = false;
  for (int column = columns.first; column <= columns.last; ++column) {
    for (int row = rows.first; row <= rows.last; ++row) {
      if (row >= 0 && row < grid_.rows)  // along a pole there is a tile on one side only
        Extend(column, row, from, to);
    }
  }
  for (Run& run : runs_) {
    if (!run.extended)
      Store(run);
  }
  std::erase_if(runs_, [](const Run& run) { return !run.extended; });
}

void TileCutter::Extend(int column, int row, MapPoint from, MapPoint to) {
  const auto run = std::find_if(runs_.begin(), runs_.end(), [column, row](const Run& candidate) {
    return candidate.column == column && candidate.row == row;
  });
  if (run != runs_.end()) {
    run->points.push_back(to);
    run->extended = true;
  } else {
    runs_.push_back({column, row, {from, to}, true});
  }
}

void TileCutter::Store(Run& run) {
  // Column -1 is the west side of a line along longitude 0: the last column, at longitude 360.
  const int turns = (run.column + grid_.columns) / grid_.columns - 1;
  for (MapPoint& point : run.points)
    point.lon -= turns * kFrameWidth;
  const int column = run.column - turns * grid_.columns;
  tiles_[grid_.TileIndex(column, run.row)].push_back({std::move(run.points), group_});
}

}  // namespace zerbal::pack
