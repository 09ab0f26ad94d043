#include "map/nearby.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "map/map_world.h"
#include "map/views.h"
#include "support/test_random.h"

namespace zerbal::map {
namespace {

/// The view is 100..160 by 40..70, so that a position is at 100 (lon - 100), 100 (lat - 40). Six pixels are
/// 90 twips.
class Nearby : public testing::Test {
 protected:
  Nearby() {
    world_.dest = {Airport("AAA", 110, 50), Airport("BBB", 120, 50), Airport("CCC", 130, 50),
                   Airport("NNN", 110, 30), Airport("EEE", 350, 50), Airport("WWW", 10, 50)};
    world_.allaprt = {Airport("AAA", 110, 50), Airport("XXX", 140, 60)};
    world_.AddService("RED", {200, 0, 0});
    world_.services.back().displayText = "1 - Red";
  }

  Strings At(float x, float y) { return FindNearby(world_.Scene(), {x, y}); }
  std::size_t CountAt(float x, float y) { return At(x, y).size(); }
  static std::string FirstWord(const std::string& line) { return line.substr(0, line.find(' ')); }
  /// Airport codes and flight numbers.
  Strings WordsAt(float x, float y) {
    Strings words;
    for (const std::string& line : At(x, y))
      words.push_back(FirstWord(line));
    return words;
  }

  MapWorld world_;
};

TEST_F(Nearby, AnAirportIsFoundWithinSixPixels) {
  world_.options.allAirports = true;
  EXPECT_EQ(WordsAt(1000, 1000), Strings{"AAA"});
  EXPECT_EQ(CountAt(1090, 1000), 1U);
  EXPECT_EQ(CountAt(1091, 1000), 0U);
  EXPECT_EQ(CountAt(1000, 910), 1U);
  EXPECT_EQ(CountAt(1000, 909), 0U);
  EXPECT_EQ(CountAt(1063, 1063), 1U);
  EXPECT_EQ(CountAt(1064, 1064), 0U);
}

TEST_F(Nearby, ALegIsFoundWithinSixPixels) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB"})};
  EXPECT_EQ(WordsAt(1500, 1090), Strings{"QV1"});
  EXPECT_EQ(CountAt(1500, 1091), 0U);
  EXPECT_EQ(CountAt(2090, 1000), 1U);
  EXPECT_EQ(CountAt(2091, 1000), 0U);
  EXPECT_EQ(CountAt(910, 1000), 1U);
  EXPECT_EQ(CountAt(909, 1000), 0U);
}

TEST_F(Nearby, ALegEndsAtTheEdgeOfTheView) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "NNN"})};
  EXPECT_EQ(CountAt(1000, 0), 1U);
  EXPECT_EQ(CountAt(1000, -90), 1U);
  EXPECT_EQ(CountAt(1000, -91), 0U) << "it goes on there, but is not drawn";
}

TEST_F(Nearby, ALegOfNoLengthIsFound) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "AAA"})};
  EXPECT_EQ(CountAt(1000, 1090), 1U);
  EXPECT_EQ(CountAt(1000, 1091), 0U);
  EXPECT_EQ(At(1000, 1000),
            Strings{"QV1 (1 - Red): Town AAA -> Town AAA, leg 1 of 1, 0 km, 0 nautical miles"});
}

