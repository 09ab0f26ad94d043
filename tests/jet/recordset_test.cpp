// Tables as a reader meets them: which rows there are, in which order, and what their fields hold.
#include "jet/recordset.h"

#include <bit>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jet/database.h"
#include "support/database_builder.h"
#include "support/engine_error.h"
#include "support/jet_file.h"
#include "support/jet_formats.h"
#include "support/temp_folder.h"

namespace zerbal::jet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class RecordsetTest : public BothFormats {
 protected:
  JetFile file{GetParam()};
};
ZERBAL_BOTH_FORMATS(RecordsetTest);

const std::vector<TestColumn> kIdName = {{"Id", ColumnType::kLong, 0, true, 0, 4},
                                         {"Name", ColumnType::kText, 1, false, 0, 100}};

/// One line a row: its fields' texts, "-" for Null.
std::vector<std::string> Rows(Recordset& rows) {
  std::vector<std::string> lines;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    std::string line;
    for (std::size_t i = 0; i < rows.Columns().size(); ++i) {
      const Field field = rows.At(static_cast<int>(i));
      line += (line.empty() ? "" : "|") + (field.IsNull() ? "-" : field.AsText());
    }
    lines.push_back(line);
  }
  return lines;
}

std::vector<std::string> RowsOf(JetFile& file, std::string_view table) {
  Recordset rows = file.Open().OpenTable(table);
  return Rows(rows);
}

TEST_P(RecordsetTest, ReadsRowsInStoredOrder) {
  TestTable table(file, "T", kIdName);
  table.Add({Le(3, 4), file.Text("c")});
  table.StartPage();
  table.StartPage();  // stays empty
  table.StartPage();
  table.Add({Le(1, 4), file.Text("a")});
  table.Add({Le(2, 4), file.Text("b")});
  table.Finish();
  EXPECT_THAT(RowsOf(file, "T"), ElementsAre("3|c", "1|a", "2|b"));
}

TEST_P(RecordsetTest, StandsOnTheFirstRowOfAnOpenedTable) {
  TestTable table(file, "T", kIdName);
  table.Add({Le(5, 4), kNull});
  table.Finish();
  const Recordset rows = file.Open().OpenTable("T");
  EXPECT_FALSE(rows.Eof());
  EXPECT_FALSE(rows.Bof());
  EXPECT_FALSE(rows.NoMatch());
  EXPECT_EQ(rows["Id"].AsLong(), 5);
}

TEST_P(RecordsetTest, HasNeitherBeginningNorEndWithoutRows) {
  TestTable(file, "Empty", kIdName).Finish();
  Recordset rows = file.Open().OpenTable("Empty");
  EXPECT_TRUE(rows.Eof());
  EXPECT_TRUE(rows.Bof());
  rows.MoveNext();
  rows.MovePrevious();
  rows.MoveFirst();
  EXPECT_TRUE(rows.Eof());
  EXPECT_THAT(ReasonOf([&] { rows.At(0); }), HasSubstr("no current row"));
}

TEST_P(RecordsetTest, StepsBackAndForth) {
  TestTable table(file, "T", kIdName);
  for (unsigned i = 0; i < 3; ++i) {
    table.StartPage();
    table.Add({Le(i, 4), kNull});
  }
  table.Finish();
  Recordset rows = file.Open().OpenTable("T");
  rows.MoveNext();
  rows.MoveNext();
  EXPECT_EQ(rows["Id"].AsLong(), 2);
  rows.MoveNext();
  EXPECT_TRUE(rows.Eof());
  rows.MoveNext();  // stays there
  rows.MovePrevious();
  EXPECT_EQ(rows["Id"].AsLong(), 2);
  rows.MovePrevious();
  rows.MovePrevious();
  EXPECT_EQ(rows["Id"].AsLong(), 0);
  rows.MovePrevious();
  EXPECT_TRUE(rows.Bof());
  EXPECT_FALSE(rows.Eof());
  rows.MovePrevious();
  rows.MoveNext();
  EXPECT_EQ(rows["Id"].AsLong(), 0);
}

