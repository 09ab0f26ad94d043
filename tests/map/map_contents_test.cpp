#include "map/map_contents.h"

#include <gtest/gtest.h>

#include "map/map_world.h"
#include "map/nearby.h"
#include "map/views.h"

namespace zerbal::map {
namespace {

/// The view is 100..160 by 40..70, so that a position is at 100 (lon - 100), 100 (lat - 40).
class MapContentsTest : public testing::Test {
 protected:
  MapContentsTest() {
    world_.dest = {Airport("AAA", 110, 50), Airport("BBB", 120, 50), Airport("NNN", 110, 30),
                   Airport("EEE", 350, 50), Airport("WWW", 10, 50)};
    world_.allaprt = {Airport("AAA", 110, 50), Airport("XXX", 140, 60)};
    world_.AddService("RED", {200, 0, 0});
    world_.services.back().displayText = "1 - Red";
  }

  MapContents Contents(FlightExtent extent = FlightExtent::kView) {
    return ContentsOf(world_.Scene(), extent);
  }
  Strings Codes() {
    Strings codes;
    for (const ContentsAirport& airport : Contents().airports)
      codes.push_back(airport.code);
    return codes;
  }

  MapWorld world_;
};

TEST_F(MapContentsTest, AFlightHasItsLegsWithTheirLines) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB", "AAA"})};
  const MapContents contents = Contents();
  ASSERT_EQ(contents.flights.size(), 1U);
  const ContentsFlight& flight = contents.flights.front();
  EXPECT_EQ(flight.number, "QV1");
  EXPECT_EQ(flight.route, (Strings{"AAA", "BBB", "AAA"}));
  EXPECT_EQ(flight.text, "QV1 (1 - Red)");
  ASSERT_EQ(flight.legs.size(), 2U);
  EXPECT_EQ(flight.legs[0].lines, (std::vector<ContentsLine>{{{1000, 1000}, {2000, 1000}}}));
  EXPECT_EQ(flight.legs[1].lines, (std::vector<ContentsLine>{{{2000, 1000}, {1000, 1000}}}));
  EXPECT_NEAR(flight.metres.value(), 2 * 853'000, 1'000);
  ASSERT_EQ(contents.services.size(), 1U);
  EXPECT_EQ(contents.services.front().name, "1 - Red");
  EXPECT_EQ(contents.services.front().rgb, (data::Rgb{200, 0, 0}));
}

TEST_F(MapContentsTest, TheTextsAreThoseOfTheToolTip) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB"})};
  world_.options.flightAirports = true;
  const MapContents contents = Contents();
  EXPECT_EQ(FindNearby(world_.Scene(), {1000, 1000}),
            (Strings{contents.airports.at(0).text, contents.flights.at(0).legs.at(0).text}));
  EXPECT_EQ(contents.airports[0].label, "AAA - Field (Town)");
  EXPECT_EQ(contents.airports[0].centre, (TwipPoint{1000, 1000}));
}

TEST_F(MapContentsTest, OnlyWhatIsInViewIsListed) {
  world_.flit = {Flight("QV1", "RED", {"NNN", "NNN"}), Flight("QV2", "RED", {"NNN", "AAA", "NNN"}),
                 Flight("QV3", "RED", {"AAA", "missing"})};
  world_.options.flightAirports = true;
  const MapContents contents = Contents();
  ASSERT_EQ(contents.flights.size(), 1U);
  EXPECT_EQ(contents.flights[0].number, "QV2");
  EXPECT_EQ(contents.flights[0].legs[0].lines, (std::vector<ContentsLine>{{{1000, 0}, {1000, 1000}}}));
  EXPECT_EQ(Codes(), Strings{"AAA"});
}

TEST_F(MapContentsTest, AllFlightsCanBeAskedFor) {
  world_.flit = {Flight("QV1", "RED", {"NNN", "NNN"}), Flight("QV2", "RED", {"NNN", "AAA", "NNN"}),
                 Flight("QV3", "RED", {"AAA", "missing"})};
  world_.options.flightAirports = true;
  const MapContents contents = Contents(FlightExtent::kAll);
  ASSERT_EQ(contents.flights.size(), 2U);
  EXPECT_EQ(contents.flights[0].number, "QV1");
  EXPECT_EQ(contents.flights[0].legs.at(0).lines.size(), 0U);
  EXPECT_EQ(contents.airports.size(), 1U) << "none out of view";
}

TEST_F(MapContentsTest, ALegOverTheSeamHasTwoLines) {
  world_.flit = {Flight("QV1", "RED", {"EEE", "WWW"})};
  ShowExactly(world_.viewport, 5, 0, 355, 180);
  EXPECT_EQ(Contents().flights.at(0).legs.at(0).lines,
            (std::vector<ContentsLine>{{{34'500, 5'000}, {35'000, 5'000}}, {{0, 5'000}, {500, 5'000}}}));
  ShowExactly(world_.viewport, 340, 40, 20, 70);
  EXPECT_EQ(Contents().flights.at(0).legs.at(0).lines,
            (std::vector<ContentsLine>{{{1'000, 1'000}, {3'000, 1'000}}}));
}

TEST_F(MapContentsTest, AirportsAreThoseOfTheLayersAndOfFlights) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB"})};
  EXPECT_EQ(Codes(), Strings{});
  world_.options.flightAirports = true;
  EXPECT_EQ(Codes(), (Strings{"AAA", "BBB"}));
  EXPECT_FALSE(Contents().airports[0].ofLayer);
  world_.options.allAirports = true;
  EXPECT_EQ(Codes(), (Strings{"AAA", "BBB", "XXX"}));
  EXPECT_TRUE(Contents().airports[0].ofLayer);
  EXPECT_TRUE(Contents().airports[0].destination);
  EXPECT_FALSE(Contents().airports[2].destination);
}

TEST_F(MapContentsTest, EachFlightIsListedOnce) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB"})};
  world_.AddService("RED", {0, 0, 0});  // drawn twice
  EXPECT_EQ(Contents().flights.size(), 1U);
}

TEST_F(MapContentsTest, AFlightWithoutAServiceIsBlackAndNamesItsKey) {
  world_.flit = {Flight("QV1", "BLUE", {"AAA", "BBB"})};
  world_.flights = {false, {"QV1"}};
  const MapContents contents = Contents();
  ASSERT_EQ(contents.services.size(), 1U);
  EXPECT_EQ(contents.services[0].name, "BLUE");
  EXPECT_EQ(contents.services[0].rgb, data::Rgb{});
}

TEST_F(MapContentsTest, AnEmptyDrawingAreaHasNothing) {
  world_.options.allAirports = true;
  world_.viewport.SetSize(0, 0);
  EXPECT_EQ(Codes(), Strings{});
}

}  // namespace
}  // namespace zerbal::map
