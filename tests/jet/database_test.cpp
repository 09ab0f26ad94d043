// The catalog and table definitions, whole and damaged.
#include "jet/database.h"

#include <cstdint>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "jet/recordset.h"
#include "support/engine_error.h"
#include "support/jet_file.h"
#include "support/jet_formats.h"

namespace zerbal::jet::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class DatabaseTest : public BothFormats {
 protected:
  void Finish() { table.Finish(); }
  /// Offsets of the definition's counts and records in either format.
  std::size_t At(std::size_t jet3, std::size_t jet4) const { return file.IsJet3() ? jet3 : jet4; }
  std::size_t FirstColumn() const { return At(0x2B, 0x3F) + table.indexes.size() * At(8, 12); }
  std::string Opening() {
    return ReasonOf([&] { file.Open().OpenTable("T"); });
  }

  JetFile file{GetParam()};
  TestTable table{
      file, "T", {{"Id", ColumnType::kLong, 0, true, 0, 4}, {"Name", ColumnType::kText, 1, false, 0, 100}}};
};
ZERBAL_BOTH_FORMATS(DatabaseTest);

TEST_P(DatabaseTest, ListsUserTablesInCatalogOrder) {
  Finish();
  file.List("Zoo", table.Page());
  file.List("MSysThing", table.Page(), 0x80000000);
  file.List("Hidden", table.Page(), 0x2);
  file.List("AQuery", 0, 0, 5);
  file.List("AForm", 0, 0, -32768);
  file.List("", table.Page());
  const Database database = file.Open();
  EXPECT_THAT(database.TableNames(), ElementsAre("T", "Zoo", ""));
  EXPECT_TRUE(database.HasTable("zOO"));
  EXPECT_TRUE(database.HasTable("MSysThing"));
  EXPECT_FALSE(database.HasTable("AQuery"));
  EXPECT_FALSE(database.HasTable("Zo"));
}

TEST_P(DatabaseTest, SaysThatATableIsMissing) {
  Finish();
  const Database database = file.Open();
  try {
    database.OpenTable("col");
    FAIL();
  } catch (const EngineError& error) {
    EXPECT_STREQ(error.what(), "Database 'test.mdb', table 'col': there is no such table");
  }
}

TEST_P(DatabaseTest, ABrokenTableDoesNotSpoilTheOthers) {
  Finish();
  file.List("Broken", 0);
  file.List("Beyond", 0xABCDEF);
  file.List("Data", 1);
  const Database database = file.Open();
  EXPECT_EQ(database.TableNames().size(), 4u);
  EXPECT_THAT(ReasonOf([&] { database.OpenTable("Broken"); }), HasSubstr("page 0"));
  EXPECT_THAT(ReasonOf([&] { database.OpenTable("Beyond"); }), HasSubstr("pages"));
  EXPECT_THAT(ReasonOf([&] { database.OpenTable("Data"); }), HasSubstr("not a table definition"));
  EXPECT_NO_THROW(database.OpenTable("T"));
}

TEST_P(DatabaseTest, DescribesColumns) {
  TestTable wide(file, "Wide",
                 {{"Flag", ColumnType::kBoolean, 0, true, 0, 1},
                  {"Text", ColumnType::kText, 1, false, 0, 40},
                  {"Memo", ColumnType::kMemo, 2, false, 1, 0},
                  {"Bytes", ColumnType::kBinary, 3, false, 2, 16}});
  wide.Finish();
  const Recordset rows = file.Open().OpenTable("Wide");
  const std::vector<ColumnInfo>& columns = rows.Columns();
  ASSERT_EQ(columns.size(), 4u);
  EXPECT_EQ(columns[0].type, ColumnType::kBoolean);
  EXPECT_TRUE(columns[0].fixed);
  EXPECT_EQ(columns[1].length, file.IsJet3() ? 40 : 20);  // characters
  EXPECT_FALSE(columns[1].fixed);
  EXPECT_EQ(columns[1].compressed, !file.IsJet3());
  EXPECT_EQ(columns[2].length, 0);
  EXPECT_EQ(columns[3].length, 16);
}

