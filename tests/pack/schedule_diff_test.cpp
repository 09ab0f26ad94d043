// What differs between two schedules.
#include "zerbal-pack/schedule_diff.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace zerbal::pack
