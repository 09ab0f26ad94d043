#include "print/leg_groups.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zerbal::print {
namespace {

using testing::ElementsAre;

constexpr data::Rgb kRed{200, 0, 0};
constexpr data::Rgb kBlue{0, 0, 200};

PlacedLeg LegOf(const char* from, const char* to, const char* number, const char* service = "RED",
                data::Rgb colour = kRed) {
  return {from, to, number, number, service, colour, {{{0, 0}, {100, 0}}}};
}

TEST(GroupLegs, JoinsBothDirections) {
  const std::vector<PlacedLeg> legs{LegOf("AAA", "BBB", "1"), LegOf("CCC", "AAA", "2"),
                                    LegOf("BBB", "AAA", "3"), LegOf("AAA", "BBB", "1")};
  const auto groups = GroupLegs(legs);
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(groups[0].first, &legs[0]);
  EXPECT_EQ(groups[0].flights, 3);
  EXPECT_THAT(groups[0].labels, ElementsAre("1", "3"));
  EXPECT_EQ(groups[1].first, &legs[1]);
  EXPECT_EQ(groups[1].flights, 1);
}

TEST(GroupLegs, HaveTheColourOfTheServiceWithMostFlights) {
  const std::vector<PlacedLeg> legs{LegOf("A", "B", "1"), LegOf("A", "B", "2", "BLUE", kBlue),
                                    LegOf("B", "A", "3", "BLUE", kBlue), LegOf("A", "C", "4"),
                                    LegOf("A", "C", "5", "BLUE", kBlue)};
  const auto groups = GroupLegs(legs);
  ASSERT_EQ(groups.size(), 2U);
  EXPECT_EQ(groups[0].service, "BLUE");
  EXPECT_EQ(groups[0].colour, kBlue);
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
