#include "jet/format/key.h"

#include <array>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace zerbal::jet {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::string Hex(const Bytes& bytes) {
  std::string text;
  for (std::uint8_t byte : bytes) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    if (!text.empty())
      text += ' ';
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::string Jet4(std::u16string_view text, bool ascending = true) {
  Bytes key;
  EXPECT_TRUE(AppendTextKeyJet4(text, ascending, key));
  return Hex(key);
}

std::string Jet3(std::string_view text, bool ascending = true) {
  Bytes key;
  AppendTextKeyJet3(text, ascending, key);
  return Hex(key);
}

template <typename T>
Bytes FixedBytes(ColumnType type, T value, bool ascending = true) {
  std::array<char, sizeof(T)> bytes;
  std::memcpy(bytes.data(), &value, sizeof(T));
  Bytes key;
  EXPECT_TRUE(AppendFixedKey(type, {bytes.data(), bytes.size()}, ascending, key));
  return key;
}

template <typename T>
std::string Fixed(ColumnType type, T value, bool ascending = true) {
  return Hex(FixedBytes(type, value, ascending));
}

std::string Binary(std::string_view bytes, bool ascending = true) {
  Bytes key;
  AppendBinaryKey(bytes, ascending, key);
  return Hex(key);
}

TEST(TextKeyJet4, IsWeightsThenAccentsThenCharactersWithoutWeight) {
  EXPECT_EQ(Jet4(u"MSysACEs"), "7F 60 6B 76 6B 4A 4D 51 6B 01 00");
  EXPECT_EQ(Jet4(u"Abc-1"), "7F 4A 4C 4D 38 01 01 01 01 80 13 06 82 00");
  EXPECT_EQ(Jet4(u"\u00E9"), "7F 51 01 0E 00");
  EXPECT_EQ(Jet4(u"a\u00E9"), "7F 4A 51 01 02 0E 00");
  EXPECT_EQ(Jet4(u"Oslo"), "7F 64 6B 5E 64 01 00");
}

TEST(TextKeyJet4, TakesLetterCaseAndTrailingBlanksForEqual) {
  EXPECT_EQ(Jet4(u"abc"), Jet4(u"ABC  "));
  EXPECT_EQ(Jet4(u""), "7F 01 00");
  EXPECT_EQ(Jet4(u"   "), "7F 01 00");
  EXPECT_NE(Jet4(u" a"), Jet4(u"a"));
}

TEST(TextKeyJet4, DescendingIsTheComplementAndOneMoreZero) {
  EXPECT_EQ(Jet4(u"A", false), "80 B5 FE FF 00");
  EXPECT_EQ(Jet4(u"\u00E9", false), "80 AE FE F1 FF 00");
}

TEST(TextKeyJet4, DropsAccentsThatSayNothing) {
  // An accent of a later character is padded; one that is 2 or less at the end would vanish.
  EXPECT_EQ(Jet4(u"\u00E9a"), "7F 51 4A 01 0E 00");
  EXPECT_EQ(Jet4(u"ab\u00FC"), "7F 4A 4C 6F 01 02 02 13 00");
}

TEST(TextKeyJet4, CountsCharactersNotWeightsForHiddenPlaces) {
  // U+00C6 has two weight bytes but is one character: the hyphen stands at place 7 + 4.
  EXPECT_EQ(Jet4(u"\u00C6-"), "7F 4A 51 01 01 01 01 80 0B 06 82 00");
  EXPECT_EQ(Jet4(u"-a'"), "7F 4A 01 01 01 01 80 07 06 82 80 0B 06 80 00");
}

TEST(TextKeyJet4, IgnoresTheNulCharacter) {
  EXPECT_EQ(Jet4(std::u16string(1, u'\0')), "7F 01 00");
}

