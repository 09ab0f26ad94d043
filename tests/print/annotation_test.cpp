#include "print/annotation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "map/map_world.h"
#include "print/parts.h"
#include "print/print_recorder.h"

namespace zerbal::print {
namespace {

using map::Airport;
using map::At;
using map::Flight;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using Kind = PrintOperation::Kind;

constexpr data::Rgb kServiceRed{200, 0, 0};
constexpr data::Rgb kServiceBlue{0, 0, 200};

/// The view is 80 to 20 west, 50 to 20 north: a map position is at 100 (lon - 100), 100 (lat - 40).
class AnnotatedMap : public testing::Test {
 protected:
  AnnotatedMap() {
    world_.dest = {Airport("AAA", 110, 50), Airport("BBB", 120, 50), Airport("CCC", 130, 50),
                   Airport("DDD", 110, 65)};
    world_.AddService("RED", kServiceRed);
    world_.AddService("BLUE", kServiceBlue);
  }

  std::vector<PrintOperation> Draw(PrintLayer layer) {
    const map::MapScene map = world_.Scene();
    PrintScene scene{map, options_};
    change_(scene.style);
    PrintRecorder recorder;
    DrawPrintMap(scene, recorder);
    return recorder.Operations(layer);
  }

  std::vector<std::string> Texts(PrintLayer layer) {
    std::vector<std::string> texts;
    for (const PrintOperation& operation : Draw(layer))
      if (operation.kind == Kind::kText)
        texts.push_back(operation.text);
    return texts;
  }

  /// One flight from AAA to CCC, two from AAA to DDD, three between AAA and BBB.
  void AddFlights() {
    world_.flit = {Flight("1", "RED", {"AAA", "BBB"}),  Flight("2", "RED", {"BBB", "AAA"}),
                   Flight("3", "BLUE", {"AAA", "BBB"}), Flight("4", "RED", {"AAA", "CCC"}),
                   Flight("5", "RED", {"AAA", "DDD"}),  Flight("6", "BLUE", {"DDD", "AAA"})};
  }

