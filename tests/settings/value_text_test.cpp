#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "settings/profile_text.h"

namespace zerbal::settings {
namespace {

using Fields = std::vector<std::string>;

TEST(ProfileLines, AreAllLinesButBlanksCommentsAndHeaders) {
  const auto lines = ProfileLines(
      "first = 1\r\n"
      "; remark = 2\r\n"
      "\r\n"
      "[ One ]\r"
      "\tname=\"a b\" \n"
      "no value\n"
      "=empty\n"
      "[One");
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[0].number, 1);
  EXPECT_EQ(lines[0].section, "");
  EXPECT_EQ(lines[0].key, "first");
  EXPECT_EQ(lines[0].value, "1");
  EXPECT_EQ(lines[1].number, 5);
  EXPECT_EQ(lines[1].section, "One");
  EXPECT_EQ(lines[1].key, "name");
  EXPECT_EQ(lines[1].value, "a b");
  EXPECT_EQ(lines[2].number, 6);
  EXPECT_EQ(lines[2].key, "");
  EXPECT_EQ(lines[3].number, 7);
  EXPECT_EQ(lines[3].key, "");
  EXPECT_EQ(lines[3].value, "empty");
}

TEST(ProfileLines, OfNothingAreNone) {
  EXPECT_TRUE(ProfileLines("").empty());
  EXPECT_TRUE(ProfileLines("\n[A]\n;b=c").empty());
}

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
