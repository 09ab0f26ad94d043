#include "data/great_circle.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace zerbal::data {
namespace {

TEST(GreatCircle, HasTheLengthsOfTheEllipsoid) {
  // Ten degrees of the equator, whose radius is 6,378,137 m.
  EXPECT_NEAR(GreatCircleMetres({0, 0}, {10, 0}).value(), 1'113'194.9, 0.1);
  // A quarter of a meridian.
  EXPECT_NEAR(GreatCircleMetres({25, 0}, {-70, 90}).value(), 10'001'965.7, 0.1);
  EXPECT_NEAR(GreatCircleMetres({25, -90}, {-70, 90}).value(), 2 * 10'001'965.7, 0.2);
  EXPECT_EQ(GreatCircleMetres({11.1, 60.19}, {11.1, 60.19}), 0);
}

TEST(GreatCircle, GoesTheShortWayOverTheDateLine) {
  EXPECT_NEAR(GreatCircleMetres({175, 0}, {-175, 0}).value(), 1'113'194.9, 0.1);
}

TEST(GreatCircle, HasNoLengthBeyondThePoles) {
  EXPECT_EQ(GreatCircleMetres({0, 90.5}, {0, 0}), std::nullopt);
  EXPECT_EQ(GreatCircleMetres({0, 0}, {0, std::numeric_limits<double>::quiet_NaN()}), std::nullopt);
  EXPECT_EQ(GreatCircleMetres({std::numeric_limits<double>::infinity(), 0}, {0, 0}), std::nullopt);
}

/// The greatest distance, degrees, from the middles of a line's segments to the way. On the way, the ways
/// from its start and to its end are together as long as the whole.
double GreatestDetour(GeoPosition from, GeoPosition to, const std::vector<GeoPosition>& line) {
  const double whole = GreatCircleMetres(from, to).value();
  double greatest = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    const GeoPosition middle{line[i - 1].lon + std::remainder(line[i].lon - line[i - 1].lon, 360) / 2,
                             (line[i - 1].lat + line[i].lat) / 2};
    greatest = std::max(greatest, *GreatCircleMetres(from, middle) + *GreatCircleMetres(middle, to) - whole);
  }
  return greatest;
}

TEST(GreatCircleLine, RunsAlongTheShortestWay) {
  const GeoPosition oslo{11.1, 60.19};
  const GeoPosition tokyo{140.39, 35.76};
  const std::vector<GeoPosition> line = GreatCircleLine(oslo, tokyo, 0.01);
  EXPECT_EQ(line.front().lon, oslo.lon);
  EXPECT_EQ(line.back().lat, tokyo.lat);
  EXPECT_LT(GreatestDetour(oslo, tokyo, line), 10);  // metres
  EXPECT_GT(GreatestDetour(oslo, tokyo, {oslo, tokyo}), 400'000);
}

TEST(GreatCircleLine, HasOnlyAsManyPositionsAsNecessary) {
  const std::size_t rough = GreatCircleLine({11, 60}, {-74, 41}, 0.1).size();
  const std::size_t fine = GreatCircleLine({11, 60}, {-74, 41}, 0.001).size();
  EXPECT_LT(rough, 60U);
  EXPECT_GT(fine, 2 * rough);
  EXPECT_EQ(GreatCircleLine({0, 0}, {80, 0}, 0.001).size(), 9U) << "the equator is straight";
}

TEST(GreatCircleLine, IsSymmetricAcrossTheEquator) {
  // The curve lies on both sides of the straight line, whose middle it meets.
  const std::vector<GeoPosition> line = GreatCircleLine({0, -50}, {100, 50}, 0.01);
  EXPECT_GT(line.size(), 20U);
  EXPECT_LT(GreatestDetour({0, -50}, {100, 50}, line), 10);
}

TEST(GreatCircleLine, OverAPoleHasAPositionThereOnEachMeridian) {
  const std::vector<GeoPosition> line = GreatCircleLine({10, 70}, {-170, 70}, 0.01);
  const auto atPole = [](GeoPosition position) { return position.lat == 90; };
  const auto first = std::find_if(line.begin(), line.end(), atPole);
  const auto last = std::find_if(line.rbegin(), line.rend(), atPole);
  ASSERT_NE(first, line.end());
  EXPECT_NEAR(first->lon, 10, 1e-9);
  EXPECT_NEAR(std::remainder(last->lon + 170, 360), 0, 1e-9);
}

TEST(GreatCircleLine, NearAPoleIsAsExact) {
  const std::vector<GeoPosition> line = GreatCircleLine({10, 70}, {-169, 70}, 0.01);
  EXPECT_LT(GreatestDetour({10, 70}, {-169, 70}, line), 10);
  EXPECT_LT(line.size(), 3'000U);
}

TEST(GreatCircleLine, OfStrangePositionsHasNoOthers) {
  EXPECT_EQ(GreatCircleLine({0, 91}, {0, 0}, 0.1).size(), 2U);
  EXPECT_EQ(GreatCircleLine({std::numeric_limits<double>::infinity(), 0}, {0, 0}, 0.1).size(), 2U);
  for (const GeoPosition position : GreatCircleLine({5, 5}, {5, 5}, 0.1)) {
    EXPECT_NEAR(position.lon, 5, 1e-9);
    EXPECT_NEAR(position.lat, 5, 1e-9);
  }
}

}  // namespace
}  // namespace zerbal::data
