// What is written is what is read; what does not fit is refused.
#include <cstdint>
#include <filesystem>
#include <functional>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/file_inspection.h"
#include "jet/pair_reader.h"
#include "jet/recordset.h"
#include "jet/writer.h"
#include "support/database_builder.h"
#include "support/temp_folder.h"

namespace zerbal::jet {
namespace {

using namespace zerbal::test;
namespace fs = std::filesystem;

std::vector<std::uint8_t> BytesOf(std::size_t count) {
  std::vector<std::uint8_t> bytes(count);
  for (std::size_t i = 0; i < count; ++i)
    bytes[i] = static_cast<std::uint8_t>(i * 7);
  return bytes;
}

class WriterValues : public testing::Test {
 protected:
  fs::path File() const { return folder_ / "one.mdb"; }

  Recordset WriteAndOpen(const Table& table) {
    WriteDatabase(File(), {table});
    EXPECT_EQ(FaultsIn(ReadBytes(File())), std::vector<std::string>());
    return Database::Open(File()).OpenTable(table.name);
  }

  /// What the writer says when a value is put into a column; empty when it takes it.
  std::string Refusal(const ColumnInfo& column, const Cell& value) {
    Table table{"t", {Long("first"), column}, {}, {{1, Null()}, {2, value}}};
    if (column.type == ColumnType::kBoolean)
      table.rows[0][1] = true;
    return RefusalOf(table);
  }
  std::string RefusalOf(const Table& table) {
    return ReasonOf([&] { WriteDatabase(File(), {table}); });
  }
  std::string ReasonOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const EngineError& error) {
      EXPECT_EQ(error.File(), File().string());
      return (error.Table().empty() ? "" : error.Table() + ": ") + error.Reason();
    }
    return {};
  }

  TempFolder folder_;
};

