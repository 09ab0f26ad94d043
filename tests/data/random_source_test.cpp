#include "data/random_source.h"

#include <cmath>

#include <gtest/gtest.h>

namespace zerbal::data {
namespace {

class OneValue final : public RandomSource {
 public:
  explicit OneValue(float value) : value_(value) {}
  float Next() override { return value_; }

 private:
  float value_;
};

const float kLargest = std::nextafter(1.0F, 0.0F);  // 0.99999994

TEST(RandomSource, TheLargestValueDrawsTheLargestNumber) {
  for (const int m : {1, 2, 3, 4, 8, 100, 32'767, 1 << 15})
    EXPECT_EQ(OneValue(kLargest).Draw(m), m);
}

TEST(RandomSource, TheSmallestValueDrawsOne) {
  for (const int m : {1, 2, 4, 8, 1 << 15})
    EXPECT_EQ(OneValue(0).Draw(m), 1);
}

TEST(RandomSource, DrawsEachNumberFromAnEqualPart) {
  for (int number = 1; number <= 8; ++number) {
    EXPECT_EQ(OneValue(static_cast<float>(number - 1) / 8.0F).Draw(8), number);
    EXPECT_EQ(OneValue((static_cast<float>(number) - 0.01F) / 8.0F).Draw(8), number);
  }
}

// Slightly below a whole number the sum is rounded up in single precision, but not in double precision.
TEST(RandomSource, DrawsInSinglePrecision) {
  EXPECT_EQ(OneValue(0.49999997F).Draw(2), 2);
  EXPECT_EQ(OneValue(0.333333313F).Draw(3), 2);
  EXPECT_EQ(OneValue(0.799999952F).Draw(5), 5);
  EXPECT_EQ(OneValue(0.0227272715F).Draw(44), 2);
}

}  // namespace
}  // namespace zerbal::data
