#include <gtest/gtest.h>

#include "data/error.h"

namespace zerbal::data {
namespace {

TEST(Counters, CountUpThrowsBeyond32767) {
  int counter = 32766;
  CountUp(counter);
  EXPECT_EQ(counter, 32767);
  EXPECT_THROW(CountUp(counter), OverflowError);
  EXPECT_EQ(counter, 32767);
}

}  // namespace
}  // namespace zerbal::data
