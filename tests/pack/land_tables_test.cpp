#include "zerbal-pack/land_tables.h"

#include <map>

#include <gtest/gtest.h>

namespace zerbal::pack {
namespace {

constexpr std::int32_t kWest = 0;
constexpr std::int32_t kEast = kFrameWidth;
constexpr std::int32_t kSouth = kFrameHeight;

using Lines = std::vector<MapLine>;

TEST(CloseRings, ARingLosesItsRepeatedPoint) {
  EXPECT_EQ(CloseRings({{{10, 10}, {10, 20}, {20, 20}, {10, 10}}}, true),
            (Lines{{{10, 10}, {10, 20}, {20, 20}}}));
}

TEST(CloseRings, LandIsLeftHandedAndLakesAreRightHanded) {
  // With the north up, south and then east is left-handed.
  const MapLine left{{10, 10}, {10, 20}, {20, 20}, {10, 10}};
  const MapLine right{left.rbegin(), left.rend()};
  const MapLine leftRing{{10, 10}, {10, 20}, {20, 20}};
  const MapLine rightRing{{20, 20}, {10, 20}, {10, 10}};
  EXPECT_EQ(CloseRings({left}, true), Lines{leftRing});
  EXPECT_EQ(CloseRings({right}, true), (Lines{{{10, 20}, {20, 20}, {10, 10}}}));
  EXPECT_EQ(CloseRings({left}, false), Lines{rightRing});
}

TEST(CloseRings, LinesEndingAtTheFrameAreClosedAlongIt) {
  EXPECT_EQ(CloseRings({{{kEast, 40}, {kEast - 10, 50}, {kEast, 60}}}, true),
            (Lines{{{kEast, 40}, {kEast - 10, 50}, {kEast, 60}}}));
  EXPECT_EQ(CloseRings({{{kWest, 40}, {10, 50}, {kWest, 60}}}, true),
            (Lines{{{kWest, 60}, {10, 50}, {kWest, 40}}}));
}

TEST(CloseRings, BaysAtTheFrameBelongToOneRing) {
  // Land from 40 to 90 at the east edge, with a bay of the sea from 60 to 70.
  const Lines rings = CloseRings(
      {{{kEast, 40}, {kEast - 50, 65}, {kEast, 90}}, {{kEast, 60}, {kEast - 10, 65}, {kEast, 70}}}, true);
  ASSERT_EQ(rings.size(), 1u);
  EXPECT_EQ(rings[0].size(), 6u);
}

TEST(CloseRings, TheContinentAroundThePoleIsClosedAlongIt) {
  const Lines rings = CloseRings({{{kWest, 170}, {100, 160}, {kEast, 170}}}, true);
  EXPECT_EQ(rings, (Lines{{{kWest, kSouth}, {kEast, kSouth}, {kEast, 170}, {100, 160}, {kWest, 170}}}));
}

TEST(CloseRings, WhatHasNoAreaIsDropped) {
  EXPECT_TRUE(CloseRings({{{1, 1}, {5, 5}, {1, 1}}, {{7, 7}, {7, 7}}}, true).empty());
}

/// The installed low resolution data.
class LandTables : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(MapSourceFile(kMapSourceFolder, MapTheme::kCoast, MapDetail::kLow)))
      GTEST_SKIP() << "gmt-gshhg-low is not installed";
  }

  static const std::vector<MapTable>& Tables() {
    static const std::vector<MapTable> tables = MakeLandTables(MapDetail::kLow, kMapSourceFolder);
    return tables;
  }

  /// By the even-odd rule, for degrees on the globe.
  static bool IsLand(const MapTable& table, double lon, double lat) {
    const double x = (lon + 180) * kDegree;
    const double y = (90 - lat) * kDegree;
    bool inside = false;
    for (const MapLine& ring : table.lines) {
      for (std::size_t i = 0; i < ring.size(); ++i) {
        const MapPoint a = ring[i];
        const MapPoint b = ring[(i + 1) % ring.size()];
        if ((a.lon > x) != (b.lon > x) && y > a.lat + (static_cast<double>(b.lat) - a.lat) * (x - a.lon) /
                                                          (static_cast<double>(b.lon) - a.lon))
          inside = !inside;
      }
    }
    return inside;
  }
};

TEST_F(LandTables, ThereAreTwo) {
  ASSERT_EQ(Tables().size(), 2u);
  EXPECT_EQ(Tables()[0].name, "land");
  EXPECT_EQ(Tables()[1].name, "landfine");
}

TEST_F(LandTables, KnowLandAndWater) {
  for (const MapTable& table : Tables()) {
    for (const auto& [name, place] :
         std::map<const char*, std::pair<double, double>>{{"Berlin", {13.4, 52.5}},
                                                          {"Chukotka, east of 180", {-174, 67}},
                                                          {"Chukotka, west of 180", {176, 67}},
                                                          {"South Pole", {30, -89.9}},
                                                          {"Antarctica at 180", {179.9, -85}},
                                                          {"Wrangel Island", {179, 71.2}},
                                                          {"Manitoulin Island in Lake Huron", {-82.3, 45.75}},
                                                          {"Greenland", {-40, 75}}})
      EXPECT_TRUE(IsLand(table, place.first, place.second)) << table.name << ": " << name;
    for (const auto& [name, place] :
         std::map<const char*, std::pair<double, double>>{{"North Pole", {30, 89.9}},
                                                          {"Caspian Sea", {51, 41}},
                                                          {"Lake Huron", {-82.5, 44.8}},
                                                          {"Lake Victoria", {33, -1}},
                                                          {"Pacific at 180", {180 - 1e-4, 0}},
                                                          {"Biscay", {-6, 45}},
                                                          {"Black Sea", {34, 43}},
                                                          {"Ross Sea", {180 - 1e-4, -74}}})
      EXPECT_FALSE(IsLand(table, place.first, place.second)) << table.name << ": " << name;
  }
}

TEST_F(LandTables, StayInTheFrameAndHaveNoSegmentsAcrossIt) {
  for (const MapTable& table : Tables()) {
    for (const MapLine& ring : table.lines) {
      ASSERT_GE(ring.size(), 3u);
      EXPECT_NE(ring.front(), ring.back());
      for (std::size_t i = 0; i < ring.size(); ++i) {
        const MapPoint from = ring[i];
        const MapPoint to = ring[(i + 1) % ring.size()];
        ASSERT_TRUE(from.lon >= 0 && from.lon <= kFrameWidth && from.lat >= 0 && from.lat <= kFrameHeight);
        // Only the edge along the South Pole is long.
        ASSERT_TRUE(std::abs(to.lon - from.lon) < 20 * kDegree || (from.lat == kSouth && to.lat == kSouth))
            << table.name << ' ' << from.lon << ' ' << from.lat;
      }
    }
  }
}

TEST_F(LandTables, HaveTheShoresOfTheOverview) {
  // Each ring away from the frame is a closed line of the overview.
  std::size_t points = 0;
  const auto tables = MakeMapTables(MapTheme::kCoast, MapDetail::kLow, kMapSourceFolder);
  for (const MapLine& line : tables[0].lines)
    points += line.size() - 1;
  std::size_t landPoints = 0;
  for (const MapLine& ring : Tables()[0].lines)
    landPoints += ring.size();
  // The overview has additional points in long segments.
  EXPECT_LE(landPoints, points + 20);
  EXPECT_GT(landPoints, points * 9 / 10);
}

}  // namespace
}  // namespace zerbal::pack
