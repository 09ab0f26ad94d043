#include "zerbal-pack/map_tiles.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "support/test_random.h"

namespace zerbal::pack {
namespace {

constexpr TileGrid kGrid{9, 9};  // tiles of 40 by 20 degrees

MapPoint At(double lon, double lat) {
  return {static_cast<std::int32_t>(lon * kDegree), static_cast<std::int32_t>(lat * kDegree)};
}

// The lines of one tile, which its column and row identify.
std::vector<MapLine> LinesIn(TileCutter& cutter, int column, int row) {
  std::vector<MapLine> lines;
  for (const MapPiece& piece : cutter.Tiles()[cutter.Grid().TileIndex(column, row)])
    lines.push_back(piece.points);
  return lines;
}

std::size_t PieceCount(TileCutter& cutter) {
  std::size_t count = 0;
  for (const auto& tile : cutter.Tiles())
    count += tile.size();
  return count;
}

TileCutter Cut(const MapLine& line, TileGrid grid = kGrid) {
  TileCutter cutter(grid);
  cutter.Add({line, 7});
  return cutter;
}

using Lines = std::vector<MapLine>;

TEST(TileCutter, DoesNotCutAPieceInsideOneTile) {
  const MapLine line{At(41, 21), At(50, 30), At(79, 39)};
  TileCutter cutter = Cut(line);
  EXPECT_EQ(LinesIn(cutter, 1, 1), Lines{line});
  EXPECT_EQ(PieceCount(cutter), 1u);
  EXPECT_EQ(cutter.Tiles()[cutter.Grid().TileIndex(1, 1)].front().group, 7);
}

TEST(TileCutter, CutsASegmentAtTheBorderWithTheSamePointOnBothSides) {
  TileCutter cutter = Cut({At(39, 30), At(41, 32)});
  EXPECT_EQ(LinesIn(cutter, 0, 1), (Lines{{At(39, 30), At(40, 31)}}));
  EXPECT_EQ(LinesIn(cutter, 1, 1), (Lines{{At(40, 31), At(41, 32)}}));
}

TEST(TileCutter, CutsALongSegmentAtEveryBorder) {
  TileCutter cutter = Cut({At(10, 30), At(130, 30)});
  EXPECT_EQ(LinesIn(cutter, 0, 1), (Lines{{At(10, 30), At(40, 30)}}));
  EXPECT_EQ(LinesIn(cutter, 1, 1), (Lines{{At(40, 30), At(80, 30)}}));
  EXPECT_EQ(LinesIn(cutter, 2, 1), (Lines{{At(80, 30), At(120, 30)}}));
  EXPECT_EQ(LinesIn(cutter, 3, 1), (Lines{{At(120, 30), At(130, 30)}}));
}

TEST(TileCutter, CutsAtAnExistingPointOnTheBorder) {
  TileCutter cutter = Cut({At(39, 30), At(40, 31), At(41, 31)});
  EXPECT_EQ(LinesIn(cutter, 0, 1), (Lines{{At(39, 30), At(40, 31)}}));
  EXPECT_EQ(LinesIn(cutter, 1, 1), (Lines{{At(40, 31), At(41, 31)}}));
}

TEST(TileCutter, DoesNotCutALineThatOnlyTouchesABorder) {
  const MapLine line{At(39, 30), At(40, 31), At(39, 32)};
  TileCutter cutter = Cut(line);
  EXPECT_EQ(LinesIn(cutter, 0, 1), Lines{line});
  EXPECT_EQ(PieceCount(cutter), 1u);
}

TEST(TileCutter, AddsALineAlongABorderToBothSides) {
  TileCutter cutter = Cut({At(39, 30), At(40, 31), At(40, 33), At(41, 34)});
  EXPECT_EQ(LinesIn(cutter, 0, 1), (Lines{{At(39, 30), At(40, 31), At(40, 33)}}));
  EXPECT_EQ(LinesIn(cutter, 1, 1), (Lines{{At(40, 31), At(40, 33), At(41, 34)}}));
}

TEST(TileCutter, CutsALineAlongABorderAtACorner) {
  TileCutter cutter = Cut({At(40, 35), At(40, 45)});
  for (const int column : {0, 1}) {
    EXPECT_EQ(LinesIn(cutter, column, 1), (Lines{{At(40, 35), At(40, 40)}}));
    EXPECT_EQ(LinesIn(cutter, column, 2), (Lines{{At(40, 40), At(40, 45)}}));
  }
  EXPECT_EQ(PieceCount(cutter), 4u);
}

TEST(TileCutter, PassesThroughACornerWithoutTouchingTheOtherTwoTiles) {
  for (const bool reversed : {false, true}) {
    MapLine line{At(39, 39), At(41, 41)};
    if (reversed)
      std::reverse(line.begin(), line.end());
    TileCutter cutter = Cut(line);
    EXPECT_EQ(PieceCount(cutter), 2u);
    EXPECT_EQ(LinesIn(cutter, 0, 1).size(), 1u);
    EXPECT_EQ(LinesIn(cutter, 1, 2).size(), 1u);
  }
}

TEST(TileCutter, CutsALineThatEndsOrBeginsInACorner) {
  TileCutter cutter = Cut({At(39, 39), At(40, 40), At(41, 39)});
  EXPECT_EQ(LinesIn(cutter, 0, 1), (Lines{{At(39, 39), At(40, 40)}}));
  EXPECT_EQ(LinesIn(cutter, 1, 1), (Lines{{At(40, 40), At(41, 39)}}));
  EXPECT_EQ(PieceCount(cutter), 2u);
}

TEST(TileCutter, CrossesTwoBordersNearACornerInOrder) {
  TileCutter cutter = Cut({At(39, 39.5), At(41, 41)});
  EXPECT_EQ(LinesIn(cutter, 0, 1), (Lines{{At(39, 39.5), {39'666'667, 40'000'000}}}));
  EXPECT_EQ(LinesIn(cutter, 0, 2), (Lines{{{39'666'667, 40'000'000}, At(40, 40.25)}}));
  EXPECT_EQ(LinesIn(cutter, 1, 2), (Lines{{At(40, 40.25), At(41, 41)}}));
  EXPECT_EQ(PieceCount(cutter), 3u);
}

TEST(TileCutter, CutsAtTheFramesEdgeWithPointsAtExactly0And360) {
  TileCutter cutter = Cut({At(358, 30), At(362, 32), At(363, 32)});
  EXPECT_EQ(LinesIn(cutter, 8, 1), (Lines{{At(358, 30), At(360, 31)}}));
  EXPECT_EQ(LinesIn(cutter, 0, 1), (Lines{{At(0, 31), At(2, 32), At(3, 32)}}));
}

TEST(TileCutter, CutsTheWholeFrameAtItsEdgeOnly) {
  TileCutter cutter = Cut({At(300, 30), At(350, 30), At(370, 50), At(400, 50)}, {1, 1});
  EXPECT_EQ(LinesIn(cutter, 0, 0),
            (Lines{{At(300, 30), At(350, 30), At(360, 40)}, {At(0, 40), At(10, 50), At(40, 50)}}));
}

TEST(TileCutter, AddsALineAlongTheFramesEdgeToBothSides) {
  for (const double lon : {0.0, 360.0}) {
    TileCutter cutter = Cut({At(lon, 30), At(lon, 35)});
    EXPECT_EQ(LinesIn(cutter, 8, 1), (Lines{{At(360, 30), At(360, 35)}}));
    EXPECT_EQ(LinesIn(cutter, 0, 1), (Lines{{At(0, 30), At(0, 35)}}));
    EXPECT_EQ(PieceCount(cutter), 2u);
  }
}

TEST(TileCutter, AddsALineAlongAPoleToOneTile) {
  TileCutter cutter = Cut({At(10, 0), At(20, 0)});
  cutter.Add({{At(10, 180), At(20, 180)}, 0});
  EXPECT_EQ(LinesIn(cutter, 0, 0).size(), 1u);
  EXPECT_EQ(LinesIn(cutter, 0, 8).size(), 1u);
  EXPECT_EQ(PieceCount(cutter), 2u);
}

TEST(TileCutter, OmitsRepeatedPointsAndPiecesWithoutLength) {
  TileCutter cutter = Cut({At(1, 1), At(1, 1), At(2, 2), At(2, 2)});
  EXPECT_EQ(LinesIn(cutter, 0, 0), (Lines{{At(1, 1), At(2, 2)}}));
  cutter.Add({{At(5, 5), At(5, 5)}, 0});
  cutter.Add({{At(5, 5)}, 0});
  cutter.Add({{}, 0});
  EXPECT_EQ(PieceCount(cutter), 1u);
}

TEST(TileCutter, CutsALineTheSameInBothDirections) {
  test::TestRandom random(20260503);
  std::uniform_int_distribution<std::int32_t> lon(0, 2 * kFrameWidth);
  std::uniform_int_distribution<std::int32_t> lat(0, kFrameHeight);
  for (int round = 0; round < 500; ++round) {
    const MapLine line{{lon(random), lat(random)}, {lon(random), lat(random)}};
    TileCutter there = Cut(line);
    TileCutter back = Cut({line[1], line[0]});
    for (std::size_t tile = 0; tile < there.Tiles().size(); ++tile) {
      std::vector<MapLine> one;
      std::vector<MapLine> other;
      for (const MapPiece& piece : there.Tiles()[tile])
        one.push_back(piece.points);
      for (MapPiece& piece : back.Tiles()[tile])
        other.push_back({piece.points.rbegin(), piece.points.rend()});
      std::sort(one.begin(), one.end());
      std::sort(other.begin(), other.end());
      ASSERT_EQ(one, other);
    }
  }
}

// The number of tiles that a segment between two borders belongs to.
int Owners(MapPoint a, MapPoint b) {
  const int columns = a.lon == b.lon && a.lon % (40 * kDegree) == 0 ? 2 : 1;
  const bool inside = a.lat > 0 && a.lat < kFrameHeight;  // there are no tiles beyond a pole
  const int rows = a.lat == b.lat && a.lat % (20 * kDegree) == 0 && inside ? 2 : 1;
  return columns * rows;
}

// Both coordinates are monotonic along a segment, so cutting keeps this measure exactly.
std::int64_t Length(MapPoint a, MapPoint b) {
  return std::abs(std::int64_t{a.lon} - b.lon) + std::abs(std::int64_t{a.lat} - b.lat);
}

// Every part of a line lies within its tile, and no part is lost or doubled.
TEST(TileCutter, CutsRandomLinesWithoutGaps) {
  test::TestRandom random(20260504);
  // Coarse steps make points on borders, corners and the frame's edges frequent.
  std::uniform_int_distribution<std::int32_t> lon(0, 144);
  std::uniform_int_distribution<std::int32_t> lat(0, 36);
  for (int round = 0; round < 1000; ++round) {
    MapLine line;
    std::int64_t length = 0;
    for (int i = 0; i < 6; ++i) {
      line.push_back(At(5 * lon(random), 5 * lat(random)));
      length += i == 0 ? 0 : Length(line[line.size() - 2], line.back());
    }
    TileCutter cutter = Cut(line);
    std::int64_t quarters = 0;  // a part along two borders belongs to four tiles
    for (int column = 0; column < 9; ++column) {
      for (int row = 0; row < 9; ++row) {
        for (const MapLine& part : LinesIn(cutter, column, row)) {
          ASSERT_GE(part.size(), 2u);
          for (const MapPoint point : part) {
            ASSERT_TRUE(point.lon >= column * 40 * kDegree && point.lon <= (column + 1) * 40 * kDegree);
            ASSERT_TRUE(point.lat >= row * 20 * kDegree && point.lat <= (row + 1) * 20 * kDegree);
          }
          for (std::size_t i = 1; i < part.size(); ++i)
            quarters += 4 / Owners(part[i - 1], part[i]) * Length(part[i - 1], part[i]);
        }
      }
    }
    ASSERT_EQ(quarters, 4 * length);
  }
}

}  // namespace
}  // namespace zerbal::pack
