#include "paint/clip_area.h"

#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "extremes.h"
#include "support/test_random.h"

namespace zerbal::paint {
namespace {

constexpr ClipArea kArea{0, 0, 99, 49};

TEST(ClipArea, KeepsLinesInside) {
  PixelPoint from{0, 0};
  PixelPoint to{99, 49};
  ASSERT_TRUE(kArea.Clip(from, to));
  EXPECT_EQ(from, (PixelPoint{0, 0}));
  EXPECT_EQ(to, (PixelPoint{99, 49}));
}

TEST(ClipArea, CutsAtTheBorders) {
  PixelPoint from{-100, 20};
  PixelPoint to{200, 20};
  ASSERT_TRUE(kArea.Clip(from, to));
  EXPECT_EQ(from, (PixelPoint{0, 20}));
  EXPECT_EQ(to, (PixelPoint{99, 20}));
}

TEST(ClipArea, RejectsLinesOutside) {
  for (auto [from, to] : {std::pair<PixelPoint, PixelPoint>{{-5, 0}, {-1, 49}},
                          {{-10, 5}, {5, -10}},
                          {{0, 50}, {99, 50}},
                          {{kFarNegative, kFarNegative}, {kFarNegative, kFar}}}) {
    const PixelPoint before = from;
    EXPECT_FALSE(kArea.Clip(from, to));
    EXPECT_EQ(from, before);
  }
}

TEST(ClipArea, AcceptsTheLargestCoordinates) {
  PixelPoint from{kFarNegative, kFarNegative};
  PixelPoint to{kFar, kFar};
  ASSERT_TRUE(kArea.Clip(from, to));
  EXPECT_EQ(from, (PixelPoint{0, 0}));
  EXPECT_EQ(to, (PixelPoint{49, 49}));
}

TEST(ClipArea, AnEmptyAreaContainsNothing) {
  PixelPoint from{0, 0};
  PixelPoint to{1, 1};
  EXPECT_FALSE(ClipArea{}.Clip(from, to));
}

TEST(ClipArea, AgreesWithSteppingAlongTheLine) {
  test::TestRandom random(20261120);
  std::uniform_int_distribution<int> anywhere(-150, 250);
  for (int round = 0; round < 3000; ++round) {
    const PixelPoint start{anywhere(random), anywhere(random)};
    const PixelPoint end{anywhere(random), anywhere(random)};
    bool touches = false;
    for (int i = 0; i <= 4000 && !touches; ++i) {
      const double x = start.x + (end.x - start.x) * (i / 4000.0);
      const double y = start.y + (end.y - start.y) * (i / 4000.0);
      touches = x >= 0 && x <= 99 && y >= 0 && y <= 49;
    }
    PixelPoint from = start;
    PixelPoint to = end;
    const bool kept = kArea.Clip(from, to);
    if (touches) {
      ASSERT_TRUE(kept) << "round " << round;
    }
    if (!kept)
      continue;
    ASSERT_TRUE(kArea.Holds(from) && kArea.Holds(to));
    // The new ends lie on the line within half a pixel.
    const double length = std::hypot(end.x - start.x, end.y - start.y);
    for (const PixelPoint& point : {from, to}) {
      const double aside = std::abs((end.x - start.x) * double(point.y - start.y) -
                                    (end.y - start.y) * double(point.x - start.x));
      ASSERT_LE(aside, 0.71 * std::max(length, 1.0)) << "round " << round;
    }
  }
}

}  // namespace
}  // namespace zerbal::paint
