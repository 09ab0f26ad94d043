#include "paint/line_run.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "support/test_random.h"

namespace zerbal::paint {
namespace {

std::vector<FinePoint> Corners(const std::vector<TwipPoint>& points, double ratio = 1) {
  const PixelScale scale(ratio);
  LineRun run(scale, scale.LineWidth(1));
  const auto corners = run.Corners(points);
  return {corners.begin(), corners.end()};
}

/// In pixels.
double Distance(PixelPosition point, FinePoint a, FinePoint b) {
  const double ax = a.x / 256.0;
  const double ay = a.y / 256.0;
  const double dx = b.x / 256.0 - ax;
  const double dy = b.y / 256.0 - ay;
  const double square = dx * dx + dy * dy;
  const double part =
      square > 0 ? std::clamp(((point.x - ax) * dx + (point.y - ay) * dy) / square, 0.0, 1.0) : 0;
  return std::hypot(ax + part * dx - point.x, ay + part * dy - point.y);
}

TEST(LineRun, DropsPointsNearTheLine) {
  EXPECT_EQ(Corners({{0, 0}, {30, 31}, {60, 59}, {90, 91}}).size(), 2U);
  EXPECT_EQ(Corners({{0, 0}, {30, 50}, {60, 59}, {90, 91}}).size(), 4U);
  EXPECT_EQ(Corners({{0, 0}, {90, 1}, {3, 0}}).size(), 3U) << "a way back is not near";
}

TEST(LineRun, EveryPointStaysNearTheLine) {
  test::TestRandom random(20260313);
  for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
    for (int round = 0; round < 100; ++round) {
      const int reach = 4 << (round % 6);
      std::vector<TwipPoint> points = {{1000, 1000}};
      const auto step = [&] { return static_cast<std::int32_t>(random() % (2 * reach + 1)) - reach; };
      for (int i = 0; i < 100; ++i)
        points.push_back({points.back().x + step(), points.back().y + step()});
      const std::vector<FinePoint> corners = Corners(points, ratio);
      const double tolerance = std::max(1.0 / 3, PixelScale(ratio).LineWidth(1) / 4.0);
      const double aside = (PixelScale(ratio).LineWidth(1) - 1) / 2.0;
      for (const TwipPoint point : points) {
        const PixelPosition at = PixelScale(ratio).ToPixelPosition(point);
        double nearest = 1e9;
        for (std::size_t i = 1; i < corners.size(); ++i)
          nearest = std::min(nearest, Distance({at.x + aside, at.y + aside}, corners[i - 1], corners[i]));
        // Crisp parts are moved by half a pixel at most on each axis.
        EXPECT_LE(nearest, 1.65 * tolerance + (reach < 15 ? 0 : 0.71));
      }
    }
  }
}

TEST(LineRun, HorizontalAndVerticalLinesLieOnWholePixels) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    const PixelScale scale(ratio);
    const std::int32_t half = scale.LineWidth(1) * 128;
    const PixelPoint pixel = scale.ToPixelPoint({100, 137});
    for (const std::vector<TwipPoint>& line :
         {std::vector<TwipPoint>{{100, 137}, {400, 137}}, {{100, 137}, {100, 150}}}) {
      const std::vector<FinePoint> corners = Corners(line, ratio);
      ASSERT_EQ(corners.size(), 2U);
      EXPECT_EQ(corners[0], (FinePoint{pixel.x * 256 + half, pixel.y * 256 + half})) << ratio;
    }
  }
}

TEST(LineRun, APointThatFollowsACrispLineDoesNotTiltIt) {
  const std::vector<FinePoint> corners = Corners({{5, 5}, {200, 5}, {202, 6}, {230, 90}});
  ASSERT_GE(corners.size(), 3U);
  EXPECT_EQ(corners[0], (FinePoint{128, 128}));
  EXPECT_EQ(corners[1].y, 128);
}

TEST(LineRun, OnePixelIsOneCorner) {
  EXPECT_EQ(Corners({{15, 15}, {20, 20}, {29, 29}, {15, 29}}), (std::vector<FinePoint>{{384, 384}}));
  EXPECT_EQ(Corners({{15, 15}, {30, 15}}).size(), 2U);
}

}  // namespace
}  // namespace zerbal::paint
