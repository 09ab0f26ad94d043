#include "base/utf8.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace zerbal::base {
namespace {

TEST(TakeUtf8, ReadsCharactersOfOneToFourBytes) {
  std::string_view text = "aß€\U0001F6EB";
  EXPECT_EQ(TakeUtf8(text), U'a');
  EXPECT_EQ(TakeUtf8(text), U'ß');
  EXPECT_EQ(TakeUtf8(text), U'€');
  EXPECT_EQ(TakeUtf8(text), U'\U0001F6EB');
  EXPECT_TRUE(text.empty());
}

TEST(TakeUtf8, ReplacesEachInvalidByteAndReadsTheRest) {
  // Unexpected continuation, truncated, overlong, surrogate, too large, and bytes that UTF-8 never has.
  for (const std::string invalid :
       {"\x80", "\xC3", "\xE2\x82", "\xF0\x9F\x9B", "\xC0\xAF", "\xC1\xBF", "\xE0\x80\xAF", "\xE0\x9F\xBF",
        "\xF0\x80\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xF8", "\xFE", "\xFF"}) {
    const std::string bytes = invalid + "z";
    std::string_view text = bytes;
    for (std::size_t i = 0; i < invalid.size(); ++i) {
      EXPECT_EQ(Utf8Length(text), 0u);
      EXPECT_EQ(TakeUtf8(text), kReplacement);
    }
    EXPECT_EQ(text, "z");
  }
}

TEST(IsUtf8, IsTrueWhenEveryCharacterIsValid) {
  EXPECT_TRUE(IsUtf8(""));
  EXPECT_TRUE(IsUtf8("a\xC3\xBC\xF0\x9F\x9B\xAB"));
  EXPECT_FALSE(IsUtf8("a\xC3"));
  EXPECT_FALSE(IsUtf8("\xFF"));
}

TEST(Utf8Length, DistinguishesTheReplacementCharacterFromAnInvalidByte) {
  EXPECT_EQ(Utf8Length("\xEF\xBF\xBD"), 3u);
  EXPECT_EQ(Utf8Length("\xEF\xBF"), 0u);
  EXPECT_EQ(Utf8Length(""), 0u);
  EXPECT_EQ(Utf8Length(std::string_view("\0", 1)), 1u);
}

TEST(AppendUtf8, WritesTextThatTakeUtf8Reads) {
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    if (character >= 0xD800 && character < 0xE000)
      continue;
    std::string bytes;
    AppendUtf8(character, bytes);
    std::string_view text = bytes;
    ASSERT_EQ(Utf8Length(text), bytes.size()) << std::hex << static_cast<unsigned>(character);
    ASSERT_EQ(TakeUtf8(text), character);
    ASSERT_TRUE(text.empty());
  }
}

}  // namespace
}  // namespace zerbal::base