TEST(TextKeyJet4, KnowsTheCharactersOfCodePage1252AboveLatin1) {
  EXPECT_EQ(Jet4(u"\u20AC"), "7F 35 A1 01 00");
  EXPECT_EQ(Jet4(u"\u0192"), "7F 53 01 7B 00");
  EXPECT_EQ(Jet4(u"\u2013"), "7F 01 01 01 01 80 07 06 89 00");
  EXPECT_EQ(Jet4(u"\u2122"), "7F 6E 04 01 00");
  EXPECT_EQ(Jet4(u"\u017F"), "7F 6C 06 01 00");
  EXPECT_EQ(Jet4(u"\u0166"), "7F 6E 06 01 1E 00");
}

TEST(TextKeyJet4, RefusesCharactersOfUnknownWeightAndLeavesTheKeyAlone) {
  Bytes key = {1, 2, 3};
  for (std::u16string_view text : {u"ab\u0180", u"\u4E2D", u"\u2012", u"\uFFFF", u"x\xD83D\xDE00"}) {
    EXPECT_FALSE(AppendTextKeyJet4(text, true, key));
    EXPECT_EQ(key, (Bytes{1, 2, 3}));
  }
}

TEST(TextKeyJet4, ReadsThe255FirstCharactersOnlyAndThenDropsBlanks) {
  const std::u16string long255(255, u'a');
  EXPECT_EQ(Jet4(long255 + u"z\u4E2D"), Jet4(long255));
  EXPECT_EQ(Jet4(u"a" + std::u16string(254, u' ') + u"z"), Jet4(u"a"));
  // Every character with an accent or a hidden code: the longest refinements there can be.
  EXPECT_EQ(Jet4(std::u16string(255, u'\u00E9')).size(), 3u * (1 + 255 + 1 + 255 + 1) - 1);
  EXPECT_EQ(Jet4(std::u16string(255, u'-')).size(), 3u * (1 + 1 + 3 + 4 * 255 + 1) - 1);
}

TEST(TextKeyJet3, IsWeightsThenAccentsInHalfBytes) {
  EXPECT_EQ(Jet3("Lock"), "7F 6D 72 62 6C 00");
  EXPECT_EQ(Jet3("AA\x81"
                 "AA"),
            "7F 60 60 10 60 60 00");
  EXPECT_EQ(Jet3("gro\xDFm\xE4"), "7F 68 75 72 76 76 6F 60 02 22 60");
  EXPECT_EQ(Jet3("\xE4"), "7F 60 06 00");  // three half bytes and one to fill up
  EXPECT_EQ(Jet3("\xE4\xE9"), "7F 60 66 06 40");
}

TEST(TextKeyJet3, DescendingIsTheComplementAlone) {
  EXPECT_EQ(Jet3("Lock", false), "80 92 8D 9D 93 FF");
  EXPECT_EQ(Jet3("\xE4", false), "80 9F F9 FF");
}

TEST(TextKeyJet3, TakesLetterCaseAndTrailingBlanksForEqual) {
  EXPECT_EQ(Jet3("qav  "), Jet3("QAV"));
  EXPECT_EQ(Jet3(""), "7F 00");
  EXPECT_EQ(Jet3(std::string(255, 'a') + "b"), Jet3(std::string(255, 'a')));
}

TEST(FixedKey, EncodesWholeNumbers) {
  EXPECT_EQ(Fixed<std::int32_t>(ColumnType::kLong, 7), "7F 80 00 00 07");
  EXPECT_EQ(Fixed<std::int32_t>(ColumnType::kLong, -2), "7F 7F FF FF FE");
  EXPECT_EQ(Fixed<std::int32_t>(ColumnType::kLong, 7, false), "80 7F FF FF F8");
  EXPECT_EQ(Fixed<std::int16_t>(ColumnType::kInteger, -32768), "7F 00 00");
  EXPECT_EQ(Fixed<std::uint8_t>(ColumnType::kByte, 200), "7F C8");
  EXPECT_EQ(Fixed<std::uint8_t>(ColumnType::kByte, 200, false), "80 37");
  EXPECT_EQ(Fixed<std::int64_t>(ColumnType::kCurrency, 1), "7F 80 00 00 00 00 00 00 01");
}

