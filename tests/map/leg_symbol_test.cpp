#include <vector>

#include <gtest/gtest.h>

#include "map/leg.h"
#include "map/map_world.h"
#include "map/views.h"

namespace zerbal::map {

namespace {

void ExpectSymbol(const LegSymbol& symbol, const LegSymbol& expected) {
  EXPECT_EQ(symbol.anchor, expected.anchor);
  EXPECT_EQ(symbol.nose, expected.nose);
  EXPECT_EQ(symbol.wingFrom, expected.wingFrom);
  EXPECT_EQ(symbol.wingTo, expected.wingTo);
  EXPECT_EQ(symbol.tailFrom, expected.tailFrom);
  EXPECT_EQ(symbol.tailTo, expected.tailTo);
}

// Legs of 3000 by 4000 have the length 5000, cosine 0.6 and sine 0.8. In overview mode:
//   nose   120: 72, 96          twice that: 144, 192
//   wing    82: 49.2, 65.6      -> 49, 65
//   across  75: 60, 45 (exchanged); 37: 29.6, 22.2

TEST(ComputeLegSymbol, XIncreasesYIncreases) {
  ExpectSymbol(ComputeLegSymbol({1000, 2000}, {4000, 6000}, false), {.anchor = {1750, 3000},
                                                                     .nose = {1822, 3096},
                                                                     .wingFrom = {1859, 3020},
                                                                     .wingTo = {1739, 3110},
                                                                     .tailFrom = {1779, 2977},
                                                                     .tailTo = {1720, 3022}});
}

TEST(ComputeLegSymbol, XIncreasesYDecreases) {
  ExpectSymbol(ComputeLegSymbol({1000, 6000}, {4000, 2000}, false), {.anchor = {1750, 5000},
                                                                     .nose = {1822, 4904},
                                                                     .wingFrom = {1739, 4890},
                                                                     .wingTo = {1859, 4980},
                                                                     .tailFrom = {1720, 4977},
                                                                     .tailTo = {1779, 5022}});
}

TEST(ComputeLegSymbol, XDecreasesYDecreases) {
  ExpectSymbol(ComputeLegSymbol({4000, 6000}, {1000, 2000}, false), {.anchor = {3250, 5000},
                                                                     .nose = {3178, 4904},
                                                                     .wingFrom = {3141, 4980},
                                                                     .wingTo = {3261, 4890},
                                                                     .tailFrom = {3220, 5022},
                                                                     .tailTo = {3279, 4977}});
}

TEST(ComputeLegSymbol, XDecreasesYIncreases) {
  ExpectSymbol(ComputeLegSymbol({4000, 2000}, {1000, 6000}, false), {.anchor = {3250, 3000},
                                                                     .nose = {3178, 3096},
                                                                     .wingFrom = {3261, 3110},
                                                                     .wingTo = {3141, 3020},
                                                                     .tailFrom = {3279, 3022},
                                                                     .tailTo = {3220, 2977}});
}

TEST(ComputeLegSymbol, IsLargerInDetailMode) {
  // 160: 96, 128; 110: 66, 88; across 100: 80, 60; 50: 40, 30.
  ExpectSymbol(ComputeLegSymbol({1000, 2000}, {4000, 6000}, true), {.anchor = {1750, 3000},
                                                                    .nose = {1846, 3128},
                                                                    .wingFrom = {1896, 3028},
                                                                    .wingTo = {1736, 3148},
                                                                    .tailFrom = {1790, 2970},
                                                                    .tailTo = {1710, 3030}});
}

TEST(ComputeLegSymbol, AlongTheAxesInOverviewMode) {
  // A quarter of 403 is 100.75: 1000 + 100.75 and 1403 - 100.75, both rounded down.
  ExpectSymbol(ComputeLegSymbol({1000, 2000}, {1403, 2000}, false), {.anchor = {1100, 2000},
                                                                     .nose = {1220, 2000},
                                                                     .wingFrom = {1182, 1925},
                                                                     .wingTo = {1182, 2075},
                                                                     .tailFrom = {1100, 1963},
                                                                     .tailTo = {1100, 2037}});
  ExpectSymbol(ComputeLegSymbol({1403, 2000}, {1000, 2000}, false), {.anchor = {1302, 2000},
                                                                     .nose = {1182, 2000},
                                                                     .wingFrom = {1220, 2075},
                                                                     .wingTo = {1220, 1925},
                                                                     .tailFrom = {1302, 2037},
                                                                     .tailTo = {1302, 1963}});
  ExpectSymbol(ComputeLegSymbol({2000, 1000}, {2000, 1403}, false), {.anchor = {2000, 1100},
                                                                     .nose = {2000, 1220},
                                                                     .wingFrom = {2075, 1182},
                                                                     .wingTo = {1925, 1182},
                                                                     .tailFrom = {2037, 1100},
                                                                     .tailTo = {1963, 1100}});
  ExpectSymbol(ComputeLegSymbol({2000, 1403}, {2000, 1000}, false), {.anchor = {2000, 1302},
                                                                     .nose = {2000, 1182},
                                                                     .wingFrom = {1925, 1220},
                                                                     .wingTo = {2075, 1220},
                                                                     .tailFrom = {1963, 1302},
                                                                     .tailTo = {2037, 1302}});
}

TEST(ComputeLegSymbol, AlongAnAxisInDetailMode) {
  ExpectSymbol(ComputeLegSymbol({1000, 2000}, {1400, 2000}, true), {.anchor = {1100, 2000},
                                                                    .nose = {1260, 2000},
                                                                    .wingFrom = {1210, 1900},
                                                                    .wingTo = {1210, 2100},
                                                                    .tailFrom = {1100, 1950},
                                                                    .tailTo = {1100, 2050}});
}

TEST(ComputeLegSymbol, OffsetsAreRoundedAsMagnitudesAndPointsAfterTheAddition) {
  // 45 degrees: 120 -> 84.85, 82 -> 57.98, 75 -> 53.03, 37 -> 26.16; a quarter of 1001 is 250.25.
  const LegSymbol symbol = ComputeLegSymbol({1001, 1001}, {0, 0}, false);
  EXPECT_EQ(symbol.anchor, (TwipPoint{750, 750}));          // 750.75
  EXPECT_EQ(symbol.nose, (TwipPoint{750 - 84, 750 - 84}));  // not 750 - 84.85 rounded down
  EXPECT_EQ(symbol.wingFrom, (TwipPoint{639, 746}));        // 693 - 53.03, 693 + 53.03
  EXPECT_EQ(symbol.wingTo, (TwipPoint{746, 639}));
  EXPECT_EQ(symbol.tailFrom, (TwipPoint{723, 776}));  // 750 - 26.16, 750 + 26.16
  EXPECT_EQ(symbol.tailTo, (TwipPoint{776, 723}));
}

TEST(ComputeLegSymbol, RoundsDownBelowZeroToo) {
  const LegSymbol symbol = ComputeLegSymbol({-1000, -10}, {-1003, -10}, false);
  EXPECT_EQ(symbol.anchor, (TwipPoint{-1001, -10}));  // -1000.75
  EXPECT_EQ(symbol.nose, (TwipPoint{-1121, -10}));
}

TEST(LegLabelPosition, ForEveryDirection) {
  // The reference point, two nose lengths from the anchor, and the offset of the direction.
  const auto overview = [](TwipPoint from, TwipPoint to) { return LegLabelPosition(from, to, false); };
  EXPECT_EQ(overview({1000, 6000}, {4000, 2000}), (TwipPoint{1894 + 40, 4808 + 40}));
  EXPECT_EQ(overview({1000, 2000}, {4000, 6000}), (TwipPoint{1894 + 40, 3192 - 240}));
  EXPECT_EQ(overview({4000, 6000}, {1000, 2000}), (TwipPoint{3106 + 40, 4808 - 200}));
  EXPECT_EQ(overview({4000, 2000}, {1000, 6000}), (TwipPoint{3106 + 40, 3192 + 20}));
  EXPECT_EQ(overview({2000, 1403}, {2000, 1000}), (TwipPoint{2000 + 40, 1302 - 240}));
  EXPECT_EQ(overview({2000, 1000}, {2000, 1403}), (TwipPoint{2000 + 40, 1100 + 240}));
  EXPECT_EQ(overview({1000, 2000}, {1403, 2000}), (TwipPoint{1100 + 240, 2000 + 40}));
  EXPECT_EQ(overview({1403, 2000}, {1000, 2000}), (TwipPoint{1302 - 240, 2000 + 40}));
  EXPECT_EQ(overview({1000, 2000}, {1000, 2000}), (TwipPoint{1050, 1760}));
}

TEST(LegLabelPosition, IsFurtherAwayInDetailMode) {
  EXPECT_EQ(LegLabelPosition({1000, 2000}, {4000, 6000}, true),
            (TwipPoint{1750 + 192 + 40, 3000 + 256 - 240}));
  EXPECT_EQ(LegLabelPosition({1000, 2000}, {1400, 2000}, true), (TwipPoint{1100 + 320, 2040}));
  EXPECT_EQ(LegLabelPosition({1000, 2000}, {1000, 2000}, true), (TwipPoint{1050, 1760}));
}

class DrawLegSymbolTest : public testing::Test {
 protected:
  std::vector<Operation> Draw(TwipPoint from, TwipPoint to, bool symbol, bool label) {
    Recorder recorder;
    Canvas canvas{viewport_, recorder, {"Sans", 8}};
    DrawLegSymbol(canvas, from, to, "QV12",
                  {.symbol = symbol, .label = label, .symbolColour = kSymbol, .labelColour = kFlight});
    return recorder.Operations();
  }

