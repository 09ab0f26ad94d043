#include "zerbal-pack/export.h"

#include <sstream>

#include <gtest/gtest.h>

#include "jet/writer.h"
#include "pack/pack_fixture.h"
#include "support/temp_folder.h"
#include "zerbal-pack/schema_csv.h"

namespace zerbal::pack {
namespace {

using jet::ColumnType;
using jet::Null;
using jet::Value;
using test::NumberColumn;
using test::TextColumn;
using zerbal::test::ReadBytes;
using zerbal::test::TempFolder;
using zerbal::test::WriteBytes;

jet::ColumnInfo VariableColumn(std::string name, ColumnType type, int length) {
  jet::ColumnInfo column = NumberColumn(std::move(name), type, length);
  column.fixed = false;
  return column;
}

void WriteEveryType(const std::filesystem::path& file) {
  jet::ColumnInfo numeric = NumberColumn("n", ColumnType::kNumeric, 17);
  numeric.precision = 10;
  numeric.scale = 2;
  jet::DatabaseWriter writer(file);
  writer.BeginTable({"types",
                     {NumberColumn("f", ColumnType::kBoolean, 1), NumberColumn("b", ColumnType::kByte, 1),
                      NumberColumn("i", ColumnType::kInteger, 2), NumberColumn("l", ColumnType::kLong, 4),
                      NumberColumn("c", ColumnType::kCurrency, 8), NumberColumn("s", ColumnType::kSingle, 4),
                      NumberColumn("d", ColumnType::kDouble, 8), NumberColumn("t", ColumnType::kDateTime, 8),
                      numeric, NumberColumn("g", ColumnType::kGuid, 16),
                      VariableColumn("x", ColumnType::kBinary, 4), VariableColumn("o", ColumnType::kOle, 0),
                      VariableColumn("m", ColumnType::kMemo, 0), TextColumn("e", 50)},
                     {}});
  const std::vector<std::uint8_t> guid = {0x33, 0x22, 0x11, 0x00, 0x55, 0x44, 0x77, 0x66,
                                          0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD, 0xEE, 0xFF};
  writer.AddRow(std::vector<Value>{true, 255, -32768, -2147483647 - 1, 12.5, 0.1F, 0.1, 45657.999988425924,
                                   std::string("-12.5"), guid, std::vector<std::uint8_t>{0, 0xAB},
                                   std::vector<std::uint8_t>(3000, 0x5A), std::string(5000, 'm'),
                                   std::string("a \"quoted\", text")});
  writer.AddRow(std::vector<Value>{false, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{}, Null{},
                                   Null{}, Null{}, Null{}, Null{}, Null{}});
  writer.AddRow(std::vector<Value>{false, 0, 0, 0, 0.0, 1.5e-7F, 1e16, 0.0, 0, guid,
                                   std::vector<std::uint8_t>{}, std::vector<std::uint8_t>{}, std::string(),
                                   std::string()});
  writer.AddRow(std::vector<Value>{false, 1, 1, 1, -0.0001, 16777216.0F, -1.7976931348623157e308, -1.5,
                                   99999999, guid, std::vector<std::uint8_t>{1, 2, 3, 4},
                                   std::vector<std::uint8_t>{0}, std::string("two\r\nlines"),
                                   std::string("Zürich €")});
  writer.EndTable();
  writer.Finish();
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i)
    all += text;
  return all;
}

TEST(ExportTables, WritesEveryTypeInItsFormat) {
  const TempFolder folder;
  WriteEveryType(folder / "types.mdb");
  std::ostringstream err;
  EXPECT_TRUE(ExportTables({folder / "types.mdb", folder / "csv", "", "", false}, err));
  EXPECT_EQ(err.str(), "");
  const std::string guid = "{00112233-4455-6677-8899-aabbccddeeff}";
  EXPECT_EQ(ReadBytes(folder / "csv" / "types.csv"),
            "\"f\",\"b\",\"i\",\"l\",\"c\",\"s\",\"d\",\"t\",\"n\",\"g\",\"x\",\"o\",\"m\",\"e\"\r\n"
            "1,255,-32768,-2147483648,12.5000,0.1,0.1,2024-12-31 23:59:59,-12.50," +
                guid + ",0x00ab,0x" + Repeated("5a", 3000) + ",\"" + std::string(5000, 'm') +
                "\",\"a \"\"quoted\"\", text\"\r\n"
                "0,,,,,,,,,,,,,\r\n"
                "0,0,0,0,0.0000,1.5e-7,1e16,1899-12-30 00:00:00,0.00," +
                guid +
                ",0x,0x,\"\",\"\"\r\n"
                "0,1,1,1,-0.0001,16777216,-1.7976931348623157e308,1899-12-29 12:00:00,99999999.00," +
                guid + ",0x01020304,0x00,\"two\r\nlines\",\"Zürich €\"\r\n");
}

class ExportOptionsTest : public testing::Test {
 protected:
  void SetUp() override {
    jet::DatabaseWriter writer(folder / "two.mdb");
    writer.BeginTable({"Cities",
                       {TextColumn("Code", 5), NumberColumn("Size", ColumnType::kLong, 4)},
                       {{"BySize", {{"Size", false}}, false, false, false, true, false},
                        {"ByCode", {{"Code", true}}, true, true, true, false, false}}});
    writer.AddRow(std::vector<Value>{std::string("b"), 1});
    writer.AddRow(std::vector<Value>{std::string("c"), 3});
    writer.AddRow(std::vector<Value>{std::string("a"), 2});
    writer.EndTable();
    writer.BeginTable({"a/b", {TextColumn("x", 5)}, {}});
    writer.EndTable();
    writer.BeginTable({"A\\B", {TextColumn("y", 5)}, {}});
    writer.EndTable();
    writer.Finish();
  }

