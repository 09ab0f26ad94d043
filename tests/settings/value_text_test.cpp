#include "settings/value_text.h"

#include <clocale>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zerbal::settings {
namespace {

using Fields = std::vector<std::string>;

TEST(SplitList, FillsFieldsFromOne) {
  EXPECT_EQ(SplitList("10,20", 3, ","), (Fields{"", "10", "20", ""}));
  EXPECT_EQ(SplitList("1,2,3,4", 3, ","), (Fields{"", "1", "2", "3"}));
  EXPECT_EQ(SplitList("", 2, ","), (Fields{"", "", ""}));
  EXPECT_EQ(SplitList(",,x", 3, ","), (Fields{"", "", "", "x"}));
  EXPECT_EQ(SplitList("a,,c,", 4, ","), (Fields{"", "a", "", "c", ""}));
  EXPECT_EQ(SplitList("one", 1, ","), (Fields{"", "one"}));
}

TEST(SplitList, TakesTheFirstCharacterOfTheDelimiter) {
  EXPECT_EQ(SplitList("a;b, c", 2, ";,"), (Fields{"", "a", "b, c"}));
  EXPECT_EQ(SplitList("a,b", 2, ""), (Fields{"", "a,b", ""}));
}

TEST(SplitList, OfNoFieldsIsJustTheUnusedOne) {
  EXPECT_EQ(SplitList("a,b", 0, ","), Fields{""});
  EXPECT_EQ(SplitList("a,b", -3, ","), Fields{""});
}

TEST(ParseNumber, ReadsTheNumberThatATextBeginsWith) {
  EXPECT_EQ(ParseNumber("12"), 12);
  EXPECT_EQ(ParseNumber(" \t 12.5abc"), 12.5);
  EXPECT_EQ(ParseNumber("-3"), -3);
  EXPECT_EQ(ParseNumber("+3"), 3);
  EXPECT_EQ(ParseNumber(".5"), 0.5);
  EXPECT_EQ(ParseNumber("-.25."), -0.25);
  EXPECT_EQ(ParseNumber("7."), 7);
  EXPECT_EQ(ParseNumber("1.2.3"), 1.2);
  EXPECT_EQ(ParseNumber("1e5"), 1);
  EXPECT_EQ(ParseNumber("1 2"), 1);
  EXPECT_EQ(ParseNumber("1,5"), 1);
}

TEST(ParseNumber, IsZeroWithoutANumber) {
  for (const char* text : {"", " ", "x1", "-", "+", ".", "-.", "--1", "- 1", "inf", "nan", "\xC3\xA4"}) {
    EXPECT_EQ(ParseNumber(text), 0) << text;
  }
  EXPECT_FALSE(std::signbit(ParseNumber("-0")));
}

TEST(ParseNumber, LimitsWhatIsTooLargeOrTooSmall) {
  constexpr double kMax = std::numeric_limits<double>::max();
  EXPECT_EQ(ParseNumber(std::string(400, '9')), kMax);
  EXPECT_EQ(ParseNumber("-" + std::string(400, '9')), -kMax);
  EXPECT_EQ(ParseNumber("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(ParseNumber(std::string(100000, '0') + "12"), 12);
  EXPECT_EQ(ParseNumber("1." + std::string(100000, '0')), 1);
}

TEST(ParseNumber, DoesNotDependOnTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* name : {"de_DE.UTF-8", "C.UTF-8", "C"}) {
    std::setlocale(LC_ALL, name);
    EXPECT_EQ(ParseNumber("1.5"), 1.5) << name;
    EXPECT_EQ(NumberText(1.5), "1.5") << name;
  }
  std::setlocale(LC_ALL, before.c_str());
}

TEST(ParseInt16, RoundsTiesToEvenAndLimits) {
  EXPECT_EQ(ParseInt16("1.6"), 2);
  EXPECT_EQ(ParseInt16("0.5"), 0);
  EXPECT_EQ(ParseInt16("1.5"), 2);
  EXPECT_EQ(ParseInt16("2.5"), 2);
  EXPECT_EQ(ParseInt16("-2.5"), -2);
  EXPECT_EQ(ParseInt16("32767.4"), 32767);
  EXPECT_EQ(ParseInt16("32768"), 32767);
  EXPECT_EQ(ParseInt16("-99999999999999999999"), -32768);
  EXPECT_EQ(ParseInt16("no"), 0);
}

TEST(ParseInt32, RoundsAndLimits) {
  EXPECT_EQ(ParseInt32("2147483646.5"), 2147483646);
  EXPECT_EQ(ParseInt32("2147483648"), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(ParseInt32("-2147483649"), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(ParseInt32(std::string(400, '9')), std::numeric_limits<std::int32_t>::max());
}

TEST(NumberText, IsPlainDecimal) {
  EXPECT_EQ(NumberText(0), "0");
  EXPECT_EQ(NumberText(-0.0), "0");
  EXPECT_EQ(NumberText(5), "5");
  EXPECT_EQ(NumberText(-75), "-75");
  EXPECT_EQ(NumberText(0.1), "0.1");
  EXPECT_EQ(NumberText(-12.25), "-12.25");
  EXPECT_EQ(NumberText(1e21), "1000000000000000000000");
  EXPECT_EQ(NumberText(1e-7), "0.0000001");
  EXPECT_EQ(NumberText(std::numeric_limits<double>::quiet_NaN()), "0");
}

TEST(NumberText, ReadsBackTheSame) {
  for (const double value : {1.0 / 3, 123456.789, -0.017, 5e-324, std::numeric_limits<double>::max(), 1e300})
    EXPECT_EQ(ParseNumber(NumberText(value)), value);
  EXPECT_EQ(ParseNumber(NumberText(std::numeric_limits<double>::infinity())),
            std::numeric_limits<double>::max());
}

TEST(SingleText, HasTheDigitsOfASingle) {
  EXPECT_EQ(SingleText(12.3F), "12.3");
  EXPECT_EQ(SingleText(-75.0F), "-75");
  EXPECT_EQ(static_cast<float>(ParseNumber(SingleText(170.123F))), 170.123F);
}

}  // namespace
}  // namespace zerbal::settings