TEST_P(DatabaseTest, DescribesIndexes) {
  const std::uint32_t root = AddIndexPage(file, table.Page(), true, {}, false);
  table.indexes = {{"both", {{1, false}, {0, true}}, root, 0x82, 0}, {"key", {{0, true}}, root, 0x88, 1}};
  Finish();
  const Recordset rows = file.Open().OpenTable("T");
  const std::vector<IndexInfo>& indexes = rows.Indexes();
  ASSERT_EQ(indexes.size(), 2u);
  EXPECT_EQ(indexes[0].name, "both");
  ASSERT_EQ(indexes[0].columns.size(), 2u);
  EXPECT_EQ(indexes[0].columns[0].name, "Name");
  EXPECT_FALSE(indexes[0].columns[0].ascending);
  EXPECT_TRUE(indexes[0].columns[1].ascending);
  EXPECT_TRUE(indexes[0].ignoreNulls);
  EXPECT_FALSE(indexes[0].unique);
  EXPECT_TRUE(indexes[1].primary);
  EXPECT_TRUE(indexes[1].unique);
  EXPECT_TRUE(indexes[1].required);
}

TEST_P(DatabaseTest, JoinsDefinitionsOfSeveralPages) {
  std::vector<TestColumn> columns;
  for (int i = 0; i < 200; ++i)
    columns.push_back({"AColumnWithALongName" + std::to_string(i), ColumnType::kLong, i, true, 4 * i, 4});
  TestTable big(file, "Big", columns);
  std::vector<Cell> cells;
  for (std::uint64_t i = 0; i < 200; ++i)
    cells.push_back(Le(i * 3, 4));
  big.Add(cells);
  big.Finish();
  {
    const Recordset rows = file.Open().OpenTable("Big");
    EXPECT_EQ(rows.Columns().size(), 200u);
    EXPECT_EQ(rows["AColumnWithALongName199"].AsLong(), 597);
  }
  const auto second = static_cast<std::uint32_t>(file.Get(big.Page(), 4, 4));
  const Bytes saved = Le(file.Get(second, 4, 4), 4);
  file.Put(second, 4, Le(big.Page(), 4));
  EXPECT_THAT(ReasonOf([&] { file.Open().OpenTable("Big"); }), HasSubstr("circle"));
  file.Put(second, 4, Le(0, 4));
  EXPECT_THAT(ReasonOf([&] { file.Open().OpenTable("Big"); }), HasSubstr("cut short"));
  file.Put(second, 4, saved);
  file.Put(second, 0, {1});
  EXPECT_THAT(ReasonOf([&] { file.Open().OpenTable("Big"); }), HasSubstr("not a table definition"));
  file.Put(big.Page(), 8, Le(0x7FFFFFFF, 4));
  EXPECT_THAT(ReasonOf([&] { file.Open().OpenTable("Big"); }), HasSubstr("longer than the file"));
}

TEST_P(DatabaseTest, RefusesCountsThatCannotBe) {
  Finish();
  const Bytes columns = Le(file.Get(table.Page(), At(0x19, 0x2D), 2), 2);
  file.Put(table.Page(), At(0x19, 0x2D), Le(1025, 2));
  EXPECT_THAT(Opening(), HasSubstr("than a table can have"));
  file.Put(table.Page(), At(0x19, 0x2D), Le(200, 2));
  EXPECT_THAT(Opening(), HasSubstr("than it holds"));
  file.Put(table.Page(), At(0x19, 0x2D), columns);
  file.Put(table.Page(), At(0x1B, 0x2F), Le(0xFFFFFFFF, 4));
  EXPECT_THAT(Opening(), HasSubstr("than a table can have"));
  file.Put(table.Page(), At(0x1B, 0x2F), Le(0, 4));
  file.Put(table.Page(), At(0x1F, 0x33), Le(1000, 4));
  EXPECT_THAT(Opening(), HasSubstr("than it holds"));
  file.Put(table.Page(), At(0x1F, 0x33), Le(0, 4));
  file.Put(table.Page(), 8, Le(20, 4));
  EXPECT_NE(Opening(), "none");
}

