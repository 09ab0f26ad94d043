#include "base/code_page_1252.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace zerbal::base {
namespace {

TEST(CodePage1252, EveryByteSurvivesARoundTrip) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    EXPECT_EQ(ToCodePage1252(FromCodePage1252(bytes)), bytes) << byte;
  }
}

TEST(CodePage1252, TellsTheByteOfACharacter) {
  EXPECT_EQ(ByteOf1252(U'A'), 'A');
  EXPECT_EQ(ByteOf1252(U'ü'), 0xFC);
  EXPECT_EQ(ByteOf1252(U'€'), 0x80);
  EXPECT_EQ(ByteOf1252(0x81), 0x81);
  EXPECT_EQ(ByteOf1252(0x80), std::nullopt);
  EXPECT_EQ(ByteOf1252(U'ж'), std::nullopt);
}

TEST(CodePage1252, HasItsOwnCharactersBetween128And159) {
  EXPECT_EQ(FromCodePage1252("\x80\x8A\x92\x99\x9F"), "\xE2\x82\xAC\xC5\xA0\xE2\x80\x99\xE2\x84\xA2\xC5\xB8");
  EXPECT_EQ(FromCodePage1252("\xE4\xFF"), "\xC3\xA4\xC3\xBF");
  EXPECT_EQ(FromCodePage1252("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
}

TEST(CodePage1252, WritesAQuestionMarkForCharactersThatItLacks) {
  EXPECT_EQ(ToCodePage1252("a\xE6\x97\xA5z"), "a?z");
  EXPECT_EQ(ToCodePage1252("\xF0\x9F\x98\x80"), "?");
  EXPECT_EQ(ToCodePage1252("\xC2\x80"), "?") << "a control character in the place of the euro sign";
  EXPECT_EQ(ToCodePage1252("\xC4\x80"), "?");
}

TEST(CodePage1252, WritesAQuestionMarkForEachInvalidByte) {
  EXPECT_EQ(ToCodePage1252("\xFC x"), "? x");
  EXPECT_EQ(ToCodePage1252("\xC3"), "?");
  EXPECT_EQ(ToCodePage1252("\xC0\x80"), "??");
  EXPECT_EQ(ToCodePage1252("\xE0\x80\x80"), "???");
  EXPECT_EQ(ToCodePage1252("\xE2\x82"), "??");
  EXPECT_EQ(ToCodePage1252("\xF0\x80\x80\x80"), "????");
  EXPECT_EQ(ToCodePage1252("\xED\xA0\x80"), "???") << "half of a surrogate pair";
  EXPECT_EQ(ToCodePage1252("\xF4\x90\x80\x80"), "????") << "beyond the last character";
  EXPECT_EQ(ToCodePage1252("\x80\xC3\xA4"), "?\xE4");
}

}  // namespace
}  // namespace zerbal::base