TEST_F(Nearby, ALegOverTheSeamIsFoundWhereItIsDrawn) {
  world_.flit = {Flight("QV1", "RED", {"EEE", "WWW"}), Flight("QV2", "RED", {"WWW", "EEE"})};
  ShowExactly(world_.viewport, 5, 0, 355, 180);
  const Strings both{"QV1", "QV2"};
  EXPECT_EQ(WordsAt(34'800, 5'000), both);
  EXPECT_EQ(WordsAt(200, 5'000), both);
  EXPECT_EQ(CountAt(17'500, 5'000), 0U) << "it does not cross the map";
  ShowExactly(world_.viewport, 340, 40, 20, 70);
  EXPECT_EQ(WordsAt(2'000, 1'000), both);
  EXPECT_EQ(WordsAt(1'000, 1'000), both);
  EXPECT_EQ(CountAt(3'091, 1'000), 0U);
}

TEST_F(Nearby, AnAirportBeyondTheSeamIsFoundWhereItIsDrawn) {
  world_.options.destinations = true;
  ShowExactly(world_.viewport, 340, 40, 20, 70);
  EXPECT_EQ(WordsAt(3'000, 1'000), Strings{"WWW"});
  EXPECT_EQ(WordsAt(1'000, 1'000), Strings{"EEE"});
}

TEST_F(Nearby, WhatIsHiddenIsNotFound) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB"}), Flight("QV2", "BLUE", {"AAA", "BBB"})};
  world_.services.back().displayFlag = false;
  EXPECT_EQ(WordsAt(1000, 1000), Strings{});
  world_.options.destinations = true;
  EXPECT_EQ(WordsAt(1000, 1000), Strings{"AAA"});
  EXPECT_EQ(WordsAt(4000, 2000), Strings{}) << "not a destination";
  world_.options.allAirports = true;
  EXPECT_EQ(WordsAt(4000, 2000), Strings{"XXX"});
  world_.options.destinations = false;
  EXPECT_EQ(WordsAt(2000, 1000), Strings{});
}

TEST_F(Nearby, AnAirportOutsideTheDelimitationIsNotFound) {
  world_.options.allAirports = world_.options.destinations = true;
  world_.allAirportCriteria.ilsActive = true;
  EXPECT_EQ(WordsAt(4000, 2000), Strings{});
  EXPECT_EQ(WordsAt(1000, 1000), Strings{"AAA"}) << "among the destinations";
  world_.destinationCriteria.ilsActive = true;
  EXPECT_EQ(WordsAt(1000, 1000), Strings{});
}

TEST_F(Nearby, AirportsOfFlightsAreFoundWhenTheyAreDrawn) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB"})};
  EXPECT_EQ(WordsAt(1000, 1000), Strings{"QV1"});
  world_.options.flightAirports = true;
  EXPECT_EQ(WordsAt(1000, 1000), (Strings{"AAA", "QV1"}));
}

TEST_F(Nearby, SelectedFlightsAreFoundWhateverTheirService) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB"}), Flight("QV2", "BLUE", {"BBB", "AAA"}),
                 Flight("QV3", "RED", {"AAA", "ZZZ"})};
  world_.flights.serviceMode = false;
  EXPECT_EQ(CountAt(1500, 1000), 0U);
  world_.flights.selectedFlights = {"QV3", "QV2", "none"};
  EXPECT_EQ(At(1500, 1000),
            Strings{"QV2 (BLUE): Town BBB -> Town AAA, leg 1 of 1, 853 km, 461 nautical miles"});
}

TEST_F(Nearby, EachAirportAndLegIsFoundOnce) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB"})};
  world_.AddService("RED", {0, 0, 0});  // drawn twice
  world_.options.allAirports = world_.options.destinations = world_.options.flightAirports = true;
  EXPECT_EQ(WordsAt(1000, 1000), (Strings{"AAA", "QV1"}));
}

TEST_F(Nearby, LegsSayWhichOneTheyAre) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB", "AAA", "BBB", "CCC"})};
  const std::string length = " of 4, 853 km, 461 nautical miles";
  EXPECT_EQ(At(1500, 1000), (Strings{"QV1 (1 - Red): Town AAA -> Town BBB, leg 1" + length,
                                     "QV1 (1 - Red): Town BBB -> Town AAA, leg 2" + length,
                                     "QV1 (1 - Red): Town AAA -> Town BBB, leg 3" + length}));
}

TEST_F(Nearby, NearerOnesComeFirstAndAirportsBeforeLegs) {
  world_.allaprt = {Airport("A1", 140.7F, 50), Airport("A2", 140.2F, 50), Airport("A3", 140.1F, 50)};
  world_.dest.insert(world_.dest.end(), {Airport("DDD", 140, 50.5F), Airport("FFF", 140, 50.1F)});
  world_.flit = {Flight("QV1", "RED", {"CCC", "DDD"}), Flight("QV2", "RED", {"DDD", "DDD"}),
                 Flight("QV3", "RED", {"CCC", "FFF"})};
  world_.options.allAirports = true;
  EXPECT_EQ(WordsAt(4'000, 1'000), (Strings{"A3", "A2", "A1", "QV3", "QV1", "QV2"}))
      << "at 10, 20, 70 and 10, 49.9, 50 twips";
}

TEST_F(Nearby, AnAirportHasAllItsFacts) {
  AirportRow row = Airport("OSL", 140, 50);
  row.name = "Gardermoen";
  row.city = "Oslo";
  row.elevation = 681;
  row.runways = 2;
  row.longestRunway = 11'811;
  row.ils = "1";
  AirportRow small = Airport("POL", 150, 50);
  small.name = "Pole Camp";
  small.city = "Pole";
  small.elevation = test::Null();
  small.ils = "2";
  world_.allaprt = {row, small, Airport("FLD", 145, 50)};
  world_.options.allAirports = true;
  EXPECT_EQ(At(4'000, 1'000),
            Strings{"OSL - Gardermoen (Oslo), elevation 681 ft, 2 runways, longest 11811 ft, ILS"});
  EXPECT_EQ(At(5'000, 1'000), Strings{"POL - Pole Camp, 1 runway, longest 5000 ft"});
  EXPECT_EQ(At(4'500, 1'000),
            Strings{"FLD - Field (Town), elevation 0 ft, 1 runway, longest 5000 ft, no ILS"});
}

