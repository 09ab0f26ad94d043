#include "print/legend.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zerbal::print {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

constexpr data::Rgb kLegendRed{200, 0, 0};
constexpr data::Rgb kLegendBlue{0, 0, 200};

const data::FlightServiceTable kServices{{.key = "RED", .displayText = "1 - Red - Line", .rgb = kLegendRed},
                                         {.key = "BLU", .displayText = "2 - Blue", .rgb = kLegendBlue},
                                         {.key = "GRN", .displayText = "Green", .rgb = {}}};

auto TextIs(const char* text) {
  return Field(&LegendRow::text, text);
}

TEST(Legend, ListsTheShownServicesInTheOrderOfTheTable) {
  const auto rows =
      LegendRows({.services = kServices, .shownServices = {"BLU", "RED", "OTHER"}, .steps = {}}, {});
  EXPECT_THAT(rows, ElementsAre(TextIs("Red - Line"), TextIs("Blue"), TextIs("OTHER")));
  EXPECT_EQ(rows[0].sample, (StrokeStyle{.colour = kLegendRed, .width = 2}));
  EXPECT_EQ(rows[2].sample, (StrokeStyle{.colour = {}, .width = 2}));
  EXPECT_FALSE(rows[0].heading);
}

TEST(Legend, ListsStepsWithTheirWidths) {
  PrintStyle style;
  style.text = kLegendBlue;
  style.flightWidths = {1, 3, 5, 7};
  const auto rows = LegendRows(
      {.services = kServices, .shownServices = {"RED"}, .steps = {{1, 1}, {2, 9}}, .stepWidths = true},
      style);
  EXPECT_THAT(rows, ElementsAre(TextIs("Flight services"), TextIs("Red - Line"), TextIs("Flights on a leg"),
                                TextIs("1"), TextIs("2–9")));
  EXPECT_TRUE(rows[2].heading);
  EXPECT_EQ(rows[3].sample, (StrokeStyle{.colour = kLegendBlue, .width = 1}));
  EXPECT_EQ(rows[4].sample, (StrokeStyle{.colour = kLegendBlue, .width = 3}));
}

TEST(Legend, ListsStepsWithTheirColours) {
  PrintStyle style;
  style.frequency = {kLegendRed, kLegendBlue, kLegendRed, kLegendBlue};
  const auto rows = LegendRows(
      {.services = kServices, .shownServices = {}, .steps = {{1, 1}, {2, 9}}, .stepColours = true}, style);
  ASSERT_THAT(rows, ElementsAre(TextIs("Flights on a leg"), TextIs("1"), TextIs("2–9")));
  EXPECT_EQ(rows[2].sample, (StrokeStyle{.colour = kLegendBlue, .width = 2}));
}

TEST(Legend, WithoutContentsHasNoRows) {
  EXPECT_THAT(LegendRows({.services = kServices, .shownServices = {}, .steps = {}}, {}), IsEmpty());
}

}  // namespace
}  // namespace zerbal::print
