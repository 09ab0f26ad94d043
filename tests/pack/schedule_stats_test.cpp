// The figures of a schedule.
#include "zerbal-pack/schedule_stats.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "pack/plain_schedules.h"

namespace zerbal::pack {
namespace {

/// One degree of the equator of WGS 84, metres: 6378137 * pi / 180.
constexpr double kDegree = 111319.49079327357;

using test::Count;
using test::FlightsOnTheEquator;
using test::kPositions;

std::string Text(const std::optional<MeasuredLeg>& leg) {
  return leg ? leg->from + leg->to + " " + leg->flight : "none";
}

std::string Text(const std::vector<BusyAirport>& airports) {
  std::string text;
  for (const BusyAirport& airport : airports)
    text += airport.code + std::to_string(airport.legs) + " ";
  return text;
}

std::string Text(const std::vector<BusyPair>& pairs) {
  std::string text;
  for (const BusyPair& pair : pairs)
    text += pair.codes.first + pair.codes.second + std::to_string(pair.legs) + " ";
  return text;
}

TEST(CountSchedule, CountsFlightsLegsAndAirports) {
  const ScheduleFigures figures = Count({{"X", "AB"}, {"X", "BCA"}, {"Y", "CD"}});
  EXPECT_EQ(figures.all.flights, 3U);
  EXPECT_EQ(figures.all.legs, 4U);
  EXPECT_EQ(figures.all.airports, 4U);
  EXPECT_NEAR(figures.all.metres, 54 * kDegree, 0.01);
  EXPECT_EQ(figures.all.unmeasured, 0U);
  ASSERT_EQ(figures.services.size(), 2U);
  EXPECT_EQ(figures.services[0].service, "Y");
  EXPECT_EQ(figures.services[0].name, "Why");
  EXPECT_EQ(figures.services[0].flights, 1U);
  EXPECT_EQ(figures.services[0].airports, 2U);
  EXPECT_NEAR(figures.services[0].metres, 12 * kDegree, 0.01);
  EXPECT_EQ(figures.services[1].service, "X");
  EXPECT_EQ(figures.services[1].legs, 3U);
  EXPECT_NEAR(figures.services[1].metres, 42 * kDegree, 0.01);
}

TEST(CountSchedule, FindsTheShortestAndTheLongestLegOfTheFirstFlight) {
  const ScheduleFigures figures = Count({{"X", "AB"}, {"X", "BCA"}, {"Y", "ADB"}, {"Y", "AD"}});
  EXPECT_EQ(Text(figures.all.shortest), "AB N1");
  EXPECT_EQ(Text(figures.all.longest), "AD N3");
  EXPECT_NEAR(figures.all.longest->metres, 33 * kDegree, 0.01);
  EXPECT_EQ(Text(figures.services[0].shortest), "DB N3");
  EXPECT_EQ(Text(figures.services[1].longest), "CA N2");
  EXPECT_EQ(Text(Count({{"X", "AB"}, {"X", "CC"}}).all.shortest), "CC N2");
}

TEST(CountSchedule, MeasuresTheShortWayRound) {
  EXPECT_NEAR(Count({{"X", "EF"}}).all.metres, 5 * kDegree, 0.01);
}

TEST(CountSchedule, RanksAirportsAndPairs) {
  const ScheduleFigures figures = Count({{"X", "AB"}, {"X", "BA"}, {"X", "ABC"}, {"Y", "CC"}, {"Y", "DA"}});
  EXPECT_EQ(Text(figures.all.busiestAirports), "A4 B4 C3 D1 ");
  EXPECT_EQ(Text(figures.all.busiestPairs), "AB3 AD1 BC1 CC1 ");
  EXPECT_EQ(Text(figures.services[0].busiestAirports), "C2 A1 D1 ");
  EXPECT_EQ(Text(figures.services[1].busiestPairs), "AB3 BC1 ");
}

TEST(CountSchedule, ListsTheBusiestOnly) {
  const FlightFigures all = Count({{"X", "ABCDEFA"}, {"X", "FE"}}).all;
  EXPECT_EQ(Text(all.busiestAirports), "E3 F3 A2 B2 C2 ");
  EXPECT_EQ(Text(all.busiestPairs), "EF2 AB1 AF1 BC1 CD1 ");
  EXPECT_EQ(all.airports, 6U);
}

TEST(CountSchedule, CountsLegsThatItCannotMeasure) {
  const ScheduleFigures figures = Count({{"X", "AQB"}, {"X", "AB"}, {"Y", "RA"}});
  EXPECT_EQ(figures.all.legs, 4U);
  EXPECT_EQ(figures.all.unmeasured, 3U);
  EXPECT_NEAR(figures.all.metres, 10 * kDegree, 0.01);
  EXPECT_EQ(figures.unknownAirports, (std::set<std::string>{"Q", "R"}));
  EXPECT_EQ(Text(figures.services[0].longest), "none");
  EXPECT_EQ(figures.services[0].airports, 2U);
}

TEST(CountSchedule, KeepsFlightsOfUnknownServices) {
  const ScheduleFigures figures = Count({{"Z", "AB"}, {"W", "AB"}, {"Z", "AB"}});
  ASSERT_EQ(figures.services.size(), 4U);
  EXPECT_EQ(figures.services[0].flights, 0U);
  EXPECT_EQ(Text(figures.services[0].busiestAirports), "");
  EXPECT_EQ(figures.services[2].service, "W");
  EXPECT_EQ(figures.services[2].flights, 1U);
  EXPECT_EQ(figures.services[3].service, "Z");
  EXPECT_EQ(figures.services[3].flights, 2U);
}

TEST(CountSchedule, CountsServicesOfTheSameKeyOnce) {
  PlainSchedule schedule = FlightsOnTheEquator({{"X", "AB"}});
  schedule.services.push_back({"X", "again", {}});
  const ScheduleFigures figures = CountSchedule(schedule, kPositions);
  ASSERT_EQ(figures.services.size(), 2U);
  EXPECT_EQ(figures.services[1].name, "Ex");
  EXPECT_EQ(figures.services[1].flights, 1U);
}

}  // namespace
}  // namespace zerbal::pack
