#include "jet/format/code_page.h"

#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/format/text.h"
#include "jet/recordset.h"
#include "support/jet_file.h"

namespace zerbal::jet::test {
namespace {

using testing::ElementsAre;

std::string Decoded(std::uint16_t codePage, std::string_view bytes) {
  const Bytes stored = Raw(bytes);
  std::string text;
  AppendStoredText({stored.data(), stored.size()}, CodePage::OfNumber(codePage).get(), text);
  return text;
}

TEST(CodePageTest, KnowsThoseOfEveryScript) {
  EXPECT_EQ(Decoded(1252, "Z\xFCrich \x80"), "Zürich €");
  EXPECT_EQ(Decoded(1250,
                    "\xA3\xF3"
                    "d\x9F"),
            "Łódź");
  EXPECT_EQ(Decoded(1251, "\xCC\xEE\xF1\xEA\xE2\xE0"), "Москва");
  EXPECT_EQ(Decoded(1253, "\xC1\xE8\xDE\xED\xE1"), "Αθήνα");
  EXPECT_EQ(Decoded(1254, "\xDDzmir"), "İzmir");
  EXPECT_EQ(Decoded(1255, "\xF9\xEC"), "\u05E9\u05DC");
  EXPECT_EQ(Decoded(1258, "\xE2\xEC"), "\u00E2\u0301");
  EXPECT_EQ(Decoded(850, "\x81"), "ü");
  EXPECT_EQ(Decoded(874, "\xA1"), "\u0E01");
}

TEST(CodePageTest, KnowsCharactersOfTwoBytes) {
  EXPECT_EQ(Decoded(932, "\x93\x8C\x8B\x9E A"), "東京 A");
  EXPECT_EQ(Decoded(936, "\xB1\xB1\xBE\xA9"), "北京");
  EXPECT_EQ(Decoded(949, "\xBC\xAD\xBF\xEF"), "서울");
  EXPECT_EQ(Decoded(950, "\xA5\x78\xA5\x5F"), "台北");
  EXPECT_EQ(Decoded(932, "A\x93"), "A\uFFFD");      // half of one at the end
  EXPECT_EQ(Decoded(932, "\x93\x01z"), "\uFFFDz");  // no such pair
}

TEST(CodePageTest, MakesControlCharactersOfUndefinedBytes) {
  EXPECT_EQ(Decoded(1252, "\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
  EXPECT_EQ(Decoded(1253, "\x81"), "\u0081");
}

TEST(CodePageTest, TakesUnknownNumbersForTheWesternOne) {
  EXPECT_EQ(Decoded(9999, "Z\xFCrich \x80\x81"), "Zürich €\u0081");
}

/// A file of 1997 whose codes, names and memos are Cyrillic.
TEST(CodePageTest, HoldsForNamesTextsMemosAndSearches) {
  JetFile file(Format::kJet3);
  file.codePage = 1251;
  TestTable table(
      file, "\xD2",
      {{"\xCA\xEE\xE4", ColumnType::kText, 0, false, 0, 20}, {"M", ColumnType::kMemo, 1, false, 1, 0}});
  std::vector<TestEntry> entries;
  for (const char* code : {"\xC1", "\xC0", "\xE1"}) {
    const Bytes memo = Raw("\xFF") + Raw(code);
    const Bytes inRow = Le(memo.size() | 0x80000000U, 4) + Le(0, 8) + memo;
    entries.push_back({Bytes{0x7F} + Raw(code), table.Add({Raw(code), inRow})});
  }
  table.indexes = {{"code", {{0, true}}, AddIndexTree(file, table.Page(), entries, 10, false)}};
  table.Finish();
  const Database database = file.Open();
  EXPECT_THAT(database.TableNames(), ElementsAre("Т"));
  Recordset rows = database.OpenTable("т");
  EXPECT_EQ(rows["Код"].AsText(), "Б");
  EXPECT_EQ(rows["M"].AsText(), "яБ");
  EXPECT_TRUE(rows["Код"].EqualsText("Б"));
  rows.SetIndex("code");
  EXPECT_EQ(rows["Код"].AsText(), "А");
  rows.Seek("б");
  ASSERT_FALSE(rows.NoMatch());
  EXPECT_EQ(rows["M"].AsText(), "яб");
  rows.Seek("Ж");
  EXPECT_TRUE(rows.NoMatch());
}

}  // namespace
}  // namespace zerbal::jet::test