TEST(FixedKey, EncodesBooleansTrueFirst) {
  EXPECT_EQ(Fixed<std::uint8_t>(ColumnType::kBoolean, 1), "7F 00");
  EXPECT_EQ(Fixed<std::uint8_t>(ColumnType::kBoolean, 0), "7F FF");
  EXPECT_EQ(Fixed<std::uint8_t>(ColumnType::kBoolean, 1, false), "80 FF");
  EXPECT_EQ(Fixed<std::uint8_t>(ColumnType::kBoolean, 0, false), "80 00");
}

TEST(FixedKey, EncodesRealNumbersSoThatBytesOrderThem) {
  EXPECT_EQ(Fixed(ColumnType::kDouble, 1.5), "7F BF F8 00 00 00 00 00 00");
  EXPECT_EQ(Fixed(ColumnType::kDouble, -1.5), "7F 40 07 FF FF FF FF FF FF");
  EXPECT_EQ(Fixed(ColumnType::kSingle, 1.5f), "7F BF C0 00 00");
  EXPECT_EQ(Fixed(ColumnType::kSingle, -1.5f, false), "80 BF C0 00 00");
  const std::vector<double> ascending = {-1e300, -2, -1.5, -1e-300, 0, 1e-300, 1.5, 2, 1e300};
  for (std::size_t i = 1; i < ascending.size(); ++i) {
    EXPECT_LT(FixedBytes(ColumnType::kDateTime, ascending[i - 1]),
              FixedBytes(ColumnType::kDateTime, ascending[i]));
    EXPECT_GT(FixedBytes(ColumnType::kDateTime, ascending[i - 1], false),
              FixedBytes(ColumnType::kDateTime, ascending[i], false));
  }
}

TEST(FixedKey, EncodesGuidsInTextOrder) {
  const std::string stored = "\x33\x22\x11\x10\x55\x44\x77\x66\x88\x99\xAA\xBB\xCC\xDD\xEE\xFF";
  Bytes key;
  ASSERT_TRUE(AppendFixedKey(ColumnType::kGuid, stored, true, key));
  EXPECT_EQ(Hex(key), "7F 10 11 22 33 44 55 66 77 09 88 99 AA BB CC DD EE FF 08");
  key.clear();
  ASSERT_TRUE(AppendFixedKey(ColumnType::kGuid, stored, false, key));
  EXPECT_EQ(Hex(key), "80 EF EE DD CC BB AA 99 88 09 77 66 55 44 33 22 11 00 F7");
}

TEST(FixedKey, RefusesOtherTypesAndWrongSizes) {
  Bytes key;
  EXPECT_FALSE(AppendFixedKey(ColumnType::kNumeric, std::string(17, '\0'), true, key));
  EXPECT_FALSE(AppendFixedKey(ColumnType::kText, "a", true, key));
  EXPECT_FALSE(AppendFixedKey(ColumnType::kMemo, "", true, key));
  EXPECT_FALSE(AppendFixedKey(ColumnType::kLong, "ab", true, key));
  EXPECT_TRUE(key.empty());
}

TEST(BinaryKey, IsCutIntoGroupsOfEight) {
  EXPECT_EQ(Binary("\x03\x01"), "7F 03 01 00 00 00 00 00 00 02");
  EXPECT_EQ(Binary("ABCDEFGH"), "7F 41 42 43 44 45 46 47 48 08");
  EXPECT_EQ(Binary("ABCDEFGHI"), "7F 41 42 43 44 45 46 47 48 09 49 00 00 00 00 00 00 00 01");
  EXPECT_EQ(Binary("ABCDEFGHI", false), "80 BE BD BC BB BA B9 B8 B7 09 B6 FF FF FF FF FF FF FF FE");
}

TEST(NullKey, IsOneByte) {
  Bytes key;
  AppendNullKey(true, key);
  AppendNullKey(false, key);
  EXPECT_EQ(Hex(key), "00 FF");
}

TEST(Key, AppendsToWhatIsThere) {
  Bytes key;
  AppendNullKey(true, key);
  ASSERT_TRUE(AppendTextKeyJet4(u"A", false, key));
  AppendTextKeyJet3("A", false, key);
  EXPECT_EQ(Hex(key), "00 80 B5 FE FF 00 80 9F FF");
}

}  // namespace
}  // namespace zerbal::jet
