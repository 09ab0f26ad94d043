#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "jet/database.h"
#include "map/layers.h"
#include "map/map_world.h"
#include "support/test_random.h"

namespace zerbal::map {
namespace {

constexpr data::Rgb kAll = ColourOf(data::ColourCode::kApAll);

std::string Label(const char* name, const char* city, bool detail = true) {
  std::string label;
  AppendAirportLabel(label, {"QHN", name, city}, detail);
  return label;
}

TEST(AirportLabel, IsTheCodeInOverviewMode) {
  EXPECT_EQ(Label("Harbour Field North", "Elsewhere", false), "QHN");
}

TEST(AirportLabel, HasTheCityUnlessTheNameContainsIt) {
  EXPECT_EQ(Label("Harbour Field North", "Harbour"), "QHN - Harbour Field North");
  EXPECT_EQ(Label("Harbour Field North", "North"), "QHN - Harbour Field North");
  EXPECT_EQ(Label("Harbour Field North", "harbour"), "QHN - Harbour Field North (harbour)");
  EXPECT_EQ(Label("Harbour Field North", ""), "QHN - Harbour Field North");
  EXPECT_EQ(Label("", "Harbour"), "QHN -  (Harbour)");
  EXPECT_EQ(Label("Z\xC3\xBCrich", "Z\xC3\xBC"), "QHN - Z\xC3\xBCrich");
}

/// The view is 100..160 by 40..70, so that a position is at 100 (lon - 100), 100 (lat - 40).
class AirportLayer : public testing::Test {
 protected:
  AirportLayer() { world_.options.allAirports = true; }

  /// The codes of the drawn airports, in order.
  Strings Shown(Layer layer = Layer::kAirports) { return Texts(world_.Draw(layer)); }

  data::NumericCriterion& Limit(data::Criterion which) {
    data::NumericCriterion& criterion = world_.allAirportCriteria.numeric[static_cast<std::size_t>(which)];
    criterion.active = true;
    return criterion;
  }

