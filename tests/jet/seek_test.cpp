// Searching tables by their indexes.
#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/format/key.h"
#include "jet/format/text.h"
#include "jet/recordset.h"
#include "support/engine_error.h"
#include "support/jet_file.h"
#include "support/jet_formats.h"

namespace zerbal::jet::test {
namespace {

using testing::HasSubstr;

class SeekTest : public BothFormats {
 protected:
  Bytes TextKey(std::string_view text, bool ascending = true) const {
    Bytes key;
    if (file.IsJet3()) {
      std::string narrow;
      ToCodePage(text, narrow);
      AppendTextKeyJet3(narrow, ascending, key);
    } else {
      std::u16string wide;
      ToUtf16(text, wide);
      if (!AppendTextKeyJet4(wide, ascending, key))
        key = Bytes{0x7F, 0xFE} + Utf16(wide) + Bytes{0};  // some order or other
    }
    return key;
  }
  Bytes Stored(std::string_view text) const {
    if (file.IsJet3()) {
      std::string narrow;
      ToCodePage(text, narrow);
      return Raw(narrow);
    }
    std::u16string wide;
    ToUtf16(text, wide);
    return Utf16(wide);
  }

  /// A table "T" of Id (its row's number) and Code with an index "code" over the codes.
  Recordset Codes(const std::vector<std::string>& codes, bool ascending = true,
                  std::uint16_t sortOrder = 0x0409) {
    TestTable table(file, "T",
                    {{"Id", ColumnType::kLong, 0, true, 0, 4},
                     {"Code", ColumnType::kText, 1, false, 0, 510, 0, sortOrder}});
    std::vector<TestEntry> entries;
    for (std::size_t i = 0; i < codes.size(); ++i)
      entries.push_back({TextKey(codes[i], ascending), table.Add({Le(i, 4), Stored(codes[i])})});
    const RecordPointer null = table.Add({Le(999, 4), kNull});
    entries.push_back({ascending ? Bytes{0} : Bytes{0xFF}, null});
    table.indexes = {{"code", {{1, ascending}}, AddIndexTree(file, table.Page(), entries, 3, true)}};
    table.Finish();
    Recordset rows = file.Open().OpenTable("T");
    rows.SetIndex("CODE");
    return rows;
  }

  /// A table with a number column "F" under an index, in the order of its keys.
  Recordset Numbers(ColumnType type, const std::vector<Bytes>& values, bool ascending = true, int scale = 0) {
    const int length = static_cast<int>(values[0].size());
    TestTable table(file, "T", {{"F", type, 0, true, 0, length, static_cast<std::uint8_t>(scale)}});
    std::vector<TestEntry> entries;
    for (const Bytes& value : values) {
      Bytes key;
      if (!AppendFixedKey(type, Chars(value), ascending, key))
        key = Bytes{0x7F} + value;
      entries.push_back({key, table.Add({value})});
    }
    table.indexes = {{"f", {{0, ascending}}, AddIndexTree(file, table.Page(), entries, 4, false)}};
    table.Finish();
    Recordset rows = file.Open().OpenTable("T");
    rows.SetIndex("f");
    return rows;
  }

  /// The Id of the row found, -1 for none.
  static int Found(Recordset& rows, std::string_view key) {
    rows.Seek(key);
    EXPECT_EQ(rows.NoMatch(), rows.Eof());
    return rows.NoMatch() ? -1 : rows["Id"].AsLong();
  }
  static std::string FoundText(Recordset& rows, std::string_view key) {
    rows.Seek(key);
    return rows.NoMatch() ? "none" : rows["F"].AsText();
  }

