// The writer as a whole: order of calls, bad tables, and what is on the disk when something fails.
#include "jet/writer.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/error.h"
#include "jet/format/bytes.h"
#include "jet/format/page_layout.h"
#include "jet/format/table_definition_layout.h"
#include "jet/recordset.h"
#include "support/database_builder.h"
#include "support/temp_folder.h"

namespace zerbal::jet {
namespace {

using namespace zerbal::test;
namespace fs = std::filesystem;

class Writer : public testing::Test {
 protected:
  fs::path File() const { return folder_ / "one.mdb"; }
  TableSpec Spec(const std::string& name = "t") const { return {name, {Long("a")}, {}}; }

  std::string ReasonOf(const std::function<void()>& action) {
    try {
      action();
    } catch (const EngineError& error) {
      return error.Reason();
    }
    return {};
  }
  std::string ReasonOfTable(const TableSpec& spec) {
    return ReasonOf([&] { DatabaseWriter(File()).BeginTable(spec); });
  }
  std::size_t FilesInFolder() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_.Path()), {}));
  }

  TempFolder folder_;
};

TEST_F(Writer, PutsTheFileInPlaceOnlyWhenItIsFinished) {
  WriteBytes(File(), "an older file");
  {
    DatabaseWriter writer(File());
    writer.BeginTable(Spec());
    writer.EndTable();
    EXPECT_EQ(ReadBytes(File()), "an older file");
    EXPECT_EQ(FilesInFolder(), 2u);
    writer.Finish();
    EXPECT_EQ(FilesInFolder(), 1u);
  }
  EXPECT_EQ(FilesInFolder(), 1u);
  EXPECT_EQ(Database::Open(File()).TableNames(), std::vector<std::string>{"t"});
}

TEST_F(Writer, RemovesAnUnfinishedFile) {
  {
    DatabaseWriter writer(File());
    writer.BeginTable(Spec());
    writer.AddRow(std::vector<Value>{1});
    EXPECT_EQ(FilesInFolder(), 1u);
  }
  EXPECT_EQ(FilesInFolder(), 0u);
}

TEST_F(Writer, WritesTwoFilesOfOneNameSideBySide) {
  DatabaseWriter first(File());
  DatabaseWriter second(File());
  first.BeginTable(Spec("first"));
  first.EndTable();
  second.BeginTable(Spec("second"));
  second.EndTable();
  first.Finish();
  EXPECT_TRUE(Database::Open(File()).HasTable("first"));
  second.Finish();
  EXPECT_TRUE(Database::Open(File()).HasTable("second"));
}

TEST_F(Writer, RefusesCallsOutOfOrder) {
  DatabaseWriter writer(File());
  EXPECT_EQ(ReasonOf([&] { writer.AddRow(std::vector<Value>{1}); }), "no table has been begun");
  EXPECT_EQ(ReasonOf([&] { writer.AddPair(1, 2); }), "no table has been begun");
  EXPECT_EQ(ReasonOf([&] { writer.EndTable(); }), "no table has been begun");
  writer.BeginTable(Spec());
  EXPECT_EQ(ReasonOf([&] { writer.BeginTable(Spec("u")); }), "table 't' has not been ended");
  EXPECT_EQ(ReasonOf([&] { writer.Finish(); }), "table 't' has not been ended");
  writer.EndTable();
  writer.Finish();
  EXPECT_EQ(ReasonOf([&] { writer.BeginTable(Spec("u")); }), "the database is finished");
  EXPECT_EQ(ReasonOf([&] { writer.AddRow(std::vector<Value>{1}); }), "the database is finished");
  EXPECT_EQ(ReasonOf([&] { writer.AddPair(1, 2); }), "the database is finished");
  EXPECT_EQ(ReasonOf([&] { writer.EndTable(); }), "the database is finished");
  EXPECT_EQ(ReasonOf([&] { writer.Finish(); }), "the database is finished");
}

