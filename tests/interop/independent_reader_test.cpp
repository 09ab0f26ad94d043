// Reads files of our writer with independent programs and compares their output with the rows.
#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/wait.h>

#include "jet/database.h"
#include "jet/recordset.h"
#include "jet/writer.h"
#include "support/database_builder.h"
#include "support/jet_file.h"
#include "support/small_world.h"
#include "support/temp_folder.h"
#include "support/test_random.h"

namespace zerbal {
namespace {

using namespace zerbal::test;

std::string Quoted(const std::string& argument) {
  return "'" + argument + "'";
}

/// The standard output of a command. Throws std::runtime_error when the command fails.
std::string OutputOf(const std::string& command) {
  std::FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
  if (pipe == nullptr)
    throw std::runtime_error("cannot run " + command);
  std::string output;
  std::array<char, 65536> part;
  for (std::size_t size; (size = std::fread(part.data(), 1, part.size(), pipe)) > 0;)
    output.append(part.data(), size);
  const int status = pclose(pipe);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
    throw std::runtime_error("failed: " + command);
  return output;
}

class IndependentReader : public testing::Test {
 protected:
  std::string File() const { return (folder_ / "one.mdb").string(); }

  std::string Export(const std::string& table) {
    return OutputOf("mdb-export -H -b hex -0 '\\N' -D '%Y-%m-%d %H:%M:%S' -T '%Y-%m-%d %H:%M:%S' " +
                    Quoted(File()) + " " + Quoted(table));
  }
  /// The lines of the schema that create indexes, sorted.
  std::vector<std::string> Indexes() {
    std::istringstream lines(OutputOf("mdb-schema --indexes " + Quoted(File()) + " postgres"));
    std::vector<std::string> indexes;
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("CREATE") ? line.find(" INDEX ") != line.npos : line.starts_with("ALTER TABLE"))
        indexes.push_back(line);
    }
    std::ranges::sort(indexes);
    return indexes;
  }

  TempFolder folder_;
};

TEST_F(IndependentReader, RecognisesTheFormatAndTheTables) {
  WriteDatabase(File(),
                {{"First table", {Long("a")}, {}, {}}, {"zweite Tabelle \xC3\xA4", {Long("a")}, {}, {}}});
  EXPECT_EQ(OutputOf("mdb-ver " + Quoted(File())), "JET4\n");
  EXPECT_EQ(OutputOf("mdb-tables -1 " + Quoted(File())), "First table\nzweite Tabelle \xC3\xA4\n");
  EXPECT_EQ(Export("First table"), "");
}

TEST_F(IndependentReader, ReadsEveryType) {
  // Without a zero byte, where that program stops printing a binary value.
  const std::vector<std::uint8_t> bytes = {1, 0x10, 0xAB, 0xFF};
  // 44986.75 is 1 March 2023, 18:00.
  WriteDatabase(
      File(), {{"all",
                {Boolean("B"), Byte("Y"), Integer("I"), Long("L"), Currency("C"), Single("S"), Double("D"),
                 DateTime("T"), Binary("X", 20), Text("V", 50), PlainText("P", 50), Ole("O"), Memo("M"),
                 PlainMemo("N"), Numeric("Q", 18, 3)},
                {},
                {{true, 200, -300, 70000, 12.34, 1.5f, -0.25, 44986.75, bytes, "text", "plain", bytes, "memo",
                  "plain memo", "-12345678901.125"},
                 {false, 0, 32767, -2147483647 - 1, -1, -3, 1e100, 2.5, bytes, "\xC3\xA9 \"quoted\"",
                  "\xE2\x82\xAC \xE4\xB8\xAD", bytes, "two\nlines", "a,b", 7},
                 {false, Null(), Null(), Null(), Null(), Null(), Null(), Null(), Null(), Null(), Null(),
                  Null(), Null(), Null(), Null()}}}});
  EXPECT_EQ(Export("all"),
            "1,200,-300,70000,12.3400,1.5,-0.25,\"2023-03-01 "
            "18:00:00\",\"0110ABFF\",\"text\",\"plain\",\"0110ABFF\","
            "\"memo\",\"plain memo\",-12345678901.125\n"
            "0,0,32767,-2147483648,-1.0000,-3,1e+100,\"1900-01-01 12:00:00\",\"0110ABFF\",\"\xC3\xA9 "
            "\"\"quoted\"\"\","
            "\"\xE2\x82\xAC \xE4\xB8\xAD\",\"0110ABFF\",\"two\nlines\",\"a,b\",7.000\n"
            "0,\\N,\\N,\\N,\\N,\\N,\\N,\\N,\\N,\\N,\\N,\\N,\\N,\\N,\\N\n");
}

/// The independent program decodes files with code of its own, which confirms the encoding.
TEST_F(IndependentReader, ReadsEncodedFilesAsOurReaderDoes) {
  WriteDatabase(File(), {{"t", {Text("Code", 4), Long("N")}, {}, {{"LPPT", 7}, {"EGLL", 8}}}});
  const std::string plain = Export("t");
  ASSERT_EQ(plain, "\"LPPT\",7\n\"EGLL\",8\n");
  const jet::test::Bytes encoded = jet::test::Encoded(jet::test::Raw(ReadBytes(File())), 4096, 0x2A5B7C01);
  WriteBytes(File(), jet::test::Chars(encoded));
  EXPECT_EQ(Export("t"), plain);
  jet::Recordset rows = jet::Database::Open(File()).OpenTable("t");
  EXPECT_EQ(rows["Code"].AsText() + rows["N"].AsText(), "LPPT7");
}

