#include <algorithm>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "map/layers.h"
#include "map/map_world.h"

namespace zerbal::map {
namespace {

constexpr data::Rgb kBlack{0, 0, 0};
constexpr data::Rgb kRed{200, 0, 0};
constexpr data::Rgb kGreen{0, 200, 0};
constexpr data::Rgb kSymbol = ColourOf(data::ColourCode::kAcSymb);

/// The view is 100..160 by 40..70, so that a position is at 100 (lon - 100), 100 (lat - 40). Airports lie
/// along latitude 50, so that y is 1000: AAA, BBB, CCC at x 1000, 2000, 3000; OUT is west of the view.
class Routes : public testing::Test {
 protected:
  Routes() {
    world_.dest = {Airport("AAA", 110, 50), Airport("BBB", 120, 50), Airport("CCC", 130, 50),
                   Airport("OUT", 90, 50)};
    world_.AddService("RED", kRed);
    world_.AddService("GREEN", kGreen, false);
  }

  std::vector<Operation> Draw() { return world_.Draw(Layer::kFlights); }
  Strings DrawShort() { return Short(Draw()); }
  void Select(std::vector<std::string> keys) {
    world_.flights.serviceMode = false;
    world_.flights.selectedFlights = std::move(keys);
  }

  MapWorld world_;
};

const std::string kAB = "1000,1000-2000,1000", kBC = "2000,1000-3000,1000", kBA = "2000,1000-1000,1000";

TEST_F(Routes, ServiceModeDrawsTheServicesWhoseFlagIsSet) {
  world_.flit = {Flight("1", "GREEN", {"BBB", "CCC"}), Flight("2", "RED", {"AAA", "BBB"}),
                 Flight("3", "BLUE", {"CCC", "AAA"})};
  EXPECT_EQ(Draw(), (std::vector{LineOp(Layer::kFlights, {1'000, 1'000}, {2'000, 1'000}, kRed)}));
  world_.services[1].displayFlag = true;
  EXPECT_EQ(Draw(), (std::vector{LineOp(Layer::kFlights, {1'000, 1'000}, {2'000, 1'000}, kRed),
                                 LineOp(Layer::kFlights, {2'000, 1'000}, {3'000, 1'000}, kGreen)}));
  world_.services[0].displayFlag = false;
  EXPECT_EQ(DrawShort(), Strings{kBC});
  world_.services[1].displayFlag = false;
  EXPECT_EQ(DrawShort(), Strings{});
}

TEST_F(Routes, ServicesAreDrawnInTableOrderEvenTwice) {
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"}), Flight("2", "AERO", {"BBB", "CCC"})};
  world_.AddService("AERO", kGreen);
  EXPECT_EQ(DrawShort(), (Strings{kAB, kBC}));
  world_.AddService("RED", kGreen);  // the same key again: its flights are drawn again in this colour
  const auto operations = Draw();
  ASSERT_EQ(operations.size(), 3U);
  EXPECT_EQ(operations[2], LineOp(Layer::kFlights, {1'000, 1'000}, {2'000, 1'000}, kGreen));
}

TEST_F(Routes, AServiceWithoutFlightsIsSkipped) {
  world_.services.clear();
  world_.AddService("NIL", kGreen);
  world_.AddService("RE", kGreen);  // a prefix of another key
  world_.AddService("red", kGreen);
  world_.AddService("RED", kRed);
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"})};
  EXPECT_EQ(DrawShort(), Strings{kAB});
}

TEST_F(Routes, SelectionModeDrawsTheListInOrder) {
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"}), Flight("2", "GREEN", {"BBB", "CCC"}),
                 Flight("3", "RED", {"BBB", "AAA"})};
  Select({"3", "gone", "2"});
  EXPECT_EQ(Draw(), (std::vector{LineOp(Layer::kFlights, {2'000, 1'000}, {1'000, 1'000}, kRed),
                                 LineOp(Layer::kFlights, {2'000, 1'000}, {3'000, 1'000}, kGreen)}));
  Select({"1", "1"});
  EXPECT_EQ(DrawShort(), (Strings{kAB, kAB}));
  Select({});
  EXPECT_EQ(DrawShort(), Strings{});
}

TEST_F(Routes, ASelectedFlightOfAnUnknownServiceIsBlack) {
  world_.flit = {Flight("1", "NONE", {"AAA", "BBB"}), Flight("2", "RED", {"AAA", "BBB"})};
  world_.flit[1].service = test::Null();
  Select({"1", "2"});
  const auto black = LineOp(Layer::kFlights, {1'000, 1'000}, {2'000, 1'000}, kBlack);
  EXPECT_EQ(Draw(), (std::vector{black, black}));
}

TEST_F(Routes, TheLastOfSeveralEqualServicesGivesASelectedFlightItsColour) {
  world_.AddService("RED", {1, 1, 1}, false);
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"})};
  Select({"1"});
  EXPECT_EQ(Draw().at(0).pen.colour, (data::Rgb{1, 1, 1}));
}

TEST_F(Routes, StopoversAreDrawnUpToTheFirstGap) {
  world_.flit = {Flight("1", "RED", {"AAA", "BBB", "CCC", "AAA"}), Flight("2", "RED", {"AAA", "BBB"})};
  world_.flit[1].stops = {test::Null(), "CCC"};
  EXPECT_EQ(DrawShort(), (Strings{kAB, kBC, "3000,1000-1000,1000", kAB}));
}

TEST_F(Routes, OneUnknownAirportDropsTheWholeFlight) {
  world_.flit = {Flight("1", "RED", {"AAA", "XXX", "BBB"}), Flight("2", "RED", {"XXX", "BBB"}),
                 Flight("3", "RED", {"AAA", "XXX"}),        Flight("4", "RED", {"AAA", "aaa"}),
                 Flight("5", "RED", {"AAA", "", "BBB"}),    Flight("6", "RED", {"BBB", "AAA"})};
  world_.options.flightAirports = world_.options.flightNumbers = true;
  EXPECT_EQ(Texts(Draw()), (Strings{"6", "BBB", "AAA"}));
}

TEST_F(Routes, FlightsShareAirportsAndTheirTexts) {
  world_.dest[1].name = "Big Field";
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"}), Flight("2", "RED", {"XXX", "BBB"}),
                 Flight("3", "RED", {"BBB", "CCC", "BBB"}), Flight("4", "RED", {"XXX", "AAA"})};
  EXPECT_EQ(DrawShort(), (Strings{kAB, kBC, "3000,1000-2000,1000"}));
  world_.options.flightAirports = true;
  world_.Show(118, 45, 122, 55);
  EXPECT_EQ(Texts(Draw()),
            (Strings{"BBB - Big Field (Town)", "BBB - Big Field (Town)", "BBB - Big Field (Town)"}));
}

