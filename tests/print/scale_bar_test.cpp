#include "print/scale_bar.h"

#include <limits>

#include <gtest/gtest.h>

namespace zerbal::print {
namespace {

TEST(ScaleBar, IsTheLongestRoundLengthThatFits) {
  struct Case {
    double metresPerTwip;
    const char* text;
    std::int32_t twips;
  };
  for (const Case& c :
       {Case{1000, "1000\u00A0km", 1000}, Case{1999, "1000\u00A0km", 500}, Case{2000, "2000\u00A0km", 1000},
        Case{4900, "2000\u00A0km", 408}, Case{5000, "5000\u00A0km", 1000}, Case{0.7, "500\u00A0m", 714},
        Case{1.1, "1\u00A0km", 909}, Case{0.02, "20\u00A0m", 1000}}) {
    const auto bar = RoundScaleBar(c.metresPerTwip, 1000);
    ASSERT_TRUE(bar) << c.metresPerTwip;
    EXPECT_EQ(bar->Text(), c.text);
    EXPECT_EQ(bar->twips, c.twips);
  }
}

TEST(ScaleBar, NeedsAScaleAndALength) {
  EXPECT_FALSE(RoundScaleBar(0, 1000));
  EXPECT_FALSE(RoundScaleBar(-1, 1000));
  EXPECT_FALSE(RoundScaleBar(std::numeric_limits<double>::quiet_NaN(), 1000));
  EXPECT_FALSE(RoundScaleBar(std::numeric_limits<double>::infinity(), 1000));
  EXPECT_FALSE(RoundScaleBar(1000, 0));
  EXPECT_FALSE(RoundScaleBar(0.0005, 1000));
}

}  // namespace
}  // namespace zerbal::print