TEST_F(Writer, CannotGoOnAfterADuplicate) {
  DatabaseWriter writer(File());
  writer.BeginTable({"t", {Long("a")}, {Unique("i", "a")}});
  writer.AddRow(std::vector<Value>{1});
  writer.AddRow(std::vector<Value>{1});
  EXPECT_THROW(writer.EndTable(), EngineError);
  EXPECT_EQ(ReasonOf([&] { writer.Finish(); }), "the database has failed already");
  EXPECT_EQ(ReasonOf([&] { writer.BeginTable(Spec("u")); }), "the database has failed already");
  EXPECT_EQ(ReasonOf([&] { writer.AddRow(std::vector<Value>{1}); }), "the database has failed already");
  EXPECT_EQ(ReasonOf([&] { writer.AddPair(1, 2); }), "the database has failed already");
  EXPECT_EQ(ReasonOf([&] { writer.EndTable(); }), "the database has failed already");
  EXPECT_FALSE(fs::exists(File()));
}

TEST_F(Writer, RefusesBadTables) {
  EXPECT_EQ(ReasonOfTable({"t", {}, {}}), "a table needs a column");
  EXPECT_NE(ReasonOfTable({"", {Long("a")}, {}}), "");
  EXPECT_NE(ReasonOfTable({std::string(65, 't'), {Long("a")}, {}}), "");
  EXPECT_EQ(ReasonOfTable({std::string(64, 't'), {Long("a")}, {}}), "");
  EXPECT_NE(ReasonOfTable({"\xE4\xB8\xAD", {Long("a")}, {}}), "");
  EXPECT_EQ(ReasonOfTable({"msysobjects", {Long("a")}, {}}), "a system table has this name");
  for (const char* name : {"a.b", " a", "a!", "a`", "[a", "a]", "a\nb"})
    EXPECT_NE(ReasonOfTable({name, {Long("a")}, {}}), "") << name;
  ColumnInfo counting = Text("a");
  counting.autonumber = true;
  EXPECT_EQ(ReasonOfTable({"t", {counting}, {}}), "column 'a': only a Long column can count by itself");
  EXPECT_EQ(ReasonOfTable({"t", {Long("a"), Long("A")}, {}}), "column 'A' is there twice");
  EXPECT_EQ(ReasonOfTable({"t", {Long("\xE4\xB8\xAD")}, {}}), "");
  EXPECT_NE(ReasonOfTable({"t", std::vector<ColumnInfo>(256, Long("a")), {}}), "");
  EXPECT_NE(ReasonOfTable({"t", {Text("a", 256)}, {}}), "");
  EXPECT_NE(ReasonOfTable({"t", {Text("a", 0)}, {}}), "");
  EXPECT_NE(ReasonOfTable({"t", {Binary("a", 511)}, {}}), "");
  EXPECT_NE(ReasonOfTable({"t", {Numeric("a", 29, 0)}, {}}), "");
  EXPECT_NE(ReasonOfTable({"t", {Numeric("a", 4, 5)}, {}}), "");
  EXPECT_NE(ReasonOfTable({"t", {Column("a", static_cast<ColumnType>(0x11))}, {}}), "");
}

TEST_F(Writer, RefusesBadIndexes) {
  const std::vector<ColumnInfo> columns = {Long("a"), Memo("m"), Long("b")};
  EXPECT_EQ(ReasonOfTable({"t", columns, {Index("i", "c")}}), "index 'i': column 'c' is not in the table");
  EXPECT_EQ(ReasonOfTable({"t", columns, {Index("i", "m")}}),
            "index 'i': column 'm' is of a type that cannot be indexed");
  EXPECT_EQ(ReasonOfTable({"t", columns, {Index("i", "a", "b", "A-")}}), "index 'i' has column 'A' twice");
  EXPECT_EQ(ReasonOfTable({"t", columns, {Index("i", "a"), Index("I", "b")}}), "index 'I' is there twice");
  EXPECT_EQ(ReasonOfTable({"t", columns, {Primary("i", "a"), Primary("j", "b")}}),
            "the table has two primary keys");
  EXPECT_NE(ReasonOfTable({"t", columns, {IndexOn("i", {})}}), "");
  IndexInfo wide = Index("i", "a");
  wide.columns.resize(11, wide.columns.front());
  EXPECT_EQ(ReasonOfTable({"t", columns, {wide}}), "index 'i' must have 1 to 10 columns");
  EXPECT_NE(ReasonOfTable({"t", {Numeric("n", 4, 2)}, {Index("i", "n")}}), "");
  IndexInfo foreign = Index("i", "a");
  foreign.foreignKey = true;
  EXPECT_NE(ReasonOfTable({"t", columns, {foreign}}), "");
}

