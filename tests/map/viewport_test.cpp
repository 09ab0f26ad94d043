#include "map/viewport.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "map/views.h"

namespace zerbal::map {
namespace {

void ExpectRequest(const Viewport& view, float west, float top, float east, float bottom) {
  EXPECT_FLOAT_EQ(view.ReqLonMin(), west);
  EXPECT_FLOAT_EQ(view.ReqLatMin(), top);
  EXPECT_FLOAT_EQ(view.ReqLonMax(), east);
  EXPECT_FLOAT_EQ(view.ReqLatMax(), bottom);
}

void ExpectShown(const Viewport& view, float west, float top, float east, float bottom) {
  EXPECT_FLOAT_EQ(view.MapLonMin(), west);
  EXPECT_FLOAT_EQ(view.MapLatMin(), top);
  EXPECT_FLOAT_EQ(view.MapLonMax(), east);
  EXPECT_FLOAT_EQ(view.MapLatMax(), bottom);
  EXPECT_EQ(view.MapLonSpan(), view.MapLonMax() - view.MapLonMin());
  EXPECT_EQ(view.MapLatSpan(), view.MapLatMax() - view.MapLatMin());
}

TEST(SetSize, RoundsTiesToEven) {
  Viewport view(kBands);
  view.SetSize(1000.5, 1001.5);
  EXPECT_EQ(view.MapWidth(), 1000);
  EXPECT_EQ(view.MapHeight(), 1002);
}

TEST(ComputeViewport, ChangesNothingWithoutADrawingArea) {
  Viewport view = Exact(100, 40, 160, 70);
  const Viewport before = view;
  for (const auto& [width, height] : {std::pair{0.0, 900.0}, {900.0, 0.0}, {0.4, 900.0}, {-15.0, -15.0}}) {
    view.SetSize(width, height);
    EXPECT_FALSE(view.HasArea());
    view.SelectRegion({"", "", 5, 40, 160, 70});
    view.ComputeViewport();
    ExpectShown(view, 100, 40, 160, 70);
    EXPECT_EQ(view.MapScale(), before.MapScale());
    EXPECT_EQ(view.MapOffX(), before.MapOffX());
  }
  view.SetSize(1, 1);
  EXPECT_TRUE(view.HasArea());
}

TEST(ComputeViewport, WidensNothingWhenTheShapesAreEqual) {
  const Viewport view = Exact(100, 40, 160, 70);
  ExpectShown(view, 100, 40, 160, 70);
  EXPECT_EQ(view.MapScale(), 100);
  EXPECT_EQ(view.MapOffX(), -10'000);
  EXPECT_EQ(view.MapOffY(), -4'000);
  EXPECT_FALSE(view.MapWrap());
}

TEST(ComputeViewport, WidensLatitudesAboutTheirCentreInAHighArea) {
  // 60 degrees on 6000 twips: 100 per degree, so 9000 twips of height show 90 degrees, 30 more on each side.
  const Viewport view = View(6'000, 9'000, 100, 60, 160, 90);
  ExpectShown(view, 100, 30, 160, 120);
  EXPECT_EQ(view.MapOffY(), -3'000);
}

TEST(ComputeViewport, StopsAtThePoleAndLeavesAMargin) {
  // 30 more each side of 10..40: the top stops at 0, the bottom keeps its 70. 70 degrees fill 7000 of the
  // 9000 twips, so the map begins 1000 below the top.
  const Viewport north = View(6'000, 9'000, 100, 10, 160, 40);
  ExpectShown(north, 100, 0, 160, 70);
  EXPECT_EQ(north.MapOffY(), 1'000);
  const Viewport south = View(6'000, 9'000, 100, 140, 160, 170);
  ExpectShown(south, 100, 110, 160, 180);
  EXPECT_EQ(south.MapOffY(), 1'000 - 11'000);
}

TEST(ComputeViewport, WidensLongitudesAboutTheirCentreInAWideArea) {
  const Viewport view = View(9'000, 3'000, 100, 40, 130, 70);
  ExpectShown(view, 70, 40, 160, 70);
  EXPECT_EQ(view.MapScale(), 100);
}

TEST(ComputeViewport, WideningBeyondTheWestEdgeAdds360Degrees) {
  // 30 degrees widened to 90 around 25: -20..70 is kept as 340..430, and the view does not count as wrapped.
  const Viewport view = View(9'000, 3'000, 10, 40, 40, 70);
  ExpectShown(view, 340, 40, 430, 70);
  EXPECT_FALSE(view.MapWrap());
}

TEST(ComputeViewport, TheWorldKeeps350DegreesInAVeryWideArea) {
  // 180 degrees on 1800 twips, 10 per degree: 3500 of 6000 twips, margins of 1250.
  const Viewport view = View(6'000, 1'800, 5, 0, 355, 180);
  ExpectShown(view, 5, 0, 355, 180);
  EXPECT_EQ(view.MapOffX(), 1'250 - 50);
  EXPECT_EQ(view.MapOffY(), 0);
  EXPECT_FALSE(view.IsOnMap({1'249, 900}));
  EXPECT_TRUE(view.IsOnMap({1'250, 900}));
  EXPECT_TRUE(view.IsOnMap({4'750, 900}));
  EXPECT_FALSE(view.IsOnMap({4'751, 900}));
}

TEST(ComputeViewport, TheWorldKeepsFromPoleToPoleInAVeryHighArea) {
  // 350 degrees on 3500 twips, 10 per degree: 1800 of 9000 twips, bands of 3600.
  const Viewport view = View(3'500, 9'000, 5, 0, 355, 180);
  ExpectShown(view, 5, 0, 355, 180);
  EXPECT_EQ(view.MapOffY(), 3'600);
  EXPECT_FALSE(view.IsOnMap({100, 3'599}));
  EXPECT_TRUE(view.IsOnMap({100, 3'600}));
  EXPECT_FALSE(view.IsOnMap({100, 5'401}));
}

TEST(ComputeViewport, OffsetsRoundTiesToEven) {
  // 0.5 twips per degree: -101 * 0.5 = -50.5 and -103 * 0.5 = -51.5.
  EXPECT_EQ(View(50, 25, 101, 50, 201, 100).MapOffX(), -50);
  EXPECT_EQ(View(50, 25, 103, 50, 203, 100).MapOffX(), -52);
}

TEST(ComputeViewport, ARequestAcross360Wraps) {
  Viewport view = Exact(340, 60, 20, 100);
  EXPECT_TRUE(view.MapWrap());
  EXPECT_EQ(view.MapLonSpan(), 40);
  EXPECT_EQ(view.ProjectPoint({350, 80}), (TwipPoint{1'000, 2'000}));
  EXPECT_EQ(view.ProjectPoint({10, 80}), (TwipPoint{3'000, 2'000}));  // 100 * 370 - 34000
  EXPECT_EQ(view.ProjectPoint({30, 80}), std::nullopt);
}

TEST(ComputeViewport, EqualEastAndWestWrapAroundTheWorld) {
  // 360 x 90 on 3600 x 900 twips: nothing to widen.
  const Viewport view = View(3'600, 900, 90, 40, 90, 130);
  EXPECT_TRUE(view.MapWrap());
  ExpectShown(view, 90, 40, 450, 130);
}

TEST(ComputeViewport, ALaterRequestThatDoesNotWrapClearsTheFlag) {
  Viewport view = Exact(340, 60, 20, 100);
  view.SelectRegion({"", "", 100, 60, 140, 100});
  view.ComputeViewport();
  EXPECT_FALSE(view.MapWrap());
}

TEST(DetailTiles, AreOneWithinABandAndFourAcrossBothBorders) {
  EXPECT_EQ(Exact(2, 42, 22, 52).DetailTiles(), (std::vector<std::string>{"AE"}));
  EXPECT_TRUE(Exact(2, 42, 22, 52).DetailMode());
  EXPECT_EQ(Exact(30, 42, 50, 52).DetailTiles(), (std::vector<std::string>{"AE", "CE"}));
  EXPECT_EQ(Exact(2, 55, 22, 65).DetailTiles(), (std::vector<std::string>{"AE", "AG"}));
  EXPECT_EQ(Exact(30, 55, 50, 65).DetailTiles(), (std::vector<std::string>{"AE", "AG", "CE", "CG"}));
}

TEST(DetailTiles, IncludeBothBandsWhenAnEdgeLiesOnTheirBorder) {
  EXPECT_EQ(Exact(40, 62, 60, 72).DetailTiles(), (std::vector<std::string>{"AG", "CG"}));
  EXPECT_EQ(Exact(342, 60, 358, 68).DetailTiles(), (std::vector<std::string>{"QE", "QG"}));
  EXPECT_EQ(Exact(40, 160, 60, 170).DetailTiles(), (std::vector<std::string>{"AO", "AQ", "CO", "CQ"}));
}

TEST(DetailTiles, ExistUpTo20By10Degrees) {
  EXPECT_TRUE(Exact(2, 42, 22, 52).DetailMode());
  for (const Viewport& view : {Exact(2, 42, 22.25F, 52), Exact(2, 42, 22, 52.25F)}) {
    EXPECT_FALSE(view.DetailMode());
    EXPECT_TRUE(view.DetailTiles().empty());
  }
}

TEST(DetailTiles, DoNotExistBeyond360) {
  const Viewport view = Exact(355, 42, 5, 52);
  ExpectShown(view, 355, 42, 365, 52);
  EXPECT_EQ(view.DetailTiles(), (std::vector<std::string>{"QE"}));
}

TEST(ProjectPoint, IsNothingOutsideTheView) {
  const Viewport view = Exact(100, 40, 160, 70);
  EXPECT_EQ(view.ProjectPoint({110, 50}), (TwipPoint{1'000, 1'000}));
  EXPECT_EQ(view.ProjectPoint({90, 50}), std::nullopt);
}

TEST(ProjectPoint, TakesTheLongitudeOfAPenUpMarkerForAnyOther) {
  EXPECT_EQ(Exact(340, 60, 20, 100).ProjectPoint({kPenUpLon, 80}), (TwipPoint{1'900, 2'000}));  // 359
}

TEST(ProjectPoint, BoundsAreInclusiveOnEverySide) {
  Viewport view = Exact(100, 40, 160, 70);
  const float below = std::nextafter(100.0F, 0.0F);
  const float above = std::nextafter(160.0F, 200.0F);
  for (const auto& [lon, lat, inside] : {std::tuple{100.0F, 50.0F, true},
                                         {160.0F, 50.0F, true},
                                         {130.0F, 40.0F, true},
                                         {130.0F, 70.0F, true},
                                         {below, 50.0F, false},
                                         {above, 50.0F, false},
                                         {130.0F, std::nextafter(40.0F, 0.0F), false},
                                         {130.0F, std::nextafter(70.0F, 90.0F), false}}) {
    EXPECT_EQ(view.ProjectPoint({lon, lat}).has_value(), inside) << lon << " " << lat;
  }
}

TEST(ProjectPoint, RoundsDown) {
  // 0.5 twips per degree, offset -50: 0.5 * 103.9 - 50 = 1.95; to the north 0.5 * 50.5 - 25 = 0.25.
  Viewport view = View(50, 25, 100, 50, 200, 100);
  EXPECT_EQ(view.ProjectPoint({103.9F, 50.5F}), (TwipPoint{1, 0}));
  // 1000 twips per degree from 12.3456: the offset is -12345.6 -> -12346, the west edge at -0.4 becomes -1.
  Viewport edge = View(1'000, 1'000, 12.3456F, 50, 13.3456F, 51);
  EXPECT_EQ(edge.ProjectPoint({edge.MapLonMin(), 50}), (TwipPoint{-1, 0}));
}

TEST(ProjectPoint, InAWrappedViewTheUnshiftedLongitudeIsTestedFirstWithoutUpperLimit) {
  Viewport view = View(3'600, 900, 90, 40, 90, 130);  // 90..450
  EXPECT_EQ(view.ProjectPoint({90, 100}), (TwipPoint{0, 600}));
  Viewport narrow = Exact(340, 60, 20, 100);  // 340..380
  EXPECT_EQ(narrow.ProjectPoint({390, 80}), (TwipPoint{5'000, 2'000}));
}

TEST(ProjectPoint, TheShiftedLongitudeIsRoundedToSingle) {
  // A value slightly above 20, plus 360, is rounded to 380, which is the east edge.
  Viewport view = Exact(340, 60, 20, 100);
  EXPECT_EQ(view.ProjectPoint({std::nextafter(20.0F, 21.0F), 80}), (TwipPoint{4'000, 2'000}));
}

TEST(ProjectPoint, NonFinitePositionsAreNotInView) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  constexpr float kInf = std::numeric_limits<float>::infinity();
  for (Viewport view : {Exact(100, 40, 160, 70), Exact(340, 60, 20, 100)})
    for (const auto& [lon, lat] :
         {std::pair{kNaN, 65.0F}, {350.0F, kNaN}, {130.0F, kNaN}, {350.0F, kInf}, {130.0F, -kInf}})
      EXPECT_EQ(view.ProjectPoint({lon, lat}), std::nullopt) << lon << " " << lat;
}

TEST(ProjectPoint, KeepsCoordinatesWithRoomForMarkers) {
  Viewport view = Exact(340, 60, 20, 100);  // no upper limit in a wrapped view
  EXPECT_EQ(view.ProjectPoint({1e30F, 80}), (TwipPoint{1'000'000'000, 2'000}));
}

TEST(ZoomIn, ReducesTheSpansAroundTheCentre) {
  Viewport view = Exact(100, 40, 160, 70);
  ASSERT_TRUE(view.ZoomIn(20));
  ExpectRequest(view, 106, 43, 154, 67);  // 48 x 24 around 130, 55
  view = Exact(100, 40, 160, 70);
  ASSERT_TRUE(view.ZoomIn(50));
  ExpectRequest(view, 115, 47.5F, 145, 62.5F);
}

TEST(ZoomIn, IsRefusedOnlyWhenBothSpansWouldBeTooSmall) {
  Viewport view = Exact(0, 0, 0.6F, 0.3F);
  EXPECT_EQ(view.MapLonSpan(), 0.6F);
  EXPECT_EQ(view.MapLatSpan(), 0.3F);
  EXPECT_FALSE(view.ZoomIn(20));  // 0.48 x 0.24
  ExpectRequest(view, 0, 0, 0.6F, 0.3F);
  EXPECT_TRUE(Exact(0, 0, 0.6F, 0.4F).ZoomIn(20));  // 0.48 x 0.32
}

TEST(ZoomOut, IncreasesTheSpansUpToTheWidestView) {
  Viewport view = Exact(100, 40, 160, 70);
  ASSERT_TRUE(view.ZoomOut(20));
  ExpectRequest(view, 94, 37, 166, 73);  // 72 x 36 around 130, 55
  view = Exact(20, 10, 320, 160);
  ASSERT_TRUE(view.ZoomOut(20));  // 360 x 180 is too wide: 350 x 180 around 170
  ExpectRequest(view, 355, 0, 345, 180);
  view = Exact(5, 0, 355, 180);
  EXPECT_FALSE(view.ZoomOut(20));
  EXPECT_FALSE(view.ZoomOut(50));
  ExpectRequest(view, 5, 0, 355, 180);
}

TEST(ZoomOut, MovesTheViewBetweenThePoles) {
  Viewport view = Exact(100, 2, 160, 32);
  ASSERT_TRUE(view.ZoomOut(50));  // 90 x 45 around 130, 17: the top would be at -5.5
  ExpectRequest(view, 85, 0, 175, 45);
  view = Exact(100, 148, 160, 178);
  ASSERT_TRUE(view.ZoomOut(50));
  ExpectRequest(view, 85, 135, 175, 180);
}

TEST(ZoomOut, KeepsBoundsWithin360DegreesAndKeeps360) {
  Viewport view = Exact(10, 60, 70, 90);
  ASSERT_TRUE(view.ZoomOut(50));  // 90 wide around 40: -5..85
  ExpectRequest(view, 355, 52.5F, 85, 97.5F);
  view = Exact(340, 60, 20, 80);
  ASSERT_TRUE(view.ZoomIn(50));  // 20 wide around 360: 350..370
  ExpectRequest(view, 350, 65, 10, 75);
  view = Exact(300, 60, 20, 100);
  ASSERT_TRUE(view.ZoomIn(50));  // 40 wide around 340: 320..360 stays
  ExpectRequest(view, 320, 70, 360, 90);
}

TEST(ZoomReset, KeepsTheCentreLongitude) {
  Viewport view = Exact(0, 70, 20, 80);
  ASSERT_TRUE(view.ZoomReset());  // 350 around 10: -165..185
  ExpectRequest(view, 195, 0, 185, 180);
  view.ComputeViewport();
  EXPECT_TRUE(view.MapWrap());
}

TEST(Zooming, InAndOutDoesNotRestoreTheView) {
  Viewport view = Exact(100, 40, 160, 70);
  view.ZoomIn(20);
  view.ComputeViewport();
  view.ZoomOut(20);
  view.ComputeViewport();
  EXPECT_NEAR(view.MapLonSpan(), 60 * 0.96, 1e-4);
}

TEST(SelectRegion, ShowsARegionUnlessItIsDegenerate) {
  Viewport view(kBands);
  EXPECT_TRUE(view.SelectRegion({"EU", "Europe", 165, 20, 225, 55}));
  ExpectRequest(view, 165, 20, 225, 55);
  EXPECT_FALSE(view.SelectRegion({"A", "Same longitudes", 30, 20, 30, 55}));
  ExpectRequest(view, 30, 20, 30, 55);
  EXPECT_FALSE(view.SelectRegion({"B", "Same latitudes", 30, 20, 40, 20}));
  EXPECT_TRUE(view.SelectRegion({"P", "Pacific", 300, 20, 60, 90}));
  // Different doubles, one single.
  EXPECT_FALSE(view.SelectRegion({"C", "A hair", 30, 20, 30.0000001, 55}));
}

TEST(CentreOn, KeepsTheSpans) {
  Viewport view = Exact(100, 40, 160, 70);
  ASSERT_TRUE(view.CentreOn({4'000, 2'000}));  // map position 140, 60
  ExpectRequest(view, 110, 45, 170, 75);
}

TEST(CentreOn, NearAPoleTheViewEndsAtThePole) {
  Viewport view = Exact(100, 30, 220, 90);
  ASSERT_TRUE(view.CentreOn({6'000, 0}));  // 30 with a span of 60 just fits
  ExpectRequest(view, 100, 0, 220, 60);
  view = Exact(100, 5, 220, 65);
  ASSERT_TRUE(view.CentreOn({6'000, 1'000}));  // 15: the top would be at -15
  ExpectRequest(view, 100, 0, 220, 60);
  view = Exact(100, 110, 220, 170);
  ASSERT_TRUE(view.CentreOn({6'000, 5'500}));  // 165
  ExpectRequest(view, 100, 120, 220, 180);
}

TEST(CentreOn, BoundsAreReducedBy360Degrees) {
  Viewport view = Exact(0, 40, 60, 70);
  view.CentreOn({1'000, 1'500});  // 10: -20..40
  ExpectRequest(view, 340, 40, 40, 70);
  view = Exact(300, 40, 360, 70);
  view.CentreOn({5'000, 1'500});  // 350: 320..380
  ExpectRequest(view, 320, 40, 20, 70);
  view = Exact(330, 40, 30, 70);
  view.CentreOn({5'000, 1'500});  // 380, which is 20: -10..50
  ExpectRequest(view, 350, 40, 50, 70);
}

TEST(CentreOn, TheCentreIsLimitedToTheView) {
  Viewport view = View(6'000, 1'800, 5, 0, 355, 180);  // margins of 1250
  view.CentreOn({0, 900});                             // limited to 5: -170..180
  ExpectRequest(view, 190, 0, 180, 180);
}

TEST(ZoomToBox, AcceptsTheCornersInAnyOrder) {
  for (const auto& [x1, y1, x2, y2] : {std::tuple{1'000.0F, 500.0F, 3'000.0F, 1'500.0F},
                                       {3'000, 1'500, 1'000, 500},
                                       {1'000, 1'500, 3'000, 500}}) {
    Viewport view = Exact(100, 40, 160, 70);
    ASSERT_TRUE(view.ZoomToBox({x1, y1}, {x2, y2}));
    ExpectRequest(view, 110, 45, 130, 55);
  }
}

TEST(ZoomToBox, NeedsOneSpanThatIsLargeEnough) {
  // 100 twips per degree: 50 twips are half a degree, 25 a quarter.
  Viewport view = Exact(100, 40, 160, 70);
  EXPECT_TRUE(view.ZoomToBox({1'000, 1'000}, {1'050, 1'001}));
  EXPECT_TRUE(Exact(100, 40, 160, 70).ZoomToBox({1'000, 1'000}, {1'001, 1'025}));
  view = Exact(100, 40, 160, 70);
  EXPECT_FALSE(view.ZoomToBox({1'000, 1'000}, {1'049, 1'024}));
  ExpectRequest(view, 100, 40, 160, 70);
}

TEST(ZoomToBox, RefusesABoxWithoutWidthOrHeight) {
  Viewport view = Exact(100, 40, 160, 70);
  EXPECT_FALSE(view.ZoomToBox({1'000, 1'000}, {1'000, 2'000}));
  EXPECT_FALSE(view.ZoomToBox({1'000, 1'000}, {3'000, 1'000}));
  EXPECT_FALSE(view.ZoomToBox({1'000, 1'000}, {1'000, 1'000}));
}

TEST(ZoomToBox, AcceptsABoxThatExceedsTheMap) {
  Viewport view = View(6'000, 1'800, 5, 0, 355, 180);  // margins of 1250, 10 twips per degree
  ASSERT_TRUE(view.ZoomToBox({0, 600}, {2'000, 900}));
  ExpectRequest(view, -120, 60, 80, 90);
}

TEST(ZoomToBox, ReducesBoundsAbove360) {
  Viewport view = Exact(340, 60, 20, 100);
  ASSERT_TRUE(view.ZoomToBox({1'000, 500}, {3'000, 1'500}));
  ExpectRequest(view, 350, 65, 10, 75);
  view = Exact(340, 60, 20, 100);
  ASSERT_TRUE(view.ZoomToBox({2'500, 500}, {3'000, 1'500}));
  ExpectRequest(view, 5, 65, 10, 75);
  view = Exact(340, 60, 20, 100);
  ASSERT_TRUE(view.ZoomToBox({1'000, 500}, {2'000, 1'500}));
  ExpectRequest(view, 350, 65, 360, 75);
}

TEST(ExtentText, StatesBothSpans) {
  EXPECT_EQ(View(6'000, 1'800, 5, 0, 355, 180).ExtentText(), "180.00° Latitude / 350.00° Longitude");
  EXPECT_EQ(Exact(100, 40, 101, 40.5F).ExtentText(), "0.50° Latitude / 1.00° Longitude");
}

TEST(UnusualRequests, NeverHangOrCrash) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  const std::vector<double> values{kNaN, kInf, -kInf, 1e300, -1e300, 1e9, -1e9, 0, 1e-40, 90, 360, 721};
  for (const double west : values)
    for (const double top : values)
      for (const double east : values)
        for (const double bottom : values) {
          Viewport view(kBands);
          view.SetSize(9'000, 6'000);
          view.SelectRegion({"", "", west, top, east, bottom});
          view.ComputeViewport();
          view.ProjectPoint({100, 50});
          view.ZoomIn(20);
          view.ComputeViewport();
          view.ZoomOut(50);
          view.ZoomToBox({0, 0}, {4'000, 3'000});
          view.CentreOn({10, 10});
          view.ZoomReset();
          view.ComputeViewport();
          EXPECT_LE(view.DetailTiles().size(), 4U);
          EXPECT_FALSE(view.ExtentText().empty());
        }
}

}  // namespace
}  // namespace zerbal::map
