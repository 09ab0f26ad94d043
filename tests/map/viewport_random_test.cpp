// Rules for all views, tested on random ones.
#include <algorithm>
#include <cmath>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "map/views.h"
#include "support/test_random.h"

namespace zerbal::map {
namespace {

/// Random requests and drawing areas like those of users.
class RandomViews : public testing::Test {
 protected:
  float Uniform(float low, float high) { return std::uniform_real_distribution<float>(low, high)(random_); }

  Viewport Next() {
    const float size = std::exp(Uniform(std::log(0.05F), std::log(180.0F)));
    const float top = Uniform(0, 180 - size);
    const float west = Uniform(0, 360);
    const float east = std::fmod(west + std::min(2 * size, 350.0F), 360.0F);
    return View(Uniform(200, 60'000), Uniform(200, 60'000), west, top, east, top + size);
  }

  /// A point anywhere, on an edge or slightly beside it.
  MapPosition Somewhere(const Viewport& view) {
    const auto coordinate = [&](float low, float high, float worldLow, float worldHigh) {
      switch (std::uniform_int_distribution<int>(0, 4)(random_)) {
        case 0:
          return Uniform(worldLow, worldHigh);
        case 1:
          return low;
        case 2:
          return high;
        case 3:
          return std::nextafter(Uniform(0, 1) < 0.5F ? low : high, Uniform(-1, 1) < 0 ? -1e9F : 1e9F);
        default:
          return Uniform(low, high);
      }
    };
    float lon = coordinate(view.MapLonMin(), view.MapLonMax(), 0, 360);
    if (lon > 360)
      lon -= 360;
    return {lon, coordinate(view.MapLatMin(), view.MapLatMax(), 0, 180)};
  }

  test::TestRandom random_{20260301};
};

TEST_F(RandomViews, APointIsInViewIfAndOnlyIfItIsWithinTheBounds) {
  for (int i = 0; i < 2'000; ++i) {
    Viewport view = Next();
    for (int j = 0; j < 20; ++j) {
      const MapPosition point = Somewhere(view);
      const std::optional<TwipPoint> at = view.ProjectPoint(point);
      const float shifted = point.lon + 360;
      const bool unshiftedFits = view.MapLonMin() <= point.lon && point.lon <= view.MapLonMax();
      const bool shiftedFits = view.MapWrap() && view.MapLonMin() <= shifted && shifted <= view.MapLonMax();
      const bool latFits = view.MapLatMin() <= point.lat && point.lat <= view.MapLatMax();
      ASSERT_EQ(at.has_value(), latFits && (unshiftedFits || shiftedFits)) << point.lon << " " << point.lat;
      if (!at)
        continue;
      const double lon = unshiftedFits ? point.lon : shifted;
      EXPECT_EQ(at->x, std::floor(static_cast<double>(view.MapScale()) * lon + view.MapOffX()));
      // A point in view is on the drawing area, except for the rounding of offset and scale.
      const double slack = 2 + 720.0 * view.MapScale() / (1 << 23);
      EXPECT_GE(at->x, -slack);
      EXPECT_LE(at->x, view.MapWidth() + slack);
      EXPECT_GE(at->y, -slack);
      EXPECT_LE(at->y, view.MapHeight() + slack);
    }
  }
}

TEST_F(RandomViews, TheInverseReturnsThePoint) {
  for (int i = 0; i < 5'000; ++i) {
    Viewport view = Next();
    const MapPosition point{Uniform(view.MapLonMin(), view.MapLonMax()),
                            Uniform(view.MapLatMin(), view.MapLatMax())};
    const std::optional<TwipPoint> at = view.ProjectPoint(point);
    if (!at)
      continue;
    const MapPosition back = view.Unproject({static_cast<float>(at->x), static_cast<float>(at->y)});
    // Exact to one twip and to the precision of singles near 720.
    const double twip = 1.0 / view.MapScale() + 1e-4;
    EXPECT_NEAR(back.lon, point.lon, twip);
    EXPECT_NEAR(back.lat, point.lat, twip);
  }
}

TEST_F(RandomViews, ZoomingKeepsTheMapWithinItsLimits) {
  for (int i = 0; i < 500; ++i) {
    Viewport view = Next();
    for (int j = 0; j < 20; ++j) {
      const float x = Uniform(0, static_cast<float>(view.MapWidth()));
      const float y = Uniform(0, static_cast<float>(view.MapHeight()));
      switch (std::uniform_int_distribution<int>(0, 5)(random_)) {
        case 0:
          view.ZoomIn(20);
          break;
        case 1:
          view.ZoomIn(50);
          break;
        case 2:
          view.ZoomOut(20);
          break;
        case 3:
          view.ZoomOut(50);
          break;
        case 4:
          view.CentreOn({x, y});
          break;
        default:
          view.ZoomReset();
      }
      EXPECT_GE(view.ReqLonMin(), 0);
      EXPECT_LE(view.ReqLonMin(), 360);
      EXPECT_LE(view.ReqLonMax(), 360);
      EXPECT_GE(view.ReqLatMin(), 0);
      EXPECT_LE(view.ReqLatMax(), 180);
      view.ComputeViewport();
      EXPECT_LE(view.MapLonSpan(), 350.001F);
      EXPECT_LE(view.MapLatSpan(), 180);
      EXPECT_GE(view.MapLonMin(), 0);
      EXPECT_LE(view.MapLonMax(), 720);
      EXPECT_GE(view.MapLatMin(), 0);
      EXPECT_LE(view.MapLatMax(), 180);
      EXPECT_LE(view.DetailTiles().size(), 4U);
      EXPECT_EQ(view.DetailMode(), view.MapLonSpan() <= 20 && view.MapLatSpan() <= 10);
    }
  }
}

TEST_F(RandomViews, AtMostFourTilesAndEveryEdgePointHasOne) {
  for (int i = 0; i < 5'000; ++i) {
    const auto whole = [&](float value) { return Uniform(0, 1) < 0.5F ? std::round(value) : value; };
    const float west = whole(Uniform(0, 340));
    const float top = whole(Uniform(0, 170));
    const float lonSpan = whole(Uniform(1, 20));
    const float latSpan = whole(Uniform(1, 10));
    const Viewport view = Exact(west, top, west + lonSpan, top + latSpan);
    if (!view.DetailMode())
      continue;
    EXPECT_GE(view.DetailTiles().size(), 1U);
    EXPECT_LE(view.DetailTiles().size(), 4U);
    const char lon = static_cast<char>('A' + 2 * std::min(8, static_cast<int>(view.MapLonMin() / 40)));
    const char lat = static_cast<char>('A' + 2 * std::min(8, static_cast<int>(view.MapLatMin() / 20)));
    EXPECT_NE(std::find(view.DetailTiles().begin(), view.DetailTiles().end(), std::string{lon, lat}),
              view.DetailTiles().end());
    EXPECT_TRUE(std::is_sorted(view.DetailTiles().begin(), view.DetailTiles().end()));
  }
}

}  // namespace
}  // namespace zerbal::map
