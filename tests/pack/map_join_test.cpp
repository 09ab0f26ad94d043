#include "zerbal-pack/map_join.h"

#include <algorithm>
#include <random>
#include <utility>

#include <gtest/gtest.h>

#include "support/test_random.h"

namespace zerbal::pack {
namespace {

using Lines = std::vector<MapLine>;
using Segment = std::pair<MapPoint, MapPoint>;

constexpr MapPoint kA{1, 1}, kB{2, 5}, kC{3, 2}, kD{4, 9}, kE{5, 5}, kF{6, 1};

std::vector<Segment> SegmentsOf(const Lines& lines) {
  std::vector<Segment> segments;
  for (const MapLine& line : lines) {
    for (std::size_t i = 1; i < line.size(); ++i)
      segments.push_back(std::minmax({line[i - 1], line[i]}));
  }
  std::sort(segments.begin(), segments.end());
  return segments;
}

TEST(JoinPieces, JoinsPiecesOfOneDirection) {
  EXPECT_EQ(JoinPieces({{{kC, kD}, 0}, {{kA, kB}, 0}, {{kB, kC}, 0}}), (Lines{{kD, kC, kB, kA}}));
}

TEST(JoinPieces, ReversesPieces) {
  const Lines lines = JoinPieces({{{kA, kB}, 0}, {{kC, kB}, 0}, {{kC, kD, kE}, 0}});
  EXPECT_EQ(lines, (Lines{{kA, kB, kC, kD, kE}}));
}

TEST(JoinPieces, ClosesARingFromPieces) {
  const Lines lines = JoinPieces({{{kA, kB}, 0}, {{kB, kC, kD}, 0}, {{kD, kA}, 0}});
  EXPECT_EQ(lines, (Lines{{kA, kB, kC, kD, kA}}));
}

TEST(JoinPieces, KeepsAClosedRing) {
  const Lines lines = JoinPieces({{{kA, kB, kC, kA}, 0}, {{kA, kD}, 0}});
  EXPECT_EQ(lines.size(), 2u);
  EXPECT_NE(std::find(lines.begin(), lines.end(), MapLine{kA, kB, kC, kA}), lines.end());
  EXPECT_EQ(SegmentsOf(lines), SegmentsOf({{kA, kB, kC, kA}, {kA, kD}}));
}

TEST(JoinPieces, KeepsPiecesThatMeetNoOther) {
  EXPECT_EQ(JoinPieces({{{kA, kB}, 0}, {{kC, kD}, 0}}), (Lines{{kA, kB}, {kC, kD}}));
  EXPECT_TRUE(JoinPieces({}).empty());
}

TEST(JoinPieces, LeavesOneEndOpenWhereThreeMeet) {
  const Lines lines = JoinPieces({{{kA, kB}, 2}, {{kB, kC}, 1}, {{kD, kB}, 2}});
  EXPECT_EQ(lines.size(), 2u);  // joins the two of one level
  EXPECT_NE(std::find(lines.begin(), lines.end(), MapLine{kA, kB, kD}), lines.end());
  EXPECT_NE(std::find(lines.begin(), lines.end(), MapLine{kB, kC}), lines.end());
}

TEST(JoinPieces, JoinsDifferentGroupsWhereNoOtherPieceMeets) {
  EXPECT_EQ(JoinPieces({{{kA, kB}, 1}, {{kB, kC}, 2}}), (Lines{{kA, kB, kC}}));
}

TEST(JoinPieces, PairsTheRemainingEndsOfSeveralGroups) {
  const Lines lines = JoinPieces({{{kA, kB}, 1}, {{kC, kB}, 2}, {{kD, kB}, 3}, {{kE, kB}, 3}, {{kF, kB}, 4}});
  EXPECT_EQ(lines.size(), 3u);
  EXPECT_NE(std::find(lines.begin(), lines.end(), MapLine{kD, kB, kE}), lines.end());
}

TEST(JoinPieces, FormsARingOfAPieceWhoseEndsMeetOthers) {
  // Two loops through one point, each of two pieces.
  const Lines lines = JoinPieces({{{kA, kB}, 1}, {{kB, kC, kA}, 1}, {{kA, kD}, 2}, {{kD, kE, kA}, 2}});
  EXPECT_EQ(lines.size(), 2u);
  for (const MapLine& line : lines)
    EXPECT_EQ(line.front(), line.back());
}

TEST(JoinPieces, FormsTheFewestLinesAndLosesNoSegment) {
  test::TestRandom random(20260501);
  std::uniform_int_distribution<std::int32_t> place(0, 4);
  std::uniform_int_distribution<std::int32_t> group(0, 2);
  for (int round = 0; round < 300; ++round) {
    std::vector<MapPiece> pieces;
    Lines before;
    while (pieces.size() < 12) {
      const MapPoint from{place(random), place(random)};
      const MapPoint to{place(random), place(random)};
      if (from == to)
        continue;
      pieces.push_back({{from, to}, group(random)});
      before.push_back({from, to});
    }
    std::size_t oddPlaces = 0;
    for (std::int32_t lon = 0; lon < 5; ++lon) {
      for (std::int32_t lat = 0; lat < 5; ++lat) {
        const auto meets = [point = MapPoint{lon, lat}](const MapLine& line) {
          return line.front() == point || line.back() == point;
        };
        oddPlaces += static_cast<std::size_t>(std::count_if(before.begin(), before.end(), meets)) % 2;
      }
    }
    const Lines after = JoinPieces(pieces);
    const auto isOpen = [](const MapLine& line) { return line.front() != line.back(); };
    // An open end remains only where an odd number of ends meets.
    EXPECT_LE(2 * static_cast<std::size_t>(std::count_if(after.begin(), after.end(), isOpen)), oddPlaces);
    EXPECT_EQ(SegmentsOf(after), SegmentsOf(before));
  }
}

TEST(DropRepeatedSegments, KeepsTheFirstOfTwoInEitherDirection) {
  std::vector<MapPiece> pieces{{{kA, kB, kC}, 1}, {{kD, kC, kB, kE}, 2}};
  DropRepeatedSegments(pieces);
  ASSERT_EQ(pieces.size(), 3u);
  EXPECT_EQ(pieces[0].points, (MapLine{kA, kB, kC}));
  EXPECT_EQ(pieces[1].points, (MapLine{kD, kC}));
  EXPECT_EQ(pieces[2].points, (MapLine{kB, kE}));
  EXPECT_EQ(pieces[2].group, 2);
}

TEST(DropRepeatedSegments, RemovesACompletelyRepeatedPiece) {
  std::vector<MapPiece> pieces{{{kA, kB, kC}, 1}, {{kC, kB, kA}, 2}, {{kA, kB}, 3}};
  DropRepeatedSegments(pieces);
  ASSERT_EQ(pieces.size(), 1u);
  EXPECT_EQ(pieces[0].group, 1);
}

TEST(DropRepeatedSegments, ChangesNothingWithoutRepeats) {
  std::vector<MapPiece> pieces{{{kA, kB, kC, kA}, 1}, {{kA, kD}, 2}};
  DropRepeatedSegments(pieces);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_EQ(pieces[0].points, (MapLine{kA, kB, kC, kA}));
  std::vector<MapPiece> none;
  DropRepeatedSegments(none);
  EXPECT_TRUE(none.empty());
}

TEST(SubdivideLongSegments, InsertsEvenlySpacedPoints) {
  MapLine line{{0, 0}, {300, 30}, {310, 30}};
  SubdivideLongSegments(line, 100);
  EXPECT_EQ(line, (MapLine{{0, 0}, {100, 10}, {200, 20}, {300, 30}, {310, 30}}));
}

TEST(SubdivideLongSegments, KeepsSegmentsOfTheLimit) {
  const MapLine line{{0, 0}, {100, 100}, {0, 0}};
  MapLine same = line;
  SubdivideLongSegments(same, 100);
  EXPECT_EQ(same, line);
}

TEST(SubdivideLongSegments, InsertsTheSamePointsInBothDirections) {
  test::TestRandom random(20260502);
  std::uniform_int_distribution<std::int32_t> place(0, 5000);
  for (int round = 0; round < 500; ++round) {
    MapLine there{{place(random), place(random)}, {place(random), place(random)}};
    MapLine back{there[1], there[0]};
    SubdivideLongSegments(there, 97);
    SubdivideLongSegments(back, 97);
    std::reverse(back.begin(), back.end());
    ASSERT_EQ(there, back);
    for (std::size_t i = 1; i < there.size(); ++i) {
      ASSERT_LE(std::abs(there[i].lon - there[i - 1].lon), 97);
      ASSERT_LE(std::abs(there[i].lat - there[i - 1].lat), 97);
      ASSERT_NE(there[i], there[i - 1]);
    }
  }
}

TEST(SortForDrawing, PutsLongLinesFirstAndEquallyLongOnesByTheirPoints) {
  Lines lines{{kC, kD}, {kA, kB}, {kB, kC, kD}, {kA, kC}};
  SortForDrawing(lines);
  EXPECT_EQ(lines, (Lines{{kB, kC, kD}, {kA, kB}, {kA, kC}, {kC, kD}}));
}

}  // namespace
}  // namespace zerbal::pack
