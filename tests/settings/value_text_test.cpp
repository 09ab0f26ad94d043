#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "settings/profile_text.h"

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

TEST(SplitList, WithoutFieldsReturnsTheUnusedOne) {
  EXPECT_EQ(SplitList("a,b", 0, ","), Fields{""});
  EXPECT_EQ(SplitList("a,b", -3, ","), Fields{""});
}

}  // namespace
}  // namespace zerbal::settings