TEST_F(Writer, RefusesASecondTableOfTheSameName) {
  DatabaseWriter writer(File());
  writer.BeginTable(Spec("Dest"));
  writer.EndTable();
  EXPECT_EQ(ReasonOf([&] { writer.BeginTable(Spec("dEST")); }), "there is a table of this name already");
  writer.BeginTable(Spec("other"));
  writer.EndTable();
  writer.Finish();
  EXPECT_EQ(Database::Open(File()).TableNames(), (std::vector<std::string>{"Dest", "other"}));
}

TEST_F(Writer, KeepsWhatIsSaidOfColumnsAndIndexes) {
  ColumnInfo counter = Long("id");
  counter.autonumber = true;
  IndexInfo few = Index("few", "t-", "id");
  few.ignoreNulls = true;
  IndexInfo needed = Unique("needed", "t");
  needed.required = true;
  DatabaseWriter writer(File());
  writer.BeginTable({"t", {counter, Text("t", 7), Numeric("n", 9, 3)}, {Primary("key", "id"), few, needed}});
  writer.AddRow(std::vector<Value>{5, std::string("x"), std::string("1.5")});
  writer.EndTable();
  writer.Finish();
  const Recordset rows = Database::Open(File()).OpenTable("t");
  ASSERT_EQ(rows.Columns().size(), 3u);
  EXPECT_TRUE(rows.Columns()[0].autonumber);
  EXPECT_TRUE(rows.Columns()[0].fixed);
  EXPECT_FALSE(rows.Columns()[1].autonumber);
  EXPECT_FALSE(rows.Columns()[1].fixed);
  EXPECT_EQ(rows.Columns()[1].length, 7);
  EXPECT_TRUE(rows.Columns()[1].compressed);
  EXPECT_EQ(rows.Columns()[2].precision, 9);
  EXPECT_EQ(rows.Columns()[2].scale, 3);
  ASSERT_EQ(rows.Indexes().size(), 3u);
  EXPECT_EQ(rows.Indexes()[0].name, "few");
  EXPECT_TRUE(rows.Indexes()[0].ignoreNulls);
  EXPECT_FALSE(rows.Indexes()[0].unique);
  ASSERT_EQ(rows.Indexes()[0].columns.size(), 2u);
  EXPECT_FALSE(rows.Indexes()[0].columns[0].ascending);
  EXPECT_TRUE(rows.Indexes()[0].columns[1].ascending);
  EXPECT_TRUE(rows.Indexes()[1].primary);
  EXPECT_TRUE(rows.Indexes()[2].required);
  EXPECT_TRUE(rows.Indexes()[2].unique);
}

/// Per column its name, type and length; then per index its name, columns and flags.
std::string Description(const Recordset& table) {
  std::string text;
  for (const ColumnInfo& column : table.Columns())
    text += column.name + " " + std::to_string(static_cast<int>(column.type)) + " " +
            std::to_string(column.length) + (column.fixed ? " fixed, " : ", ");
  for (const IndexInfo& index : table.Indexes()) {
    text += index.name + ":";
    for (const IndexColumn& column : index.columns)
      text += " " + column.name + (column.ascending ? "" : "-");
    text += std::string(index.primary ? " primary" : "") + (index.unique ? " unique" : "") +
            (index.required ? " required" : "") + (index.ignoreNulls ? " ignoreNulls" : "") + "; ";
  }
  return text;
}