  JetFile file{GetParam()};
};
ZERBAL_BOTH_FORMATS(SeekTest);

TEST_P(SeekTest, FindsExactlyTheText) {
  Recordset rows = Codes({"EUR", "EURX", "ATL", "AFR", "", "Zürich", "O'Hare", "co-op", "coop"});
  EXPECT_EQ(Found(rows, "EUR"), 0);
  EXPECT_EQ(Found(rows, "EURX"), 1);
  EXPECT_EQ(Found(rows, "ATL"), 2);
  EXPECT_EQ(Found(rows, ""), 4);
  EXPECT_EQ(Found(rows, "Zürich"), 5);
  EXPECT_EQ(Found(rows, "O'Hare"), 6);
  EXPECT_EQ(Found(rows, "co-op"), 7);
  EXPECT_EQ(Found(rows, "coop"), 8);
  EXPECT_EQ(Found(rows, "EU"), -1);
  EXPECT_EQ(Found(rows, "eur"), -1);
  EXPECT_EQ(Found(rows, "EUR "), -1);
  EXPECT_EQ(Found(rows, "Zurich"), -1);
  EXPECT_EQ(Found(rows, "ZZZ"), -1);
}

TEST_P(SeekTest, TellsLetterCaseAndBlanksApartAmongEqualKeys) {
  Recordset rows = Codes({"PAC", "pac", "PAC ", "PAC", "Pac", "pac"});
  EXPECT_EQ(Found(rows, "PAC"), 0);
  EXPECT_EQ(Found(rows, "pac"), 1);
  EXPECT_EQ(Found(rows, "PAC "), 2);
  EXPECT_EQ(Found(rows, "Pac"), 4);
  EXPECT_EQ(Found(rows, "PAC  "), -1);
  EXPECT_EQ(Found(rows, "pAC"), -1);
}

TEST_P(SeekTest, GoesOnInIndexOrder) {
  Recordset rows = Codes({"C", "A", "B", "b"});
  EXPECT_EQ(Found(rows, "B"), 2);
  rows.MoveNext();
  EXPECT_EQ(rows["Id"].AsLong(), 3);
  rows.MoveNext();
  EXPECT_EQ(rows["Id"].AsLong(), 0);
  rows.MovePrevious();
  rows.MovePrevious();
  rows.MovePrevious();
  EXPECT_EQ(rows["Id"].AsLong(), 1);
  rows.MovePrevious();
  EXPECT_EQ(rows["Id"].AsLong(), 999);  // Null stands first
  EXPECT_FALSE(rows.NoMatch());
}

TEST_P(SeekTest, StandsOnNoRowWithoutAMatch) {
  Recordset rows = Codes({"A", "B"});
  rows.Seek("X");
  EXPECT_TRUE(rows.NoMatch());
  EXPECT_TRUE(rows.Eof());
  EXPECT_THAT(ReasonOf([&] { rows["Id"]; }), HasSubstr("no current row"));
  rows.MoveNext();
  EXPECT_TRUE(rows.Eof());
  rows.MoveFirst();
  EXPECT_FALSE(rows.NoMatch());
  EXPECT_FALSE(rows.Eof());
}

TEST_P(SeekTest, SearchesDescendingIndexes) {
  Recordset rows = Codes({"A", "C", "B", "b", "Ä"}, false);
  EXPECT_EQ(Found(rows, "C"), 1);
  rows.MoveNext();
  EXPECT_EQ(rows["Id"].AsLong(), 2);
  EXPECT_EQ(Found(rows, "b"), 3);
  EXPECT_EQ(Found(rows, "Ä"), 4);
  EXPECT_EQ(Found(rows, "D"), -1);
  rows.MoveFirst();
  EXPECT_EQ(rows["Id"].AsLong(), 1);
}

TEST_P(SeekTest, NeedsAnIndex) {
  Recordset rows = Codes({"A"});
  rows.SetIndex("");
  EXPECT_THAT(ReasonOf([&] { rows.Seek("A"); }), HasSubstr("needs an index"));
}

TEST_P(SeekTest, FindsTextsWhoseKeysAreNotKnown) {
  if (GetParam() == Format::kJet3)
    GTEST_SKIP() << "every character of the code page has a known weight";
  Recordset rows = Codes({"Жук", "ж", "A", "Жук"});
  EXPECT_EQ(Found(rows, "Жук"), 0);
  EXPECT_EQ(Found(rows, "ж"), 1);
  EXPECT_EQ(Found(rows, "жук"), -1);
  EXPECT_EQ(Found(rows, "A"), 2);
  rows.MoveNext();
  EXPECT_FALSE(rows.Eof());
}

TEST_P(SeekTest, FindsTextsInIndexesOfOtherSortOrders) {
  Recordset rows = Codes({"B", "A", "a", "B", "A "}, true, 0x0407);
  EXPECT_EQ(Found(rows, "B"), 0);
  EXPECT_EQ(Found(rows, "A"), 1);
  EXPECT_EQ(Found(rows, "a"), 2);
  EXPECT_EQ(Found(rows, "A "), 4);
  EXPECT_EQ(Found(rows, "C"), -1);
  EXPECT_EQ(Found(rows, ""), -1);  // Null is not the empty text
}

TEST_P(SeekTest, NoTextOutsideTheCodePageIsThere) {
  Recordset rows = Codes({"A"});
  EXPECT_EQ(Found(rows, "Ω"), -1);
}

TEST_P(SeekTest, MatchesNumbersByTheirValue) {
  {
    Recordset rows = Numbers(ColumnType::kLong, {Le(5, 4), Le(0xFFFFFFF9, 4), Le(70000, 4), Le(0, 4)});
    EXPECT_EQ(FoundText(rows, "5"), "5");
    EXPECT_EQ(FoundText(rows, "+5"), "5");
    EXPECT_EQ(FoundText(rows, "5.0"), "5");
    EXPECT_EQ(FoundText(rows, "7e4"), "70000");
    EXPECT_EQ(FoundText(rows, "-7"), "-7");
    EXPECT_EQ(FoundText(rows, "0"), "0");
    for (const char* none : {"", "x", "5.5", "5 ", "6", "4294967301", "1e300", "nan"})
      EXPECT_EQ(FoundText(rows, none), "none") << none;
  }
  file = JetFile(GetParam());
  Recordset bytes = Numbers(ColumnType::kByte, {Le(200, 1), Le(7, 1)}, false);
  EXPECT_EQ(FoundText(bytes, "7"), "7");
  EXPECT_EQ(FoundText(bytes, "200"), "200");
  EXPECT_EQ(FoundText(bytes, "456"), "none");
  file = JetFile(GetParam());
  Recordset integers = Numbers(ColumnType::kInteger, {Le(0xFFFF, 2), Le(300, 2)});
  EXPECT_EQ(FoundText(integers, "-1"), "-1");
  EXPECT_EQ(FoundText(integers, "65535"), "none");
  file = JetFile(GetParam());
  Recordset currency = Numbers(ColumnType::kCurrency, {Le(12345, 8), Le(20000, 8)});
  EXPECT_EQ(FoundText(currency, "1.2345"), "1.2345");
  EXPECT_EQ(FoundText(currency, "2"), "2.0000");
  EXPECT_EQ(FoundText(currency, "1.23451"), "none");
}

TEST_P(SeekTest, MatchesRealNumbers) {
  const auto single = [](float value) { return Le(std::bit_cast<std::uint32_t>(value), 4); };
  Recordset singles =
      Numbers(ColumnType::kSingle, {single(0.1f), single(-2.5f), single(-0.0f), single(1e20f)});
  EXPECT_EQ(FoundText(singles, "0.1"), "0.1");
  EXPECT_EQ(FoundText(singles, "-2.50"), "-2.5");
  EXPECT_EQ(FoundText(singles, "0"), "-0");
  EXPECT_EQ(FoundText(singles, "100000000000000000000"), "1e20");
  EXPECT_EQ(FoundText(singles, "0.2"), "none");
  file = JetFile(GetParam());
  const auto real = [](double value) { return Le(std::bit_cast<std::uint64_t>(value), 8); };
  Recordset doubles = Numbers(ColumnType::kDouble, {real(0.1), real(-2.5), real(0)}, false);
  EXPECT_EQ(FoundText(doubles, "0.1"), "0.1");
  EXPECT_EQ(FoundText(doubles, "0.10000000149011612"), "none");
  EXPECT_EQ(FoundText(doubles, "-2.5"), "-2.5");
  EXPECT_EQ(FoundText(doubles, "0.00"), "0");
}

TEST_P(SeekTest, TakesNoNumberForInfinity) {
  Recordset singles = Numbers(ColumnType::kSingle, {Le(0x7F800000, 4), Le(0xFF800000, 4)});
  for (const char* tooLarge : {"1e39", "-1e39", "1e999"})
    EXPECT_EQ(FoundText(singles, tooLarge), "none") << tooLarge;
  file = JetFile(GetParam());
  Recordset doubles = Numbers(ColumnType::kDouble, {Le(0x7FF0000000000000, 8)});
  EXPECT_EQ(FoundText(doubles, "1e999"), "none");
}

TEST_P(SeekTest, MatchesOtherTypesByTheirText) {
  const auto real = [](double value) { return Le(std::bit_cast<std::uint64_t>(value), 8); };
  Recordset dates = Numbers(ColumnType::kDateTime, {real(36525.5), real(1)});
  EXPECT_EQ(FoundText(dates, "1999-12-31 12:00:00"), "1999-12-31 12:00:00");
  EXPECT_EQ(FoundText(dates, "1999-12-31"), "none");
  if (GetParam() == Format::kJet3)
    return;
  file = JetFile(GetParam());
  Recordset numerics = Numbers(ColumnType::kNumeric, {Bytes{0} + Le(0, 12) + Le(1250, 4)}, true, 2);
  EXPECT_EQ(FoundText(numerics, "12.5"), "12.50");
  EXPECT_EQ(FoundText(numerics, "12.51"), "none");
}

TEST_P(SeekTest, MatchesTheFirstOfSeveralColumns) {
  TestTable table(file, "T",
                  {{"Id", ColumnType::kLong, 0, true, 0, 4}, {"Code", ColumnType::kText, 1, false, 0, 100}});
  std::vector<TestEntry> entries;
  const std::vector<std::string> codes = {"B", "A", "B", "a", "AB"};
  for (std::size_t i = 0; i < codes.size(); ++i) {
    Bytes key = TextKey(codes[i]);
    AppendFixedKey(ColumnType::kLong, Chars(Le(i, 4)), false, key);
    entries.push_back({key, table.Add({Le(i, 4), Stored(codes[i])})});
  }
  table.indexes = {{"both", {{1, true}, {0, false}}, AddIndexTree(file, table.Page(), entries, 3, true)}};
  table.Finish();
  Recordset rows = file.Open().OpenTable("T");
  rows.SetIndex("both");
  EXPECT_EQ(Found(rows, "B"), 2);  // the second column descends
  rows.MoveNext();
  EXPECT_EQ(rows["Id"].AsLong(), 0);
  EXPECT_EQ(Found(rows, "A"), 1);
  EXPECT_EQ(Found(rows, "a"), 3);
}

TEST_P(SeekTest, FollowsMovedRows) {
  TestTable table(file, "T", {{"Id", ColumnType::kLong, 0, true, 0, 4}});
  const RecordPointer target = table.AddBytes(table.RowBytes({Le(42, 4)}), 0x8000);
  const RecordPointer header = table.AddBytes(Le(target.ToU32(), 4), 0x4000);
  Bytes key;
  AppendFixedKey(ColumnType::kLong, Chars(Le(42, 4)), true, key);
  table.indexes = {{"i", {{0, true}}, AddIndexTree(file, table.Page(), {{key, header}}, 3, true)}};
  table.Finish();
  Recordset rows = file.Open().OpenTable("T");
  rows.SetIndex("i");
  EXPECT_EQ(Found(rows, "42"), 42);
}

}  // namespace
}  // namespace zerbal::jet::test
