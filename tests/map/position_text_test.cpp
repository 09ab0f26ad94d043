#include "map/position_text.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace zerbal::map {
namespace {

TEST(TwoDecimals, HasADigitBeforeThePointAndTwoAfterIt) {
  EXPECT_EQ(TwoDecimals(0.0F), "0.00");
  EXPECT_EQ(TwoDecimals(180.0F), "180.00");
  EXPECT_EQ(TwoDecimals(0.25F), "0.25");
  EXPECT_EQ(TwoDecimals(12.3F), "12.30");
  EXPECT_EQ(TwoDecimals(1'234.5F), "1234.50");
}

TEST(TwoDecimals, DecimalTiesAreRoundedAwayFromZero) {
  EXPECT_EQ(TwoDecimals(0.125F), "0.13");
  EXPECT_EQ(TwoDecimals(0.375F), "0.38");
  EXPECT_EQ(TwoDecimals(-0.125F), "-0.13");
  // The binary value is slightly below the tie, but its shortest decimal form is 2.675.
  EXPECT_EQ(TwoDecimals(2.675), "2.68");
  EXPECT_EQ(TwoDecimals(12.355F), "12.36");
  EXPECT_EQ(TwoDecimals(12.354999), "12.35");
}

TEST(TwoDecimals, Carries) {
  EXPECT_EQ(TwoDecimals(0.995), "1.00");
  EXPECT_EQ(TwoDecimals(99.999), "100.00");
  EXPECT_EQ(TwoDecimals(349.99999F), "350.00");
}

TEST(TwoDecimals, SmallAndLargeNumbersHaveNoExponent) {
  EXPECT_EQ(TwoDecimals(1e-30), "0.00");
  EXPECT_EQ(TwoDecimals(-1e-30), "0.00");
  EXPECT_EQ(TwoDecimals(std::numeric_limits<double>::denorm_min()), "0.00");
  EXPECT_EQ(TwoDecimals(1e15), "1000000000000000.00");
  EXPECT_EQ(TwoDecimals(std::numeric_limits<double>::max()).size(), 309U + 3U);
}

TEST(TwoDecimals, NonFiniteNumbersHaveTextsOfTheirOwn) {
  EXPECT_EQ(TwoDecimals(std::nan("")), "nan");
  EXPECT_EQ(TwoDecimals(std::numeric_limits<float>::infinity()), "inf");
  EXPECT_EQ(LonText(std::nan("")), "Enan° nan'");
  EXPECT_EQ(LonText(-std::numeric_limits<double>::infinity()), "Winf° nan'");
  EXPECT_EQ(LatText(std::nan("")), "Nnan° nan'");
  EXPECT_EQ(LatText(-std::numeric_limits<double>::infinity()), "S90° 00.00'");
}

TEST(LonText, HasHemisphereThreeDigitsOfDegreesAndMinutes) {
  EXPECT_EQ(LonText(-8.5), "W008° 30.00'");
  EXPECT_EQ(LonText(8.5), "E008° 30.00'");
  EXPECT_EQ(LonText(179.25), "E179° 15.00'");
  EXPECT_EQ(LonText(-180), "W180° 00.00'");
  EXPECT_EQ(LonText(-0.05), "W000° 03.00'");
}

TEST(LatText, HasHemisphereTwoDigitsOfDegreesAndMinutes) {
  EXPECT_EQ(LatText(47.25), "N47° 15.00'");
  EXPECT_EQ(LatText(-5.125), "S05° 07.50'");
  EXPECT_EQ(LatText(90), "N90° 00.00'");
}

TEST(LatText, IsLimitedToThePole) {
  EXPECT_EQ(LatText(90.4), "N90° 00.00'");
  EXPECT_EQ(LatText(-123), "S90° 00.00'");
}

TEST(PositionTexts, ZeroIsEastAndNorth) {
  EXPECT_EQ(LonText(0), "E000° 00.00'");
  EXPECT_EQ(LatText(0), "N00° 00.00'");
  EXPECT_EQ(LonText(-0.0), "E000° 00.00'");
}

TEST(PositionTexts, MinutesDoNotCarryIntoTheDegrees) {
  EXPECT_EQ(LonText(7.99999), "E007° 60.00'");
  EXPECT_EQ(LatText(-7.99999), "S07° 60.00'");
  EXPECT_EQ(LonText(7.9999), "E007° 59.99'");
}

}  // namespace
}  // namespace zerbal::map
