#include "print/flight_steps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zerbal::print {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(FlightSteps, SplitLegsAtPercentiles) {
  // The 10th, 15th and 18th of 20 numbers, whatever their order.
  EXPECT_THAT(FlightSteps({30, 1, 1, 1, 1, 1, 1, 1, 1, 2, 2, 2, 2, 3, 4, 5, 6, 7, 9, 10}),
              ElementsAre(FlightStep{1, 2}, FlightStep{3, 5}, FlightStep{6, 9}, FlightStep{10, 30}));
}

TEST(FlightSteps, AreFewerWherePercentilesAreEqual) {
  EXPECT_THAT(FlightSteps({1, 1, 1, 1, 1, 1, 1, 1, 1, 8}), ElementsAre(FlightStep{1, 1}, FlightStep{2, 8}));
  EXPECT_THAT(FlightSteps({3, 3, 3}), ElementsAre(FlightStep{3, 3}));
  EXPECT_THAT(FlightSteps({5}), ElementsAre(FlightStep{5, 5}));
  EXPECT_THAT(FlightSteps({}), IsEmpty());
}

TEST(FlightSteps, HoldEveryLeg) {
  const std::vector<int> flights{1, 1, 2, 2, 3, 5, 8, 13, 21, 34};
  const auto steps = FlightSteps(flights);
  for (const int number : flights) {
    const FlightStep& step = steps[StepOf(steps, number)];
    EXPECT_LE(step.least, number);
    EXPECT_GE(step.most, number);
  }
}

TEST(FlightSteps, HaveTexts) {
  EXPECT_EQ(StepText({1, 1}), "1");
  EXPECT_EQ(StepText({2, 2}), "2");
  EXPECT_EQ(StepText({3, 17}), "3–17");
}

}  // namespace
}  // namespace zerbal::print
