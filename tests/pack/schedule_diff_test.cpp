// Which flights of two schedules are the same, and what differs between them.
#include "zerbal-pack/schedule_diff.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "zerbal-pack/natural_order.h"

namespace zerbal::pack {
namespace {

using Flights = std::vector<data::Flight>;

/// The route has one letter per airport.
data::Flight F(const std::string& key, const std::string& number, const std::string& route,
               const std::string& service = "X") {
  data::Flight flight{key, service, number, {}};
  for (const char code : route)
    flight.route.emplace_back(1, code);
  return flight;
}

/// Keys: "old=new" of each pair, "+new", "-old".
std::string Pairs(const Flights& before, const Flights& after) {
  const FlightPairs result = PairFlights(before, after);
  std::string text;
  for (const FlightPair& pair : result.pairs)
    text += pair.before->key + "=" + pair.after->key + " ";
  for (const data::Flight* flight : result.added)
    text += "+" + flight->key + " ";
  for (const data::Flight* flight : result.dropped)
    text += "-" + flight->key + " ";
  return text;
}

PlainSchedule ScheduleOf(const Flights& flights, std::array<int, 3> colourOfX = {1, 2, 3}) {
  PlainSchedule schedule;
  schedule.services = {{"X", "Ex", colourOfX}, {"Y", "Why", {4, 5, 6}}};
  schedule.flights = flights;
  return schedule;
}

/// How many flights are new, dropped, rerouted, renumbered, recoloured.
std::vector<std::size_t> Counts(const PlainSchedule& before, const PlainSchedule& after) {
  const ScheduleDiff diff = Compare(before, after);
  const std::vector<std::size_t> counts = {diff.added.size(), diff.dropped.size(), diff.rerouted.size(),
                                           diff.renumbered.size(), diff.recoloured.size()};
  EXPECT_EQ(diff.IsEmpty(), std::ranges::all_of(counts, [](std::size_t count) { return count == 0; }));
  return counts;
}

std::vector<std::size_t> Counts(const data::Flight& before, const data::Flight& after) {
  return Counts(ScheduleOf({before}), ScheduleOf({after}));
}

using Expected = std::vector<std::size_t>;

TEST(PairFlights, TakesTheMostAlikeFirst) {
  EXPECT_EQ(Pairs({F("1", "N1", "AB"), F("2", "N2", "CD")}, {F("1", "N1", "AB"), F("2", "N2", "CD")}),
            "1=1 2=2 ");
  // Keys that count the rows do not spoil the comparison when a row is removed.
  EXPECT_EQ(Pairs({F("1", "N1", "AB"), F("2", "N2", "CD"), F("3", "N3", "DE")},
                  {F("1", "N2", "CD"), F("2", "N3", "DE")}),
            "2=1 3=2 -1 ");
  // Number before route.
  EXPECT_EQ(Pairs({F("a", "N1", "AB"), F("b", "N2", "CD")}, {F("c", "N1", "CD"), F("d", "N2", "AB")}),
            "a=c b=d ");
  // Number before key.
  EXPECT_EQ(Pairs({F("a", "N1", "AB"), F("b", "N2", "CD")}, {F("b", "N1", "EA"), F("a", "N2", "BD")}),
            "a=b b=a ");
  // Route before key.
  EXPECT_EQ(Pairs({F("a", "N1", "AB"), F("b", "N2", "CD")}, {F("b", "N3", "AB"), F("a", "N4", "CD")}),
            "a=b b=a ");
  EXPECT_EQ(Pairs({F("a", "N1", "AB")}, {F("a", "N2", "CD")}), "a=a ");
  EXPECT_EQ(Pairs({F("a", "N1", "AB")}, {F("b", "N2", "BA")}), "+b -a ");
}

TEST(PairFlights, LetsKeyAndServiceDecideBetweenCandidates) {
  EXPECT_EQ(Pairs({F("a", "N", "AB"), F("b", "N", "AC")}, {F("b", "N", "AD"), F("c", "N", "AE")}),
            "b=b a=c ");
  EXPECT_EQ(Pairs({F("a", "N", "AB", "Y"), F("b", "N", "AC", "X")}, {F("c", "N", "AD", "X")}), "b=c -a ");
  EXPECT_EQ(Pairs({F("a", "N", "AB", "Y"), F("b", "N", "AB", "X")}, {F("c", "N", "AB", "X")}), "b=c -a ");
  EXPECT_EQ(Pairs({F("a", "N1", "AB", "Y"), F("b", "N2", "AB", "X")}, {F("c", "N3", "AB", "X")}), "b=c -a ");
  EXPECT_EQ(Pairs({F("a", "N1", "AB"), F("b", "N2", "AB")}, {F("c", "N3", "AB"), F("b", "N4", "AB")}),
            "a=c b=b ");
}

TEST(PairFlights, TakesEqualCandidatesInOrder) {
  EXPECT_EQ(Pairs({F("a", "N1", "AB"), F("b", "N2", "AB"), F("c", "N3", "AB")},
                  {F("d", "N4", "AB"), F("e", "N5", "AB")}),
            "a=d b=e -c ");
  EXPECT_EQ(Pairs({F("a", "N", "AB")}, {F("b", "N", "AB"), F("c", "N", "AB")}), "a=b +c ");
}

TEST(PairFlights, DoesNotTakeEmptyNumbersAndKeysForTheSame) {
  EXPECT_EQ(Pairs({F("a", "", "AB")}, {F("b", "", "CD")}), "+b -a ");
  EXPECT_EQ(Pairs({F("", "N1", "AB")}, {F("", "N2", "CD")}), "+ - ");
}

TEST(Compare, TellsTheKindsOfDifferencesApart) {
  EXPECT_EQ(Counts(F("a", "N", "AB"), F("a", "N", "AB")), (Expected{0, 0, 0, 0, 0}));
  EXPECT_EQ(Counts(F("a", "N", "AB"), F("b", "N", "AB")), (Expected{0, 0, 0, 0, 0}));
  EXPECT_EQ(Counts(F("a", "N", "AB"), F("a", "N", "ACB")), (Expected{0, 0, 1, 0, 0}));
  EXPECT_EQ(Counts(F("a", "N", "AB"), F("a", "N", "BA")), (Expected{0, 0, 1, 0, 0}));
  EXPECT_EQ(Counts(F("a", "N", "AB"), F("a", "M", "AC")), (Expected{0, 0, 1, 0, 0}));
  EXPECT_EQ(Counts(F("a", "N", "AB"), F("b", "M", "AB")), (Expected{0, 0, 0, 1, 0}));
  EXPECT_EQ(Counts(F("a", "N", "AB"), F("b", "M", "AC")), (Expected{1, 1, 0, 0, 0}));
  EXPECT_EQ(Counts(F("a", "N", "AB"), F("a", "N", "AB", "Y")), (Expected{0, 0, 0, 0, 1}));
  EXPECT_EQ(Counts(F("a", "N", "AB"), F("b", "M", "AB", "Y")), (Expected{0, 0, 0, 1, 1}));
  EXPECT_EQ(Counts(F("a", "N", "AB"), F("a", "N", "AC", "Y")), (Expected{0, 0, 1, 0, 1}));
}

TEST(Compare, SeesColoursOfServices) {
  const Flights flights = {F("a", "N", "AB"), F("b", "M", "AB", "Y"), F("c", "O", "AB", "Z")};
  EXPECT_EQ(Counts(ScheduleOf(flights), ScheduleOf(flights, {1, 2, 4})), (Expected{0, 0, 0, 0, 1}));
  PlainSchedule withZ = ScheduleOf(flights);
  withZ.services.push_back({"Z", "Zed", {0, 0, 0}});
  EXPECT_EQ(Counts(ScheduleOf(flights), withZ), (Expected{0, 0, 0, 0, 1}));
  withZ.services.back().name = "Omega";
  EXPECT_EQ(Counts(withZ, withZ), (Expected{0, 0, 0, 0, 0}));
  PlainSchedule twice = ScheduleOf(flights);
  twice.services.push_back({"X", "the last one counts", {9, 9, 9}});
  EXPECT_EQ(Counts(twice, ScheduleOf(flights, {9, 9, 9})), (Expected{0, 0, 0, 0, 0}));
}

TEST(Compare, FindsNewAndDroppedDestinations) {
  PlainSchedule before, after;
  before.destinations = {{"A", "", "", {}}, {"B", "b", "", {}}};
  after.destinations = {{"B", "other name", "", GeoPosition{1, 1}}, {"C", "", "", {}}};
  const ScheduleDiff diff = Compare(before, after);
  EXPECT_FALSE(diff.IsEmpty());
  ASSERT_EQ(diff.newDestinations.size(), 1U);
  EXPECT_EQ(diff.newDestinations.front()->code, "C");
  ASSERT_EQ(diff.droppedDestinations.size(), 1U);
  EXPECT_EQ(diff.droppedDestinations.front()->code, "A");
}

TEST(NaturalLess, OrdersNumbersByTheirValue) {
  const std::vector<std::string> sorted = {"",      "07",     "7",    "7A",    "10",  "QV", "QV1",
                                           "QV1/2", "QV1/10", "QV99", "QV101", "QVA", "QVB"};
  for (std::size_t a = 0; a < sorted.size(); ++a) {
    for (std::size_t b = 0; b < sorted.size(); ++b) {
      EXPECT_EQ(NaturalLess(sorted[a], sorted[b]), a < b) << sorted[a] << " " << sorted[b];
    }
  }
}

}  // namespace
}  // namespace zerbal::pack