  std::string Messages(const std::string& table, const std::string& index, bool schema = false) {
    std::ostringstream err;
    good = ExportTables({folder / "two.mdb", folder / "csv", table, index, schema}, err);
    std::string text = err.str();
    const std::string file = (folder / "two.mdb").string();
    if (const std::size_t at = text.find(file); at != std::string::npos)
      text.replace(at, file.size(), "two.mdb");
    return text;
  }

  TempFolder folder;
  bool good = false;
};

TEST_F(ExportOptionsTest, KeepsStoredOrderAndFormsFileNames) {
  EXPECT_EQ(Messages("", ""), "");
  EXPECT_TRUE(good);
  EXPECT_EQ(ReadBytes(folder / "csv" / "Cities.csv"),
            "\"Code\",\"Size\"\r\n\"b\",1\r\n\"c\",3\r\n\"a\",2\r\n");
  EXPECT_EQ(ReadBytes(folder / "csv" / "a_b.csv"), "\"x\"\r\n");
  EXPECT_EQ(ReadBytes(folder / "csv" / "A_B_2.csv"), "\"y\"\r\n");
}

TEST_F(ExportOptionsTest, FindsAnIndexInAnyLetterCase) {
  EXPECT_EQ(Messages("cities", "BYSIZE"), "");
  EXPECT_TRUE(good);
  EXPECT_EQ(ReadBytes(folder / "csv" / "Cities.csv"),
            "\"Code\",\"Size\"\r\n\"c\",3\r\n\"a\",2\r\n\"b\",1\r\n");
  EXPECT_FALSE(std::filesystem::exists(folder / "csv" / "a_b.csv"));
  EXPECT_EQ(Messages("", "bycode"), "");
  EXPECT_EQ(ReadBytes(folder / "csv" / "Cities.csv"),
            "\"Code\",\"Size\"\r\n\"a\",2\r\n\"b\",1\r\n\"c\",3\r\n");
}

TEST_F(ExportOptionsTest, ListsTheNamesInsteadOfAWrongOne) {
  EXPECT_EQ(Messages("Towns", ""),
            "zerbal-pack: two.mdb: there is no table 'Towns'; the tables are: Cities, a/b, A\\B\n");
  EXPECT_FALSE(good);
  EXPECT_EQ(Messages("Cities", "ByName"),
            "zerbal-pack: two.mdb: table 'Cities' has no index 'ByName'; its indexes are: ByCode, BySize\n");
  EXPECT_FALSE(good);
  EXPECT_EQ(Messages("a/b", "ByName"),
            "zerbal-pack: two.mdb: table 'a/b' has no index 'ByName'; its indexes are: none\n");
  EXPECT_EQ(Messages("", "ByName"), "zerbal-pack: two.mdb: no table has an index 'ByName'\n");
  EXPECT_FALSE(good);
}

TEST_F(ExportOptionsTest, WritesTheSchema) {
  EXPECT_EQ(Messages("cities", "", true), "");
  EXPECT_EQ(ReadBytes(folder / "csv" / "schema.csv"),
            "\"Table\",\"Kind\",\"Name\",\"Definition\",\"Properties\"\r\n"
            "\"Cities\",\"column\",\"Code\",\"Text(5)\",\"compressed\"\r\n"
            "\"Cities\",\"column\",\"Size\",\"Long\",\"fixed\"\r\n"
            "\"Cities\",\"index\",\"ByCode\",\"Code\",\"primary, unique, required\"\r\n"
            "\"Cities\",\"index\",\"BySize\",\"Size descending\",\"ignore nulls\"\r\n");
}

TEST_F(ExportOptionsTest, FailsWhenItCannotWrite) {
  WriteBytes(folder / "csv", "a file");
  std::ostringstream err;
  EXPECT_THROW(ExportTables({folder / "two.mdb", folder / "csv", "", "", false}, err),
               std::filesystem::filesystem_error);
}

TEST(ExportTables, RefusesAFileThatIsNotADatabase) {
  const TempFolder folder;
  WriteBytes(folder / "x.mdb", "no database");
  std::ostringstream err;
  EXPECT_THROW(ExportTables({folder / "x.mdb", folder / "csv", "", "", false}, err), jet::EngineError);
  EXPECT_THROW(ExportTables({folder / "y.mdb", folder / "csv", "", "", false}, err), jet::EngineError);
  EXPECT_FALSE(std::filesystem::exists(folder / "csv"));
}

TEST(CsvFileName, ReplacesCharactersThatFileSystemsRefuse) {
  EXPECT_EQ(CsvFileName("flit"), "flit");
  EXPECT_EQ(CsvFileName("Größe 2-a_b"), "Größe 2-a_b");
  EXPECT_EQ(CsvFileName("../x:y*?\"<>|\t.csv"), "___x_y________csv");
}

TEST(TypeText, StatesTypesWithTheirSizes) {
  EXPECT_EQ(TypeText(TextColumn("x", 255)), "Text(255)");
  EXPECT_EQ(TypeText(NumberColumn("x", ColumnType::kSingle, 4)), "Single");
  jet::ColumnInfo numeric = NumberColumn("x", ColumnType::kNumeric, 17);
  numeric.precision = 18;
  numeric.scale = 4;
  EXPECT_EQ(TypeText(numeric), "Numeric(18,4)");
}

}  // namespace
}  // namespace zerbal::pack
