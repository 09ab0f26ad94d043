#include "map/dashes.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zerbal::map {
namespace {

using Dashes = std::vector<std::string>;

std::string PlaceText(TwipPoint point) {
  return std::to_string(point.x) + "," + std::to_string(point.y);
}

Dashes DashesOf(TwipPoint from, TwipPoint to) {
  Dashes dashes;
  VisitDashes(from, to, [&](TwipPoint start, TwipPoint end) {
    dashes.push_back(PlaceText(start) + "-" + PlaceText(end));
  });
  return dashes;
}

TEST(Dashes, AreSixPixelsWithGapsOfFour) {
  EXPECT_EQ(DashesOf({0, 0}, {390, 0}), (Dashes{"0,0-90,0", "150,0-240,0", "300,0-390,0"}));
  EXPECT_EQ(DashesOf({10, 20}, {10, 260}), (Dashes{"10,20-10,110", "10,170-10,260"}));
}

TEST(Dashes, AreStretchedUntilBothEndsHaveOne) {
  EXPECT_EQ(DashesOf({0, 0}, {300, 0}), (Dashes{"0,0-120,0", "180,0-300,0"}));
  // 180 by 240 has the length 300.
  EXPECT_EQ(DashesOf({0, 0}, {180, 240}), (Dashes{"0,0-72,96", "108,144-180,240"}));
  EXPECT_EQ(DashesOf({0, 0}, {330, 0}), (Dashes{"0,0-70,0", "130,0-200,0", "260,0-330,0"}));
}

TEST(Dashes, OfAShortLineAreTheLine) {
  EXPECT_EQ(DashesOf({0, 0}, {150, 0}), (Dashes{"0,0-150,0"}));
  EXPECT_EQ(DashesOf({5, 6}, {5, 7}), (Dashes{"5,6-5,7"}));
  EXPECT_EQ(DashesOf({5, 6}, {5, 6}), (Dashes{"5,6-5,6"}));
}

TEST(Dashes, OfTheWayBackAreTheSame) {
  for (const TwipPoint to :
       {TwipPoint{1'234, 777}, TwipPoint{-1'000, 33}, TwipPoint{7, -555}, TwipPoint{7, 555}}) {
    EXPECT_EQ(DashesOf({7, 11}, to), DashesOf(to, {7, 11}));
  }
}

}  // namespace
}  // namespace zerbal::map
