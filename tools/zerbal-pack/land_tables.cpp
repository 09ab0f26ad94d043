#include "zerbal-pack/land_tables.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>

#include "zerbal-pack/map_join.h"
#include "zerbal-pack/map_tiles.h"

namespace zerbal::pack {

namespace {

// The way along the edge of the frame: from the north-west corner southwards, eastwards, northwards.
constexpr std::int64_t kSouthWest = kFrameHeight;
constexpr std::int64_t kSouthEast = kSouthWest + kFrameWidth;

std::optional<std::int64_t> PlaceAlongEdge(MapPoint point) {
  if (point.lon == 0)
    return point.lat;
  if (point.lat == kFrameHeight)
    return kSouthWest + point.lon;
  if (point.lon == kFrameWidth)
    return kSouthEast + kFrameHeight - point.lat;
  return std::nullopt;
}

struct LineEnd {
  std::int64_t place = 0;  // along the edge
  std::size_t line = 0;
  bool isLast = false;
  auto operator<=>(const LineEnd&) const = default;  // NOLINT(modernize-use-nullptr)
};

bool IsRing(const MapLine& line) {
  return line.front() == line.back();
}

/// Adds the corners of the frame between two places.
void AddCorners(std::int64_t from, std::int64_t to, MapLine& ring) {
  const std::pair<std::int64_t, MapPoint> corners[] = {{kSouthWest, {0, kFrameHeight}},
                                                       {kSouthEast, {kFrameWidth, kFrameHeight}}};
  const auto add = [&](const auto& corner) {
    if (std::min(from, to) < corner.first && corner.first < std::max(from, to))
      ring.push_back(corner.second);
  };
  if (from < to) {
    add(corners[0]);
    add(corners[1]);
  } else {
    add(corners[1]);
    add(corners[0]);
  }
}

/// Joins lines along the edge of the frame. The edge is entered and left in turn, beginning outside at the
/// North Pole, where no polygon is.
class EdgeJoiner {
 public:
  explicit EdgeJoiner(std::vector<MapLine>& lines) : lines_(lines), used_(lines.size(), false) {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
      const auto first = PlaceAlongEdge(lines_[i].front());
      const auto last = PlaceAlongEdge(lines_[i].back());
      if (!IsRing(lines_[i]) && first && last) {
        ends_.push_back({*first, i, false});
        ends_.push_back({*last, i, true});
      }
    }
    std::sort(ends_.begin(), ends_.end());
  }

  /// The ring that a line belongs to; empty when it was used.
  MapLine Follow(std::size_t line) {
    MapLine ring;
    bool isReversed = false;
    while (!used_[line]) {
      used_[line] = true;
      MapLine& points = lines_[line];
      if (isReversed)
        std::reverse(points.begin(), points.end());
      ring.insert(ring.end(), points.begin(), points.end());
      const auto end = std::find_if(ends_.begin(), ends_.end(), [&](const LineEnd& candidate) {
        return candidate.line == line && candidate.isLast != isReversed;
      });
      if (end == ends_.end())
        break;  // a ring, or a line that ends elsewhere
      const std::size_t partner = static_cast<std::size_t>(end - ends_.begin()) ^ 1;
      AddCorners(end->place, ends_[partner].place, ring);
      line = ends_[partner].line;
      isReversed = ends_[partner].isLast;
    }
    return ring;
  }

 private:
  std::vector<MapLine>& lines_;
  std::vector<bool> used_;
  std::vector<LineEnd> ends_;  // an even number
};

/// Positive when left-handed with the north up; twice the area.
double SignedArea(const MapLine& ring) {
  double area = 0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const MapPoint from = ring[i];
    const MapPoint to = ring[(i + 1) % ring.size()];
    area += (static_cast<double>(to.lon) - from.lon) * (static_cast<double>(from.lat) + to.lat);
  }
  return area;
}

struct Polygon {
  bool isLand = false;
  std::vector<MapPiece> pieces;
};

using Selection = bool (*)(const MapFeature&);

std::map<std::int32_t, Polygon> ReadPolygons(MapDetail detail, const std::filesystem::path& sourceFolder,
                                             Selection selection) {
  std::map<std::int32_t, Polygon> polygons;
  TileCutter cutter(TileGrid{1, 1});
  for (SourcePiece& piece : ReadMapSource(sourceFolder, MapTheme::kCoast, detail, selection)) {
    const int level = piece.feature.level;
    polygons[piece.feature.polygon].isLand = level == kLandShore || level == kLakeIsland;
    cutter.Add({std::move(piece.points), piece.feature.polygon});
  }
  for (MapPiece& piece : cutter.Tiles().front())
    polygons[piece.group].pieces.push_back(std::move(piece));
  return polygons;
}

MapTable MakeLandTable(const char* name, MapDetail detail, const std::filesystem::path& sourceFolder,
                       Selection selection) {
  MapTable table{name, {}};
  for (auto& [number, polygon] : ReadPolygons(detail, sourceFolder, selection)) {
    for (MapLine& ring : CloseRings(JoinPieces(std::move(polygon.pieces)), polygon.isLand))
      table.lines.push_back(std::move(ring));
  }
  SortForDrawing(table.lines);
  return table;
}

/// Wide rivers are water.
bool InDetailLand(const MapFeature& feature) {
  return feature.level != kGroundingLine;
}

}  // namespace

std::vector<MapLine> CloseRings(std::vector<MapLine> lines, bool isLand) {
  std::vector<MapLine> rings;
  EdgeJoiner joiner(lines);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    MapLine ring = joiner.Follow(i);
    ring.erase(std::unique(ring.begin(), ring.end()), ring.end());
    if (ring.size() > 1 && IsRing(ring))
      ring.pop_back();
    if (ring.size() < 3)
      continue;
    if ((SignedArea(ring) > 0) != isLand)
      std::reverse(ring.begin(), ring.end());
    rings.push_back(std::move(ring));
  }
  return rings;
}

std::vector<MapTable> MakeLandTables(MapDetail detail, const std::filesystem::path& sourceFolder) {
  std::vector<MapTable> tables;
  tables.push_back(MakeLandTable(data::kLandTable, MapDetail::kLow, sourceFolder, InOverview));
  tables.push_back(MakeLandTable(data::kFineLandTable, detail, sourceFolder, InDetailLand));
  return tables;
}

}  // namespace zerbal::pack