  static constexpr data::Rgb kSymbol{1, 2, 3};
  static constexpr data::Rgb kFlight{40, 50, 60};
  Viewport viewport_{kBands};
};

TEST_F(DrawLegSymbolTest, DrawsFuselageWingTailAndLabelInThisOrder) {
  const auto operations = Draw({1000, 2000}, {1400, 2000}, true, true);
  const auto line = [](TwipPoint from, TwipPoint to, int width) {
    return Operation{
        .kind = Operation::Kind::kLine, .from = from, .to = to, .pen = {.colour = kSymbol, .width = width}};
  };
  const std::vector<Operation> expected{line({1100, 2000}, {1220, 2000}, 3),
                                        line({1182, 1925}, {1182, 2075}, 2),
                                        line({1100, 1963}, {1100, 2037}, 2),
                                        {.kind = Operation::Kind::kText,
                                         .from = {1340, 2040},
                                         .pen = {.colour = kFlight},
                                         .text = "QV12",
                                         .font = {"Sans", 8}}};
  EXPECT_EQ(operations, expected);
}

TEST_F(DrawLegSymbolTest, TheLabelPositionDoesNotDependOnTheSymbol) {
  const auto alone = Draw({1000, 2000}, {1400, 2000}, false, true);
  ASSERT_EQ(alone.size(), 1U);
  EXPECT_EQ(alone[0], Draw({1000, 2000}, {1400, 2000}, true, true).back());
}

TEST_F(DrawLegSymbolTest, DrawsTheSymbolWithoutALabel) {
  EXPECT_EQ(Draw({1000, 2000}, {1400, 2000}, true, false).size(), 3U);
}

TEST_F(DrawLegSymbolTest, EqualEndsHaveOnlyALabel) {
  const auto operations = Draw({1000, 2000}, {1000, 2000}, true, true);
  ASSERT_EQ(operations.size(), 1U);
  EXPECT_EQ(operations[0].kind, Operation::Kind::kText);
  EXPECT_EQ(operations[0].from, (TwipPoint{1050, 1760}));
  EXPECT_TRUE(Draw({1000, 2000}, {1000, 2000}, true, false).empty());
}

}  // namespace
}  // namespace zerbal::map
