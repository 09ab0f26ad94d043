// Assertions that are on, whatever the build.
#ifndef ZERBAL_ASSERTIONS
#define ZERBAL_ASSERTIONS
#endif
#include "base/assert.h"

#include <gtest/gtest.h>

namespace zerbal::base {
namespace {

TEST(AssertDeathTest, AFalseConditionEndsTheProgramWithItsPlace) {
  const int answer = 41;
  EXPECT_DEATH(ZERBAL_ASSERT(answer == 42), "assert_test.cpp:.+: assertion failed: answer == 42");
}

TEST(AssertTest, ATrueConditionDoesNothing) {
  ZERBAL_ASSERT(1 + 1 == 2);
}

}  // namespace
}  // namespace zerbal::base