TEST_F(Writer, AddsTheSystemTables) {
  DatabaseWriter(File()).Finish();
  const Database database = Database::Open(File());
  EXPECT_EQ(Description(database.OpenTable("MSysObjects")),
            "Id 4 4 fixed, ParentId 4 4 fixed, Name 10 255, Type 3 2 fixed, DateCreate 8 8 fixed, "
            "DateUpdate 8 8 fixed, Owner 9 510, Flags 4 4 fixed, Database 12 0, Connect 12 0, "
            "ForeignName 10 255, RmtInfoShort 9 510, RmtInfoLong 11 0, Lv 11 0, LvProp 11 0, LvModule 11 0, "
            "LvExtra 11 0, Id: Id primary unique; ParentIdName: ParentId Name unique; ");
  EXPECT_EQ(
      Description(database.OpenTable("MSysACEs")),
      "ObjectId 4 4 fixed, SID 9 510, ACM 4 4 fixed, FInheritable 1 1 fixed, ObjectId: ObjectId required; ");
  EXPECT_EQ(
      Description(database.OpenTable("MSysQueries")),
      "ObjectId 4 4 fixed, Attribute 2 1 fixed, Order 9 510, Name1 10 255, Name2 10 255, Expression 12 0, "
      "Flag 3 2 fixed, LvExtra 4 4 fixed, ObjectIdAttribute: ObjectId Attribute Order primary unique; ");
  EXPECT_EQ(Description(database.OpenTable("MSysRelationships")),
            "szRelationship 10 255, grbit 4 4 fixed, ccolumn 4 4 fixed, icolumn 4 4 fixed, szObject 10 255, "
            "szColumn 10 255, szReferencedObject 10 255, szReferencedColumn 10 255, "
            "szObject: szObject ignoreNulls; szReferencedObject: szReferencedObject ignoreNulls; "
            "szRelationship: szRelationship ignoreNulls; ");
}

/// The last number of a counter that a table definition of the file names.
std::uint32_t LastAutonumberIn(const std::string& file) {
  std::uint32_t last = 0;
  const std::size_t pageSize = PageSizeOf(Format::kJet4);
  for (std::size_t page = 0; page < file.size(); page += pageSize) {
    if (file[page] == static_cast<char>(PageKind::kTableDefinition))
      last = std::max(last, LoadU32(AsBytes(std::string_view(file).substr(page + kLastAutonumberAt)).data()));
  }
  return last;
}

TEST_F(Writer, KeepsTheLastNumberThatACounterGave) {
  ColumnInfo counter = Long("id");
  counter.autonumber = true;
  const auto lastOf = [&](const std::vector<int>& numbers, bool counterFirst = false) {
    DatabaseWriter writer(File());
    writer.BeginTable(counterFirst ? TableSpec{"t", {counter, Long("other")}, {}}
                                   : TableSpec{"t", {Long("other"), counter}, {}});
    for (const int number : numbers)
      writer.AddRow(counterFirst ? std::vector<Value>{number, 99} : std::vector<Value>{99, number});
    writer.EndTable();
    writer.Finish();
    return LastAutonumberIn(ReadBytes(File()));
  };
  EXPECT_EQ(lastOf({}), 0u);
  EXPECT_EQ(lastOf({1}), 1u);
  EXPECT_EQ(lastOf({3, 7, 5}), 7u);
  EXPECT_EQ(lastOf({3, 7, 5}, true), 7u);
  EXPECT_EQ(lastOf({-7}), 0u);
}

TEST_F(Writer, ReportsFoldersThatCannotTakeTheFile) {
  EXPECT_NE(ReasonOf([&] { DatabaseWriter(folder_ / "missing" / "one.mdb"); }).find("cannot create"),
            std::string::npos);
  fs::create_directory(File());
  WriteBytes(File() / "in the way", "x");
  const std::string reason = ReasonOf([&] { WriteDatabase(File(), {}); });
  EXPECT_NE(reason.find("cannot put the finished file in the place of"), std::string::npos) << reason;
  EXPECT_EQ(FilesInFolder(), 1u);
}

}  // namespace
}  // namespace zerbal::jet
