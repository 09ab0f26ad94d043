#include "app/wheel_steps.h"

#include <tuple>

#include <gtest/gtest.h>

namespace zerbal::app {
namespace {

using Steps = std::vector<std::tuple<int, bool, float>>;

Steps Taken(WheelSteps& wheel) {
  Steps steps;
  for (const WheelSteps::Step& step : wheel.Take())
    steps.emplace_back(step.notches, step.big, step.place.x);
  return steps;
}

TEST(WheelSteps, PartsOfNotchesAddUp) {
  WheelSteps wheel;
  for (const int part : {50, 50, 19})
    wheel.Add(part, false, {1, 1});
  EXPECT_EQ(Taken(wheel), Steps{});
  wheel.Add(1, false, {2, 2});
  wheel.Add(300, true, {3, 3});
  wheel.Add(59, false, {4, 4});
  EXPECT_EQ(Taken(wheel), (Steps{{1, false, 2}, {2, true, 3}}));
  wheel.Add(1, false, {5, 5});
  EXPECT_EQ(Taken(wheel), (Steps{{1, false, 5}}));
}

TEST(WheelSteps, ATurnBackDropsTheStartedNotch) {
  WheelSteps wheel;
  wheel.Add(119, false, {});
  wheel.Add(-119, false, {});
  EXPECT_EQ(Taken(wheel), Steps{});
  wheel.Add(-1, false, {});
  EXPECT_EQ(Taken(wheel), (Steps{{-1, false, 0}}));
}

}  // namespace
}  // namespace zerbal::app