TEST_P(RecordsetTest, SkipsDeletedRows) {
  TestTable table(file, "T", kIdName);
  table.AddBytes({}, 0xC000);
  table.Add({Le(1, 4), file.Text("a")});
  table.AddBytes(table.RowBytes({Le(99, 4), file.Text("gone")}), 0xC000);
  table.Add({Le(2, 4), file.Text("b")});
  table.AddBytes({}, 0xC000);
  table.Finish();
  EXPECT_THAT(RowsOf(file, "T"), ElementsAre("1|a", "2|b"));
}

TEST_P(RecordsetTest, FindsMovedRowsAtTheirOldPlace) {
  TestTable table(file, "T", kIdName);
  table.StartPage();
  table.StartPage();
  const std::uint32_t elsewhere = table.DataPages()[1];
  const RecordPointer target = file.AddRow(elsewhere, table.RowBytes({Le(1, 4), file.Text("moved")}), 0x8000);
  const std::uint32_t home = table.DataPages()[0];
  file.AddRow(home, Le(target.ToU32(), 4) + Bytes(9, 0xEE),
              0x4000);  // what follows the pointer is of no matter
  file.AddRow(home, table.RowBytes({Le(2, 4), file.Text("stayed")}));
  table.Finish();
  EXPECT_THAT(RowsOf(file, "T"), ElementsAre("1|moved", "2|stayed"));
}

TEST_P(RecordsetTest, RefusesRowsThatMovedNowhere) {
  TestTable circle(file, "Circle", kIdName);
  circle.StartPage();
  file.AddRow(circle.DataPages()[0], Le(circle.DataPages()[0] << 8, 4), 0x4000);
  circle.Finish();
  TestTable foreign(file, "Foreign", kIdName);
  foreign.AddBytes(Le(circle.DataPages()[0] << 8, 4), 0x4000);
  foreign.Finish();
  TestTable nowhere(file, "Nowhere", kIdName);
  nowhere.AddBytes(Le(0x00FFFF00, 4), 0x4000);
  nowhere.Finish();
  TestTable row(file, "Row", kIdName);
  row.StartPage();
  row.AddBytes(Le(row.DataPages()[0] << 8 | 77, 4), 0x4000);
  row.Finish();
  TestTable cut(file, "Short", kIdName);
  cut.AddBytes(Le(0, 3), 0x4000);
  cut.Finish();
  const Database database = file.Open();
  EXPECT_THAT(ReasonOf([&] { database.OpenTable("Circle"); }), HasSubstr("circle"));
  EXPECT_THAT(ReasonOf([&] { database.OpenTable("Foreign"); }), HasSubstr("another table"));
  EXPECT_THAT(ReasonOf([&] { database.OpenTable("Nowhere"); }), HasSubstr("page 65535"));
  EXPECT_THAT(ReasonOf([&] { database.OpenTable("Row"); }), HasSubstr("does not have"));
  EXPECT_THAT(ReasonOf([&] { database.OpenTable("Short"); }), HasSubstr("where it went"));
}

TEST_P(RecordsetTest, GivesNullForColumnsYoungerThanTheRow) {
  const std::vector<TestColumn> columns = {{"Id", ColumnType::kLong, 0, true, 0, 4},
                                           {"Name", ColumnType::kText, 1, false, 0, 100},
                                           {"Flag", ColumnType::kBoolean, 2, true, 0, 1},
                                           {"Late", ColumnType::kText, 9, false, 1, 100},
                                           {"Number", ColumnType::kLong, 10, true, 4, 4}};
  TestTable table(file, "T", columns);
  table.variableColumns = 1;
  const Bytes old = table.RowBytes({Le(1, 4), file.Text("old"), kNull, kNull, kNull}, 2);
  table.variableColumns = 2;
  table.AddBytes(old);
  table.Add({Le(2, 4), file.Text("new"), Bytes{}, file.Text("x"), Le(7, 4)});
  table.Finish();
  EXPECT_THAT(RowsOf(file, "T"), ElementsAre("1|old|0|-|-", "2|new|1|x|7"));
}

