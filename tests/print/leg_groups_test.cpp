#include "print/leg_groups.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zerbal::print {
namespace {

using testing::ElementsAre;

constexpr data::Rgb kGroupRed{200, 0, 0};
constexpr data::Rgb kGroupBlue{0, 0, 200};

PlacedLeg GroupLeg(const char* from, const char* to, const char* number, const char* service = "RED",
                   data::Rgb colour = kGroupRed) {
  return {from, to, number, number, service, colour, {{{0, 0}, {100, 0}}}};
}

TEST(GroupLegs, JoinsBothDirections) {
  const std::vector<PlacedLeg> legs{GroupLeg("AAA", "BBB", "1"), GroupLeg("CCC", "AAA", "2"),
                                    GroupLeg("BBB", "AAA", "3"), GroupLeg("AAA", "BBB", "1")};
  const auto groups = GroupLegs(legs);
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(groups[0].first, &legs[0]);
  EXPECT_EQ(groups[0].flights, 3);
  EXPECT_THAT(groups[0].labels, ElementsAre("1", "3"));
  EXPECT_EQ(groups[1].first, &legs[1]);
  EXPECT_EQ(groups[1].flights, 1);
}

TEST(GroupLegs, HaveTheColourOfTheServiceWithMostFlights) {
  const std::vector<PlacedLeg> legs{GroupLeg("A", "B", "1"), GroupLeg("A", "B", "2", "BLUE", kGroupBlue),
                                    GroupLeg("B", "A", "3", "BLUE", kGroupBlue), GroupLeg("A", "C", "4"),
                                    GroupLeg("A", "C", "5", "BLUE", kGroupBlue)};
  const auto groups = GroupLegs(legs);
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(groups[0].service, "BLUE");
  EXPECT_EQ(groups[0].colour, kGroupBlue);
  EXPECT_EQ(groups[1].service, "RED");
}

TEST(GroupLegs, OfNothingAreNone) {
  EXPECT_TRUE(GroupLegs({}).empty());
  EXPECT_TRUE(FlightStepsOf({}).empty());
}

TEST(SharedLabel, NamesTwoFlightsAndCountsMore) {
  EXPECT_EQ(SharedLabel({}), "");
  EXPECT_EQ(SharedLabel({"QV303"}), "QV303");
  EXPECT_EQ(SharedLabel({"QV303", "QV304"}), "QV303/QV304");
  EXPECT_EQ(SharedLabel({"QV301", "QV302", "QV303", "QV304", "QV305", "QV306"}), "QV301 +5");
}

}  // namespace
}  // namespace zerbal::print
