#include "zerbal-map/route_line.h"

#include <cmath>

#include <gtest/gtest.h>

#include "zerbal-map/routes.h"

namespace zerbal::mapcommand {
namespace {

/// "lon lat, lon lat | ...".
std::string Text(const std::vector<RouteLine>& lines) {
  std::string text;
  for (const RouteLine& line : lines) {
    text += text.empty() ? "" : " | ";
    for (std::size_t i = 0; i < line.size(); ++i)
      text += (i == 0 ? "" : ", ") + NumberText(line[i].lon, 6) + " " + NumberText(line[i].lat, 6);
  }
  return text;
}

std::string Cut(const std::vector<GeoPosition>& points, CutAt cutAt = CutAt::kStraightLine) {
  return Text(CutAtAntimeridian(points, cutAt));
}

TEST(RouteLine, ALineThatDoesNotCrossIsOnePart) {
  EXPECT_EQ(Cut({{11, 60}, {5, 60.5}, {-170, 1}}), "11 60, 5 60.5, -170 1");
  EXPECT_EQ(Cut({}), "");
}

TEST(RouteLine, ALegIsCutAt180InBothDirections) {
  EXPECT_EQ(Cut({{170, 10}, {-160, 40}}), "170 10, 180 20 | -180 20, -160 40");
  EXPECT_EQ(Cut({{-160, 40}, {170, 10}, {160, 5}}), "-160 40, -180 20 | 180 20, 170 10, 160 5");
  EXPECT_EQ(Cut({{170, 0}, {-170, 0}, {170, 0}}), "170 0, 180 0 | -180 0, -170 0, -180 0 | 180 0, 170 0");
}

TEST(RouteLine, AGreatCircleCrossesNearerThePole) {
  EXPECT_EQ(Cut({{150, 45}, {-150, 45}}), "150 45, 180 45 | -180 45, -150 45");
  const auto lines = CutAtAntimeridian(std::vector<GeoPosition>{{150, 45}, {-150, 45}}, CutAt::kGreatCircle);
  ASSERT_EQ(lines.size(), 2U);
  // Halfway between two places of one latitude: tan lat / cos of half the angle.
  EXPECT_NEAR(std::tan(lines[0][1].lat * M_PI / 180), 1 / std::cos(30 * M_PI / 180), 1e-12);
  EXPECT_EQ(lines[0][1].lat, lines[1][0].lat);
}

TEST(RouteLine, APlaceAt180TakesTheSideOfItsNeighbour) {
  EXPECT_EQ(Cut({{178, -18}, {180, -16}, {-158, 21}}), "178 -18, 180 -16 | -180 -16, -158 21");
  EXPECT_EQ(Cut({{180, -16}, {-158, 21}}), "-180 -16, -158 21");
  EXPECT_EQ(Cut({{178, -18}, {-180, -16}, {178, -18}}), "178 -18, 180 -16 | 180 -16, 178 -18");
}

TEST(RouteLine, ALegAlong180StaysWhole) {
  EXPECT_EQ(Cut({{180, 10}, {180, 20}}), "180 10, 180 20");
  EXPECT_EQ(Cut({{180, 10}, {-180, 20}}), "-180 10, -180 20");
}

TEST(RouteLine, ALegOfExactly180DegreesDoesNotCross) {
  EXPECT_EQ(Cut({{-90, 0}, {90, 10}}), "-90 0, 90 10");
  EXPECT_EQ(Cut({{90, 0}, {-90, 10}}), "90 0, -90 10");
}

TEST(RouteLine, LegsWithoutLengthAddNothing) {
  EXPECT_EQ(Cut({{1, 2}, {1, 2}, {3, 4}}), "1 2, 3 4");
  EXPECT_EQ(Cut({{1, 2}, {1, 2}}), "1 2, 1 2");
}

}  // namespace
}  // namespace zerbal::mapcommand
