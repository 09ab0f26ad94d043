#include "settings/rounding.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

namespace zerbal::settings {
namespace {

TEST(Round, GoesToTheNearestAndTiesToEven) {
  EXPECT_EQ(Round(0.5), 0);
  EXPECT_EQ(Round(1.5), 2);
  EXPECT_EQ(Round(2.5), 2);
  EXPECT_EQ(Round(-0.5), 0);
  EXPECT_EQ(Round(-1.5), -2);
  EXPECT_EQ(Round(2.51), 3);
  EXPECT_EQ(Round(-2.51), -3);
}

TEST(Int, GoesTowardsMinusInfinity) {
  EXPECT_EQ(Int(1.9), 1);
  EXPECT_EQ(Int(-0.1), -1);
  EXPECT_EQ(Int(-2), -2);
}

TEST(ToInt32, LimitsToTheType) {
  using Limits = std::numeric_limits<std::int32_t>;
  EXPECT_EQ(ToInt32(-7), -7);
  EXPECT_EQ(ToInt32(2147483647.0), Limits::max());
  EXPECT_EQ(ToInt32(2147483648.0), Limits::max());
  EXPECT_EQ(ToInt32(-2147483648.0), Limits::min());
  EXPECT_EQ(ToInt32(-1e300), Limits::min());
  EXPECT_EQ(ToInt32(HUGE_VAL), Limits::max());
  EXPECT_EQ(ToInt32(std::nan("")), 0);
}

}  // namespace
}  // namespace zerbal::settings