TEST_F(Routes, ADrawingShowsWhatTheFileHoldsThen) {
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"})};
  EXPECT_EQ(DrawShort(), Strings{kAB});
  world_.ChangeStored({{120, 130}});
  EXPECT_EQ(DrawShort(), Strings{"1000,1000-3000,1000"});
}

TEST_F(Routes, TenStopoversGiveElevenLegs) {
  const std::vector<std::string> route{"AAA", "BBB", "CCC", "AAA", "BBB", "CCC",
                                       "AAA", "BBB", "CCC", "AAA", "BBB", "CCC"};
  world_.flit = {Flight("QV9", "RED", route)};
  world_.options.flightNumbers = world_.options.legNumbers = true;
  Strings expected;
  for (int leg = 1; leg <= 11; ++leg)
    expected.push_back("QV9 (" + std::to_string(leg) + "/11)");
  EXPECT_EQ(Texts(Draw()), expected);
}

TEST_F(Routes, LabelsHaveTheLegNumberOnlyOnRequest) {
  world_.flit = {Flight("QV12", "RED", {"AAA", "BBB", "CCC", "AAA"})};
  world_.options.legNumbers = true;
  EXPECT_EQ(Texts(Draw()), Strings{});
  world_.options.flightNumbers = true;
  EXPECT_EQ(Texts(Draw()), (Strings{"QV12 (1/3)", "QV12 (2/3)", "QV12 (3/3)"}));
  world_.options.legNumbers = false;
  EXPECT_EQ(Texts(Draw()), (Strings{"QV12", "QV12", "QV12"}));
}

