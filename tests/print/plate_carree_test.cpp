#include "print/plate_carree.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "map/views.h"
#include "print/parts.h"
#include "support/test_random.h"

namespace zerbal::print {
namespace {

/// 10 to 40 east, 20 to 50 north, at 100 twips per degree.
map::Viewport European() {
  return map::Exact(190, 40, 220, 70);
}

/// 160 east to 140 west.
map::Viewport Pacific() {
  return map::Exact(340, 40, 40, 70);
}

TEST(PlateCarree, PutsPositionsWhereTheViewHasThem) {
  test::TestRandom random(2210);
  std::uniform_real_distribution<float> lon(0, 360);
  std::uniform_real_distribution<float> lat(0, 180);
  for (const map::Viewport& viewport : {European(), Pacific()}) {
    const PlateCarree projection(viewport);
    for (int i = 0; i < 20'000; ++i) {
      const MapPosition position{lon(random), lat(random)};
      ASSERT_EQ(projection.Project(ToGlobe(position)), viewport.ProjectPoint(position))
          << position.lon << ' ' << position.lat;
    }
  }
}

TEST(PlateCarree, FindsThePositionOfAPlace) {
  const map::Viewport viewport = European();
  const PlateCarree projection(viewport);
  const auto position = projection.Unproject({1'000, 500});
  ASSERT_TRUE(position);
  EXPECT_DOUBLE_EQ(position->lon, 20);
  EXPECT_DOUBLE_EQ(position->lat, 45);
  EXPECT_FALSE(projection.Unproject({-10, 500}));
  EXPECT_FALSE(projection.Unproject({1'000, 3'010}));
}

TEST(PlateCarree, CutsLinesAtTheEdgeOfTheView) {
  const map::Viewport viewport = European();
  const PlateCarree projection(viewport);
  EXPECT_EQ(PartsOf(projection, {{0, 40}, {20, 40}}), (Parts{{{0, 1'000}, {1'000, 1'000}}}));
  EXPECT_EQ(PartsOf(projection, {{20, 60}, {20, 40}, {20, 10}}),
            (Parts{{{1'000, 0}, {1'000, 1'000}, {1'000, 3'000}}}));
  EXPECT_EQ(PartsOf(projection, {{0, 40}, {0, 30}}), Parts{});
}

TEST(PlateCarree, LinesGoTheShortWayRound) {
  const map::Viewport viewport = Pacific();
  const PlateCarree projection(viewport);
  EXPECT_EQ(PartsOf(projection, {{170, 40}, {-170, 40}}), (Parts{{{1'000, 1'000}, {3'000, 1'000}}}));
  EXPECT_EQ(PartsOf(projection, {{-170, 40}, {170, 40}, {-160, 40}}),
            (Parts{{{3'000, 1'000}, {1'000, 1'000}, {4'000, 1'000}}}));
}

TEST(PlateCarree, ALineThroughTheSeamHasAPartOnEachSide) {
  const map::Viewport viewport = map::Exact(5, 0, 355, 180);  // 175 west to 175 east
  const PlateCarree projection(viewport);
  EXPECT_EQ(PartsOf(projection, {{165, 0}, {-165, 0}}),
            (Parts{{{34'000, 9'000}, {35'000, 9'000}}, {{0, 9'000}, {1'000, 9'000}}}));
  EXPECT_EQ(PartsOf(projection, {{-165, 0}, {165, 0}}),
            (Parts{{{1'000, 9'000}, {0, 9'000}}, {{35'000, 9'000}, {34'000, 9'000}}}));
}

TEST(PlateCarree, ALineContinuesWhereItCameThroughTheSeam) {
  const map::Viewport viewport = map::Exact(5, 0, 355, 180);
  const PlateCarree projection(viewport);
  EXPECT_EQ(PartsOf(projection, {{165, 0}, {-165, 0}, {-160, 10}}),
            (Parts{{{34'000, 9'000}, {35'000, 9'000}}, {{0, 9'000}, {1'000, 9'000}, {1'500, 8'000}}}));
}

TEST(PlateCarree, AnAreaIsCutAtTheEdgesAndKeepsItsSide) {
  const map::Viewport viewport = European();
  const PlateCarree projection(viewport);
  const GeoRing square{{0, 30}, {20, 30}, {20, 40}, {0, 40}};
  EXPECT_EQ(projection.ProjectArea({{square}}),
            (std::vector<Ring>{{{1'000, 2'000}, {1'000, 1'000}, {0, 1'000}, {0, 2'000}}}));
}

TEST(PlateCarree, AnAreaInAViewThroughTheSeamIsInOnePiece) {
  const map::Viewport viewport = Pacific();
  const PlateCarree projection(viewport);
  const std::vector<GeoRing> rings{{{170, 30}, {180, 30}, {180, 40}, {170, 40}},
                                   {{-180, 30}, {-170, 30}, {-170, 40}, {-180, 40}}};
  const std::vector<Ring> placed = projection.ProjectArea(rings);
  ASSERT_EQ(placed.size(), 2U);
  const auto has = [&](std::size_t ring, TwipPoint point) {
    return std::find(placed[ring].begin(), placed[ring].end(), point) != placed[ring].end();
  };
  EXPECT_TRUE(has(0, {2'000, 1'000}));
  EXPECT_TRUE(has(1, {2'000, 1'000}));
  EXPECT_TRUE(has(1, {3'000, 2'000}));
}

TEST(PlateCarree, TheGlobeIsWhatTheViewShows) {
  const map::Viewport viewport = European();
  EXPECT_EQ(PlateCarree(viewport).Globe(),
            (std::vector<Ring>{{{3'000, 0}, {3'000, 3'000}, {0, 3'000}, {0, 0}}}));
}

}  // namespace
}  // namespace zerbal::print
