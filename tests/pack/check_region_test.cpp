#include "zerbal-pack/check_region.h"

#include <cmath>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "pack/region_views.h"
#include "support/test_random.h"

namespace zerbal::pack {
namespace {

using test::LongitudeNotDrawn;
using test::ViewOf;

std::string Words(const RegionBounds& region) {
  return std::to_string(region.west) + ", " + std::to_string(region.top) + ", " +
         std::to_string(region.east) + ", " + std::to_string(region.bottom);
}

TEST(RatioCutOff, IsWhereTheWidenedRegionMeetsTheEdgeOfTheFrame) {
  EXPECT_EQ(RatioCutOff({10, 20, 130, 90}), 2.0);
  EXPECT_EQ(RatioCutOff({290, 100, 360, 140}), 1.75);
}

TEST(RatioCutOff, IsNothingForRegionsAcrossTheEdgeAndInTheMiddle) {
  EXPECT_FALSE(RatioCutOff({352, 20, 130, 90}));
  EXPECT_FALSE(RatioCutOff({100, 20, 260, 90}));
  EXPECT_FALSE(RatioCutOff({0, 5, 350, 32})) << "no map is wider than 350 degrees";
}

/// Any region, inside the frame or across its edge.
TEST(RatioCutOff, AgreesWithTheMap) {
  zerbal::test::TestRandom random(20261122);
  const auto degrees = [&](int least, int most) {
    return static_cast<double>(std::uniform_int_distribution(least, most)(random));
  };
  for (int i = 0; i < 2000; ++i) {
    const double top = degrees(0, 120);
    const RegionBounds region{degrees(0, 359), top, degrees(0, 360), top + degrees(11, 60)};
    const double span =
        region.east > region.west ? region.east - region.west : region.east + 360 - region.west;
    if (region.east == region.west || span > 345)
      continue;
    const std::optional<double> ratio = RatioCutOff(region);
    for (double shape = 0.5; shape <= 20; shape *= 1.2) {
      if (ratio && std::abs(shape - *ratio) < 0.05 * *ratio)
        continue;
      const bool cutOff = ratio && shape > *ratio;
      EXPECT_EQ(LongitudeNotDrawn(ViewOf(region, shape)).has_value(), cutOff)
          << Words(region) << " at " << shape;
    }
  }
}

TEST(HasDetailAcrossEdge, AgreesWithTheMap) {
  const RegionBounds small{354, 104, 2, 112};
  EXPECT_TRUE(HasDetailAcrossEdge(small));
  EXPECT_TRUE(LongitudeNotDrawn(ViewOf(small, 1)));
  for (const RegionBounds& cured : {RegionBounds{354, 104, 2, 115}, RegionBounds{345, 104, 6, 112}}) {
    EXPECT_FALSE(HasDetailAcrossEdge(cured));
    for (double shape = 0.5; shape <= kWidestMap; shape += 0.05)
      EXPECT_FALSE(LongitudeNotDrawn(ViewOf(cured, shape))) << Words(cured) << " at " << shape;
  }
}

TEST(CutOffNote, TellsCuresThatCure) {
  const RegionBounds america{10, 17, 130, 76};
  ASSERT_TRUE(CutOffNote(america));
  EXPECT_NE(CutOffNote(america)->find("Reg_FromLon to 359"), std::string::npos);
  EXPECT_NE(CutOffNote(america)->find("at most 40.0 degrees high"), std::string::npos);
  EXPECT_FALSE(CutOffNote({359, 17, 130, 76}));
  EXPECT_FALSE(CutOffNote({10, 17, 130, 57}));
  const RegionBounds australia{290, 98, 360, 138};
  ASSERT_TRUE(CutOffNote(australia));
  EXPECT_NE(CutOffNote(australia)->find("Reg_ToLon to 1,"), std::string::npos);
  EXPECT_FALSE(CutOffNote({290, 98, 1, 138}));
}

TEST(CutOffNote, IsSilentBeyondTheWidestMap) {
  EXPECT_FALSE(CutOffNote({100, 40, 140, 100}));
  EXPECT_TRUE(CutOffNote({80, 40, 120, 100}));
}

}  // namespace
}  // namespace zerbal::pack
