#include "data/great_circle.h"

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

}  // namespace
}  // namespace zerbal::data
