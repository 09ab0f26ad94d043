#include "paint/pixel_scale.h"

#include <limits>

#include <gtest/gtest.h>

namespace zerbal::paint {
namespace {

TEST(PixelScale, CutsTwipsDownToThePixelThatHoldsThem) {
  const PixelScale one(1);
  EXPECT_EQ(one.Pixel(0), 0);
  EXPECT_EQ(one.Pixel(14), 0);
  EXPECT_EQ(one.Pixel(15), 1);
  EXPECT_EQ(one.Pixel(-1), -1);
  EXPECT_EQ(one.Pixel(-15), -1);
  EXPECT_EQ(one.Pixel(-16), -2);
  const PixelScale oneAndAHalf(1.5);
  EXPECT_EQ(oneAndAHalf.Pixel(9), 0);
  EXPECT_EQ(oneAndAHalf.Pixel(10), 1);
  EXPECT_EQ(oneAndAHalf.Pixel(29), 2);
  EXPECT_EQ(oneAndAHalf.Pixel(30), 3);
  const PixelScale two(2);
  EXPECT_EQ(two.Pixel(7), 0);
  EXPECT_EQ(two.Pixel(8), 1);
  EXPECT_EQ(two.Pixel(15), 2);
}

TEST(PixelScale, IsExactOnEveryPixelEdge) {
  for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
    const PixelScale scale(ratio);
    for (int logical = -25000; logical <= 25000; logical += 4) {
      const int pixel = static_cast<int>(logical * ratio);
      ASSERT_EQ(scale.Pixel(logical * 15), pixel) << ratio;
      ASSERT_EQ(scale.Pixel(logical * 15 - 1), pixel - 1) << ratio;
    }
  }
}

TEST(PixelScale, TakesTheFarthestPositionsAndOddRatios) {
  for (const double ratio : {0.0, 1.0, 8.0, 1e9}) {
    const PixelScale scale(ratio);
    EXPECT_GT(scale.Pixel(std::numeric_limits<std::int32_t>::max()), 1000000);
    EXPECT_LT(scale.Pixel(std::numeric_limits<std::int32_t>::min()), -1000000);
    EXPECT_GE(scale.LineWidth(1), 1);
    EXPECT_GE(scale.LineWidth(std::numeric_limits<int>::min()), 1);
  }
}

TEST(PixelScale, LinesAreWholePixelsWide) {
  EXPECT_EQ(PixelScale(1).LineWidth(1), 1);
  EXPECT_EQ(PixelScale(1).LineWidth(3), 3);
  EXPECT_EQ(PixelScale(1.25).LineWidth(1), 1);
  EXPECT_EQ(PixelScale(1.5).LineWidth(1), 1);
  EXPECT_EQ(PixelScale(1.75).LineWidth(1), 2);
  EXPECT_EQ(PixelScale(2).LineWidth(1), 2);
  EXPECT_EQ(PixelScale(2).LineWidth(3), 6);
}

}  // namespace
}  // namespace zerbal::paint
