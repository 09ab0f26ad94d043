#include <cmath>

#include <gtest/gtest.h>

#include "map/leg.h"
#include "print/layers.h"
#include "print/parts.h"

namespace zerbal::print {
namespace {

TEST(StraightAtQuarter, OfAStraightLegIsTheLeg) {
  const Part part{{0, 0}, {400, 300}};
  const auto [from, to] = StraightAtQuarter(part);
  EXPECT_EQ(from, (TwipPoint{0, 0}));
  EXPECT_EQ(to, (TwipPoint{400, 300}));
}

TEST(StraightAtQuarter, PutsTheSymbolOnTheCurveInItsDirection) {
  // 1000 up, 3000 to the right: the quarter is the corner, reached upwards.
  const Part part{{0, 2'000}, {0, 1'000}, {3'000, 1'000}};
  const auto [from, to] = StraightAtQuarter(part);
  const map::LegSymbol symbol = map::ComputeLegSymbol(from, to, false);
  EXPECT_EQ(symbol.anchor, (TwipPoint{0, 1'000}));
  EXPECT_EQ(symbol.nose, (TwipPoint{0, 880}));
}

TEST(StraightAtQuarter, StaysOnACircle) {
  Part part;
  for (int i = 0; i <= 90; ++i)
    part.push_back({static_cast<std::int32_t>(std::lround(10'000 * std::cos(i * M_PI / 180))),
                    static_cast<std::int32_t>(std::lround(10'000 * std::sin(i * M_PI / 180)))});
  const auto [from, to] = StraightAtQuarter(part);
  const TwipPoint anchor = map::ComputeLegSymbol(from, to, false).anchor;
  EXPECT_NEAR(std::hypot(anchor.x, anchor.y), 10'000, 2);
  EXPECT_NEAR(std::atan2(anchor.y, anchor.x) * 180 / M_PI, 22.5, 0.1);
}

TEST(StraightAtQuarter, OfAPointIsThePoint) {
  const Part part{{7, 7}, {7, 7}};
  EXPECT_EQ(StraightAtQuarter(part).from, StraightAtQuarter(part).to);
}

}  // namespace
}  // namespace zerbal::print