TEST_F(IndependentReader, ReportsTypesAndSizes) {
  WriteDatabase(
      File(), {{"t", {Text("Code", 4), Byte("Red"), Long("Lon"), Memo("Remark"), Double("Number")}, {}, {}}});
  const std::string schema = OutputOf("mdb-schema " + Quoted(File()));
  for (const char* line : {"[Code]\t\t\tText (4)", "[Red]\t\t\tByte", "[Lon]\t\t\tLong Integer",
                           "[Remark]\t\t\tMemo/Hyperlink (255)", "[Number]\t\t\tDouble"})
    EXPECT_NE(schema.find(line), std::string::npos) << line << "\n" << schema;
}

TEST_F(IndependentReader, ReadsLongTexts) {
  Table table{"long", {Long("N"), Memo("M"), PlainMemo("P"), Ole("O")}, {}, {}};
  std::string expected;
  for (int size : {1, 64, 65, 2038, 4076, 4077, 30000}) {
    const auto count = static_cast<std::size_t>(size);
    table.rows.push_back(
        {size, std::string(count, 'm'), std::string(count, 'p'), std::vector<std::uint8_t>(count, 0xA5)});
    std::string hex;
    for (int i = 0; i < size; ++i)
      hex += "A5";
    expected += std::to_string(size) + ",\"" + std::string(count, 'm') + "\",\"" + std::string(count, 'p') +
                "\",\"" + hex + "\"\n";
  }
  WriteDatabase(File(), {table});
  EXPECT_TRUE(Export("long") == expected);
}

TEST_F(IndependentReader, ReadsAllRowsOfLargeTables) {
  TestRandom random(3);
  Table texts{"texts",
              {Text("T", 60), Long("N")},
              {Index("up", "T"), Unique("one", "N-"), Index("two", "N", "T-")},
              {}};
  std::string expectedTexts;
  for (int i = 0; i < 5000; ++i) {
    const std::string text = "row " + std::to_string(random()) + std::string(random() % 40, 'x');
    texts.rows.push_back({text, i});
    expectedTexts += "\"" + text + "\"," + std::to_string(i) + "\n";
  }
  std::string expectedPoints;
  {
    jet::DatabaseWriter writer(File());
    WriteTable(writer, texts);
    writer.BeginTable({"points", {Long("Lon"), Long("Lat")}, {}});
    for (std::int32_t i = 0; i < 300000; ++i) {
      writer.AddPair(i * 1201, -i);
      expectedPoints += std::to_string(i * 1201) + "," + std::to_string(-i) + "\n";
    }
    writer.EndTable();
    writer.Finish();
  }
  EXPECT_TRUE(Export("texts") == expectedTexts);
  EXPECT_TRUE(Export("points") == expectedPoints);
}

TEST_F(IndependentReader, ReportsIndexesWithColumnsAndDirections) {
  WriteDatabase(File(), {{"t",
                          {Long("A"), Text("B", 9), Double("C")},
                          {Index("zz", "B"), Unique("aa", "A", "B-"), Primary("mm", "C"), Index("bb", "A-")},
                          {{1, "x", 2.0}}}});
  EXPECT_EQ(Indexes(),
            (std::vector<std::string>{"ALTER TABLE \"t\" ADD CONSTRAINT \"t_pkey\" PRIMARY KEY (\"c\");",
                                      "CREATE INDEX \"t_bb_idx\" ON \"t\" (\"a\" DESC);",
                                      "CREATE INDEX \"t_zz_idx\" ON \"t\" (\"b\");",
                                      "CREATE UNIQUE INDEX \"t_aa_idx\" ON \"t\" (\"a\", \"b\" DESC);"}));
}

TEST_F(IndependentReader, ReadsTheSmallWorld) {
  SmallWorld world;
  world.Write(folder_.Path());
  const std::string file = Quoted((folder_ / "app_data/qavdata.mdb").string());
  EXPECT_EQ(OutputOf("mdb-tables -1 " + file), "fsrv\ndest\nflit\n");
  std::string services;
  for (const Row& row : world.fsrv.rows)
    services += "\"" + std::get<std::string>(row[0]) + "\"\n";
  std::istringstream lines(OutputOf("mdb-export -H " + file + " fsrv"));
  std::string read;
  for (std::string line; std::getline(lines, line);)
    read += line.substr(0, line.find(',')) + "\n";
  EXPECT_EQ(read, services);
}

TEST_F(IndependentReader, ReadsManyTables) {
  std::vector<Table> tables;
  std::string names;
  for (int i = 0; i < 200; ++i) {
    tables.push_back({"table " + std::to_string(i), {Long("A")}, {}, {{i}}});
    names += tables.back().name + "\n";
  }
  WriteDatabase(File(), tables);
  EXPECT_EQ(OutputOf("mdb-tables -1 " + Quoted(File())), names);
  EXPECT_EQ(Export("table 199"), "199\n");
}

}  // namespace
}  // namespace zerbal
