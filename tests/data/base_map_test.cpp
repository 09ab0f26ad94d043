#include "data/base_map.h"

#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "jet/error.h"
#include "support/database_builder.h"
#include "support/temp_folder.h"

namespace zerbal::data {
namespace {

using Longitudes = std::vector<std::int32_t>;

/// Everything but longitudes of 1000 and more.
constexpr StoredBounds kBounds{{0x80000000u, 0x80000000u + 1000}, {0, 100}};

/// The longitudes of each run that is visited.
struct Runs {
  BaseMap::Visitor Visitor() {
    return [this](std::span<const StoredPoint> points) {
      runs.emplace_back();
      for (const StoredPoint point : points)
        runs.back().push_back(point.lon);
    };
  }
  std::vector<Longitudes> runs;
};

class BaseMapTest : public testing::Test {
 protected:
  /// Points of latitude 0 with these longitudes.
  static test::Table Lines(const char* name, const Longitudes& longitudes) {
    std::vector<test::Point> points;
    for (const std::int32_t lon : longitudes)
      points.push_back({lon, 0});
    return test::MapTable(name, points);
  }
  BaseMap Open(const std::vector<test::Table>& coast) {
    test::WriteDatabase(folder_ / "coast.mdb", coast);
    return {folder_ / "coast.mdb", std::nullopt, std::nullopt};
  }
  std::vector<Longitudes> Overview(const Longitudes& longitudes, StoredBounds bounds = kBounds) {
    Runs runs;
    Open({Lines("wcl", longitudes)}).VisitOverview(bounds, runs.Visitor());
    return runs.runs;
  }

  test::TempFolder folder_;
};

TEST_F(BaseMapTest, ALineEndsWhereItsEndIsStored) {
  EXPECT_EQ(Overview({1, 2, 3, kEndOfLine, 4, 5}), (std::vector<Longitudes>{{1, 2, 3}, {4, 5}}));
  EXPECT_EQ(Overview({kEndOfLine, kEndOfLine, 4, 5, kEndOfLine}), (std::vector<Longitudes>{{4, 5}}));
  EXPECT_EQ(Overview({1, kEndOfLine - 1, kEndOfLine + 1, 2}),
            (std::vector<Longitudes>{{1, kEndOfLine - 1, kEndOfLine + 1, 2}}));
}

TEST_F(BaseMapTest, ALineThatLeavesTheBoundsIsVisitedInParts) {
  EXPECT_EQ(Overview({998, 999, 1000, 997, 996}), (std::vector<Longitudes>{{998, 999}, {997, 996}}));
}

TEST_F(BaseMapTest, ASinglePointIsNotALine) {
  EXPECT_TRUE(Overview({}).empty());
  EXPECT_TRUE(Overview({1, kEndOfLine, 2, 1000, 3}).empty());
}

TEST_F(BaseMapTest, BoundsMayExcludeARangeOfLongitudes) {
  const StoredBounds outside{{10, 5}, {0, 1}, true};
  EXPECT_EQ(Overview({8, 9, 10, 14, 15, 16}, outside), (std::vector<Longitudes>{{8, 9}, {15, 16}}));
}

TEST_F(BaseMapTest, AnEmptyRangeContainsNothing) {
  const StoredRange none{5, 0};
  for (const std::int32_t number : {4, 5, 6, std::numeric_limits<std::int32_t>::min()})
    EXPECT_FALSE(none.Contains(number)) << number;
}

TEST_F(BaseMapTest, ALongLineIsVisitedCompletely) {
  Longitudes line(10'000, 7);
  line.back() = 8;
  EXPECT_EQ(Overview(line), std::vector<Longitudes>{line});
}

TEST_F(BaseMapTest, TilesAreTablesOfTheirKind) {
  test::WriteDatabase(folder_ / "coast.mdb", {Lines("CEwdb2", {1, 2}), Lines("wcl", {3, 4})});
  test::WriteDatabase(folder_ / "river.mdb", {Lines("CEWDB2", {5, 6})});
  test::WriteDatabase(folder_ / "ibound.mdb", {Lines("CEwdb2", {7, 8})});
  const BaseMap baseMap(folder_ / "coast.mdb", folder_ / "river.mdb", folder_ / "ibound.mdb");
  Runs runs;
  for (const LineKind kind : {LineKind::kCoast, LineKind::kRiver, LineKind::kBoundary})
    baseMap.VisitTile(kind, "CE", kBounds, runs.Visitor());
  baseMap.VisitTile(LineKind::kCoast, "CG", kBounds, runs.Visitor());
  EXPECT_EQ(runs.runs, (std::vector<Longitudes>{{1, 2}, {5, 6}, {7, 8}}));
}

TEST_F(BaseMapTest, WithoutAFileThereAreNoLines) {
  const BaseMap baseMap = Open({Lines("CEwdb2", {1, 2})});
  Runs runs;
  baseMap.VisitTile(LineKind::kRiver, "CE", kBounds, runs.Visitor());
  baseMap.VisitTile(LineKind::kBoundary, "CE", kBounds, runs.Visitor());
  baseMap.VisitOverview(kBounds, runs.Visitor());
  EXPECT_TRUE(runs.runs.empty());
}

TEST_F(BaseMapTest, PointsBeforeABadRowAreVisited) {
  const test::Cell null = test::Null();
  const BaseMap baseMap = Open({test::Table{
      "wcl", {test::Long("Lon"), test::Long("Lat")}, {}, {{1, 0}, {2, 0}, {null, null}, {3, 0}, {4, 0}}}});
  Runs runs;
  EXPECT_THROW(baseMap.VisitOverview(kBounds, runs.Visitor()), jet::EngineError);
  EXPECT_EQ(runs.runs, (std::vector<Longitudes>{{1, 2}}));
}

TEST_F(BaseMapTest, PolygonsOfLandAreVisitedAsWholeRings) {
  const Longitudes rings{1, 400'000'000, 3, kEndOfLine, 4, 5, 6, kEndOfLine};
  const BaseMap map = Open({Lines("wcl", {1, 2}), Lines("land", rings), Lines("landfine", {7, 8, 9})});
  EXPECT_TRUE(map.HasLand(false));
  EXPECT_TRUE(map.HasLand(true));
  Runs coarse;
  map.VisitLand(false, coarse.Visitor());
  EXPECT_EQ(coarse.runs, (std::vector<Longitudes>{{1, 400'000'000, 3}, {4, 5, 6}}));
  Runs fine;
  map.VisitLand(true, fine.Visitor());
  EXPECT_EQ(fine.runs, (std::vector<Longitudes>{{7, 8, 9}}));
}

TEST_F(BaseMapTest, PolygonsOfLandCanBeMissing) {
  const BaseMap map = Open({Lines("wcl", {1, 2})});
  EXPECT_FALSE(map.HasLand(false));
  EXPECT_FALSE(map.HasLand(true));
  Runs runs;
  map.VisitLand(true, runs.Visitor());
  EXPECT_TRUE(runs.runs.empty());
}

}  // namespace
}  // namespace zerbal::data