TEST_P(DatabaseTest, RefusesColumnsThatCannotBe) {
  Finish();
  const std::size_t number = FirstColumn() + At(1, 5);
  file.Put(table.Page(), number, Le(2000, 2));
  EXPECT_THAT(Opening(), HasSubstr("number that the table does not have"));
  file.Put(table.Page(), number, Le(2, 2));
  EXPECT_THAT(Opening(), HasSubstr("number that the table does not have"));
  file.Put(table.Page(), number, Le(1, 2));
  EXPECT_THAT(Opening(), HasSubstr("same number"));
  file.Put(table.Page(), number, Le(0, 2));
  const std::size_t variableIndex = FirstColumn() + At(18, 25) + At(3, 7);
  file.Put(table.Page(), variableIndex, Le(1, 2));
  EXPECT_THAT(Opening(), HasSubstr("variable part"));
  file.Put(table.Page(), variableIndex, Le(0, 2));
  const std::size_t name = FirstColumn() + 2 * At(18, 25);
  file.Put(table.Page(), name, Bytes{0xFF});
  EXPECT_THAT(Opening(), HasSubstr("outside"));
  file.Put(table.Page(), name, file.Name(std::string_view("I\0", 2)));
  EXPECT_THAT(Opening(), HasSubstr("name that cannot be"));
}

TEST_P(DatabaseTest, RefusesIndexesThatCannotBe) {
  const std::uint32_t root = AddIndexPage(file, table.Page(), true, {}, false);
  table.indexes = {{"i", {{7, true}}, root}};
  Finish();
  EXPECT_THAT(Opening(), HasSubstr("names a column"));
  JetFile other(GetParam());
  TestTable second(other, "T", {{"Id", ColumnType::kLong, 0, true, 0, 4}});
  second.indexes = {{"i", {{0, true}}, 0x00FFFFFF}};
  second.Finish();
  Recordset rows = other.Open().OpenTable("T");
  EXPECT_EQ(ReasonOf([&] { rows.SetIndex("i"); }), "none");  // the rows are sorted instead
  const std::size_t record =
      At(0x2B, 0x3F) + At(8, 12) + At(18, 25) + (other.IsJet3() ? 3 : 6) + At(39, 52) + At(4, 8);
  other.Put(second.Page(), record, Le(1, 4));
  EXPECT_THAT(ReasonOf([&] { other.Open().OpenTable("T"); }), HasSubstr("names a tree"));
}

TEST_P(DatabaseTest, RefusesACatalogWithoutItsColumns) {
  Finish();
  Bytes bytes = file.Build();
  const std::size_t nameType = 2 * file.PageSize() + At(0x2B, 0x3F) + At(18, 25);
  bytes[nameType] = static_cast<std::uint8_t>(ColumnType::kLong);
  EXPECT_THAT(ReasonOf([&] { Database::FromBytes(bytes, "x"); }), HasSubstr("catalog"));
  bytes[2 * file.PageSize()] = 1;
  EXPECT_THAT(ReasonOf([&] { Database::FromBytes(bytes, "x"); }), HasSubstr("not a table definition"));
}

TEST_P(DatabaseTest, KeepsTheFirstOfTwoNames) {
  TestTable twice(file, "Twice",
                  {{"A", ColumnType::kLong, 0, true, 0, 4}, {"a", ColumnType::kLong, 1, true, 4, 4}});
  twice.Add({Le(1, 4), Le(2, 4)});
  twice.Finish();
  file.List("TWICE", 1);
  const Recordset rows = file.Open().OpenTable("twice");
  EXPECT_EQ(rows["a"].AsLong(), 1);
}

TEST_P(DatabaseTest, StaysOpenAsLongAsAnythingOnIt) {
  table.Add({Le(7, 4), kNull});
  Finish();
  Recordset rows = [&] {
    const Database database = file.Open();
    return Database(database).OpenTable("T");
  }();
  EXPECT_EQ(rows["Id"].AsLong(), 7);
}

}  // namespace
}  // namespace zerbal::jet::test