  map::MapWorld world_;
  PrintOptions options_;
  void (*change_)(PrintStyle& style) = [](PrintStyle&) {};
};

TEST_F(AnnotatedMap, LegsAreWiderWhereMoreFlightsAre) {
  AddFlights();
  options_.widthByFlights = true;
  change_ = [](PrintStyle& style) { style.flightWidths = {2, 4, 6, 8}; };
  const auto drawn = Draw(PrintLayer::kFlights);
  // Three legs: the percentiles 50, 75 and 90 are the second and twice the third.
  ASSERT_EQ(drawn.size(), 3U);
  EXPECT_EQ(drawn[0].points, (Part{{1'000, 1'000}, {3'000, 1'000}}));
  EXPECT_EQ(drawn[0].stroke, (StrokeStyle{.colour = kServiceRed, .width = 2}));
  EXPECT_EQ(drawn[1].points.back(), (TwipPoint{1'000, 2'500}));
  EXPECT_EQ(drawn[1].stroke, (StrokeStyle{.colour = kServiceRed, .width = 2}));
  EXPECT_EQ(drawn[2].points, (Part{{1'000, 1'000}, {2'000, 1'000}}));
  EXPECT_EQ(drawn[2].stroke, (StrokeStyle{.colour = kServiceRed, .width = 4}));
}

TEST_F(AnnotatedMap, LegsHaveTheColourOfTheirFrequency) {
  AddFlights();
  options_.colourBy = ColourLegsBy::kFrequency;
  change_ = [](PrintStyle& style) {
    style.frequency = {data::Rgb{1, 1, 1}, {2, 2, 2}, {3, 3, 3}, {4, 4, 4}};
  };
  std::vector<int> colours;
  for (const PrintOperation& operation : Draw(PrintLayer::kFlights)) {
    colours.push_back(operation.colour.red);
    EXPECT_EQ(operation.kind, Kind::kPolyline);
  }
  EXPECT_THAT(colours, ElementsAre(1, 1, 2));
}

TEST_F(AnnotatedMap, LegsOfServicesAreDrawnOnce) {
  AddFlights();
  EXPECT_EQ(Draw(PrintLayer::kFlights).size(), 6U);
  options_.colourBy = ColourLegsBy::kService;
  EXPECT_EQ(Draw(PrintLayer::kFlights).size(), 3U);
}

TEST_F(AnnotatedMap, PlacedLabelsShareLegs) {
  AddFlights();
  world_.options.flightAirports = world_.options.flightNumbers = true;
  options_.labelsPlaced = true;
  EXPECT_THAT(Texts(PrintLayer::kLabels), ElementsAre("AAA", "BBB", "CCC", "DDD", "1 +2", "4", "5/6"));
  for (const PrintOperation& operation : Draw(PrintLayer::kLabels))
    EXPECT_EQ(operation.style.halo, map::ColourOf(data::ColourCode::kMapBg));
}

TEST_F(AnnotatedMap, PlacedLabelsObeyTheOptionsOfTheMap) {
  AddFlights();
  options_.labelsPlaced = true;
  world_.options.flightAirports = false;
  world_.options.flightNumbers = false;
  EXPECT_THAT(Texts(PrintLayer::kLabels), IsEmpty());
}

TEST_F(AnnotatedMap, PlacedLabelsLeaveTheFurnitureFree) {
  world_.options.flightAirports = true;
  world_.options.flightNumbers = false;
  world_.dest = {Airport("AAA", 101, 41), Airport("BBB", 130, 55)};
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"})};
  options_.labelsPlaced = true;
  EXPECT_THAT(Texts(PrintLayer::kLabels), ElementsAre("AAA", "BBB"));
  options_.legend = {true, Corner::kTopLeft};
  EXPECT_THAT(Texts(PrintLayer::kLabels), ElementsAre("BBB"));
}

TEST_F(AnnotatedMap, LegendListsTheServicesThatAreDrawn) {
  AddFlights();
  world_.services[0].displayText = "1 - Red flights";
  world_.services[1].displayText = "2 - Blue flights";
  options_.legend.shown = true;
  EXPECT_THAT(Texts(PrintLayer::kFurniture), ElementsAre("Red flights", "Blue flights"));
  options_.widthByFlights = true;
  EXPECT_THAT(Texts(PrintLayer::kFurniture),
              ElementsAre("Flight services", "Red flights", "Flights on a leg", "1–2", "3"))
      << "blue flights share their legs with as many or more red ones";
  options_.colourBy = ColourLegsBy::kFrequency;
  EXPECT_THAT(Texts(PrintLayer::kFurniture), ElementsAre("Flights on a leg", "1–2", "3"));
}

TEST_F(AnnotatedMap, WithoutFlightsThereIsNoLegend) {
  options_.legend.shown = true;
  EXPECT_THAT(Draw(PrintLayer::kFurniture), IsEmpty());
}

TEST_F(AnnotatedMap, FurnitureStandsAtTheTop) {
  options_.title = "T";
  EXPECT_EQ(Draw(PrintLayer::kFurniture).at(0).rings[0][0], (TwipPoint{120, 120}));
}

TEST_F(AnnotatedMap, FurnitureMakesWayForAirportsAndLegs) {
  options_.title = "T";
  world_.dest = {Airport("AAA", 102, 42), Airport("BBB", 159, 42)};
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"})};
  EXPECT_EQ(Draw(PrintLayer::kFurniture).at(0).rings[0][3], (TwipPoint{120, 2'880}));
}

TEST_F(AnnotatedMap, ScaleAndNorthAreDrawn) {
  options_.scaleBar = {true, Corner::kBottomLeft};
  options_.north = {true, Corner::kBottomLeft};
  const auto texts = Texts(PrintLayer::kFurniture);
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0], "1000\u00A0km at 35°N");
  EXPECT_EQ(texts[1], "N");
}

TEST_F(AnnotatedMap, GraticuleIsDrawnAndNamed) {
  options_.graticule = 20;
  change_ = [](PrintStyle& style) {
    style.graticule = kServiceBlue;
    style.graticuleWidth = 0.5;
  };
  const auto drawn = Draw(PrintLayer::kGraticule);
  ASSERT_EQ(drawn.size(), 6U);
  EXPECT_EQ(drawn[0].stroke, (StrokeStyle{.colour = kServiceBlue, .width = 0.5}));
  EXPECT_THAT(Texts(PrintLayer::kLabels), ElementsAre("60°W", "40°W", "40°N"))
      << "labels on the edge of the picture have no room";
}

TEST_F(AnnotatedMap, StyleHasTheWidthsOfLinesAndMarkers) {
  world_.coast["wcl"] = {At(110, 50), At(120, 60), map::kPenUp};
  world_.options.destinations = true;
  change_ = [](PrintStyle& style) {
    style.coastWidth = 0.5;
    style.coast = kServiceBlue;
    style.flightWidth = 3;
    style.airportWidth = 8;
  };
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"})};
  EXPECT_EQ(Draw(PrintLayer::kLines).at(0).stroke, (StrokeStyle{.colour = kServiceBlue, .width = 0.5}));
  EXPECT_EQ(Draw(PrintLayer::kFlights).at(0).stroke, (StrokeStyle{.colour = kServiceRed, .width = 3}));
  EXPECT_EQ(Draw(PrintLayer::kAirports).at(0).radius, 60);
}

TEST_F(AnnotatedMap, StyleFillsTheLandThatTheBaseMapHas) {
  change_ = [](PrintStyle& style) {
    style.land = kServiceRed;
    style.water = kServiceBlue;
  };
  world_.coast["land"] = {At(110, 50), At(120, 50), At(120, 60)};
  const auto land = Draw(PrintLayer::kLand);
  ASSERT_EQ(land.size(), 1U);
  EXPECT_EQ(land[0].colour, kServiceRed);
  EXPECT_EQ(Draw(PrintLayer::kWater).at(0).colour, kServiceBlue);
  options_.land = data::Rgb{9, 9, 9};
  EXPECT_EQ(Draw(PrintLayer::kLand).at(0).colour, options_.land) << "the option comes first";
}

TEST_F(AnnotatedMap, StyleFillsNothingWithoutPolygons) {
  change_ = [](PrintStyle& style) { style.land = kServiceRed; };
  EXPECT_THAT(Draw(PrintLayer::kLand), IsEmpty());
}

}  // namespace
}  // namespace zerbal::print