TEST_P(RecordsetTest, LeavesTheGapsOfDeletedColumns) {
  // Numbers 0 and 2, fixed bytes 0 to 3 and variable part 0 belonged to columns that are gone.
  const std::vector<TestColumn> columns = {{"Later", ColumnType::kText, 3, false, 1, 100},
                                           {"Id", ColumnType::kLong, 1, true, 4, 4}};
  TestTable table(file, "T", columns);
  table.maxColumns = 6;
  table.Add({file.Text("text"), Le(11, 4)});
  table.Finish();
  Recordset rows = file.Open().OpenTable("T");
  EXPECT_EQ(rows.Columns()[0].name, "Id");  // in the order of the numbers, not of the records
  EXPECT_THAT(Rows(rows), ElementsAre("11|text"));
}

TEST_P(RecordsetTest, TellsNullFromEmpty) {
  TestTable table(file, "T", kIdName);
  table.Add({Le(1, 4), Bytes{}});
  table.Add({Le(2, 4), kNull});
  table.Finish();
  Recordset rows = file.Open().OpenTable("T");
  EXPECT_FALSE(rows["Name"].IsNull());
  EXPECT_TRUE(rows["Name"].HoldsText());
  EXPECT_EQ(rows["Name"].AsText(), "");
  EXPECT_TRUE(rows["Name"].EqualsText(""));
  rows.MoveNext();
  EXPECT_TRUE(rows["Name"].IsNull());
  EXPECT_FALSE(rows["Name"].HoldsText());
  EXPECT_FALSE(rows["Id"].HoldsText()) << "a number is no text";
  EXPECT_EQ(rows["Name"].AsText(), "");
  EXPECT_FALSE(rows["Name"].EqualsText(""));
}

TEST_P(RecordsetTest, ReadsRowsOfAllLengths) {
  // The 1997 format writes offsets in one byte, with a table of jumps for rows longer than 256 bytes.
  const std::vector<TestColumn> columns = {{"Id", ColumnType::kLong, 0, true, 0, 4},
                                           {"A", ColumnType::kText, 1, false, 0, 510},
                                           {"B", ColumnType::kText, 2, false, 1, 510},
                                           {"C", ColumnType::kText, 3, false, 2, 510},
                                           {"D", ColumnType::kText, 4, false, 3, 510}};
  TestTable table(file, "T", columns);
  std::vector<std::string> expected;
  for (const unsigned a : {0u, 100u, 240u, 241u, 242u, 255u}) {
    for (const unsigned b : {0u, 1u, 3u, 200u, 255u}) {
      for (const unsigned c : {0u, 5u, 250u}) {
        const std::string A(a, 'a'), B(b, 'b'), C(c, 'c');
        table.Add({Le(a, 4), file.Text(A), file.Text(B), file.Text(C), file.Text("end")});
        expected.push_back(std::to_string(a) + "|" + A + "|" + B + "|" + C + "|end");
      }
    }
  }
  table.Finish();
  EXPECT_EQ(RowsOf(file, "T"), expected);
}

TEST_P(RecordsetTest, ReadsFixedTypesStoredInTheVariablePart) {
  const std::vector<TestColumn> columns = {{"L", ColumnType::kLong, 0, false, 0, 4},
                                           {"I", ColumnType::kInteger, 1, false, 1, 2},
                                           {"Code", ColumnType::kText, 2, true, 0, 4}};
  TestTable table(file, "T", columns);
  table.Add({Le(70000, 4), Le(0xFFFF, 2), file.IsJet3() ? Raw("ABCD") : Utf16(u"AB")});
  table.Finish();
  EXPECT_THAT(RowsOf(file, "T"), ElementsAre(file.IsJet3() ? "70000|-1|ABCD" : "70000|-1|AB"));
}

TEST_P(RecordsetTest, FindsFieldsWithoutRegardToLetterCase) {
  TestTable table(file, "T", kIdName);
  table.Add({Le(1, 4), file.Text("x")});
  table.Finish();
  Recordset rows = file.Open().OpenTable("T");
  EXPECT_EQ(rows.FieldIndex("nAmE"), 1);
  EXPECT_EQ(rows.FindField("absent"), std::nullopt);
  EXPECT_THAT(ReasonOf([&] { rows["absent"]; }), HasSubstr("no field 'absent'"));
  EXPECT_THAT(ReasonOf([&] { rows.At(2); }), HasSubstr("no field number 2"));
  EXPECT_THAT(ReasonOf([&] { rows.At(-1); }), HasSubstr("no field number -1"));
}

