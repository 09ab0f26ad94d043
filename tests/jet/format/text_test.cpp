#include "jet/format/text.h"

#include <string>

#include <gtest/gtest.h>

#include "support/jet_file.h"

namespace zerbal::jet::test {
namespace {

std::string Decoded(const Bytes& stored, bool jet3 = false) {
  std::string text;
  AppendStoredText({stored.data(), stored.size()}, jet3 ? &CodePage::Western() : nullptr, text);
  return text;
}

bool Equals(const Bytes& stored, std::string_view text, bool jet3 = false) {
  return StoredTextEquals({stored.data(), stored.size()}, jet3 ? &CodePage::Western() : nullptr, text);
}

TEST(TextTest, DecodesPlainUtf16) {
  EXPECT_EQ(Decoded(Utf16(u"Zürich €")), "Zürich €");
  EXPECT_EQ(Decoded({}), "");
  EXPECT_EQ(Decoded({'A', 0, 'B'}), "A");  // an odd last byte
  EXPECT_EQ(Decoded(Utf16(u"\U0001F6EB!")), "\U0001F6EB!");
}

TEST(TextTest, ReplacesHalvesOfSurrogatePairs) {
  EXPECT_EQ(Decoded(Le(0xD83D, 2) + Utf16(u"A")), "\uFFFDA");
  EXPECT_EQ(Decoded(Utf16(u"A") + Le(0xDC00, 2)), "A\uFFFD");
  EXPECT_EQ(Decoded(Le(0xD83D, 2)), "\uFFFD");
}

TEST(TextTest, DecodesCompressedText) {
  EXPECT_EQ(Decoded(Compressed("Oslo")), "Oslo");
  EXPECT_EQ(Decoded(Compressed("M\xE4rz")), "März");
  EXPECT_EQ(Decoded(Compressed("")), "");
  // A zero byte switches to two bytes a character and another one back.
  EXPECT_EQ(Decoded(Compressed("A") + Bytes{0} + Utf16(u"€ж") + Bytes{0} + Raw("z")), "A€жz");
  EXPECT_EQ(Decoded(Compressed("A") + Bytes{0, 0x41}), "A");  // half a character at the end
  EXPECT_EQ(Decoded(Compressed("A") + Bytes{0}), "A");
}

TEST(TextTest, DecodesTheCodePageWithItsUndefinedBytes) {
  EXPECT_EQ(Decoded(Raw("Z\xFCrich \x80 \x9F"), true), "Zürich € Ÿ");
  EXPECT_EQ(Decoded({0x81, 0x8D, 0x8F, 0x90, 0x9D}, true), "\u0081\u008D\u008F\u0090\u009D");
}

TEST(TextTest, HasNoCompressedTextsInACodePage) {
  EXPECT_EQ(Decoded(Compressed("Oslo"), true), "ÿþOslo");
  EXPECT_TRUE(Equals(Compressed("Oslo"), "ÿþOslo", true));
  EXPECT_FALSE(Equals(Compressed("Oslo"), "Oslo", true));
}

TEST(TextTest, ComparesExactly) {
  for (const Bytes& stored : {Compressed("Oslo"), Utf16(u"Oslo")}) {
    EXPECT_TRUE(Equals(stored, "Oslo"));
    EXPECT_FALSE(Equals(stored, "oslo"));
    EXPECT_FALSE(Equals(stored, "Oslo "));
    EXPECT_FALSE(Equals(stored, "Osl"));
    EXPECT_FALSE(Equals(stored, ""));
  }
  EXPECT_TRUE(Equals(Compressed("M\xE4rz"), "März"));
  EXPECT_FALSE(Equals(Compressed("M\xC3\xA4rz"), "März"));  // the bytes alike, the texts not
  EXPECT_FALSE(Equals(Raw("M\xC3\xA4rz"), "März", true));
  EXPECT_TRUE(Equals(Raw("M\xE4rz"), "März", true));
  EXPECT_TRUE(Equals(Compressed("A") + Bytes{0} + Utf16(u"€"), "A€"));
  EXPECT_TRUE(Equals({}, ""));
  EXPECT_TRUE(Equals(Compressed(""), ""));
}

TEST(TextTest, EncodesForTheFile) {
  std::u16string wide;
  ToUtf16("ß\U0001F6EB", wide);
  EXPECT_EQ(wide, u"ß\U0001F6EB");
  std::string narrow;
  EXPECT_TRUE(ToCodePage("Zürich €\u0081", narrow));
  EXPECT_EQ(narrow, "Z\xFCrich \x80\x81");
  EXPECT_FALSE(ToCodePage("ж", narrow));
}

}  // namespace
}  // namespace zerbal::jet::test
