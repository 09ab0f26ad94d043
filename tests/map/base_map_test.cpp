// The steps of a redraw and the layers of lines.
#include <limits>
#include <random>
#include <stdexcept>

#include <gtest/gtest.h>

#include "map/layers.h"
#include "map/map_world.h"
#include "map/views.h"
#include "support/test_random.h"

namespace zerbal::map {
namespace {

using data::ColourCode;

constexpr data::Rgb kBackground = ColourOf(ColourCode::kMapBg);
constexpr data::Rgb kCentre = ColourOf(ColourCode::kCentre);
constexpr data::Rgb kCoast = ColourOf(ColourCode::kCoast);
constexpr data::Rgb kRiver = ColourOf(ColourCode::kRiver);
constexpr data::Rgb kBoundary = ColourOf(ColourCode::kIBound);

TEST(DrawMap, DrawsNothingWithoutAnArea) {
  MapWorld world;
  for (const auto& [width, height] : {std::pair{0.0, 1'000.0}, {1'000.0, 0.0}}) {
    world.viewport.SetSize(width, height);
    EXPECT_TRUE(world.Draw().empty());
  }
}

TEST(DrawMap, FillsTheWholeAreaWithTheBackground) {
  MapWorld world;
  const auto operations = world.Draw();
  ASSERT_EQ(operations.size(), 1U);
  EXPECT_EQ(operations[0].kind, Operation::Kind::kClear);
  EXPECT_EQ(operations[0].layer, Layer::kBackground);
  EXPECT_EQ(operations[0].pen.colour, kBackground);
}

TEST(DrawMap, MarksTheCentreOfTheWindowNotOfTheMap) {
  MapWorld world;
  world.options.centreOfMap = true;
  // The world in a very wide window with odd sides: the map is narrower than the window.
  world.viewport.SetSize(9'001, 1'801);
  world.viewport.SelectRegion({"", "", 5, 0, 355, 180});
  world.viewport.ComputeViewport();
  const TwipPoint centre{4'500, 900};
  const std::vector<Operation> expected{CircleOp(Layer::kCentre, centre, 60, kCentre, false),
                                        LineOp(Layer::kCentre, centre, {4'560, 900}, kCentre),
                                        LineOp(Layer::kCentre, centre, {4'500, 960}, kCentre),
                                        LineOp(Layer::kCentre, centre, {4'440, 900}, kCentre),
                                        LineOp(Layer::kCentre, centre, {4'500, 840}, kCentre)};
  EXPECT_EQ(world.Draw(Layer::kCentre), expected);
}

/// Three points in the middle of the view.
Rows Stroke(const Viewport& view) {
  const double lon = view.MapLonMin() + view.MapLonSpan() / 2;
  const double lat = view.MapLatMin() + view.MapLatSpan() / 2;
  return {At(lon, lat), At(lon + 0.1, lat), At(lon + 0.1, lat + 0.1)};
}

TEST(DrawMap, DrawsTheLayersInOrder) {
  MapWorld world;
  world.Show(42, 42, 62, 52);
  const Rows stroke = Stroke(world.viewport);
  world.coast["CEwdb2"] = stroke;
  world.river = {{"CEwdb2", stroke}};
  world.ibound = {{"CEwdb2", stroke}};
  world.allaprt = world.dest = {Airport("AAA", 50, 45), Airport("BBB", 55, 45)};
  world.flit = {Flight("1", "S", {"AAA", "BBB"})};
  world.AddService("S", {9, 9, 9});
  world.options = {
      .centreOfMap = true, .rivers = true, .boundaries = true, .allAirports = true, .destinations = true};
  std::vector<Layer> layers;
  for (const Operation& operation : world.Draw())
    if (layers.empty() || layers.back() != operation.layer)
      layers.push_back(operation.layer);
  EXPECT_EQ(layers,
            (std::vector<Layer>{Layer::kBackground, Layer::kCentre, Layer::kCoast, Layer::kRiver,
                                Layer::kBoundary, Layer::kAirports, Layer::kDestinations, Layer::kFlights}));
}

TEST(BaseMap, OverviewDrawsOnlyTheOverviewCoast) {
  MapWorld world;
  const Rows stroke = Stroke(world.viewport);
  world.coast = {{"wcl", {At(110, 50), At(120, 50)}}, {"CEwdb2", stroke}};
  world.river = {{"CEwdb2", stroke}, {"wcl", stroke}};
  world.ibound = {{"CEwdb2", stroke}, {"wcl", stroke}};
  world.options.rivers = world.options.boundaries = true;
  const auto operations = world.Draw();
  ASSERT_EQ(operations.size(), 2U);
  EXPECT_EQ(operations[1], LineOp(Layer::kCoast, {1'000, 1'000}, {2'000, 1'000}, kCoast));
}

TEST(BaseMap, DetailModeDrawsCoastsRiversAndBoundariesInTheirColours) {
  MapWorld world;
  world.Show(42, 42, 62, 52);
  world.coast = {{"CEwdb2", {At(50, 45), At(51, 45)}}, {"wcl", Stroke(world.viewport)}};
  world.river = {{"CEwdb2", {At(50, 46), At(51, 46)}}};
  world.ibound = {{"CEwdb2", {At(50, 47), At(51, 47)}}};
  const auto coast = LineOp(Layer::kCoast, {800, 300}, {900, 300}, kCoast);
  const auto river = LineOp(Layer::kRiver, {800, 400}, {900, 400}, kRiver);
  const auto boundary = LineOp(Layer::kBoundary, {800, 500}, {900, 500}, kBoundary);
  EXPECT_EQ(world.Draw().size(), 2U);
  EXPECT_EQ(world.Draw(Layer::kCoast), (std::vector{coast}));
  world.options.rivers = true;
  EXPECT_EQ(world.Draw(Layer::kRiver), (std::vector{river}));
  EXPECT_TRUE(world.Draw(Layer::kBoundary).empty());
  world.options.boundaries = true;
  EXPECT_EQ(world.Draw(Layer::kBoundary), (std::vector{boundary}));
}

TEST(BaseMap, ZoomingInMakesRiversAppear) {
  MapWorld world;
  world.coast["wcl"] = {};
  world.river = {{"CEwdb2", {At(51, 45), At(52, 45)}}};
  world.options.rivers = true;
  world.Show(5, 0, 355, 180);
  EXPECT_TRUE(world.Draw(Layer::kRiver).empty());
  world.Show(42, 42, 62.5F, 52);
  EXPECT_TRUE(world.Draw(Layer::kRiver).empty());
  world.Show(42, 42, 62, 52);
  EXPECT_EQ(world.Draw(Layer::kRiver).size(), 1U);
}

TEST(BaseMap, EachOfFourTilesIsDrawnFromItsOwnTable) {
  MapWorld world;
  world.Show(30, 55, 50, 65);
  // Along latitude 58 across longitude 40: the halves meet on the border and are not joined.
  world.coast = {{"AEwdb2", {At(38, 58), At(39, 58)}},
                 {"CEwdb2", {At(41, 58), At(42, 58)}},
                 {"AGwdb2", {At(38, 62), At(39, 62)}},
                 {"CGwdb2", {At(41, 62), At(42, 62)}},
                 {"EEwdb2", {At(41, 58), At(45, 58)}}};
  EXPECT_EQ(Short(world.Draw(Layer::kCoast)),
            (Strings{"800,300-900,300", "800,700-900,700", "1100,300-1200,300", "1100,700-1200,700"}));
}

TEST(BaseMap, AMissingTableIsEmpty) {
  MapWorld world;
  EXPECT_EQ(world.Draw().size(), 1U);  // the table "wcl" is missing
  world.Show(30, 55, 50, 65);
  world.options.rivers = world.options.boundaries = true;  // the files are missing
  EXPECT_EQ(world.Draw().size(), 1U);
  MapWorld other;
  other.Show(30, 55, 50, 65);
  other.coast["CEwdb2"] = {At(41, 58), At(42, 58)};  // the second of four
  EXPECT_EQ(other.Draw(Layer::kCoast).size(), 1U);
}

/// What a polyline table draws in a view of 100..160 by 40..70, in which (100 + x, 40 + y) is at 100 x, 100
/// y.
Strings Drawn(Rows rows) {
  MapWorld world;
  world.coast["wcl"] = std::move(rows);
  return Short(world.Draw(Layer::kCoast));
}

const data::StoredPoint kA = At(110, 45), kB = At(111, 45), kC = At(112, 46), kD = At(113, 46);
const data::StoredPoint kOutside = At(90, 45);
const std::string kLineAB = "1000,500-1100,500", kLineBC = "1100,500-1200,600", kLineCD = "1200,600-1300,600";

TEST(LineLayer, JoinsThePointsOfARun) {
  EXPECT_EQ(Drawn({kA, kB, kC, kD}), (Strings{kLineAB, kLineBC, kLineCD}));
}

TEST(LineLayer, TablesWithFewerThanTwoRowsDrawNothing) {
  EXPECT_EQ(Drawn({}), Strings{});
  EXPECT_EQ(Drawn({kA}), Strings{});
  EXPECT_EQ(Drawn({kPenUp}), Strings{});
}

TEST(LineLayer, AMarkerEndsALine) {
  EXPECT_EQ(Drawn({kA, kB, kPenUp, kC, kD}), (Strings{kLineAB, kLineCD}));
}

TEST(LineLayer, RepeatedAndLeadingMarkersDrawNothing) {
  EXPECT_EQ(Drawn({kPenUp, kA, kB, kPenUp, kPenUp, kC, kD, kPenUp}), (Strings{kLineAB, kLineCD}));
  EXPECT_EQ(Drawn({kPenUp, kPenUp, kPenUp}), Strings{});
}

TEST(LineLayer, TheLatitudeOfAMarkerIsIgnored) {
  EXPECT_EQ(Drawn({kA, kB, {-1'000'000, 45'000'000}, kC, kD}), (Strings{kLineAB, kLineCD}));
}

TEST(LineLayer, ALineThatLeavesTheViewIsTwoPieces) {
  EXPECT_EQ(Drawn({kA, kB, kOutside, kC, kD}), (Strings{kLineAB, kLineCD}));
  EXPECT_EQ(Drawn({kOutside, kA, kB, kOutside, kOutside}), Strings{kLineAB});
}

TEST(LineLayer, ASinglePointInsideDrawsNothing) {
  EXPECT_EQ(Drawn({kOutside, kA, kOutside, kB, kPenUp, kC}), Strings{});
}

TEST(LineLayer, AfterAMarkerThePenStaysUpUntilAPointIsInView) {
  EXPECT_EQ(Drawn({kA, kB, kPenUp, kOutside, kC, kD}), (Strings{kLineAB, kLineCD}));
  EXPECT_EQ(Drawn({kA, kB, kPenUp, kOutside, kOutside, kC}), Strings{kLineAB});
}

TEST(LineLayer, NothingInViewLeavesTheLayerEmpty) {
  EXPECT_EQ(Drawn({kOutside, At(91, 45), At(92, 45), kPenUp, At(170, 50), At(171, 50)}), Strings{});
}

TEST(LineLayer, PointsOnTheEdgeAreInView) {
  EXPECT_EQ(Drawn({At(100, 40), At(160, 40), At(160, 70), At(160.000021, 70)}),
            (Strings{"0,0-6000,0", "6000,0-6000,3000"}));
}

TEST(LineLayer, EqualPointsAreSegments) {
  EXPECT_EQ(Drawn({kA, kA}), Strings{"1000,500-1000,500"});
}

TEST(LineLayer, ExtremePositionsAreOutside) {
  constexpr std::int32_t kLow = std::numeric_limits<std::int32_t>::min();
  constexpr std::int32_t kHigh = std::numeric_limits<std::int32_t>::max();
  EXPECT_EQ(Drawn({kA, {kLow, kLow}, {kHigh, kHigh}, {110'000'000, kHigh}, {kLow, 45'000'000}, kB}),
            Strings{});
}

TEST(LineLayer, ALineAcross360IsConnectedInAViewThatWraps) {
  MapWorld world;
  world.coast["wcl"] = {At(359, 80), At(360, 80), At(0, 80),  At(1, 80),
                        At(21, 80),  kPenUp,      At(19, 80), At(20, 80)};
  world.Show(340, 60, 20, 100);
  EXPECT_EQ(Short(world.Draw(Layer::kCoast)), (Strings{"1900,2000-2000,2000", "2000,2000-2000,2000",
                                                       "2000,2000-2100,2000", "3900,2000-4000,2000"}));
}

/// Counts the calls of a surface and fails in one of them.
class Counter final : public Surface {
 public:
  void BeginLayer(Layer layer) override { layer_ = layer; }
  void Clear(data::Rgb) override {}
  void Polyline(std::span<const TwipPoint> points, const Pen&) override {
    runs.push_back(points.size());
    if (layer_ == failIn)
      throw std::runtime_error("out of paint");
  }
  void Rectangle(TwipPoint, TwipPoint, const Pen&) override {}
  void Circle(TwipPoint, std::int32_t, data::Rgb, bool) override {
    ++circles;
    if (layer_ == failIn)
      throw std::runtime_error("out of paint");
  }
  void Text(TwipPoint, std::string_view, data::Rgb, const TextFont&) override { ++texts; }

  std::optional<Layer> failIn;
  std::vector<std::size_t> runs;  ///< points of each polyline
  int circles = 0;
  int texts = 0;

 private:
  Layer layer_ = Layer::kBackground;
};

TEST(LineLayer, PassesEachRunInOneCall) {
  MapWorld world;
  Rows rows;
  for (int i = 0; i < 5'000; ++i)
    rows.push_back(At(110 + i * 1e-3, 45));
  rows.push_back(kOutside);
  rows.insert(rows.end(), {kA, kPenUp, kA, kB, kPenUp, kB, kC, kD});
  world.coast["wcl"] = rows;
  Counter counter;
  world.DrawOn(counter);
  EXPECT_EQ(counter.runs, (std::vector<std::size_t>{5'000, 2, 3}));
}

TEST(Containment, ADrawingFailureEndsOneTableOrAirportOrFlightLayer) {
  MapWorld world;
  world.Show(30, 55, 50, 65);
  world.coast = {{"AEwdb2", {At(38, 58), At(39, 58), kPenUp, At(38, 58), At(39, 58)}},
                 {"CEwdb2", {At(41, 58), At(42, 58)}}};
  world.river = {{"CEwdb2", {At(41, 58), At(42, 58)}}};
  world.options.rivers = true;
  world.options.destinations = true;
  world.options.flightAirports = true;
  world.dest = {Airport("AAA", 41, 58), Airport("BBB", 42, 58)};
  world.flit = {Flight("1", "S", {"AAA", "BBB"}), Flight("2", "S", {"BBB", "AAA"})};
  world.AddService("S", {9, 9, 9});
  const auto count = [&](std::optional<Layer> failIn) {
    Counter counter;
    counter.failIn = failIn;
    world.DrawOn(counter);
    return std::pair{counter.runs.size(), counter.circles};
  };
  // Lines: 3 coast, 1 river, 2 legs; circles: 2 destinations, 2 per flight.
  EXPECT_EQ(count(std::nullopt), (std::pair<std::size_t, int>{6, 6}));
  EXPECT_EQ(count(Layer::kCoast), (std::pair<std::size_t, int>{5, 6}));         // the second tile follows
  EXPECT_EQ(count(Layer::kDestinations), (std::pair<std::size_t, int>{6, 6}));  // and the second airport
  EXPECT_EQ(count(Layer::kFlights), (std::pair<std::size_t, int>{5, 2}));  // nothing follows the first leg
}

std::vector<std::string> logged;

TEST(Containment, EachStepThatAnErrorEndsIsLogged) {
  MapWorld world;
  world.Show(30, 55, 50, 65);
  world.coast = {{"AEwdb2", {At(38, 58), At(39, 58)}}, {"CEwdb2", {At(41, 58), At(42, 58)}}};
  world.dest = {Airport("AAA", 41, 58), Airport("BBB", 42, 58)};
  world.flit = {Flight("1", "S", {"AAA", "BBB"})};
  world.AddService("S", {9, 9, 9});
  MapScene scene = world.Scene();
  scene.logError = [](const std::string& line) { logged.push_back(line); };
  const auto linesOf = [&](std::optional<Layer> failIn) {
    Counter counter;
    counter.failIn = failIn;
    logged.clear();
    DrawMap(scene, counter);
    return logged;
  };
  EXPECT_EQ(linesOf(std::nullopt), Strings{});
  EXPECT_EQ(linesOf(Layer::kCoast), (Strings{"coast: out of paint", "coast: out of paint"}));
  EXPECT_EQ(linesOf(Layer::kFlights), Strings{"flights: out of paint"});
}

TEST(Containment, ErrorsBeforeTheBaseMapAreNotContained) {
  MapWorld world;
  world.options.centreOfMap = true;
  Counter counter;
  counter.failIn = Layer::kCentre;
  EXPECT_THROW(world.DrawOn(counter), std::runtime_error);
}

TEST(Containment, ATableWithoutItsColumnsIsSkipped) {
  test::TempFolder folder;
  test::WriteDatabase(folder / "coast.mdb", {test::Table{"AEwdb2", {test::Long("Lon")}, {}, {{1}, {2}}},
                                             test::MapTable("CEwdb2", {test::At(41, 58), test::At(42, 58)})});
  MapWorld world;
  world.Show(30, 55, 50, 65);
  world.Databases().baseMap = data::BaseMap(folder / "coast.mdb", std::nullopt, std::nullopt);
  EXPECT_EQ(world.Draw(Layer::kCoast).size(), 1U);
}

TEST(Containment, DrawingBeforeAnInvalidRowStays) {
  test::TempFolder folder;
  const test::Cell null = test::Null();
  test::WriteDatabase(folder / "coast.mdb", {test::Table{"AEwdb2",
                                                         {test::Long("Lon"), test::Long("Lat")},
                                                         {},
                                                         {{38'000'000, 58'000'000},
                                                          {39'000'000, 58'000'000},
                                                          {null, null},
                                                          {38'000'000, 58'000'000},
                                                          {39'000'000, 58'000'000}}},
                                             test::MapTable("CEwdb2", {test::At(41, 58), test::At(42, 58)})});
  MapWorld world;
  world.Show(30, 55, 50, 65);
  world.Databases().baseMap = data::BaseMap(folder / "coast.mdb", std::nullopt, std::nullopt);
  EXPECT_EQ(Short(world.Draw(Layer::kCoast)), (Strings{"800,300-900,300", "1100,300-1200,300"}));
}

TEST(StoredProjection, AgreesWithProjectPoint) {
  test::TestRandom random(20260302);
  const auto uniform = [&](double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(random);
  };
  MapWorld world;
  Viewport& view = world.viewport;
  int inView = 0;
  for (int i = 0; i < 500; ++i) {
    const double size = std::exp(uniform(std::log(0.05), std::log(180)));
    const double top = uniform(0, 180 - size);
    const double west = uniform(0, 360);
    view.SetSize(uniform(200, 40'000), uniform(200, 40'000));
    view.SelectRegion({"", "", west, top, std::fmod(west + std::min(2 * size, 350.0), 360), top + size});
    view.ComputeViewport();
    const StoredProjection projection(view);
    const double bounds[] = {view.MapLonMin(), view.MapLonMax(), view.MapLonMax() - 360.0, uniform(0, 360)};
    for (int j = 0; j < 200; ++j) {
      // On the bounds, slightly beside them, inside and anywhere.
      data::StoredPoint point =
          At(j % 3 == 0 ? uniform(view.MapLonMin(), view.MapLonMax()) : bounds[random() % 4],
             j % 2 == 0 ? uniform(view.MapLatMin(), view.MapLatMax())
                        : (random() % 2 == 0 ? view.MapLatMin() : view.MapLatMax()));
      point.lon += std::uniform_int_distribution<int>(-20, 20)(random);
      point.lat += std::uniform_int_distribution<int>(-20, 20)(random);
      const std::optional<TwipPoint> at =
          view.ProjectPoint({data::StoredDegrees(point.lon), data::StoredDegrees(point.lat)});
      ASSERT_EQ(projection.Bounds().Contain(point), at.has_value()) << point.lon << " " << point.lat;
      if (!at)
        continue;
      ++inView;
      ASSERT_EQ(projection.Project(point), *at) << point.lon << " " << point.lat;
    }
  }
  EXPECT_GT(inView, 10'000);
}

TEST(StoredProjection, OnlyTheEndOfALineIsPenUp) {
  for (int off = -3; off <= 3; ++off)
    EXPECT_EQ(data::StoredDegrees(data::kEndOfLine + off) == kPenUpLon, off == 0);
}

TEST(StoredProjection, WithoutAUsableViewNothingIsInView) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  constexpr float kInf = std::numeric_limits<float>::infinity();
  const auto contains = [](float west, float bottom, float east) {
    const Viewport view = View(6'000, 3'000, west, 40, east, bottom);
    return StoredProjection(view).Bounds().Contain(kA);
  };
  EXPECT_FALSE(contains(kNaN, 70, 160));
  EXPECT_FALSE(contains(100, kNaN, 160));
  EXPECT_TRUE(contains(100, 70, kInf));
}

}  // namespace
}  // namespace zerbal::map