TEST_P(RecordsetTest, NamesFileAndTableInErrors) {
  TestTable table(file, "Places", kIdName);
  table.Finish();
  Recordset rows = file.Open().OpenTable("PLACES");
  try {
    rows.SetIndex("none");
    FAIL();
  } catch (const EngineError& error) {
    EXPECT_EQ(error.File(), "test.mdb");
    EXPECT_EQ(error.Table(), "Places");
    EXPECT_EQ(error.Reason(), "there is no index 'none'");
  }
}

TEST_P(RecordsetTest, GoesOnBehindADamagedRow) {
  TestTable table(file, "T", kIdName);
  table.Add({Le(1, 4), file.Text("a")});
  table.AddBytes({0xFF, 0xFF, 0});
  table.Add({Le(3, 4), file.Text("c")});
  table.Finish();
  Recordset rows = file.Open().OpenTable("T");
  EXPECT_NE(ReasonOf([&] { rows.MoveNext(); }), "none");
  rows.MoveNext();
  EXPECT_EQ(rows["Id"].AsLong(), 3);
}

Cell Single(float value) {
  return Le(std::bit_cast<std::uint32_t>(value), 4);
}

const std::vector<TestColumn> kPlaces = {{"Id", ColumnType::kLong, 0, true, 0, 4},
                                         {"X", ColumnType::kSingle, 1, true, 4, 4},
                                         {"Y", ColumnType::kSingle, 2, true, 8, 4},
                                         {"Name", ColumnType::kText, 3, false, 0, 100}};

std::vector<int> IdsWithin(Recordset& rows, const SingleBox& box) {
  std::vector<int> ids;
  for (rows.MoveFirstWithin(box); !rows.Eof(); rows.MoveNextWithin(box))
    ids.push_back(rows["Id"].AsLong());
  return ids;
}

TEST_P(RecordsetTest, PassesOverRowsOutsideOfABox) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  TestTable table(file, "T", kPlaces);
  const std::pair<float, float> places[] = {{1, 1}, {2, 5}, {3, 2}, {kNaN, 2}, {2, 2}, {3, kNaN}, {2.5F, 3}};
  std::uint32_t id = 0;
  for (const auto& [x, y] : places)
    table.Add({Le(++id, 4), Single(x), Single(y), file.Text("name")});
  table.Finish();
  Recordset rows = file.Open().OpenTable("T");
  EXPECT_THAT(IdsWithin(rows, {{1, 2, 3}, {2, 2, 3}}), ElementsAre(3, 5, 7));  // bounds are inclusive
  EXPECT_THAT(IdsWithin(rows, {{1, 1, 1}, {2, 1, 1}}), ElementsAre(1));
  EXPECT_THAT(IdsWithin(rows, {{1, 3, 1}, {2, 0, 9}}), ElementsAre(1, 3));  // all but between 1 and 3
  EXPECT_THAT(IdsWithin(rows, {{1, 0, 9}, {2, 5, 2}}), ElementsAre(1, 2, 3, 5));
  EXPECT_THAT(IdsWithin(rows, {{1, 7, 8}, {2, 0, 9}}), ElementsAre());
  EXPECT_THAT(IdsWithin(rows, {{2, 5, 5}, {1, 0, 9}}), ElementsAre(2));
}

TEST_P(RecordsetTest, PassesOverNoRowThatDoesNotHoldTwoSingles) {
  TestTable table(file, "T", kPlaces);
  table.Add({Le(1, 4), kNull, Single(9), kNull});
  table.Add({Le(2, 4), Single(9), kNull, kNull});
  table.Add({Le(3, 4), Single(9), Single(9), kNull});
  table.Finish();
  Recordset rows = file.Open().OpenTable("T");
  EXPECT_THAT(IdsWithin(rows, {{1, 0, 1}, {2, 0, 1}}), ElementsAre(1, 2));
  EXPECT_THAT(IdsWithin(rows, {{0, 0, 1}, {2, 0, 1}}), ElementsAre(1, 2, 3));  // Id is no single
  EXPECT_THAT(IdsWithin(rows, {{1, 0, 1}, {3, 0, 1}}), ElementsAre(1, 2, 3));
}

