// Assertions that are off, whatever the build.
#undef ZERBAL_ASSERTIONS
#include <gtest/gtest.h>

#include "base/assert.h"

namespace zerbal::base {
namespace {

TEST(AssertTest, AConditionIsNotEvaluatedWhenOff) {
  int evaluated = 0;
  ZERBAL_ASSERT(++evaluated == 0);
  EXPECT_EQ(evaluated, 0);
}

}  // namespace
}  // namespace zerbal::base
