#include "jet/read/number_text.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace zerbal::jet {
namespace {

template <class Real>
std::string TextOf(Real value) {
  std::string text;
  AppendNumber(value, text);
  return text;
}

TEST(NumberTextTest, WritesTheShortestText) {
  EXPECT_EQ(TextOf(0.1f), "0.1");
  EXPECT_EQ(TextOf(0.1), "0.1");
  EXPECT_EQ(TextOf(double{0.1f}), "0.10000000149011612");
  EXPECT_EQ(TextOf(0.0), "0");
  EXPECT_EQ(TextOf(-0.0), "-0");
  EXPECT_EQ(TextOf(-12.5), "-12.5");
  EXPECT_EQ(TextOf(444.555), "444.555");
  EXPECT_EQ(TextOf(100.0), "100");
  EXPECT_EQ(TextOf(1e15), "1000000000000000");
  EXPECT_EQ(TextOf(1e16), "1e16");
  EXPECT_EQ(TextOf(1.25e16), "1.25e16");
  EXPECT_EQ(TextOf(1e-5), "0.00001");
  EXPECT_EQ(TextOf(1.5e-7), "1.5e-7");
  EXPECT_EQ(TextOf(std::numeric_limits<double>::max()), "1.7976931348623157e308");
  EXPECT_EQ(TextOf(std::numeric_limits<float>::denorm_min()), "1e-45");
  EXPECT_EQ(TextOf(std::nan("")), "nan");
  EXPECT_EQ(TextOf(-HUGE_VAL), "-inf");
  EXPECT_EQ(TextOf(HUGE_VAL), "inf");
  EXPECT_EQ(TextOf(std::nanf("")), "nan");
  EXPECT_EQ(TextOf(-HUGE_VALF), "-inf");
  EXPECT_EQ(TextOf(HUGE_VALF), "inf");
  EXPECT_EQ(TextOf(-1.25e30F), "-1.25e30");
  EXPECT_EQ(TextOf(1.5e-7F), "1.5e-7");
}

TEST(NumberTextTest, ReadsBackWhatItWrites) {
  for (const double value : {1.0 / 3, 123456.789, 9.87654321e-12, 5e300, 4503599627370497.5}) {
    const auto read = ParseNumber(TextOf(value));
    ASSERT_TRUE(read) << value;
    EXPECT_EQ(read->real, value);
  }
}

TEST(NumberTextTest, ParsesOnlyWholeNumbersTexts) {
  EXPECT_EQ(ParseNumber("42")->integer, 42);
  EXPECT_TRUE(ParseNumber("42")->whole);
  EXPECT_EQ(ParseNumber("+42")->integer, 42);
  EXPECT_EQ(ParseNumber("-7")->integer, -7);
  EXPECT_EQ(ParseNumber("-7.25")->real, -7.25);
  EXPECT_EQ(ParseNumber(".5")->real, 0.5);
  EXPECT_EQ(ParseNumber("1e3")->real, 1000);
  EXPECT_EQ(ParseNumber("99999999999999999999")->real, 1e20);
  EXPECT_EQ(ParseNumber("1e999")->real, HUGE_VAL);
  EXPECT_EQ(ParseNumber("-1e999")->real, -HUGE_VAL);
  for (const char* text : {"", " ", "x", "12a", "1 2", " 5", "5 ", "--5", "+-5", "-+5", "0x10", "nan", "inf",
                           "-inf", "1,5", "."})
    EXPECT_FALSE(ParseNumber(text)) << text;
}

TEST(NumberTextTest, ParsesCurrencyExactly) {
  EXPECT_EQ(ParseScaled("12.5", 4), 125000);
  EXPECT_EQ(ParseScaled("-0.0001", 4), -1);
  EXPECT_EQ(ParseScaled("922337203685477.5807", 4), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(ParseScaled("1.50000", 4), 15000);
  EXPECT_FALSE(ParseScaled("1.00001", 4));
  EXPECT_FALSE(ParseScaled("922337203685477.5808", 4));
  EXPECT_FALSE(ParseScaled("1e3", 4));
  EXPECT_FALSE(ParseScaled("", 4));
}

TEST(NumberTextTest, PutsTheDecimalPoint) {
  const auto scaled = [](bool negative, const char* digits, int scale) {
    std::string text;
    AppendScaled(negative, digits, scale, text);
    return text;
  };
  EXPECT_EQ(scaled(false, "12345", 4), "1.2345");
  EXPECT_EQ(scaled(true, "5", 2), "-0.05");
  EXPECT_EQ(scaled(false, "0", 4), "0.0000");
  EXPECT_EQ(scaled(false, "7", 0), "7");
}

TEST(NumberTextTest, SpellsEqualDecimalsAlike) {
  EXPECT_EQ(NormalDecimal("+07.50"), "7.5");
  EXPECT_EQ(NormalDecimal("7.5"), "7.5");
  EXPECT_EQ(NormalDecimal("-0.00"), "0");
  EXPECT_EQ(NormalDecimal("000"), "0");
  EXPECT_EQ(NormalDecimal("-12"), "-12");
  EXPECT_FALSE(NormalDecimal("1e2"));
  EXPECT_FALSE(NormalDecimal("."));
  EXPECT_EQ(NormalDecimal(".25"), "0.25");
  EXPECT_EQ(NormalDecimal("3."), "3");
  for (const char* text : {"", "-", "1.2x", "x.2", "--1"})
    EXPECT_FALSE(NormalDecimal(text)) << text;
  EXPECT_FALSE(NormalDecimal("12 "));
}

}  // namespace
}  // namespace zerbal::jet
