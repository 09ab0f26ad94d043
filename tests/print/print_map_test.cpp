#include "print/print_map.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "map/map_world.h"
#include "print/parts.h"
#include "print/print_recorder.h"

namespace zerbal::print {
namespace {

using map::Airport;
using map::At;
using map::Flight;

constexpr data::Rgb kRed{200, 0, 0};

/// The view is 80 to 20 west, 50 to 20 north: a map position is at 100 (lon - 100), 100 (lat - 40).
class PrintMap : public testing::Test {
 protected:
  PrintMap() {
    world_.dest = {Airport("AAA", 110, 50), Airport("BBB", 120, 50), Airport("CCC", 130, 50),
                   Airport("OUT", 90, 50)};
    world_.AddService("RED", kRed);
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
  world_.coast["wcl"] = {At(90, 50), At(110, 50), At(120, 60), map::kPenUp, At(10, 10), At(20, 20)};
  EXPECT_EQ(DrawnLines(PrintLayer::kLines), (Parts{{{0, 1'000}, {1'000, 1'000}, {2'000, 2'000}}}));
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
