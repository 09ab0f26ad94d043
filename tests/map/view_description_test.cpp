#include "map/view_description.h"

#include <gtest/gtest.h>

#include "map/map_world.h"
#include "map/views.h"

namespace zerbal::map {
namespace {

/// A region, three airports and two flights.
class World : public MapWorld {
 public:
  World() {
    allaprt = {Airport("AAA", 100, 60), Airport("BBB", 200, 80), Airport("CCC", 102, 61)};
    dest = {allaprt[0], allaprt[1]};
    flit = {Flight("QV1", "EUR", {"AAA", "BBB"}), Flight("QV2", "EUR", {"BBB", "AAA", "BBB"}),
            Flight("QV3", "EUR", {"AAA", "ZZZ"})};
    AddService("EUR", {200, 0, 0});
    services.back().displayFlag = false;
    style.regions.rows = {{"", "", 5, 0, 355, 180}, {"W", "West", 90, 50, 110, 70}};
    ShowExactly(viewport, 5, 0, 355, 180);
  }
};

TEST(DescribeView, NamesTheWorldAndCountsNothingThatIsHidden) {
  World world;
  EXPECT_EQ(DescribeView(world.Scene()), "World. Layers: coastlines. In view: 0 airports, 0 flights.");
}

TEST(DescribeView, CountsEachAirportOnce) {
  World world;
  world.options.allAirports = true;
  world.options.destinations = true;
  world.options.flightAirports = true;
  world.services.back().displayFlag = true;
  EXPECT_EQ(
      DescribeView(world.Scene()),
      "World. Layers: coastlines, all airports, destinations, flights. In view: 3 airports, 2 flights.");
}

TEST(DescribeView, NamesARegionAndCountsWhatIsInIt) {
  World world;
  world.options.allAirports = true;
  world.options.rivers = true;
  world.options.boundaries = true;
  world.services.back().displayFlag = true;
  ShowExactly(world.viewport, 90, 50, 110, 70);
  EXPECT_EQ(DescribeView(world.Scene()),
            "Region West. Layers: coastlines, all airports, flights. In view: 2 airports, 2 flights.");
}

TEST(DescribeView, OtherwiseSaysTheBounds) {
  World world;
  world.options.allAirports = true;
  world.options.rivers = true;
  world.options.boundaries = true;
  world.services.back().displayFlag = true;
  ShowExactly(world.viewport, 355, 85, 365, 90);
  EXPECT_EQ(DescribeView(world.Scene()),
            "N05\xC2\xB0 00.00' to N00\xC2\xB0 00.00', E175\xC2\xB0 00.00' to W175\xC2\xB0 00.00'. Layers: "
            "coastlines, rivers, boundaries, all airports, flights. In view: 0 airports, 0 flights.");
}

TEST(DescribeView, CountsSelectedFlights) {
  World world;
  world.flights.serviceMode = false;
  EXPECT_EQ(DescribeView(world.Scene()), "World. Layers: coastlines. In view: 0 airports, 0 flights.");
  world.flights.selectedFlights = {"QV1", "none"};
  world.options.flightAirports = true;
  EXPECT_EQ(DescribeView(world.Scene()),
            "World. Layers: coastlines, flights. In view: 2 airports, 1 flight.");
}

}  // namespace
}  // namespace zerbal::map
