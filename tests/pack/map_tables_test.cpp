#include "zerbal-pack/map_tables.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <set>
#include <utility>

#include <gtest/gtest.h>

#include "zerbal-pack/map_join.h"
#include "zerbal-pack/map_tiles.h"

namespace zerbal::pack {
namespace {

using Segment = std::pair<MapPoint, MapPoint>;

constexpr MapTheme kThemes[] = {MapTheme::kCoast, MapTheme::kRiver, MapTheme::kBoundary};
constexpr char kLetters[] = "ACEGIKMOQ";

// Tests with the installed low resolution data.
class MapTables : public testing::Test {
 protected:
  void SetUp() override {
    for (const MapTheme theme : kThemes) {
      if (!std::filesystem::exists(MapSourceFile(kMapSourceFolder, theme, MapDetail::kLow)))
        GTEST_SKIP() << "gmt-gshhg-low is not installed";
    }
  }

  static const std::vector<MapTable>& Tables(MapTheme theme) {
    static std::map<MapTheme, std::vector<MapTable>> tables;
    if (!tables.contains(theme))
      tables[theme] = MakeMapTables(theme, MapDetail::kLow, kMapSourceFolder);
    return tables[theme];
  }

  static bool IsOverview(const MapTable& table) { return table.name == "wcl"; }
  // Column and row of the tile of a detail table.
  static int Column(const MapTable& table) {
    return static_cast<int>(std::string(kLetters).find(table.name[0]));
  }
  static int Row(const MapTable& table) {
    return static_cast<int>(std::string(kLetters).find(table.name[1]));
  }
};

double Kilometres(MapPoint a, MapPoint b) {
  constexpr double kKmPerDegree = 111.2;
  const double middle = (a.lat + b.lat) / 2.0 / kDegree;  // degrees from the pole
  const double east = (b.lon - a.lon) * std::sin(middle * std::numbers::pi / 180);
  return std::hypot(east, b.lat - a.lat) / kDegree * kKmPerDegree;
}

double TotalLength(const MapLine& line) {
  double length = 0;
  for (std::size_t i = 1; i < line.size(); ++i)
    length += std::hypot(line[i].lon - line[i - 1].lon, line[i].lat - line[i - 1].lat);
  return length;
}

// A segment without direction, longitudes 0 to 360.
Segment Normal(MapPoint a, MapPoint b) {
  if (std::max(a.lon, b.lon) > kFrameWidth) {
    a.lon -= kFrameWidth;
    b.lon -= kFrameWidth;
  }
  return std::minmax({a, b});
}

TEST_F(MapTables, HaveTheNamesOfTheirTiles) {
  std::size_t overviews = 0;
  for (const MapTheme theme : kThemes) {
    std::set<std::string> names;
    for (const MapTable& table : Tables(theme)) {
      EXPECT_TRUE(names.insert(table.name).second) << table.name;
      EXPECT_FALSE(table.lines.empty()) << table.name;
      if (IsOverview(table)) {
        ++overviews;
        continue;
      }
      ASSERT_EQ(table.name.size(), 6u);
      EXPECT_EQ(table.name.substr(2), "wdb2");
      EXPECT_NE(std::string(kLetters).find(table.name[0]), std::string::npos) << table.name;
      EXPECT_NE(std::string(kLetters).find(table.name[1]), std::string::npos) << table.name;
    }
    EXPECT_GT(names.size(), 20u);
  }
  EXPECT_EQ(overviews, 1u);
  EXPECT_EQ(Tables(MapTheme::kCoast).front().name, "wcl");
}

TEST_F(MapTables, HavePointsOfTheirTileOnly) {
  for (const MapTheme theme : kThemes) {
    for (const MapTable& table : Tables(theme)) {
      const std::int32_t west = IsOverview(table) ? 0 : 40 * kDegree * Column(table);
      const std::int32_t east = IsOverview(table) ? kFrameWidth : west + 40 * kDegree;
      const std::int32_t north = IsOverview(table) ? 0 : 20 * kDegree * Row(table);
      const std::int32_t south = IsOverview(table) ? kFrameHeight : north + 20 * kDegree;
      for (const MapLine& line : table.lines) {
        for (const MapPoint point : line) {
          ASSERT_TRUE(point.lon >= west && point.lon <= east && point.lat >= north && point.lat <= south)
              << table.name << " " << point.lon << " " << point.lat;
        }
      }
    }
  }
}

TEST_F(MapTables, HaveNoShortLinesRepeatedPointsOrLongSegments) {
  for (const MapTheme theme : kThemes) {
    for (const MapTable& table : Tables(theme)) {
      const std::int32_t longest = IsOverview(table) ? kLongestOverviewSegment : kLongestDetailSegment;
      for (const MapLine& line : table.lines) {
        ASSERT_GE(line.size(), 2u) << table.name;
        for (std::size_t i = 1; i < line.size(); ++i) {
          ASSERT_NE(line[i], line[i - 1]) << table.name;
          ASSERT_LE(std::abs(line[i].lon - line[i - 1].lon), longest) << table.name;
          ASSERT_LE(std::abs(line[i].lat - line[i - 1].lat), longest) << table.name;
        }
      }
    }
  }
}

TEST_F(MapTables, AreInDrawingOrder) {
  for (const MapTheme theme : kThemes) {
    for (const MapTable& table : Tables(theme)) {
      std::vector<MapLine> sorted = table.lines;
      SortForDrawing(sorted);
      ASSERT_EQ(sorted, table.lines) << table.name;
    }
  }
}

// A line that ends on the border between two tiles continues from the same point in the next tile.
TEST_F(MapTables, HaveThePointsOnABorderOnBothSides) {
  std::size_t checked = 0;
  for (const MapTheme theme : kThemes) {
    std::map<std::pair<int, int>, std::set<MapPoint>> points;
    for (const MapTable& table : Tables(theme)) {
      if (IsOverview(table))
        continue;
      for (const MapLine& line : table.lines)
        points[{Column(table), Row(table)}].insert(line.begin(), line.end());
    }
    for (const MapTable& table : Tables(theme)) {
      if (IsOverview(table))
        continue;
      for (const MapLine& line : table.lines) {
        if (line.front() == line.back())
          continue;
        for (MapPoint end : {line.front(), line.back()}) {
          int column = Column(table);
          int row = Row(table);
          const std::int32_t inLon = end.lon - 40 * kDegree * column;
          const std::int32_t inLat = end.lat - 20 * kDegree * row;
          if (inLon != 0 && inLon != 40 * kDegree && inLat != 0 && inLat != 20 * kDegree)
            continue;
          column += inLon == 0 ? -1 : inLon == 40 * kDegree ? 1 : 0;
          row += inLat == 0 ? -1 : inLat == 20 * kDegree ? 1 : 0;
          end.lon += column < 0 ? kFrameWidth : column > 8 ? -kFrameWidth : 0;
          column = (column + 9) % 9;
          const bool there = points[{column, row}].contains(end);
          // A shore always continues; a river or boundary may end there.
          if (theme == MapTheme::kCoast) {
            ASSERT_TRUE(there) << table.name << " " << end.lon << " " << end.lat;
          }
          checked += there ? 1 : 0;
        }
      }
    }
  }
  EXPECT_GT(checked, 1000u);
}

TEST_F(MapTables, CloseEachShoreOfTheOverviewOrEndItAtTheFramesEdge) {
  std::vector<std::int32_t> west;  // latitudes where lines end
  std::vector<std::int32_t> east;
  for (const MapLine& line : Tables(MapTheme::kCoast).front().lines) {
    if (line.front() == line.back())
      continue;
    for (const MapPoint end : {line.front(), line.back()}) {
      ASSERT_TRUE(end.lon == 0 || end.lon == kFrameWidth) << end.lon << " " << end.lat;
      (end.lon == 0 ? west : east).push_back(end.lat);
    }
  }
  std::sort(west.begin(), west.end());
  std::sort(east.begin(), east.end());
  EXPECT_FALSE(west.empty());
  EXPECT_EQ(west, east);
}

bool RunsAlongABorder(const Segment& segment) {
  const auto& [a, b] = segment;
  return (a.lon == b.lon && a.lon % (40 * kDegree) == 0) || (a.lat == b.lat && a.lat % (20 * kDegree) == 0);
}

// Joining and cutting neither lose nor add a segment of the source.
TEST_F(MapTables, HaveExactlyTheSegmentsOfTheSource) {
  for (const MapTheme theme : kThemes) {
    TileCutter cutter({9, 9});
    std::vector<Segment> source;
    for (const SourcePiece& piece :
         ReadMapSource(kMapSourceFolder, theme, MapDetail::kLow, [](const MapFeature&) { return true; })) {
      cutter.Add({piece.points, piece.feature.polygon});
      for (std::size_t i = 1; i < piece.points.size(); ++i) {
        if (piece.points[i] == piece.points[i - 1])
          continue;
        source.push_back(Normal(piece.points[i - 1], piece.points[i]));
        if (RunsAlongABorder(source.back()))
          source.push_back(Segment(source.back()));  // once per side
      }
    }
    std::vector<Segment> joined;
    for (std::vector<MapPiece>& tile : cutter.Tiles()) {
      for (const MapLine& line : JoinPieces(std::move(tile))) {
        for (std::size_t i = 1; i < line.size(); ++i)
          joined.push_back(Normal(line[i - 1], line[i]));
      }
    }
    std::sort(source.begin(), source.end());
    std::sort(joined.begin(), joined.end());
    EXPECT_TRUE(source == joined) << source.size() << " segments, then " << joined.size();
  }
}

// A wrong line across the map would increase the total length.
TEST_F(MapTables, AreAsLongAsTheSource) {
  double source = 0;
  for (const SourcePiece& piece : ReadMapSource(
           kMapSourceFolder, MapTheme::kCoast, MapDetail::kLow,
           [](const MapFeature& feature) { return feature.level != kGroundingLine && !feature.riverLake; }))
    source += TotalLength(piece.points);
  double tables = 0;
  for (const MapTable& table : Tables(MapTheme::kCoast)) {
    for (const MapLine& line : table.lines)
      tables += IsOverview(table) ? 0 : TotalLength(line);
  }
  EXPECT_NEAR(tables / source, 1, 1e-5);
}

// The low resolution omits points within 5 km of a straight line, so that straight coasts have segments of up
// to several hundred kilometres. A longer segment would be an error. Inserted points are removed first.
TEST_F(MapTables, HaveNoSegmentsThatAreTooLong) {
  constexpr double kLongestKm = 330;
  for (const MapTheme theme : {MapTheme::kCoast, MapTheme::kRiver}) {
    double longest = 0;
    for (const MapTable& table : Tables(theme)) {
      for (const MapLine& line : table.lines) {
        MapPoint start = line.front();
        for (std::size_t i = 1; i < line.size(); ++i) {
          longest = std::max(longest, Kilometres(start, line[i]));
          const bool goesOn = [&] {
            if (i + 1 == line.size())
              return false;
            const double ax = line[i].lon - line[i - 1].lon, ay = line[i].lat - line[i - 1].lat;
            const double bx = line[i + 1].lon - line[i].lon, by = line[i + 1].lat - line[i].lat;
            // Inserted points are at most half a unit away from the straight line.
            return std::abs(ax * by - ay * bx) <= 2 * std::max(std::hypot(ax, ay), std::hypot(bx, by)) &&
                   ax * bx + ay * by > 0;
          }();
          if (!goesOn)
            start = line[i];
        }
      }
    }
    EXPECT_LT(longest, kLongestKm);
    EXPECT_GT(longest, 50);  // the measurement works
  }
}

TEST_F(MapTables, HaveAntarcticaOnce) {
  // South of 75 S at 0 E there is only the ice front, and no line on the pole or along the frame's edge.
  std::size_t crossings = 0;
  for (const MapLine& line : Tables(MapTheme::kCoast).front().lines) {
    for (std::size_t i = 1; i < line.size(); ++i) {
      EXPECT_LT(line[i].lat, 175 * kDegree);
      const auto [west, east] = std::minmax(line[i - 1].lon, line[i].lon);
      if (west <= 180'500'000 && east > 180'500'000 && line[i].lat > 155 * kDegree)
        ++crossings;
    }
  }
  EXPECT_EQ(crossings % 2, 1u);
  EXPECT_LE(crossings, 3u);
}

}  // namespace
}  // namespace zerbal::pack