TEST_P(RecordsetTest, ReportsADamagedRowOutsideOfABox) {
  TestTable table(file, "T", kPlaces);
  table.Add({Le(1, 4), Single(9), Single(9), kNull});
  table.AddBytes({4});
  table.Add({Le(3, 4), Single(9), Single(9), kNull});
  table.Add({Le(4, 4), Single(1), Single(1), kNull});
  table.Finish();
  const SingleBox box{{1, 0, 1}, {2, 0, 1}};
  Recordset rows = file.Open().OpenTable("T");
  EXPECT_THAT(ReasonOf([&] { rows.MoveFirstWithin(box); }), HasSubstr("damaged"));
  EXPECT_TRUE(rows["Id"].IsNull());  // not that of the row before
  rows.MoveNextWithin(box);
  EXPECT_EQ(rows["Id"].AsLong(), 4);
  rows.MoveNextWithin(box);
  EXPECT_TRUE(rows.Eof());
}

TEST_P(RecordsetTest, PassesOverPagesThatAreNotTheTables) {
  TestTable table(file, "T", kIdName);
  for (std::uint32_t i = 1; i <= 3; ++i) {
    table.Add({Le(i, 4), kNull});
    table.StartPage();
  }
  table.Finish();
  const JetFile sound = file;
  for (const std::size_t page : {0u, 1u, 2u}) {
    for (const bool foreign : {true, false}) {
      file = sound;
      if (foreign)
        file.Put(table.DataPages()[page], 4, Le(99, 4));
      else
        file.Put(table.DataPages()[page], 0, {5});
      std::vector<std::string> expected = {"1|-", "2|-", "3|-"};
      expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(page));
      Recordset rows = file.Open().OpenTable("T");
      EXPECT_EQ(Rows(rows), expected);
      for (auto line = expected.rbegin(); line != expected.rend(); ++line) {
        rows.MovePrevious();
        EXPECT_EQ(rows["Id"].AsText() + "|-", *line);
      }
      rows.MovePrevious();
      EXPECT_TRUE(rows.Bof());
    }
  }
}

TEST_P(RecordsetTest, RefusesRowsThatDoNotFitTheirPage) {
  TestTable table(file, "T", kIdName);
  table.Add({Le(1, 4), kNull});
  table.Finish();
  const std::uint32_t page = table.DataPages()[0];
  const std::size_t count = file.IsJet3() ? 0x08 : 0x0C;
  file.Put(page, file.DirectoryEntry(0), Le(3, 2));  // within the directory
  EXPECT_THAT(ReasonOf([&] { RowsOf(file, "T"); }), HasSubstr("within its page"));
  file.Put(page, file.DirectoryEntry(0), Le(0x1FFF, 2));
  EXPECT_THAT(ReasonOf([&] { RowsOf(file, "T"); }), HasSubstr("within its page"));
  file.Put(page, count, Le(0xFFFF, 2));
  EXPECT_THAT(ReasonOf([&] { RowsOf(file, "T"); }), HasSubstr("more rows than it can hold"));
}

TEST(RecordsetOfAChangingFile, MoveFirstAndSeekReadThePagesOfRowsAgain) {
  const zerbal::test::TempFolder folder;
  const auto path = folder / "a.mdb";
  zerbal::test::WriteDatabase(path, {{"T",
                                      {zerbal::test::Text("Code")},
                                      {zerbal::test::Index("i", "Code")},
                                      {{"first"}, {"second"}, {"third"}}}});
  Recordset rows = Database::Open(path).OpenTable("T");
  rows.SetIndex("i");
  rows.Seek("third");
  EXPECT_FALSE(rows.NoMatch());
  // The page loses its last row.
  std::string bytes = zerbal::test::ReadBytes(path);
  const std::size_t page = bytes.find("third") / 4096 * 4096;
  ASSERT_EQ(bytes[page + 0x0C], 3);
  bytes[page + 0x0C] = 2;
  zerbal::test::WriteBytes(path, bytes);
  rows.Seek("third");
  EXPECT_TRUE(rows.NoMatch());
  EXPECT_THAT(Rows(rows), ElementsAre("first", "second"));
  bytes[page + 0x0C] = 3;
  zerbal::test::WriteBytes(path, bytes);
  EXPECT_THAT(Rows(rows), ElementsAre("first", "second", "third"));
}

}  // namespace
}  // namespace zerbal::jet::test
