// The steps that keep a place of the map where it is.
#include <algorithm>
#include <array>
#include <cmath>

#include <gtest/gtest.h>

#include "map/views.h"
#include "support/test_random.h"

namespace zerbal::map {
namespace {

constexpr float kPixel = 15;  // twips

/// Degrees between two map longitudes, the short way round.
double Apart(double lon1, double lon2) {
  return std::fabs(std::remainder(lon1 - lon2, 360));
}

/// Steps and checks that the position at the place stays within a pixel. A view that reaches the poles, or
/// leaves margins, has not that choice.
void ExpectKept(Viewport& view, TwipPosition place, bool in, float percent) {
  const MapPosition before = view.Unproject(place);
  const float scale = view.MapScale();
  Viewport byCommand = view;
  const bool wanted = in ? byCommand.ZoomIn(percent) : byCommand.ZoomOut(percent);
  ASSERT_EQ(in ? view.ZoomInAt(place, percent) : view.ZoomOutAt(place, percent), wanted);
  view.ComputeViewport();
  byCommand.ComputeViewport();
  EXPECT_NEAR(view.MapScale() / byCommand.MapScale(), 1, 1e-3);
  if (!wanted) {
    EXPECT_EQ(view.MapScale(), scale);
    return;
  }
  const MapPosition after = view.Unproject(place);
  const bool inMargin = after.lon < view.MapLonMin() || after.lon > view.MapLonMax();
  EXPECT_TRUE(!inMargin || view.MapLonSpan() == kWidestLonSpan);
  if (!inMargin) {
    EXPECT_LE(Apart(before.lon, after.lon) * view.MapScale(), kPixel);
  }
  const bool atPole = view.MapLatMin() < 1e-3F || view.MapLatMax() > kWidestLatSpan - 1e-3F;
  if (!atPole) {
    EXPECT_LE(std::fabs(before.lat - after.lat) * view.MapScale(), kPixel);
  }
  const TwipPosition nearer{place.x < view.MapWidth() / 2.0F ? place.x + kPixel : place.x - kPixel,
                            place.y < view.MapHeight() / 2.0F ? place.y + kPixel : place.y - kPixel};
  const MapPosition seen = view.Unproject(nearer);
  EXPECT_TRUE(!view.IsOnMap(nearer) || view.ProjectPoint({UpTo360(seen.lon), seen.lat})) << seen.lon;
  EXPECT_EQ(view.MapWrap(), view.MapLonMax() > 360) << view.MapLonMin();
}

TEST(ZoomInAt, KeepsThePlaceAndTheStep) {
  Viewport view = View(10800, 5400, 100, 40, 160, 70);
  const TwipPosition place{2700, 1350};
  const MapPosition before = view.Unproject(place);
  ASSERT_TRUE(view.ZoomInAt(place, kZoomBigStep));
  view.ComputeViewport();
  EXPECT_FLOAT_EQ(view.MapLonSpan(), 30);
  EXPECT_NEAR(view.MapLatSpan(), 15, 1e-4);
  EXPECT_FLOAT_EQ(view.MapLonMin(), 107.5);
  EXPECT_NEAR(view.MapLatMin(), 43.75, 1e-4);
  EXPECT_NEAR(view.Unproject(place).lon, before.lon, 1e-3);
  EXPECT_NEAR(view.Unproject(place).lat, before.lat, 1e-3);
}

TEST(ZoomInAt, KeepsAPlaceBeyondTheSeam) {
  Viewport view = View(9000, 4500, 340, 80, 20, 100);
  for (const float x : {1000.0F, 4500.0F, 8000.0F}) {
    Viewport zoomed = view;
    ExpectKept(zoomed, {x, 2250}, true, kZoomStep);
    Viewport wider = view;
    ExpectKept(wider, {x, 2250}, false, kZoomBigStep);
  }
  // Map longitude 10 is on the right; around it the view no longer runs through 360.
  view.ZoomInAt({7875, 2250}, 95);
  view.ComputeViewport();
  EXPECT_FALSE(view.MapWrap());
  EXPECT_NEAR(view.MapLonMin(), 15 - 1.75, 1e-3);
}

TEST(ZoomInAt, HasTheLimitsOfZoomIn) {
  Viewport view = Exact(100, 40, 100.6F, 40.3F);
  EXPECT_FALSE(view.ZoomInAt({10, 10}, kZoomStep));
  view = View(720, 480, 100, 40, 100.6F, 40.3F);
  EXPECT_TRUE(view.ZoomInAt({10, 10}, kZoomStep));
}

TEST(ZoomOutAt, HasTheLimitsOfZoomOut) {
  Viewport view = View(3500, 1800, 5, 0, 355, 180);
  EXPECT_FALSE(view.ZoomOutAt({100, 100}, kZoomStep));
  view = View(3600, 1800, 30, 15, 330, 165);
  ASSERT_TRUE(view.ZoomOutAt({100, 100}, kZoomStep));
  view.ComputeViewport();
  EXPECT_FLOAT_EQ(view.MapLonSpan(), 350);
  EXPECT_FLOAT_EQ(view.MapLatSpan(), 180);
}

TEST(ZoomOutAt, StaysBetweenThePoles) {
  Viewport view = View(6000, 3000, 100, 0, 160, 30);
  ASSERT_TRUE(view.ZoomOutAt({3000, 2990}, kZoomStep));
  view.ComputeViewport();
  EXPECT_NEAR(view.MapLatMin(), 0, 1e-4);
  EXPECT_NEAR(view.MapLatMax(), 36, 1e-3);
}

TEST(ZoomOutAt, TheWidestViewShowsEverythingWhereverItBegins) {
  // Margins left and right; the view begins at every whole map longitude.
  for (int west = 0; west < 360; ++west) {
    Viewport view =
        View(12000, 3000, static_cast<float>(west), 40, static_cast<float>((west + 200) % 360), 120);
    view.ZoomOutAt({6000, 1500}, kZoomBigStep);
    view.ComputeViewport();
    ASSERT_FLOAT_EQ(view.MapLonSpan(), 350);
    int inView = 0;
    for (int lon = 0; lon < 360; ++lon)
      inView += view.ProjectPoint({static_cast<float>(lon), 90}).has_value() ? 1 : 0;
    ASSERT_GE(inView, 350) << west;
  }
}

TEST(ZoomOutAt, APlaceThatEndsInTheMarginIsAtTheEdge) {
  Viewport view = View(30'000, 3000, 40, 80, 360, 112);
  const TwipPosition place{29'000, 1500};
  const float lon = view.Unproject(place).lon;
  ASSERT_TRUE(view.ZoomOutAt(place, kZoomBigStep));
  view.ComputeViewport();
  EXPECT_FLOAT_EQ(view.MapLonSpan(), 350);
  EXPECT_NEAR(Apart(view.MapLonMax(), lon), 0, 0.01);
}

TEST(ZoomAt, KeepsEveryPlaceOfManyViews) {
  test::TestRandom random(7);
  const auto pick = [&](double low, double high) {
    return static_cast<float>(low + (high - low) * (random() % 100'000) / 100'000);
  };
  for (int view = 0; view < 400; ++view) {
    Viewport shown =
        View(pick(9000, 40'000), pick(6000, 30'000), pick(0, 360), pick(0, 80), pick(0, 360), pick(90, 180));
    for (int step = 0; step < 25; ++step) {
      const TwipPosition place{pick(20, shown.MapWidth() - 20), pick(20, shown.MapHeight() - 20)};
      if (!shown.IsOnMap(place))
        continue;
      ExpectKept(shown, place, random() % 3 != 0, random() % 2 == 0 ? kZoomStep : kZoomBigStep);
      ASSERT_FALSE(testing::Test::HasFailure()) << "view " << view << ", step " << step;
    }
  }
}

TEST(Move, MovesByPartsOfTheSpans) {
  Viewport view = View(6000, 3000, 100, 40, 160, 70);
  ASSERT_TRUE(view.Move(0.1F, 0));
  view.ComputeViewport();
  EXPECT_FLOAT_EQ(view.MapLonMin(), 106);
  EXPECT_FLOAT_EQ(view.MapLonSpan(), 60);
  EXPECT_NEAR(view.MapLatMin(), 40, 1e-4);
  ASSERT_TRUE(view.Move(0, -0.5F));
  view.ComputeViewport();
  EXPECT_FLOAT_EQ(view.MapLonMin(), 106);
  EXPECT_NEAR(view.MapLatMin(), 25, 1e-4);
}

TEST(Move, GoesRoundTheWorld) {
  Viewport view = View(6000, 3000, 100, 40, 160, 70);
  for (int step = 0; step < 12; ++step) {
    ASSERT_TRUE(view.Move(-0.5F, 0));
    view.ComputeViewport();
    EXPECT_NEAR(Apart(view.MapLonMin(), 100 - 30 * (step + 1)), 0, 0.01);
    EXPECT_NEAR(view.MapLonSpan(), 60, 0.01);
    EXPECT_TRUE(view.ProjectPoint({std::fmod(view.MapLonMin() + 59, 360.0F), 50}).has_value());
  }
}

TEST(Move, StopsAtThePoles) {
  Viewport view = View(6000, 3000, 100, 10, 160, 40);
  ASSERT_TRUE(view.Move(0, -0.5F));
  view.ComputeViewport();
  EXPECT_NEAR(view.MapLatMin(), 0, 1e-4);
  EXPECT_NEAR(view.MapLatMax(), 30, 1e-3);
  EXPECT_FALSE(view.Move(0, -0.1F));
  EXPECT_TRUE(view.Move(0, 0.1F));
  view = View(3500, 1800, 5, 0, 355, 180);
  EXPECT_FALSE(view.Move(0, 0.5F));
  EXPECT_FALSE(view.Move(0, -0.5F));
  EXPECT_TRUE(view.Move(0.5F, 0));
}

}  // namespace
}  // namespace zerbal::map
