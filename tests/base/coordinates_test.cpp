#include "base/coordinates.h"

#include <limits>
#include <type_traits>

#include <gtest/gtest.h>

namespace zerbal {
namespace {

/// The number of these types that convert from one of them.
template <typename One, typename... All>
constexpr int kTaken = (int{std::is_convertible_v<One, All>} + ...);

template <typename... All>
constexpr bool kNeverMix = ((kTaken<All, All...> == 1) && ...);

static_assert(kNeverMix<GeoPosition, MapPosition, TwipPoint, TwipPosition, PixelPoint, PixelPosition>);

TEST(UpTo360, SubtractsMultiplesOf360Degrees) {
  EXPECT_EQ(UpTo360(360), 360);
  EXPECT_EQ(UpTo360(370), 10);
  EXPECT_EQ(UpTo360(730), 10);
  EXPECT_EQ(UpTo360(-10), -10);
  EXPECT_EQ(UpTo360(36'001), 1);
}

TEST(ToMapPosition, ConvertsGeographicDegrees) {
  const MapPosition position = ToMapPosition({-8.5, 47.25});
  EXPECT_EQ(position.lon, 171.5F);
  EXPECT_EQ(position.lat, 42.75F);
  EXPECT_EQ(ToMapLon(-180), 0);
  EXPECT_EQ(ToMapLon(-75), 105);
  EXPECT_EQ(ToMapLon(180), 360);
}

TEST(ToGeoPosition, ConvertsTheMapFrame) {
  EXPECT_EQ(ToGeoPosition({171.5F, 42.75F}).lon, -8.5);
  EXPECT_EQ(ToGeoPosition({171.5F, 42.75F}).lat, 47.25);
  EXPECT_EQ(ToGeoPosition({370, 100}).lon, -170);
  EXPECT_EQ(ToGeoPosition({360, 100}).lon, 180);
  EXPECT_EQ(ToGeoPosition({370, 100}).lat, -10);
}

TEST(ToTwipPoint, RoundsDownAndStaysWithinTheLimits) {
  const MapPlacement placement{.scale = 0.5F, .offX = -50, .offY = -25};
  EXPECT_EQ(ToTwipPoint({103.9F, 50.5F}, placement), (TwipPoint{1, 0}));
  EXPECT_EQ(ToTwipPoint({98.9F, 49.9F}, placement), (TwipPoint{-1, -1}));
  EXPECT_EQ(ToTwipPoint({1e30F, -1e30F}, placement), (TwipPoint{1'000'000'000, -1'000'000'000}));
  EXPECT_EQ(ToTwipPoint({std::numeric_limits<float>::quiet_NaN(), 50}, placement), (TwipPoint{0, 0}));
}

TEST(ToTwipPosition, ConvertsLogicalPixels) {
  EXPECT_EQ(ToTwipPosition(100.5, 2).x, 1507.5F);
  EXPECT_EQ(ToTwipPosition(100.5, 2).y, 30);
}

std::int32_t PixelOf(const PixelScale& scale, std::int32_t twips) {
  const PixelPoint point = scale.ToPixelPoint({twips, twips});
  EXPECT_EQ(point.x, point.y);
  return point.x;
}

TEST(PixelScale, ConvertsTwipsToThePixelThatContainsThem) {
  const PixelScale one(1);
  EXPECT_EQ(PixelOf(one, 0), 0);
  EXPECT_EQ(PixelOf(one, 14), 0);
  EXPECT_EQ(PixelOf(one, 15), 1);
  EXPECT_EQ(PixelOf(one, -1), -1);
  EXPECT_EQ(PixelOf(one, -15), -1);
  EXPECT_EQ(PixelOf(one, -16), -2);
  const PixelScale oneAndAHalf(1.5);
  EXPECT_EQ(PixelOf(oneAndAHalf, 9), 0);
  EXPECT_EQ(PixelOf(oneAndAHalf, 10), 1);
  EXPECT_EQ(PixelOf(oneAndAHalf, 29), 2);
  EXPECT_EQ(PixelOf(oneAndAHalf, 30), 3);
  const PixelScale two(2);
  EXPECT_EQ(PixelOf(two, 7), 0);
  EXPECT_EQ(PixelOf(two, 8), 1);
  EXPECT_EQ(PixelOf(two, 15), 2);
}

TEST(PixelScale, IsExactOnEveryPixelEdge) {
  for (const double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
    const PixelScale scale(ratio);
    for (int logical = -25000; logical <= 25000; logical += 4) {
      const int pixel = static_cast<int>(logical * ratio);
      ASSERT_EQ(PixelOf(scale, logical * 15), pixel) << ratio;
      ASSERT_EQ(PixelOf(scale, logical * 15 - 1), pixel - 1) << ratio;
    }
  }
}

TEST(PixelScale, AcceptsTheLargestPositionsAndUnusualRatios) {
  for (const double ratio : {0.0, 1.0, 8.0, 1e9}) {
    const PixelScale scale(ratio);
    EXPECT_GT(PixelOf(scale, std::numeric_limits<std::int32_t>::max()), 1000000);
    EXPECT_LT(PixelOf(scale, std::numeric_limits<std::int32_t>::min()), -1000000);
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
  EXPECT_EQ(PixelScale(0.5).SmoothLineWidth(), 1);
  EXPECT_EQ(PixelScale(1.25).SmoothLineWidth(), 1.25);
  EXPECT_EQ(PixelScale(1.5).SmoothLineWidth(), 1.5);
  EXPECT_EQ(PixelScale(1.75).SmoothLineWidth(), 2);
}

}  // namespace
}  // namespace zerbal