TEST_F(Routes, AFlightIsDrawnInOrder) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB", "CCC"})};
  world_.options = {.flightAirports = true, .flightNumbers = true, .aircraftSymbols = true};
  // 1000 long: anchor 250 from the start, nose 120 and wing 82 further, label 240 further and 40 below.
  constexpr Layer kFlights = Layer::kFlights;
  const TextFont font{"Small", 7};
  const std::vector<Operation> expected{LineOp(kFlights, {1'000, 1'000}, {2'000, 1'000}, kRed),
                                        LineOp(kFlights, {1'250, 1'000}, {1'370, 1'000}, kSymbol, 3),
                                        LineOp(kFlights, {1'332, 925}, {1'332, 1'075}, kSymbol, 2),
                                        LineOp(kFlights, {1'250, 963}, {1'250, 1'037}, kSymbol, 2),
                                        TextOp(kFlights, {1'490, 1'040}, "QV1", kRed, font),
                                        CircleOp(kFlights, {1'000, 1'000}, 20, kDest, true),
                                        TextOp(kFlights, {1'050, 1'050}, "AAA", kDest, font),
                                        LineOp(kFlights, {2'000, 1'000}, {3'000, 1'000}, kRed),
                                        LineOp(kFlights, {2'250, 1'000}, {2'370, 1'000}, kSymbol, 3),
                                        LineOp(kFlights, {2'332, 925}, {2'332, 1'075}, kSymbol, 2),
                                        LineOp(kFlights, {2'250, 963}, {2'250, 1'037}, kSymbol, 2),
                                        TextOp(kFlights, {2'490, 1'040}, "QV1", kRed, font),
                                        CircleOp(kFlights, {2'000, 1'000}, 20, kDest, true),
                                        TextOp(kFlights, {2'050, 1'050}, "BBB", kDest, font),
                                        CircleOp(kFlights, {3'000, 1'000}, 20, kDest, true),
                                        TextOp(kFlights, {3'050, 1'050}, "CCC", kDest, font)};
  EXPECT_EQ(Draw(), expected);
}

TEST_F(Routes, DetailModeHasLargerSymbolsLongerLabelsAndTheOtherFont) {
  world_.Show(105, 45, 125, 55);  // AAA at 500,500; BBB at 1500,500
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB"})};
  world_.options = {.flightAirports = true, .flightNumbers = true, .aircraftSymbols = true};
  constexpr Layer kFlights = Layer::kFlights;
  const TextFont font{"Large", 10};
  const std::vector<Operation> expected{LineOp(kFlights, {500, 500}, {1'500, 500}, kRed),
                                        LineOp(kFlights, {750, 500}, {910, 500}, kSymbol, 3),
                                        LineOp(kFlights, {860, 400}, {860, 600}, kSymbol, 2),
                                        LineOp(kFlights, {750, 450}, {750, 550}, kSymbol, 2),
                                        TextOp(kFlights, {1'070, 540}, "QV1", kRed, font),
                                        CircleOp(kFlights, {500, 500}, 30, kDest, true),
                                        TextOp(kFlights, {550, 550}, "AAA - Field (Town)", kDest, font),
                                        CircleOp(kFlights, {1'500, 500}, 30, kDest, true),
                                        TextOp(kFlights, {1'550, 550}, "BBB - Field (Town)", kDest, font)};
  EXPECT_EQ(Draw(), expected);
}

TEST_F(Routes, TheLabelPositionDoesNotDependOnTheSymbol) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "BBB"})};
  world_.options.flightNumbers = true;
  EXPECT_EQ(DrawShort(), (Strings{kAB, "QV1@1490,1040"}));
  world_.options.aircraftSymbols = true;
  EXPECT_EQ(DrawShort().back(), "QV1@1490,1040");
  world_.options.flightNumbers = false;
  EXPECT_EQ(DrawShort().size(), 4U);
}

TEST_F(Routes, ALegIsCutAtTheEdgeAndItsLabelAndSymbolFollowTheCut) {
  world_.flit = {Flight("QV1", "RED", {"OUT", "AAA"})};  // 90..110, in view from 100
  world_.options.flightNumbers = true;
  // 0..1000: the anchor at 250, the label 240 further.
  EXPECT_EQ(DrawShort(), (Strings{"0,1000-1000,1000", "QV1@490,1040"}));
}

TEST_F(Routes, ALegOutsideDrawsNothing) {
  world_.dest.push_back(Airport("FAR", 80, 50));
  world_.flit = {Flight("QV1", "RED", {"OUT", "FAR"})};
  world_.options = {.flightAirports = true, .flightNumbers = true, .aircraftSymbols = true};
  EXPECT_EQ(DrawShort(), Strings{});
}

TEST_F(Routes, AnAirportInViewIsDrawnEvenIfItsLegIsNot) {
  world_.dest.push_back(Airport("NOR", 110, 29));
  world_.dest.push_back(Airport("EDG", 100, 50));
  world_.flit = {Flight("QV1", "RED", {"OUT", "NOR"}), Flight("QV2", "RED", {"OUT", "EDG"})};
  world_.options.flightAirports = true;
  // The second leg touches the view in one point, which is a line, too.
  EXPECT_EQ(DrawShort(), (Strings{"0,1000-0,1000", "o 0,1000", "EDG@50,1050"}));
}

TEST_F(Routes, AFlightBackToItsOriginHasOnlyALabel) {
  world_.flit = {Flight("QV1", "RED", {"AAA", "AAA"})};
  world_.options = {.flightAirports = false, .flightNumbers = true, .aircraftSymbols = true};
  EXPECT_EQ(DrawShort(), (Strings{"1000,1000-1000,1000", "QV1@1050,760"}));
}

TEST_F(Routes, SelectTheIndexesThatTheyNeed) {
  world_.flit = {Flight("2", "RED", {"AAA", "BBB"}), Flight("1", "RED", {"BBB", "CCC"})};
  EXPECT_EQ(DrawShort().size(), 2U);
  Select({"1"});
  EXPECT_EQ(DrawShort(), Strings{kBC});
  world_.flights.serviceMode = true;
  EXPECT_EQ(DrawShort().size(), 2U);
}

/// Flights across map longitude 360, which is the date line.
class Seam : public Routes {
 protected:
  Seam() {
    world_.dest = {Airport("EAS", 350, 80), Airport("WES", 10, 80), Airport("HAW", 20, 80),
                   Airport("NRT", 330, 80)};
  }
};

TEST_F(Seam, ALegAcross360IsDrawnAtBothEdges) {
  world_.Show(5, 0, 355, 180);  // 100 twips per degree: 350 at 34500, 10 at 500
  world_.flit = {Flight("QV1", "RED", {"EAS", "WES"})};
  // 350..370 is cut at 355. The same leg 360 degrees less, -10..10, is cut at 5.
  EXPECT_EQ(DrawShort(), (Strings{"34500,8000-35000,8000", "0,8000-500,8000"}));
}

TEST_F(Seam, ALegAcross360IsDrawnInTheOtherDirection) {
  world_.Show(5, 0, 355, 180);
  world_.flit = {Flight("QV1", "RED", {"WES", "EAS"})};
  world_.options.flightNumbers = true;
  // A label for each part: the first is 500 long, 35000 - 125 - 240; the second 500 - 125 - 240.
  EXPECT_EQ(DrawShort(),
            (Strings{"35000,8000-34500,8000", "QV1@34635,8040", "500,8000-0,8000", "QV1@135,8040"}));
}

TEST_F(Seam, ALegOfExactly180DegreesIsNotWrapped) {
  world_.dest = {Airport("AAA", 100, 50), Airport("BBB", 280, 50), Airport("CCC", 280.001F, 50)};
  world_.Show(5, 0, 355, 180);
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"})};
  EXPECT_EQ(DrawShort(), Strings{"9500,5000-27500,5000"});
  MapWorld other;
  other.dest = world_.dest;
  other.flit = {Flight("1", "RED", {"AAA", "CCC"})};
  other.AddService("RED", kRed);
  other.Show(5, 0, 355, 180);
  // 460 to 280.001 to the east, and 360 degrees less from 100 to -79.999.
  EXPECT_EQ(Short(other.Draw(Layer::kFlights)), (Strings{"35000,5000-27500,5000", "9500,5000-0,5000"}));
}

TEST_F(Seam, AViewAcross360DrawsAFlightASecondTime360DegreesFurtherEast) {
  world_.Show(340, 60, 20, 100);  // 340..380
  world_.flit = {Flight("QV1", "RED", {"WES", "HAW"})};
  // In the first pass 10..20 is outside; in the second 370..380 is in view.
  EXPECT_EQ(DrawShort(), Strings{"3000,2000-4000,2000"});
}

TEST_F(Seam, AFlightEastOfTheViewsWestBoundHasNoSecondPass) {
  world_.dest.push_back(Airport("KAM", 345, 80));
  world_.Show(340, 60, 20, 100);
  world_.flit = {Flight("QV1", "RED", {"EAS", "KAM"})};
  EXPECT_EQ(DrawShort(), Strings{"1000,2000-500,2000"});
}

TEST_F(Seam, AnAirportOnTheWestEdgeNeedsNoSecondPass) {
  world_.dest = {Airport("EDG", 340, 80), Airport("KAM", 345, 80),
                 Airport("OUT", std::nextafter(340.0F, 0.0F), 80)};
  world_.Show(340, 60, 20, 100);
  world_.flit = {Flight("1", "RED", {"EDG", "KAM"}), Flight("2", "RED", {"OUT", "KAM"})};
  world_.options.flightAirports = true;
  Select({"1"});
  EXPECT_EQ(DrawShort(),
            (Strings{"0,2000-500,2000", "o 0,2000", "EDG@50,2050", "o 500,2000", "KAM@550,2050"}));
  // A second pass would draw airports 360 degrees further east, outside of the area.
  Select({"2"});
  EXPECT_EQ(Texts(Draw()), (Strings{"KAM", "OUT", "KAM"}));
}

TEST_F(Seam, ALongLegFromTheWestEdgeIsDrawnOnce) {
  world_.dest = {Airport("EDG", 100, 80), Airport("FAR", 300, 80)};
  world_.Show(100, 0, 90, 180);  // 100..450
  world_.flit = {Flight("1", "RED", {"EDG", "FAR"})};
  // 460 to 300, and 360 degrees less: 100 to -60, of which one point is in view.
  EXPECT_EQ(DrawShort(), (Strings{"35000,8000-20000,8000", "0,8000-0,8000"}));
}

TEST_F(Seam, ALegAcross360IsDrawnTwiceInAViewAcross360) {
  world_.Show(340, 60, 20, 100);
  world_.flit = {Flight("QV1", "RED", {"EAS", "WES"})};
  world_.options.flightAirports = true;
  // Pass 1: 350..370, and -10..10, which is outside. Pass 2 adds 360 degrees: 710..730 is outside, its
  // repetition 350..370 is in view. Airports move with their pass. A view that wraps has no limit in the
  // east, so EAS at 710 is drawn outside of the visible area.
  EXPECT_EQ(DrawShort(), (Strings{"1000,2000-3000,2000", "o 1000,2000", "EAS@1050,2050", "o 3000,2000",
                                  "WES@3050,2050", "1000,2000-3000,2000", "o 37000,2000", "EAS@37050,2050",
                                  "o 3000,2000", "WES@3050,2050"}));
}

TEST_F(Seam, WithoutAWrappedViewThereIsNoSecondPass) {
  world_.Show(5, 0, 355, 180);
  world_.dest.push_back(Airport("WRA", 2, 80));  // west of the view
  world_.flit = {Flight("QV1", "RED", {"WRA", "WES"})};
  EXPECT_EQ(DrawShort(), Strings{"0,8000-500,8000"});
}

TEST_F(Routes, AnAirportWithoutAPositionEndsTheFlights) {
  world_.dest.push_back(Airport("NUL", 110, 50));
  world_.dest.back().lat = test::Null();
  world_.flit = {Flight("1", "RED", {"AAA", "BBB"}), Flight("2", "RED", {"AAA", "NUL"}),
                 Flight("3", "RED", {"BBB", "AAA"})};
  Select({"1", "2", "3"});
  EXPECT_EQ(DrawShort(), Strings{kAB});
  Select({"1", "3"});
  EXPECT_EQ(DrawShort(), (Strings{kAB, kBA}));
}

TEST_F(Routes, UnusualPositionsDrawNoLegs) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  constexpr float kInf = std::numeric_limits<float>::infinity();
  world_.storedSingles = {{1111.5F, kNaN}, {2222.5F, kInf}};
  world_.dest.push_back(Airport("NAN", 1111.5F, 50));
  world_.dest.push_back(Airport("INF", 2222.5F, 50));
  world_.dest.push_back(Airport("LAT", 110, 1111.5F));
  world_.flit = {Flight("1", "RED", {"AAA", "NAN"}), Flight("2", "RED", {"INF", "AAA"}),
                 Flight("3", "RED", {"LAT", "AAA"}), Flight("4", "RED", {"INF", "INF"}),
                 Flight("5", "RED", {"AAA", "BBB"})};
  world_.options = {.flightAirports = false, .flightNumbers = true, .aircraftSymbols = true};
  EXPECT_EQ(Texts(Draw()), Strings{"5"});
  world_.Show(340, 60, 20, 100);
  EXPECT_TRUE(Texts(Draw()).empty());
}

TEST_F(Routes, ANullNumberIsAnEmptyLabel) {
  world_.flit = {Flight("1", "RED", {"AAA", "BBB", "CCC"})};
  world_.flit[0].number = test::Null();
  world_.options.flightNumbers = true;
  EXPECT_EQ(Texts(Draw()), (Strings{"", ""}));
  world_.options.legNumbers = true;
  EXPECT_EQ(Texts(Draw()), (Strings{" (1/2)", " (2/2)"}));
}

}  // namespace
}  // namespace zerbal::map
