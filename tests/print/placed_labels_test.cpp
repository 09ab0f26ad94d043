#include "print/placed_labels.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "print/print_recorder.h"

namespace zerbal::print {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TwipBox kPlanArea{0, 0, 6000, 3000};
constexpr data::Rgb kHalo{250, 250, 250};
constexpr data::Rgb kPlanRed{200, 0, 0};
constexpr data::Rgb kPlanBlue{0, 0, 200};
constexpr std::int32_t kRadius = 20;
/// A letter is 80 twips wide and 160 high; the halo adds 22 on every side.
const map::TextFont kPlanFont{.name = "Sans", .size = 8};
constexpr std::int32_t kHaloTwips = 22;

PlacedLeg PlanLeg(const char* from, const char* to, const char* number) {
  return {from, to, number, number, "RED", kPlanRed, {{{1000, 1500}, {5000, 1500}}}};
}

std::vector<std::string> DrawnTexts(const PrintRecorder& recorder) {
  std::vector<std::string> texts;
  for (const PrintOperation& operation : recorder.Operations())
    texts.push_back(operation.text);
  return texts;
}

class PlacedLabels : public testing::Test {
 protected:
  PrintRecorder recorder_;
  LabelPlan plan_{recorder_, kPlanArea, kHalo};
};

TEST_F(PlacedLabels, OfAirportsAreRightBelowTheirMarkers) {
  Contents contents;
  contents.destinations = {{"AAA", "AAA", {1000, 1000}, kPlanBlue}};
  plan_.AddMarkers(contents, kRadius);
  plan_.AddAirports(contents, kRadius, kPlanFont);
  plan_.Draw(recorder_);
  ASSERT_EQ(recorder_.Operations().size(), 1U);
  const PrintOperation& text = recorder_.Operations()[0];
  EXPECT_EQ(text.points[0], (TwipPoint{1028 + kHaloTwips, 1028 + kHaloTwips}));
  EXPECT_EQ(text.style, (TextStyle{.font = kPlanFont, .colour = kPlanBlue, .halo = kHalo}));
}

TEST_F(PlacedLabels, NameEachAirportOnceInTheColourOfDestinations) {
  Contents contents;
  contents.allAirports = {{"AAA", "AAA", {1000, 1000}, kPlanBlue}, {"BBB", "BBB", {3000, 1000}, kPlanBlue}};
  contents.destinations = contents.legAirports = {{"AAA", "AAA", {1000, 1000}, kPlanRed}};
  plan_.AddAirports(contents, kRadius, kPlanFont);
  plan_.Draw(recorder_);
  EXPECT_THAT(DrawnTexts(recorder_), ElementsAre("AAA", "BBB"));
  EXPECT_EQ(recorder_.Operations()[0].colour, kPlanRed);
}

TEST_F(PlacedLabels, GoToAirportsWithMoreFlights) {
  // Both need the only place that obstacles leave.
  Contents contents;
  contents.destinations = {{"AAA", "AAA", {1000, 1000}, kPlanRed}, {"BBB", "BBB", {1000, 1000}, kPlanRed}};
  contents.legs = {PlanLeg("BBB", "CCC", "1"), PlanLeg("CCC", "BBB", "2"), PlanLeg("AAA", "CCC", "3")};
  plan_.AddObstacle({0, 0, 6000, 1000});
  plan_.AddObstacle({0, 1000, 1000, 3000});
  plan_.AddObstacle({0, 1300, 6000, 3000});
  plan_.AddAirports(contents, kRadius, kPlanFont);
  plan_.Draw(recorder_);
  EXPECT_THAT(DrawnTexts(recorder_), ElementsAre("BBB"));
}

TEST_F(PlacedLabels, OfALegNameAllItsFlightsBesideItsMiddle) {
  const std::vector<PlacedLeg> legs{PlanLeg("A", "B", "Q1"), PlanLeg("B", "A", "Q2"),
                                    PlanLeg("A", "B", "Q3")};
  plan_.AddLegs(GroupLegs(legs), std::nullopt, 4, kPlanFont);
  plan_.Draw(recorder_);
  ASSERT_THAT(DrawnTexts(recorder_), ElementsAre("Q1 +2"));
  // 5 letters around x 3000, the box 20 above the edge of the line.
  EXPECT_EQ(recorder_.Operations()[0].points[0], (TwipPoint{3000 - 200, 1500 - 30 - 20 - 160 - kHaloTwips}));
}

TEST_F(PlacedLabels, OfAFlightBetweenTheSameAirportIsNone) {
  PlacedLeg leg = PlanLeg("A", "A", "Q1");
  leg.parts = {{{1000, 1000}, {1000, 1000}}};
  const std::vector<PlacedLeg> legs{leg};
  plan_.AddLegs(GroupLegs(legs), std::nullopt, 4, kPlanFont);
  plan_.Draw(recorder_);
  EXPECT_THAT(recorder_.Operations(), IsEmpty());
}

TEST_F(PlacedLabels, OfMeridiansAreAtTheirEndsAndMakeWay) {
  const std::vector<GraticuleLine> lines{{"10°E", {{{1000, 3000}, {1000, 0}}}},
                                         {"20°E", {{{2000, 3000}, {2000, 0}}}}};
  plan_.AddObstacle({1900, 2800, 2100, 3000});
  plan_.AddGraticule(lines, kPlanBlue, kPlanFont);
  plan_.Draw(recorder_);
  ASSERT_THAT(DrawnTexts(recorder_), ElementsAre("10°E", "20°E"));
  // The degree sign counts as two letters here: 5 letters, 400 twips.
  EXPECT_EQ(recorder_.Operations()[0].points[0], (TwipPoint{800, 3000 - 20 - kHaloTwips - 160}));
  EXPECT_EQ(recorder_.Operations()[1].points[0], (TwipPoint{1800, 20 + kHaloTwips}));
}

}  // namespace
}  // namespace zerbal::print