TEST_F(Nearby, AnAirportWithoutACityIsItsCode) {
  world_.dest[0].city = test::Null();
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB"})};
  EXPECT_EQ(At(1500, 1000),
            Strings{"QV1 (1 - Red): AAA -> Town BBB, leg 1 of 1, 853 km, 461 nautical miles"});
}

TEST_F(Nearby, AnEmptyDrawingAreaHasNothing) {
  world_.options.allAirports = true;
  world_.viewport.SetSize(0, 0);
  EXPECT_EQ(CountAt(1000, 1000), 0U);
}

TEST(NearbyText, HasEightLinesAndTheNumberOfTheOthers) {
  Strings lines;
  EXPECT_EQ(NearbyText(lines), "");
  for (const char* line : {"a", "b", "c", "d", "e", "f", "g", "h"})
    lines.emplace_back(line);
  EXPECT_EQ(NearbyText({"a"}), "a");
  EXPECT_EQ(NearbyText(lines), "a\nb\nc\nd\ne\nf\ng\nh");
  lines.insert(lines.end(), {"i", "j"});
  EXPECT_EQ(NearbyText(lines), "a\nb\nc\nd\ne\nf\ng\nh\nand 2 more");
}

/// Steps along the line instead of computing the nearest point.
double LeastDistance(const Operation& operation, TwipPosition place) {
  constexpr int kSteps = 20'000;
  double least = 1e9;
  const TwipPoint to = operation.kind == Operation::Kind::kLine ? operation.to : operation.from;
  for (int step = 0; step <= kSteps; ++step) {
    const double part = static_cast<double>(step) / kSteps;
    const double x = operation.from.x + part * (to.x - operation.from.x);
    const double y = operation.from.y + part * (to.y - operation.from.y);
    least = std::min(least, std::hypot(place.x - x, place.y - y));
  }
  return least;
}

double Real(test::TestRandom& random, double from, double to) {
  return std::uniform_real_distribution(from, to)(random);
}

int Whole(test::TestRandom& random, int from, int to) {
  return std::uniform_int_distribution(from, to)(random);
}

class RandomWorld : public MapWorld {
 public:
  explicit RandomWorld(test::TestRandom& random) {
    for (int i = 0; i < 30; ++i)
      dest.push_back(Airport("A" + std::to_string(i), static_cast<float>(Real(random, 0, 360)),
                             static_cast<float>(Real(random, 0, 180))));
    for (int i = 0; i < 40; ++i)
      flit.push_back(
          Flight("QV" + std::to_string(i), "RED", {Code(random), Code(random), Code(random), Code(random)}));
    AddService("RED", {200, 0, 0});
    options.destinations = true;
  }

 private:
  static std::string Code(test::TestRandom& random) { return "A" + std::to_string(Whole(random, 0, 29)); }
};

TEST(NearbyRandom, ExactlyWhatIsDrawnIsFound) {
  test::TestRandom random(20);
  RandomWorld world(random);
  int near = 0;
  for (int round = 0; round < 40; ++round) {
    const auto west = static_cast<float>(Real(random, 0, 360));
    const auto top = static_cast<float>(Real(random, 0, 100));
    ShowExactly(world.viewport, west, top, std::fmod(west + 150, 360.0F), top + 75);
    std::vector<Operation> drawn = world.Draw();
    std::erase_if(drawn, [](const Operation& operation) {
      return operation.kind != Operation::Kind::kLine && operation.kind != Operation::Kind::kCircle;
    });
    ASSERT_FALSE(drawn.empty());
    const TwipPoint start =
        drawn[static_cast<std::size_t>(Whole(random, 0, static_cast<int>(drawn.size()) - 1))].from;
    const TwipPosition place{static_cast<float>(start.x + Real(random, -200, 200)),
                             static_cast<float>(start.y + Real(random, -200, 200))};
    const bool expected =
        std::ranges::any_of(drawn, [&](const Operation& op) { return LeastDistance(op, place) <= 90; });
    EXPECT_EQ(!FindNearby(world.Scene(), place).empty(), expected)
        << "view from " << west << " " << top << ", place " << place.x << " " << place.y;
    near += expected ? 1 : 0;
  }
  EXPECT_GT(near, 5);
  EXPECT_LT(near, 40);
}

}  // namespace
}  // namespace zerbal::map
