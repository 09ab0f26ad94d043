#include "print/line_runner.h"

#include <limits>

#include <gtest/gtest.h>

#include "print/parts.h"

namespace zerbal::print {
namespace {

constexpr PlaneBox kBox{0, 0, 100, 50};

Parts RunOf(const std::vector<PlanePoint>& points) {
  Parts parts;
  const LineSink sink = [&](std::span<const TwipPoint> part) {
    parts.emplace_back(part.begin(), part.end());
  };
  LineRunner runner(kBox, sink);
  for (const PlanePoint point : points)
    runner.To(point);
  runner.Break();
  return parts;
}

TEST(LineRunner, JoinsTheSegmentsOfALine) {
  EXPECT_EQ(RunOf({{1, 1}, {10, 1}, {10, 20}}), (Parts{{{1, 1}, {10, 1}, {10, 20}}}));
}

TEST(LineRunner, CutsAtEveryEdgeOfTheFrame) {
  EXPECT_EQ(RunOf({{-10, 20}, {110, 20}}), (Parts{{{0, 20}, {100, 20}}}));
  EXPECT_EQ(RunOf({{20, -10}, {20, 60}}), (Parts{{{20, 0}, {20, 50}}}));
  EXPECT_EQ(RunOf({{-10, -10}, {20, 20}}), (Parts{{{0, 0}, {20, 20}}}));
}

TEST(LineRunner, ALineThatLeavesAndReturnsHasTwoParts) {
  EXPECT_EQ(RunOf({{90, 10}, {110, 10}, {110, 30}, {90, 30}}),
            (Parts{{{90, 10}, {100, 10}}, {{100, 30}, {90, 30}}}));
}

TEST(LineRunner, NothingOutsideIsDrawn) {
  EXPECT_EQ(RunOf({{-10, 10}, {-10, 40}}), Parts{});
  EXPECT_EQ(RunOf({{-10, 5}, {5, -10}}), Parts{});
  EXPECT_EQ(RunOf({{5, 5}}), Parts{});
}

TEST(LineRunner, APartWithinATwipIsAPoint) {
  EXPECT_EQ(RunOf({{5.1, 5.1}, {5.2, 5.2}}), (Parts{{{5, 5}, {5, 5}}}));
}

TEST(LineRunner, WhatIsNoNumberIsCutOut) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(RunOf({{1, 1}, {2, 2}, {nan, 3}, {4, 4}, {5, 5}}), (Parts{{{1, 1}, {2, 2}}, {{4, 4}, {5, 5}}}));
}

}  // namespace
}  // namespace zerbal::print
