#include "print/print_map.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "base/error.h"
#include "map/map_world.h"
#include "print/parts.h"
#include "print/print_recorder.h"

namespace zerbal::print {
namespace {

using map::Airport;
using map::At;
using map::Flight;

constexpr data::Rgb kServiceColour{200, 0, 0};

/// The view is 80 to 20 west, 50 to 20 north: a map position is at 100 (lon - 100), 100 (lat - 40).
class PrintMap : public testing::Test {
 protected:
  PrintMap() {
    world_.dest = {Airport("AAA", 110, 50), Airport("BBB", 120, 50), Airport("CCC", 130, 50),
                   Airport("OUT", 90, 50)};
    world_.AddService("RED", kServiceColour);
  }

  std::vector<PrintOperation> Draw(PrintLayer layer) {
    PrintRecorder recorder;
    const map::MapScene scene = world_.Scene();
    DrawPrintMap({scene, options_}, recorder);
    return recorder.Operations(layer);
  }

  Parts DrawnLines(PrintLayer layer) {
    Parts lines;
    for (const PrintOperation& operation : Draw(layer))
      if (operation.kind == PrintOperation::Kind::kPolyline)
        lines.push_back(operation.points);
    return lines;
  }

  map::MapWorld world_;
  PrintOptions options_;
};

TEST_F(PrintMap, HasTheBackgroundOfTheMap) {
  const auto operations = Draw(PrintLayer::kBackground);
  ASSERT_EQ(operations.size(), 1U);
  EXPECT_EQ(operations[0].colour, map::ColourOf(data::ColourCode::kMapBg));
}

TEST_F(PrintMap, CoastsAreCutAtTheEdgeOfTheView) {
  world_.coast["wcl"] = {At(99.5, 50), At(110, 50), At(120, 60), map::kPenUp, At(10, 10), At(20, 20)};
  EXPECT_EQ(DrawnLines(PrintLayer::kLines), (Parts{{{0, 1'000}, {1'000, 1'000}, {2'000, 2'000}}}));
}

TEST_F(PrintMap, LandAndWaterAreFilledBelowTheLines) {
  world_.coast["land"] = {At(90, 50),  At(110, 50), At(110, 60), At(90, 60),
                          map::kPenUp, At(10, 10),  At(20, 10),  At(20, 20)};
  options_.land = data::Rgb{200, 180, 140};
  options_.water = data::Rgb{170, 190, 220};
  const auto water = Draw(PrintLayer::kWater);
  ASSERT_EQ(water.size(), 1U);
  EXPECT_EQ(water[0].colour, options_.water);
  EXPECT_EQ(water[0].rings, (std::vector<Ring>{{{6'000, 0}, {6'000, 3'000}, {0, 3'000}, {0, 0}}}));
  const auto land = Draw(PrintLayer::kLand);
  ASSERT_EQ(land.size(), 1U);
  EXPECT_EQ(land[0].colour, options_.land);
  // Cut at the edge of the view; the other ring is not there.
  EXPECT_EQ(land[0].rings, (std::vector<Ring>{{{1'000, 1'000}, {1'000, 2'000}, {0, 2'000}, {0, 1'000}}}));
}

TEST_F(PrintMap, LandNeedsPolygonsOfTheViewsDetail) {
  const auto check = [this] {
    const map::MapScene scene = world_.Scene();
    CheckPrintScene({scene, options_});
  };
  world_.coast["land"] = {At(90, 50), At(110, 50), At(110, 60)};
  options_.water = data::Rgb{1, 2, 3};
  world_.Show(100, 40, 110, 45);
  EXPECT_NO_THROW(check());
  options_.land = data::Rgb{1, 2, 3};
  EXPECT_THROW(check(), base::Error);
  world_.Show(100, 40, 160, 70);
  EXPECT_NO_THROW(check());
}

TEST_F(PrintMap, TheGlobeHasAnOutlineWhereItsEdgeIsNotThatOfTheMap) {
  options_.projection = ProjectionKind::kOrthographic;
  EXPECT_EQ(DrawnLines(PrintLayer::kLines).size(), 1U);
  options_.projection = ProjectionKind::kMercator;
  EXPECT_EQ(DrawnLines(PrintLayer::kLines).size(), 0U);
}

TEST_F(PrintMap, LegsAreWhereTheWindowHasThem) {
  world_.flit = {Flight("1", "RED", {"AAA", "BBB", "CCC"}), Flight("2", "RED", {"OUT", "AAA"})};
  EXPECT_EQ(DrawnLines(PrintLayer::kFlights), (Parts{{{1'000, 1'000}, {2'000, 1'000}},
                                                     {{2'000, 1'000}, {3'000, 1'000}},
                                                     {{0, 1'000}, {1'000, 1'000}}}));
}

TEST_F(PrintMap, TheWholeMapHasWhatTheWindowDraws) {
  world_.options.allAirports = world_.options.destinations = true;
  world_.options.flightAirports = world_.options.flightNumbers = world_.options.aircraftSymbols = true;
  world_.options.legNumbers = true;
  world_.allaprt = {Airport("XXX", 140, 60)};
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"}), Flight("2", "RED", {"CCC", "AAA"})};
  PrintRecorder recorder;
  const map::MapScene scene = world_.Scene();
  DrawPrintMap({scene, options_}, recorder);
  for (const map::Operation& wanted : world_.Draw()) {
    const bool found = std::any_of(
        recorder.Operations().begin(), recorder.Operations().end(), [&](const PrintOperation& operation) {
          if (wanted.kind == map::Operation::Kind::kLine)
            return operation.points == std::vector{wanted.from, wanted.to} &&
                   operation.stroke.width == wanted.pen.width && operation.colour == wanted.pen.colour;
          return wanted.kind == map::Operation::Kind::kClear ||
                 (operation.points == std::vector{wanted.from} && operation.text == wanted.text &&
                  operation.radius == wanted.radius && operation.style.font == wanted.font &&
                  operation.colour == wanted.pen.colour);
        });
    EXPECT_TRUE(found) << testing::PrintToString(wanted);
  }
}

TEST_F(PrintMap, GreatCirclesAreCurvesBetweenTheAirports) {
  // The view is 90 to 60 north; both airports are at 60 north, 40 degrees apart.
  world_.Show(100, 0, 160, 30);
  world_.dest = {Airport("AAA", 110, 30), Airport("BBB", 150, 30)};
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"}), Flight("2", "RED", {"BBB", "AAA"})};
  EXPECT_EQ(DrawnLines(PrintLayer::kFlights)[0], (Part{{1'000, 3'000}, {5'000, 3'000}}));
  options_.greatCircles = true;
  const Parts lines = DrawnLines(PrintLayer::kFlights);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].front(), (TwipPoint{1'000, 3'000}));
  EXPECT_EQ(lines[0].back(), (TwipPoint{5'000, 3'000}));
  EXPECT_GT(lines[0].size(), 10U);
  const TwipPoint top =
      *std::min_element(lines[0].begin(), lines[0].end(), [](TwipPoint a, TwipPoint b) { return a.y < b.y; });
  // On the sphere, the middle is at atan(tan 60 / cos 20) = 61.52 north.
  EXPECT_NEAR(top.x, 3'000, 100);
  EXPECT_NEAR(top.y, 2'848, 3);
}

TEST_F(PrintMap, AGreatCircleIsCutAtTheSeamAndAtTheView) {
  // From 165 east to 165 west in a view from 175 west to 175 east, 80 to 20 north.
  world_.Show(5, 10, 355, 70);
  world_.dest = {Airport("EEE", 345, 40), Airport("WWW", 15, 40)};
  world_.flit = {Flight("1", "RED", {"EEE", "WWW"})};
  options_.greatCircles = true;
  const Parts lines = DrawnLines(PrintLayer::kFlights);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].front(), (TwipPoint{34'000, 3'000}));
  EXPECT_EQ(lines[0].back().x, 35'000);
  EXPECT_EQ(lines[1].front().x, 0);
  EXPECT_EQ(lines[1].front().y, lines[0].back().y);
  EXPECT_LT(lines[0].back().y, 2'990);
  EXPECT_EQ(lines[1].back(), (TwipPoint{1'000, 3'000}));
}

TEST_F(PrintMap, AGreatCircleOverThePoleRunsUpAndDownTheMeridians) {
  world_.Show(5, 0, 355, 60);
  world_.dest = {Airport("AAA", 60, 40), Airport("BBB", 240, 40)};
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"})};
  options_.greatCircles = true;
  const Parts lines = DrawnLines(PrintLayer::kFlights);
  ASSERT_EQ(lines.size(), 2U);
  for (const TwipPoint point : lines[0])
    EXPECT_NEAR(point.x, 5'500, 1);
  EXPECT_EQ(lines[0].back().y, 0);
  for (const TwipPoint point : lines[1])
    EXPECT_NEAR(point.x, 23'500, 1);
  EXPECT_EQ(lines[1].front().y, 0);
}

TEST_F(PrintMap, AircraftAndNumbersSitOnTheGreatCircle) {
  world_.Show(100, 0, 160, 30);
  world_.dest = {Airport("AAA", 110, 30), Airport("BBB", 150, 30)};
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"})};
  world_.options.aircraftSymbols = true;
  options_.greatCircles = true;
  const Parts lines = DrawnLines(PrintLayer::kFlights);
  ASSERT_EQ(lines.size(), 4U);  // the curve and the three lines of the aircraft
  const TwipPoint tail = lines[1].front();
  double nearest = 1e9;
  for (std::size_t i = 1; i < lines[0].size(); ++i) {
    const TwipPoint from = lines[0][i - 1];
    const TwipPoint to = lines[0][i];
    if (from.x <= tail.x && tail.x <= to.x)
      nearest = std::abs(from.y + static_cast<double>(tail.x - from.x) / (to.x - from.x) * (to.y - from.y) -
                         tail.y);
  }
  EXPECT_LT(nearest, 2);
  EXPECT_LT(tail.y, 2'900);
}

TEST_F(PrintMap, AnAirportOfSeveralFlightsIsDrawnOnce) {
  world_.options.flightAirports = true;
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"}), Flight("2", "RED", {"BBB", "AAA"})};
  std::vector<std::string> texts;
  for (const PrintOperation& operation : Draw(PrintLayer::kLabels))
    texts.push_back(operation.text);
  EXPECT_EQ(texts, (std::vector<std::string>{"AAA", "BBB"}));
}

TEST_F(PrintMap, AFlightWithAnUnknownAirportIsLeftOut) {
  world_.flit = {Flight("1", "RED", {"AAA", "QQQ"}), Flight("2", "RED", {"AAA", "BBB"})};
  EXPECT_EQ(DrawnLines(PrintLayer::kFlights).size(), 1U);
}

}  // namespace
}  // namespace zerbal::print
