#include "data/airport_criteria.h"

#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/test_random.h"

namespace zerbal::data {
namespace {

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

AirportCriteria With(Criterion which, NumericCriterion criterion) {
  AirportCriteria set;
  criterion.active = true;
  set.numeric[static_cast<std::size_t>(which)] = criterion;
  return set;
}

NumericCriterion Between(std::int32_t from, std::int32_t to) {
  return {.limit = Limit::kBetween, .from = from, .to = to};
}
NumericCriterion AtLeast(std::int32_t value) {
  return {.limit = Limit::kAtLeast, .atLeast = value};
}
NumericCriterion AtMost(std::int32_t value) {
  return {.limit = Limit::kAtMost, .atMost = value};
}

AirportCriteria Ils(bool with) {
  AirportCriteria set;
  set.ilsActive = true;
  set.withIls = with;
  return set;
}

/// True when an airport passes whose value for one criterion is `value`. Its other values would fail.
bool Passes(const AirportCriteria& set, Criterion which, std::int32_t value) {
  std::array<std::int32_t, 3> values{kLowest, kLowest, kLowest};
  values[static_cast<std::size_t>(which)] = value;
  return AirportPassesCriteria(set, values[0], values[1], values[2], "?");
}

TEST(AirportPassesCriteria, WithNothingActiveEveryAirportPasses) {
  AirportCriteria set;
  set.numeric[0] = Between(5, 1);  // numbers of inactive criteria are ignored
  EXPECT_TRUE(AirportPassesCriteria(set, 0, 0, 0, ""));
  EXPECT_TRUE(AirportPassesCriteria(set, kLowest, kHighest, -1, "anything"));
}

TEST(AirportPassesCriteria, LimitsAreInclusive) {
  for (const Criterion which : {Criterion::kElevation, Criterion::kRunways, Criterion::kLongestRunway}) {
    const AirportCriteria between = With(which, Between(-2, 1'000));
    EXPECT_FALSE(Passes(between, which, -3));
    EXPECT_TRUE(Passes(between, which, -2));
    EXPECT_TRUE(Passes(between, which, 1'000));
    EXPECT_FALSE(Passes(between, which, 1'001));
    const AirportCriteria atLeast = With(which, AtLeast(1'000));
    EXPECT_FALSE(Passes(atLeast, which, 999));
    EXPECT_TRUE(Passes(atLeast, which, 1'000));
    EXPECT_TRUE(Passes(atLeast, which, kHighest));
    const AirportCriteria atMost = With(which, AtMost(1'000));
    EXPECT_TRUE(Passes(atMost, which, kLowest));
    EXPECT_TRUE(Passes(atMost, which, 1'000));
    EXPECT_FALSE(Passes(atMost, which, 1'001));
  }
}

TEST(AirportPassesCriteria, BetweenTwoEqualNumbersIsThatNumber) {
  const AirportCriteria set = With(Criterion::kElevation, Between(5, 5));
  EXPECT_FALSE(Passes(set, Criterion::kElevation, 4));
  EXPECT_TRUE(Passes(set, Criterion::kElevation, 5));
  EXPECT_FALSE(Passes(set, Criterion::kElevation, 6));
}

TEST(AirportPassesCriteria, AFromValueAboveTheToValuePassesNothing) {
  const AirportCriteria set = With(Criterion::kElevation, Between(10, 5));
  for (const std::int32_t value : {4, 5, 7, 10, 11})
    EXPECT_FALSE(Passes(set, Criterion::kElevation, value));
}

TEST(AirportPassesCriteria, IlsIsExactlyOneOrZero) {
  for (const std::string_view text : {"", " ", "2", "01", "1 ", "yes", "true", "00"}) {
    EXPECT_FALSE(AirportPassesCriteria(Ils(true), 0, 0, 0, text)) << text;
    EXPECT_FALSE(AirportPassesCriteria(Ils(false), 0, 0, 0, text)) << text;
  }
  EXPECT_TRUE(AirportPassesCriteria(Ils(true), 0, 0, 0, "1"));
  EXPECT_FALSE(AirportPassesCriteria(Ils(true), 0, 0, 0, "0"));
  EXPECT_TRUE(AirportPassesCriteria(Ils(false), 0, 0, 0, "0"));
  EXPECT_FALSE(AirportPassesCriteria(Ils(false), 0, 0, 0, "1"));
}

TEST(AirportPassesCriteria, EveryActiveCriterionMustPass) {
  AirportCriteria set = Ils(true);
  set.numeric = {AtLeast(100), Between(2, 3), AtMost(9'000)};
  for (NumericCriterion& criterion : set.numeric)
    criterion.active = true;
  EXPECT_TRUE(AirportPassesCriteria(set, 100, 2, 9'000, "1"));
  EXPECT_FALSE(AirportPassesCriteria(set, 99, 2, 9'000, "1"));
  EXPECT_FALSE(AirportPassesCriteria(set, 100, 4, 9'000, "1"));
  EXPECT_FALSE(AirportPassesCriteria(set, 100, 2, 9'001, "1"));
  EXPECT_FALSE(AirportPassesCriteria(set, 100, 2, 9'000, "0"));
}

TEST(AirportPassesCriteria, AgreesWithEachRuleAlone) {
  test::TestRandom random(20260402);
  const auto number = [&](int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
  };
  for (int i = 0; i < 20'000; ++i) {
    AirportCriteria set;
    bool expected = true;
    std::array<std::int32_t, 3> values{};
    for (std::size_t n = 0; n < 3; ++n) {
      set.numeric[n] = {number(0, 1) == 1, static_cast<Limit>(number(0, 2)),
                        number(0, 4),      number(0, 4),
                        number(0, 4),      number(0, 4)};
      const NumericCriterion& c = set.numeric[n];
      const int v = values[n] = number(0, 4);
      const bool passes[] = {v >= c.from && v <= c.to, !(v < c.atLeast), !(v > c.atMost)};
      if (c.active && !passes[static_cast<int>(c.limit)])
        expected = false;
    }
    const std::string ils(1, static_cast<char>(number('0', '2')));
    set.ilsActive = number(0, 1) == 1;
    set.withIls = number(0, 1) == 1;
    if (set.ilsActive && ils != (set.withIls ? "1" : "0"))
      expected = false;
    ASSERT_EQ(AirportPassesCriteria(set, values[0], values[1], values[2], ils), expected);
  }
}

TEST(DelimitationText, IsFixedWithoutAnActiveCriterion) {
  EXPECT_EQ(DelimitationText({}), "No delimitations set");
  AirportCriteria set;
  set.numeric[1] = AtLeast(3);
  set.withIls = false;
  EXPECT_EQ(DelimitationText(set), "No delimitations set");
}

TEST(DelimitationText, EveryPiece) {
  using enum Criterion;
  EXPECT_EQ(DelimitationText(With(kElevation, Between(0, 5'000))), "Elevation is between 0 and 5000 ft");
  EXPECT_EQ(DelimitationText(With(kElevation, Between(5, 5))), "Elevation is 5 ft");
  EXPECT_EQ(DelimitationText(With(kElevation, AtLeast(1'000))), "Elevation is 1000 ft or higher");
  EXPECT_EQ(DelimitationText(With(kElevation, AtMost(-7))), "Elevation is -7 ft or lower");
  EXPECT_EQ(DelimitationText(With(kRunways, Between(2, 4))), "Between 2 and 4 runways");
  EXPECT_EQ(DelimitationText(With(kRunways, Between(2, 2))), "2 runways");
  EXPECT_EQ(DelimitationText(With(kRunways, AtLeast(2))), "2 runways or more");
  EXPECT_EQ(DelimitationText(With(kRunways, AtMost(1))), "1 runways or less");
  EXPECT_EQ(DelimitationText(With(kLongestRunway, Between(9'000, 6'000))),
            "Longest runway is between 9000 and 6000 ft");
  EXPECT_EQ(DelimitationText(With(kLongestRunway, Between(0, 0))), "Longest runway is 0 ft");
  EXPECT_EQ(DelimitationText(With(kLongestRunway, AtLeast(9'842))), "Longest runway is 9842 ft or longer");
  EXPECT_EQ(DelimitationText(With(kLongestRunway, AtMost(2'147'483'647))),
            "Longest runway is 2147483647 ft or shorter");
  EXPECT_EQ(DelimitationText(Ils(true)), "With ILS");
  EXPECT_EQ(DelimitationText(Ils(false)), "Without ILS");
}

TEST(DelimitationText, JoinsPiecesInOrder) {
  AirportCriteria set = Ils(true);
  set.numeric[0] = Between(0, 5'000);
  set.numeric[0].active = true;
  EXPECT_EQ(DelimitationText(set), "Elevation is between 0 and 5000 ft - With ILS");
  set.numeric[2] = AtLeast(6'000);
  set.numeric[2].active = true;
  set.numeric[1] = AtMost(3);
  set.numeric[1].active = true;
  EXPECT_EQ(DelimitationText(set),
            "Elevation is between 0 and 5000 ft - 3 runways or less - Longest runway is 6000 ft or longer - "
            "With ILS");
}

TEST(AirportCriteria, AnyActive) {
  EXPECT_FALSE(AirportCriteria{}.AnyActive());
  EXPECT_TRUE(Ils(false).AnyActive());
  for (const Criterion which : {Criterion::kElevation, Criterion::kRunways, Criterion::kLongestRunway})
    EXPECT_TRUE(With(which, {}).AnyActive());
}

}  // namespace
}  // namespace zerbal::data
