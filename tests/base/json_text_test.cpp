#include "base/json_text.h"

#include <gtest/gtest.h>

namespace zerbal::base {
namespace {

TEST(JsonText, EscapesWhatAStringOfJsonMustNotHold) {
  EXPECT_EQ(JsonText(""), "\"\"");
  EXPECT_EQ(JsonText("Z\xC3\xBCrich / \x7F"), "\"Z\xC3\xBCrich / \x7F\"");
  EXPECT_EQ(JsonText("a\"b\\c\n\x1F"), R"("a\"b\\c\u000a\u001f")");
}

TEST(JsonText, ReplacesInvalidBytes) {
  EXPECT_EQ(JsonText("a\xFF"), "\"a\xEF\xBF\xBD\"");
}

}  // namespace
}  // namespace zerbal::base
