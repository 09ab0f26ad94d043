#include "base/numbers.h"

#include <clocale>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace zerbal::base {
namespace {

TEST(Round, RoundsToTheNearestAndTiesToEven) {
  EXPECT_EQ(Round(0.5), 0);
  EXPECT_EQ(Round(1.5), 2);
  EXPECT_EQ(Round(2.5), 2);
  EXPECT_EQ(Round(-0.5), 0);
  EXPECT_EQ(Round(-1.5), -2);
  EXPECT_EQ(Round(2.51), 3);
  EXPECT_EQ(Round(-2.51), -3);
}

TEST(Int, RoundsTowardsMinusInfinity) {
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

TEST(LeadingNumber, ReadsTheNumberAtTheBeginningOfAText) {
  EXPECT_EQ(LeadingNumber("12"), 12);
  EXPECT_EQ(LeadingNumber(" \t 12.5abc"), 12.5);
  EXPECT_EQ(LeadingNumber("-3"), -3);
  EXPECT_EQ(LeadingNumber("+3"), 3);
  EXPECT_EQ(LeadingNumber(".5"), 0.5);
  EXPECT_EQ(LeadingNumber("-.25."), -0.25);
  EXPECT_EQ(LeadingNumber("7."), 7);
  EXPECT_EQ(LeadingNumber("1.2.3"), 1.2);
  EXPECT_EQ(LeadingNumber("1e5"), 1);
  EXPECT_EQ(LeadingNumber("1 2"), 1);
  EXPECT_EQ(LeadingNumber("1,5"), 1);
}

TEST(LeadingNumber, IsZeroWithoutANumber) {
  for (const char* text : {"", " ", "x1", "-", "+", ".", "-.", "--1", "- 1", "inf", "nan", "\xC3\xA4"}) {
    EXPECT_EQ(LeadingNumber(text), 0) << text;
  }
  EXPECT_FALSE(std::signbit(LeadingNumber("-0")));
}

TEST(LeadingNumber, LimitsNumbersThatAreTooLargeOrTooSmall) {
  constexpr double kMax = std::numeric_limits<double>::max();
  EXPECT_EQ(LeadingNumber(std::string(400, '9')), kMax);
  EXPECT_EQ(LeadingNumber("-" + std::string(400, '9')), -kMax);
  EXPECT_EQ(LeadingNumber("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(LeadingNumber(std::string(100000, '0') + "12"), 12);
  EXPECT_EQ(LeadingNumber("1." + std::string(100000, '0')), 1);
}

TEST(LeadingNumber, DoesNotDependOnTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"de_DE.UTF-8", "C.UTF-8", "C"}) {
    std::setlocale(LC_ALL, name);
    EXPECT_EQ(LeadingNumber("1.5"), 1.5) << name;
    EXPECT_EQ(DecimalText(1.5), "1.5") << name;
  }
  std::setlocale(LC_ALL, before.c_str());
}

TEST(LeadingInt16, RoundsTiesToEvenAndLimits) {
  EXPECT_EQ(LeadingInt16("1.6"), 2);
  EXPECT_EQ(LeadingInt16("0.5"), 0);
  EXPECT_EQ(LeadingInt16("1.5"), 2);
  EXPECT_EQ(LeadingInt16("2.5"), 2);
  EXPECT_EQ(LeadingInt16("-2.5"), -2);
  EXPECT_EQ(LeadingInt16("32767.4"), 32767);
  EXPECT_EQ(LeadingInt16("32768"), 32767);
  EXPECT_EQ(LeadingInt16("-99999999999999999999"), -32768);
  EXPECT_EQ(LeadingInt16("no"), 0);
}

TEST(LeadingInt32, RoundsAndLimits) {
  EXPECT_EQ(LeadingInt32("2147483646.5"), 2147483646);
  EXPECT_EQ(LeadingInt32("2147483648"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(LeadingInt32("-2147483649"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(LeadingInt32(std::string(400, '9')), std::numeric_limits<std::int32_t>::max());
}

TEST(DecimalText, IsPlainDecimal) {
  EXPECT_EQ(DecimalText(0.0), "0");
  EXPECT_EQ(DecimalText(-0.0), "0");
  EXPECT_EQ(DecimalText(5.0), "5");
  EXPECT_EQ(DecimalText(-75.0), "-75");
  EXPECT_EQ(DecimalText(0.1), "0.1");
  EXPECT_EQ(DecimalText(-12.25), "-12.25");
  EXPECT_EQ(DecimalText(1e21), "1000000000000000000000");
  EXPECT_EQ(DecimalText(1e-7), "0.0000001");
  EXPECT_EQ(DecimalText(std::numeric_limits<double>::quiet_NaN()), "0");
}

TEST(DecimalText, ReadsBackTheSame) {
  for (const double value : {1.0 / 3, 123456.789, -0.017, 5e-324, std::numeric_limits<double>::max(), 1e300})
    EXPECT_EQ(LeadingNumber(DecimalText(value)), value);
  EXPECT_EQ(LeadingNumber(DecimalText(std::numeric_limits<double>::infinity())),
            std::numeric_limits<double>::max());
}

TEST(DecimalText, HasTheDigitsOfASingle) {
  EXPECT_EQ(DecimalText(12.3F), "12.3");
  EXPECT_EQ(DecimalText(-75.0F), "-75");
  EXPECT_EQ(static_cast<float>(LeadingNumber(DecimalText(170.123F))), 170.123F);
}

}  // namespace
}  // namespace zerbal::base
