// Flights that are compared with an older schedule.
#include "map/flight_comparison.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "map/map_world.h"

namespace zerbal::map {
namespace {

constexpr data::Rgb kBlue{0, 0, 200};

data::Flight Compared(std::string key, std::vector<std::string> route) {
  data::Flight flight{key, "BLUE", key, std::move(route)};
  return flight;
}

Operation Dash(std::int32_t fromX, std::int32_t toX) {
  return LineOp(Layer::kFlights, {fromX, 1'000}, {toX, 1'000}, kDroppedColour);
}

Operation UnbrokenLine(TwipPoint from, TwipPoint to, int width = 1) {
  return LineOp(Layer::kFlights, from, to, kBlue, width);
}

/// A position is at 100 (lon - 100), 100 (lat - 40). CCC is a destination of the old schedule only.
class ComparedFlights : public testing::Test {
 protected:
  ComparedFlights() {
    world_.dest = {Airport("AAA", 110, 50), Airport("BBB", 120, 60)};
    world_.AddService("BLUE", kBlue);
    world_.flit = {Flight("1", "BLUE", {"AAA", "BBB"}), Flight("2", "BLUE", {"BBB", "AAA"})};
    old_.dest = {Airport("AAA", 110, 50), Airport("CCC", 113, 50), Airport("OUT", 90, 50)};
    comparison_.emplace(FlightComparison{{}, old_.Databases().destinations, {}});
  }

  std::vector<Operation> Draw() {
    MapScene scene = world_.Scene();
    scene.comparison = &*comparison_;
    Recorder recorder;
    DrawMap(scene, recorder);
    std::vector<Operation> operations = recorder.Operations();
    std::erase_if(operations, [](const Operation& one) { return one.layer != Layer::kFlights; });
    return operations;
  }

  MapWorld world_, old_;
  std::optional<FlightComparison> comparison_;
};

TEST_F(ComparedFlights, AreDrawnAsUsualWhenNothingChanged) {
  EXPECT_EQ(Draw(), (std::vector{UnbrokenLine({1'000, 1'000}, {2'000, 2'000}),
                                 UnbrokenLine({2'000, 2'000}, {1'000, 1'000})}));
}

TEST_F(ComparedFlights, AreWideWhenTheyAreNew) {
  comparison_->added = {Compared("2", {"BBB", "AAA"}), Compared("1", {"AAA", "CCC"})};
  EXPECT_EQ(Draw(), (std::vector{UnbrokenLine({1'000, 1'000}, {2'000, 2'000}),
                                 UnbrokenLine({2'000, 2'000}, {1'000, 1'000}, 3)}));
  world_.flights.serviceMode = false;
  world_.flights.selectedFlights = {"2"};
  EXPECT_EQ(Draw(), (std::vector{UnbrokenLine({2'000, 2'000}, {1'000, 1'000}, 3)}));
}

TEST_F(ComparedFlights, AreDashedBelowTheOthersWhenTheyWereDropped) {
  comparison_->dropped = {Compared("8", {"AAA", "CCC"}), Compared("9", {"AAA", "CCC", "AAA"}),
                          Compared("7", {"AAA", "BBB"})};
  EXPECT_EQ(Draw(),
            (std::vector{Dash(1'000, 1'120), Dash(1'180, 1'300), Dash(1'000, 1'120), Dash(1'180, 1'300),
                         Dash(1'000, 1'120), Dash(1'180, 1'300), UnbrokenLine({1'000, 1'000}, {2'000, 2'000}),
                         UnbrokenLine({2'000, 2'000}, {1'000, 1'000})}))
      << "the old schedule has no BBB";
}

TEST_F(ComparedFlights, AreCutAtTheEdgeOfTheView) {
  world_.flit.clear();
  world_.Show(112, 40, 160, 70);
  comparison_->dropped = {Compared("8", {"AAA", "CCC"}), Compared("9", {"AAA", "OUT"})};
  EXPECT_EQ(Draw(), std::vector{Dash(0, 100)});
}

TEST_F(ComparedFlights, HaveGreyLabelsAirportsAndSymbolsWhenTheyWereDropped) {
  world_.flit.clear();
  world_.options.flightAirports = world_.options.flightNumbers = world_.options.aircraftSymbols = true;
  comparison_->dropped = {Compared("8", {"AAA", "CCC"})};
  const std::vector<Operation> operations = Draw();
  EXPECT_EQ(Texts(operations), (Strings{"8", "AAA", "CCC"}));
  for (const Operation& one : operations)
    EXPECT_EQ(one.pen.colour, kDroppedColour);
}

}  // namespace
}  // namespace zerbal::map