  MapWorld world_;
};

TEST_F(AirportLayer, DrawsMarkerAndLabelInOverviewMode) {
  world_.allaprt = {Airport("QHN", 110, 45)};
  const std::vector<Operation> expected{CircleOp(Layer::kAirports, {1'000, 500}, 20, kAll, true),
                                        TextOp(Layer::kAirports, {1'050, 550}, "QHN", kAll, {"Small", 7})};
  EXPECT_EQ(world_.Draw(Layer::kAirports), expected);
}

TEST_F(AirportLayer, DrawsMarkerAndLabelInDetailMode) {
  world_.Show(100, 40, 120, 50);
  world_.allaprt = {Airport("QHN", 110, 45)};
  const std::vector<Operation> expected{
      CircleOp(Layer::kAirports, {1'000, 500}, 30, kAll, true),
      TextOp(Layer::kAirports, {1'050, 550}, "QHN - Field (Town)", kAll, {"Large", 10})};
  EXPECT_EQ(world_.Draw(Layer::kAirports), expected);
}

TEST_F(AirportLayer, EachLayerHasItsSwitchTableAndColour) {
  world_.allaprt = {Airport("AAA", 110, 45)};
  world_.dest = {Airport("BBB", 111, 45)};
  EXPECT_EQ(Shown(Layer::kAirports), Strings{"AAA"});
  EXPECT_EQ(Shown(Layer::kDestinations), Strings{});
  world_.options = {.destinations = true};
  EXPECT_EQ(Shown(Layer::kAirports), Strings{});
  const std::vector<Operation> expected{
      CircleOp(Layer::kDestinations, {1'100, 500}, 20, kDest, true),
      TextOp(Layer::kDestinations, {1'150, 550}, "BBB", kDest, {"Small", 7})};
  EXPECT_EQ(world_.Draw(Layer::kDestinations), expected);
}

TEST_F(AirportLayer, DestinationsAreDrawnOverOtherAirports) {
  world_.allaprt = world_.dest = {Airport("AAA", 110, 45)};
  world_.options.destinations = true;
  const auto operations = world_.Draw();
  ASSERT_EQ(operations.size(), 5U);
  EXPECT_EQ(operations.back().pen.colour, kDest);
  EXPECT_EQ(operations.back().from, operations[2].from);
}

TEST_F(AirportLayer, EachLayerHasItsOwnCriteria) {
  world_.allaprt = world_.dest = {Airport("AAA", 110, 45)};
  world_.options.destinations = true;
  world_.destinationCriteria.ilsActive = true;
  EXPECT_EQ(Shown(Layer::kAirports), Strings{"AAA"});
  EXPECT_EQ(Shown(Layer::kDestinations), Strings{});
  std::swap(world_.destinationCriteria, world_.allAirportCriteria);
  EXPECT_EQ(Shown(Layer::kAirports), Strings{});
  EXPECT_EQ(Shown(Layer::kDestinations), Strings{"AAA"});
}

TEST_F(AirportLayer, AirportsAreDrawnInTheOrderOfTheirCodes) {
  world_.allaprt = {Airport("CCC", 110, 45), Airport("AAA", 111, 45), Airport("BBB", 112, 45)};
  EXPECT_EQ(Shown(), (Strings{"AAA", "BBB", "CCC"}));
  EXPECT_EQ(Shown(), (Strings{"AAA", "BBB", "CCC"}));  // each redraw begins at the first row
}

TEST_F(AirportLayer, OnlyAirportsInViewAreDrawnEdgesIncluded) {
  world_.allaprt = {Airport("AAA", 100, 40), Airport("BBB", 160, 70), Airport("CCC", 99.99F, 45),
                    Airport("DDD", 160.01F, 45), Airport("EEE", 130, 70.01F)};
  // Markers and labels of the first two cross the edge and are drawn completely.
  EXPECT_EQ(Short(world_.Draw(Layer::kAirports)),
            (Strings{"o 0,0", "AAA@50,50", "o 6000,3000", "BBB@6050,3050"}));
}

struct Bounds {
  float west, top, east, bottom;
};

Bounds RandomBounds(test::TestRandom& random) {
  const auto uniform = [&](float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(random);
  };
  const float size = uniform(0.5F, 60);
  const float top = uniform(0, 180 - size);
  const float west = uniform(0, 360);
  return {west, top, std::fmod(west + uniform(1, 340), 360.0F), top + size};
}

/// Positions on the bounds of a view and next to them.
void AppendPositionsAround(const Viewport& view, std::vector<MapPosition>& positions) {
  const auto append = [](float bound, const auto& at) {
    for (const float value : {bound, std::nextafter(bound, 1000.0F), std::nextafter(bound, -1000.0F)})
      at(value);
  };
  const MapPosition centre{view.MapLonMin() + view.MapLonSpan() / 2,
                           view.MapLatMin() + view.MapLatSpan() / 2};
  for (const float bound : {view.MapLonMin(), view.MapLonMax(), view.MapLonMax() - 360})
    append(bound, [&](float lon) { positions.push_back({lon, centre.lat}); });
  for (const float bound : {view.MapLatMin(), view.MapLatMax()})
    append(bound, [&](float lat) { positions.push_back({centre.lon, lat}); });
}

TEST_F(AirportLayer, EveryViewShowsTheAirportsThatItsProjectionShows) {
  test::TestRandom random(20261122);
  std::vector<Bounds> views;
  std::vector<MapPosition> positions;
  const auto show = [this](const Bounds& bounds) {
    world_.Show(bounds.west, bounds.top, bounds.east, bounds.bottom);
  };
  for (int i = 0; i < 60; ++i) {
    views.push_back(RandomBounds(random));
    show(views.back());
    AppendPositionsAround(world_.viewport, positions);
  }
  for (std::size_t i = 0; i < positions.size(); ++i)
    world_.allaprt.push_back(Airport(std::to_string(10'000 + i), positions[i].lon, positions[i].lat));
  std::size_t shown = 0;
  for (const Bounds& bounds : views) {
    show(bounds);
    std::vector<TwipPoint> expected, centres;
    for (const MapPosition& position : positions)
      if (const auto centre = world_.viewport.ProjectPoint(position))
        expected.push_back(*centre);
    for (const Operation& operation : world_.Draw(Layer::kAirports))
      if (operation.kind == Operation::Kind::kCircle)
        centres.push_back(operation.from);
    ASSERT_TRUE(centres == expected) << bounds.west << ' ' << bounds.east;
    shown += centres.size();
  }
  EXPECT_GT(shown, 3'000U);
}

TEST_F(AirportLayer, AViewOfNearly360DegreesShowsAllLongitudes) {
  world_.allaprt = {Airport("AAA", 5, 45), Airport("BBB", 15, 45), Airport("CCC", 200, 45)};
  world_.Show(10, 40, 9.9995F, 70);
  world_.viewport.SetSize(3'000, 18'000);  // does not narrow the longitudes
  world_.viewport.ComputeViewport();
  EXPECT_EQ(Shown(), (Strings{"AAA", "BBB", "CCC"}));
}

TEST_F(AirportLayer, ADrawingShowsWhatTheFileHoldsThen) {
  world_.allaprt = {Airport("AAA", 111.5F, 45), Airport("BBB", 112.5F, 45)};
  EXPECT_EQ(Shown(), (Strings{"AAA", "BBB"}));
  world_.ChangeStored({{111.5F, 20.5F}});
  EXPECT_EQ(Shown(), Strings{"BBB"});
  world_.ChangeStored({{20.5F, 111.5F}, {112.5F, 20.5F}});
  EXPECT_EQ(Shown(), Strings{"AAA"});
}

TEST_F(AirportLayer, AViewThatWrapsShowsBothSidesOf360) {
  world_.Show(340, 60, 20, 100);
  world_.allaprt = {Airport("AAA", 350, 80), Airport("BBB", 10, 80), Airport("CCC", 0, 80),
                    Airport("DDD", 360, 80), Airport("EEE", 30, 80)};
  EXPECT_EQ(Short(world_.Draw(Layer::kAirports)),
            (Strings{"o 1000,2000", "AAA@1050,2050", "o 3000,2000", "BBB@3050,2050", "o 2000,2000",
                     "CCC@2050,2050", "o 2000,2000", "DDD@2050,2050"}));
}

TEST_F(AirportLayer, ThePenUpMarkerIsNotAPosition) {
  world_.allaprt = {Airport("AAA", 110, 45), Airport("BBB", -1, 45)};
  EXPECT_EQ(Shown(), Strings{"AAA"});
}

TEST_F(AirportLayer, LimitsAreInclusive) {
  for (const char* code : {"LOW", "MID", "TOP"}) {
    world_.allaprt.push_back(Airport(code, 110, 45));
    world_.allaprt.back().elevation = code[0] == 'L' ? 999 : code[0] == 'M' ? 1'000 : 1'001;
  }
  Limit(data::Criterion::kElevation) = {.active = true, .limit = data::Limit::kAtLeast, .atLeast = 1'000};
  EXPECT_EQ(Shown(), (Strings{"MID", "TOP"}));
  Limit(data::Criterion::kElevation) = {.active = true, .limit = data::Limit::kAtMost, .atMost = 1'000};
  EXPECT_EQ(Shown(), (Strings{"LOW", "MID"}));
  Limit(data::Criterion::kElevation) = {.active = true, .from = 1'000, .to = 1'001};
  EXPECT_EQ(Shown(), (Strings{"MID", "TOP"}));
  Limit(data::Criterion::kElevation) = {.active = true, .from = 1'001, .to = 1'000};
  EXPECT_EQ(Shown(), Strings{});
}

TEST_F(AirportLayer, EachCriterionReadsItsOwnField) {
  AirportRow row = Airport("AAA", 110, 45);
  row.elevation = 1;
  row.runways = 2;
  row.longestRunway = 3;
  row.ils = "1";
  world_.allaprt = {row};
  const auto only = [](std::int32_t value) {
    return data::NumericCriterion{.active = true, .from = value, .to = value};
  };
  for (const data::Criterion which :
       {data::Criterion::kElevation, data::Criterion::kRunways, data::Criterion::kLongestRunway}) {
    world_.allAirportCriteria = {};
    const int right = static_cast<int>(which) + 1;
    for (int value = 0; value <= 4; ++value) {
      Limit(which) = only(value);
      EXPECT_EQ(Shown().size(), value == right ? 1U : 0U) << right << " " << value;
    }
  }
  world_.allAirportCriteria = {};
  world_.allAirportCriteria.ilsActive = true;
  EXPECT_EQ(Shown().size(), 1U);
  world_.allAirportCriteria.withIls = false;
  EXPECT_EQ(Shown().size(), 0U);
}

TEST_F(AirportLayer, AnEmptyIlsPassesNeitherOption) {
  world_.allaprt = {Airport("AAA", 110, 45), Airport("BBB", 110, 45), Airport("CCC", 110, 45)};
  world_.allaprt[0].ils = "";
  world_.allaprt[1].ils = test::Null();
  world_.allaprt[2].ils = "2";
  EXPECT_EQ(Shown().size(), 3U);
  world_.allAirportCriteria.ilsActive = true;
  EXPECT_EQ(Shown().size(), 0U);
  world_.allAirportCriteria.withIls = false;
  EXPECT_EQ(Shown().size(), 0U);
}

TEST_F(AirportLayer, AMissingNumberCountsAsZero) {
  world_.allaprt = {Airport("AAA", 110, 45), Airport("BBB", 111, 45), Airport("CCC", 112, 45)};
  world_.allaprt[0].elevation = 900;
  world_.allaprt[1].elevation = test::Null();
  world_.allaprt[2].elevation = 900;
  EXPECT_EQ(Shown(), (Strings{"AAA", "BBB", "CCC"}));
  Limit(data::Criterion::kElevation) = {.active = true, .limit = data::Limit::kAtLeast, .atLeast = 500};
  EXPECT_EQ(Shown(), (Strings{"AAA", "CCC"}));
  Limit(data::Criterion::kElevation) = {.active = true, .limit = data::Limit::kAtMost, .atMost = 500};
  EXPECT_EQ(Shown(), Strings{"BBB"});
}

TEST_F(AirportLayer, ANumberThatDoesNotConvertCountsAsZero) {
  world_.airportColumns = {test::Text("AP_RwyNr"), test::Double("AP_Elev")};
  world_.allaprt = {Airport("AAA", 110, 45), Airport("BBB", 111, 45), Airport("CCC", 112, 45)};
  for (AirportRow& row : world_.allaprt)
    row.elevation = 1e300;
  world_.allaprt[0].runways = "several";
  world_.allaprt[1].runways = "4";
  world_.allaprt[2].runways = "";
  Limit(data::Criterion::kRunways) = {.active = true, .limit = data::Limit::kAtLeast, .atLeast = 1};
  EXPECT_EQ(Shown(), Strings{"BBB"});
  Limit(data::Criterion::kElevation) = {.active = true, .from = 0, .to = 0};
  EXPECT_EQ(Shown(), Strings{"BBB"});
}

TEST_F(AirportLayer, AnAirportWithoutAPositionIsSkipped) {
  world_.airportColumns = {test::Text("AP_Lat")};
  world_.allaprt = {Airport("AAA", 110, 0), Airport("BBB", 111, 0), Airport("CCC", 112, 0),
                    Airport("DDD", 113, 0)};
  world_.allaprt[0].lat = "45";
  world_.allaprt[1].lat = "far south";
  world_.allaprt[2].lat = "45";
  world_.allaprt[2].lon = test::Null();
  world_.allaprt[3].lat = "46";
  EXPECT_EQ(Shown(), (Strings{"AAA", "DDD"}));
}

TEST_F(AirportLayer, UnusualPositionsAreNotInView) {
  constexpr float kInf = std::numeric_limits<float>::infinity();
  world_.storedSingles = {
      {1111.5F, std::numeric_limits<float>::quiet_NaN()}, {2222.5F, kInf}, {3333.5F, -kInf}};
  world_.allaprt = {Airport("AAA", 1111.5F, 45), Airport("BBB", 2222.5F, 45), Airport("CCC", 110, 3333.5F),
                    Airport("DDD", 1e30F, 45), Airport("EEE", 110, 45)};
  EXPECT_EQ(Shown(), Strings{"EEE"});
}

TEST_F(AirportLayer, NullTextsAreEmpty) {
  world_.Show(100, 40, 120, 50);
  world_.allaprt = {Airport("AAA", 110, 45), Airport("BBB", 110, 45), Airport("CCC", 110, 45)};
  world_.allaprt[0].name = test::Null();
  world_.allaprt[1].city = test::Null();
  world_.allaprt[2].code = test::Null();
  const Strings shown = Shown();
  EXPECT_EQ(Strings(shown.end() - 2, shown.end()), (Strings{"AAA -  (Town)", "BBB - Field"}));
}

TEST_F(AirportLayer, EachAirportHasItsOwnTexts) {
  world_.Show(100, 40, 120, 50);
  world_.allaprt = {Airport("AAA", 110, 45), Airport("BBB", 110, 45)};
  world_.allaprt[0].name = "A long name";
  world_.allaprt[1].name = "B";
  world_.allaprt[1].city = "";
  EXPECT_EQ(Shown(), (Strings{"AAA - A long name (Town)", "BBB - B"}));
}

TEST_F(AirportLayer, LongTextsAreShownCompletely) {
  world_.Show(100, 40, 120, 50);
  world_.airportColumns = {test::Memo("AP_Name")};
  world_.allaprt = {Airport("AAA", 110, 45)};
  world_.allaprt[0].name = std::string(65'536, 'x');
  world_.allaprt[0].city = "y";
  EXPECT_EQ(Shown(), Strings{"AAA - " + std::string(65'536, 'x') + " (y)"});
}

TEST_F(AirportLayer, AnEmptyTableDrawsNothing) {
  EXPECT_EQ(Shown(), Strings{});
}

TEST_F(AirportLayer, AMissingFilterColumnIsZeroAndAMissingPositionColumnDrawsNothing) {
  test::TempFolder folder;
  const auto table = [](const char* last) {
    return test::Table{"allaprt",
                       {test::Text("AP", 4), test::Text("AP_Name"), test::Text("AP_City"),
                        test::Single("AP_Lon"), test::Single(last)},
                       {test::Index("aprt", "AP")},
                       {{"AAA", "Field", "Town", 110.0F, 45.0F}}};
  };
  test::WriteDatabase(folder / "whole.mdb", {table("AP_Lat")});
  test::WriteDatabase(folder / "broken.mdb", {table("AP_Latitude")});
  const auto use = [&](const char* file) {
    world_.Databases().allAirports = data::Airports(jet::Database::Open(folder / file), "allaprt");
  };
  use("whole.mdb");
  EXPECT_EQ(Shown(), Strings{"AAA"});
  Limit(data::Criterion::kElevation) = {.active = true, .limit = data::Limit::kAtLeast, .atLeast = 1};
  EXPECT_EQ(Shown(), Strings{});
  Limit(data::Criterion::kElevation) = {.active = true, .limit = data::Limit::kAtLeast, .atLeast = 0};
  EXPECT_EQ(Shown(), Strings{"AAA"});
  use("broken.mdb");
  EXPECT_EQ(Shown(), Strings{});
}

}  // namespace
}  // namespace zerbal::map