TEST_F(WriterValues, AreReadAsTheyWereWritten) {
  const std::string guid = "\x33\x22\x11\x10\x55\x44\x77\x66\x88\x99\xAA\xBB\xCC\xDD\xEE\xFF";
  Recordset rows =
      WriteAndOpen({"all",
                    {Boolean("B"), Byte("Y"), Integer("I"), Long("L"), Currency("C"), Single("S"),
                     Double("D"), DateTime("T"), Binary("X", 510), Text("V", 255), PlainText("P", 255),
                     Ole("O"), Memo("M"), PlainMemo("N"), Guid("G"), Numeric("Q", 28, 4)},
                    {},
                    {{true, 255, 32767, std::numeric_limits<std::int32_t>::max(), 922337203685477, 0.1f, 0.1,
                      45000.25, BytesOf(510), "Straße", "Straße", BytesOf(5000), "short", "\xE4\xB8\xAD",
                      std::vector<std::uint8_t>(guid.begin(), guid.end()), "-123456789012345678901234.5678"},
                     {false, 0, -32768, std::numeric_limits<std::int32_t>::min(), -0.0001, -3, -2, -657434,
                      BytesOf(0), "", "", BytesOf(0), "", "", Null(), 0},
                     {false, Null(), Null(), Null(), Null(), Null(), Null(), Null(), Null(), Null(), Null(),
                      Null(), Null(), Null(), Null(), Null()}}});
  EXPECT_TRUE(rows["B"].AsBoolean());
  EXPECT_EQ(rows["Y"].AsByte(), 255);
  EXPECT_EQ(rows["I"].AsInteger(), 32767);
  EXPECT_EQ(rows["L"].AsLong(), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(rows["C"].AsText(), "922337203685477.0000");
  EXPECT_EQ(rows["S"].AsSingle(), 0.1f);
  EXPECT_EQ(rows["D"].AsDouble(), 0.1);
  EXPECT_EQ(rows["T"].AsDouble(), 45000.25);
  EXPECT_EQ(rows["X"].AsBytes(), BytesOf(510));
  EXPECT_EQ(rows["V"].AsText(), "Straße");
  EXPECT_EQ(rows["P"].AsText(), "Straße");
  EXPECT_EQ(rows["O"].AsBytes(), BytesOf(5000));
  EXPECT_EQ(rows["M"].AsText(), "short");
  EXPECT_EQ(rows["N"].AsText(), "\xE4\xB8\xAD");
  EXPECT_EQ(rows["G"].AsBytes(), std::vector<std::uint8_t>(guid.begin(), guid.end()));
  EXPECT_EQ(rows["Q"].AsText(), "-123456789012345678901234.5678");
  rows.MoveNext();
  EXPECT_FALSE(rows["B"].AsBoolean());
  EXPECT_EQ(rows["I"].AsInteger(), -32768);
  EXPECT_EQ(rows["L"].AsLong(), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(rows["C"].AsDouble(), -0.0001);
  EXPECT_EQ(rows["S"].AsSingle(), -3.0f);
  EXPECT_EQ(rows["Q"].AsDouble(), 0);
  for (const char* empty : {"X", "V", "P", "O", "M", "N"})
    EXPECT_FALSE(rows[empty].IsNull()) << empty;
  EXPECT_EQ(rows["M"].AsText(), "");
  rows.MoveNext();
  for (std::size_t i = 1; i < rows.Columns().size(); ++i)
    EXPECT_TRUE(rows.At(static_cast<int>(i)).IsNull()) << i;
  rows.MoveNext();
  EXPECT_TRUE(rows.Eof());
}

TEST_F(WriterValues, OfAnyLengthComeBack) {
  Table table{"long", {Memo("M"), Ole("O"), PlainMemo("P")}, {}, {}};
  const std::vector<std::size_t> sizes = {0,    1,    2,    3,    62,   63,   64,   65,    2038,
                                          2039, 4074, 4075, 4076, 4077, 8144, 8145, 300000};
  for (std::size_t size : sizes)
    table.rows.push_back({std::string(size, 'm'), BytesOf(size), std::string(size, 'p')});
  Recordset rows = WriteAndOpen(table);
  for (std::size_t size : sizes) {
    EXPECT_EQ(rows["M"].AsText(), std::string(size, 'm')) << size;
    EXPECT_EQ(rows["O"].AsBytes(), BytesOf(size)) << size;
    EXPECT_EQ(rows["P"].AsText(), std::string(size, 'p')) << size;
    rows.MoveNext();
  }
}

TEST_F(WriterValues, KeepEveryCharacter) {
  const std::string all =
      "\x01"
      "A\x7F\u0080\u00FF\u0100\u2022\uFFFD\U0001F600";
  const std::string zero("a\0bc", 4);
  Recordset rows =
      WriteAndOpen({"t", {Text("A"), PlainText("B"), Memo("C")}, {}, {{all, all, all}, {zero, zero, zero}}});
  for (const std::string& text : {all, zero}) {
    for (const char* column : {"A", "B", "C"})
      EXPECT_EQ(rows[column].AsText(), text);
    rows.MoveNext();
  }
}

TEST_F(WriterValues, OfPairsAreReadInOrder) {
  {
    DatabaseWriter writer(File());
    writer.BeginTable({"wcl", {Long("Lon"), Long("Lat")}, {}});
    for (std::int32_t i = 0; i < 300000; ++i)
      writer.AddPair(i * 1201, -i);
    writer.EndTable();
    writer.BeginTable({"indexed", {Long("Lon"), Long("Lat")}, {Index("i", "Lon")}});
    for (std::int32_t i = 0; i < 1000; ++i)
      writer.AddPair(-i, i);
    writer.EndTable();
    writer.Finish();
  }
  EXPECT_EQ(FaultsIn(ReadBytes(File())), std::vector<std::string>());
  const Database database = Database::Open(File());
  PairReader reader(database.OpenTable("wcl"), "Lon", "Lat");
  std::vector<LongPair> pairs(300001);
  std::size_t count = 0;
  while (const std::size_t got = reader.Read(std::span(pairs).subspan(count)))
    count += got;
  ASSERT_EQ(count, 300000u);
  for (std::int32_t i = 0; i < 300000; ++i) {
    ASSERT_EQ(pairs[static_cast<std::size_t>(i)].first, i * 1201);
    ASSERT_EQ(pairs[static_cast<std::size_t>(i)].second, -i);
  }
  Recordset indexed = database.OpenTable("indexed");
  indexed.SetIndex("i");
  EXPECT_EQ(indexed["Lon"].AsLong(), -999);
}

TEST_F(WriterValues, ThatDoNotFitAreRefused) {
  EXPECT_EQ(Refusal(Byte("c"), 256), "t: row 2, column 'c': the number 256 does not fit the type Byte");
  EXPECT_EQ(Refusal(Byte("c"), -1), "t: row 2, column 'c': the number -1 does not fit the type Byte");
  EXPECT_NE(Refusal(Integer("c"), 32768), "");
  EXPECT_EQ(Refusal(Integer("c"), -32768), "");
  EXPECT_NE(Refusal(Long("c"), std::int64_t{1} << 31), "");
  EXPECT_EQ(Refusal(Long("c"), std::int64_t{1}), "");
  EXPECT_NE(Refusal(Long("c"), 1.0), "");
  EXPECT_NE(Refusal(Long("c"), "1"), "");
  EXPECT_NE(Refusal(Long("c"), true), "");
  EXPECT_NE(Refusal(Single("c"), 1e39), "");
  EXPECT_NE(Refusal(Single("c"), 16777217), "");
  EXPECT_NE(Refusal(Single("c"), -16777217), "");
  EXPECT_EQ(Refusal(Single("c"), 16777216), "");
  EXPECT_NE(Refusal(Double("c"), (std::int64_t{1} << 53) + 1), "");
  EXPECT_NE(Refusal(Double("c"), -(std::int64_t{1} << 53) - 1), "");
  EXPECT_EQ(Refusal(Single("c"), 0.1), "");
  EXPECT_NE(Refusal(Double("c"), std::numeric_limits<double>::infinity()), "");
  EXPECT_NE(Refusal(Double("c"), std::numeric_limits<double>::quiet_NaN()), "");
  EXPECT_EQ(Refusal(Double("c"), 1.0f), "");
  EXPECT_NE(Refusal(Currency("c"), 1e15), "");
  EXPECT_NE(Refusal(Currency("c"), std::int64_t{922337203685478}), "");
  EXPECT_NE(Refusal(Currency("c"), std::int64_t{-922337203685478}), "");
  EXPECT_NE(Refusal(Currency("c"), std::numeric_limits<double>::quiet_NaN()), "");
  EXPECT_NE(Refusal(Currency("c"), "1"), "");
  EXPECT_NE(Refusal(DateTime("c"), 2958466.0), "");
  EXPECT_EQ(Refusal(DateTime("c"), 2958465.5), "");
  EXPECT_EQ(Refusal(DateTime("c"), -657434.75), "");  // the first day, 18:00
  EXPECT_NE(Refusal(DateTime("c"), -657435.0), "");
  EXPECT_NE(Refusal(Boolean("c"), 1), "");
  EXPECT_EQ(Refusal(Boolean("c"), Null()), "t: row 2, column 'c': a Boolean cannot be Null");
  EXPECT_NE(Refusal(Guid("c"), BytesOf(15)), "");
  EXPECT_NE(Refusal(Binary("c", 4), BytesOf(5)), "");
  EXPECT_NE(Refusal(Binary("c", 4), "text"), "");
  EXPECT_NE(Refusal(Ole("c"), "text"), "");
  EXPECT_NE(Refusal(Memo("c"), 5), "");
  EXPECT_NE(Refusal(Numeric("c", 4, 2), "123.4"), "");
  EXPECT_NE(Refusal(Numeric("c", 4, 2), "1.234"), "");
  EXPECT_NE(Refusal(Numeric("c", 4, 2), 100), "");
  for (const char* text : {"", "-", ".", "1.2.3", "1e2", " 1"})
    EXPECT_NE(Refusal(Numeric("c", 4, 2), text), "") << text;
  EXPECT_NE(Refusal(Numeric("c", 4, 2), 1.5), "");
  EXPECT_EQ(Refusal(Numeric("c", 4, 2), "-12.34"), "");
  EXPECT_EQ(Refusal(Numeric("c", 4, 2), "-0"), "");
}

TEST_F(WriterValues, ThatAreBadTextsAreRefused) {
  EXPECT_EQ(Refusal(Text("c", 4), "OSLO1"),
            "t: row 2, column 'c': the text has 5 characters, the column holds 4");
  EXPECT_EQ(Refusal(Text("c", 4), "\xC3\xB8\xC3\xB8\xC3\xB8\xC3\xB8"), "");
  EXPECT_NE(Refusal(Text("c", 1), "\xF0\x9F\x98\x80"), "");  // two units
  EXPECT_NE(Refusal(Text("c", 4), 5), "");
  for (const char* text : {"\x80", "\xC3", "\xC3(", "\xC0\x80", "\xE0\x80\x80", "\xED\xA0\x80",
                           "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF", "a\xE4\xB8"})
    EXPECT_EQ(Refusal(Text("c", 9), text), "t: row 2, column 'c': the text is not UTF-8");
  EXPECT_NE(Refusal(Memo("c"), "\xEF\xBB\xBFmark"), "");
  EXPECT_EQ(Refusal(Memo("c"), "no \xEF\xBB\xBF"), "");
}

TEST_F(WriterValues, ThatCannotBeIndexedAreRefused) {
  EXPECT_EQ(RefusalOf({"t", {Text("c")}, {Index("i", "c")}, {{"ok"}, {"\xE4\xB8\xAD"}}}),
            "t: row 2, column 'c': the text has a character whose place in the sort order is not known; it "
            "cannot be "
            "indexed");
  EXPECT_EQ(RefusalOf({"t", {Text("c")}, {Primary("i", "c")}, {{Null()}}}),
            "t: row 1, column 'c': the value is Null, which index 'i' does not allow");
  Table wide{"t", {}, {Index("i")}, {Row(3, Cell(std::string(255, '-')))}};
  for (const char* name : {"A", "B", "C"}) {
    wide.columns.push_back(Text(name));
    wide.indexes[0].columns.push_back({name, true});
  }
  EXPECT_EQ(RefusalOf(wide), "t: row 1, column 'A': the values are too long for index 'i'");
}

TEST_F(WriterValues, ThatRepeatInAUniqueIndexAreRefusedWithBothRows) {
  EXPECT_EQ(RefusalOf({"t", {Text("c")}, {Unique("i", "c")}, {{"abc"}, {"x"}, {"ABC "}}}),
            "t: rows 1 and 3 are the same in the unique index 'i'");
  EXPECT_EQ(RefusalOf({"t", {Long("a"), Long("b")}, {Unique("i", "a", "b-")}, {{1, 2}, {2, 1}, {1, 2}}}),
            "t: rows 1 and 3 are the same in the unique index 'i'");
  EXPECT_EQ(RefusalOf({"t",
                       {Long("a"), Long("b")},
                       {Unique("i", "a", "b-")},
                       {{Null(), Null()}, {Null(), Null()}, {1, Null()}}}),
            "");
  EXPECT_NE(RefusalOf({"t", {Long("a"), Long("b")}, {Unique("i", "a", "b-")}, {{1, Null()}, {1, Null()}}}),
            "");
}

TEST_F(WriterValues, OfARefusedRowLeaveNothingBehind) {
  const Table table{"t", {Long("a"), Memo("m"), Text("t", 3)}, {Unique("i", "a"), Index("j", "t")}, {}};
  DatabaseWriter writer(File());
  writer.BeginTable({table.name, table.columns, table.indexes});
  const Value good[] = {1, std::string(5000, 'x'), std::string("abc")};
  const Value tooLong[] = {2, std::string(5000, 'y'), std::string("abcd")};
  const Value unsorted[] = {2, std::string(5000, 'y'), std::string("\xE4\xB8\xAD")};
  const Value other[] = {2, std::string("z"), std::string("ab")};
  writer.AddRow(good);
  EXPECT_THROW(writer.AddRow(tooLong), EngineError);
  EXPECT_THROW(writer.AddRow(unsorted), EngineError);
  EXPECT_THROW(writer.AddRow(std::span(good).first(2)), EngineError);
  EXPECT_THROW(writer.AddPair(1, 2), EngineError);
  writer.AddRow(other);
  writer.EndTable();
  writer.Finish();
  EXPECT_EQ(FaultsIn(ReadBytes(File())), std::vector<std::string>());
  Recordset rows = Database::Open(File()).OpenTable("t");
  rows.MoveNext();
  EXPECT_EQ(rows["m"].AsText(), "z");
  rows.MoveNext();
  EXPECT_TRUE(rows.Eof());
}

TEST_F(WriterValues, OfARowLongerThanAPageAreRefused) {
  Table wide{"t", {}, {}, {}};
  for (int i = 0; i < 10; ++i)
    wide.columns.push_back(PlainText("c" + std::to_string(i)));
  wide.rows = {Row(10, Cell(std::string(200, 'a')))};
  EXPECT_EQ(RefusalOf(wide), "");
  wide.rows = {Row(10, Cell(std::string(204, 'a')))};
  EXPECT_EQ(RefusalOf(wide), "t: row 1 takes 4108 bytes; a row has at most 4060");
}

}  // namespace
}  // namespace zerbal::jet
