// Written files as a whole: everything in them must fit together.
#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "jet/file_inspection.h"
#include "support/database_builder.h"
#include "support/small_world.h"
#include "support/temp_folder.h"
#include "support/test_random.h"

namespace zerbal::jet {
namespace {

using namespace zerbal::test;
using Faults = std::vector<std::string>;

class WriterTrees : public testing::Test {
 protected:
  std::string Write(const std::vector<Table>& tables) {
    WriteDatabase(folder_ / "one.mdb", tables);
    return ReadBytes(folder_ / "one.mdb");
  }
  TempFolder folder_;
};

/// A text of 1 to `most` characters of code page 1252 or of Latin letters beyond it.
std::string SomeText(std::mt19937& random, std::size_t most) {
  static const std::vector<std::string> characters = [] {
    std::vector<std::string> all;
    for (unsigned code = 1; code < 0x180; ++code) {
      if (code < 0x80)
        all.push_back(std::string(1, static_cast<char>(code)));
      else
        all.push_back({static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))});
    }
    all.insert(all.end(), {"\xE2\x82\xAC", "\xE2\x80\x93", "\xE2\x80\xA6", "\xE2\x84\xA2"});
    return all;
  }();
  std::string text;
  for (std::size_t length = 1 + random() % most; length > 0; --length)
    text += characters[random() % characters.size()];
  return text;
}

TEST_F(WriterTrees, FitTogetherInAnEmptyDatabase) {
  EXPECT_EQ(FaultsIn(Write({})), Faults());
}

TEST_F(WriterTrees, FitTogetherInTheSmallWorld) {
  SmallWorld().Write(folder_.Path());
  for (const char* file : {"app_data/zbldata.mdb", "app_data/qavdata.mdb", "app_data/allaprt.mdb",
                           "app_map/coast.mdb", "app_map/river.mdb", "app_map/ibound.mdb"})
    EXPECT_EQ(FaultsIn(ReadBytes(folder_ / file)), Faults()) << file;
}

TEST_F(WriterTrees, HaveSeveralLevelsForManyTexts) {
  TestRandom random(20);
  Table texts{"texts",
              {Text("T"), PlainText("P", 30)},
              {Index("up", "T"), Index("down", "T-"), Index("both", "P-", "T")},
              {}};
  for (int i = 0; i < 5000; ++i)
    texts.rows.push_back({SomeText(random, 120), i % 50 == 0 ? Cell(Null()) : Cell(SomeText(random, 4))});
  const std::string file = Write({texts});
  EXPECT_EQ(FaultsIn(file), Faults());
  EXPECT_GE(IndexLevels(file, "texts", "up"), 3);
  EXPECT_GE(IndexLevels(file, "texts", "down"), 3);
}

TEST_F(WriterTrees, HoldEveryTypeThatCanBeIndexed) {
  TestRandom random(4);
  Table all{"all",
            {Boolean("B"), Byte("Y"), Integer("I"), Long("L"), Currency("C"), Single("S"), Double("D"),
             DateTime("T"), Binary("X", 20), Guid("G"), Text("V", 10)},
            {},
            {}};
  for (const ColumnInfo& column : all.columns) {
    all.indexes.push_back(Index("up" + column.name, column.name));
    all.indexes.push_back(Index("down" + column.name, column.name + "-"));
  }
  all.indexes.push_back(Index("four", "L", "B-", "V", "D-"));
  all.indexes.push_back(Index("few", "I"));
  all.indexes.back().ignoreNulls = true;
  for (int i = 0; i < 700; ++i) {
    const auto number = static_cast<std::int32_t>(random());
    const auto bytes = [&](std::size_t count) {
      std::vector<std::uint8_t> some(count);
      std::ranges::generate(some, [&] { return static_cast<std::uint8_t>(random()); });
      return some;
    };
    Row row = {number % 2 == 0,      number & 0xFF, number % 32768,      number % 40,
               number / 7.0,         number / 3.0f, number * 1e-3,       number % 9999,
               bytes(random() % 21), bytes(16),     SomeText(random, 10)};
    for (std::size_t column = 1; column < row.size(); ++column) {
      if (random() % 10 == 0)
        row[column] = Null();
    }
    all.rows.push_back(row);
  }
  EXPECT_EQ(FaultsIn(Write({all})), Faults());
}

TEST_F(WriterTrees, NeverHaveANodeOfOneChild) {
  // One entry more a time, over the places where a page, and then a node, gets full. Keys of one size, as
  // long as they can be, so that few entries make a page.
  for (int rows = 1; rows < 60; ++rows) {
    Table wide{"wide", {}, {Index("i")}, {}};
    for (const char* name : {"A", "B", "C", "D", "E", "F"}) {
      wide.columns.push_back(Text(name, 255));
      wide.indexes[0].columns.push_back({name, true});
    }
    for (int i = 0; i < rows; ++i)
      wide.rows.push_back(Row(6, Cell(std::string(249, 'a') + std::to_string(100000 + i))));
    const std::string file = Write({wide});
    ASSERT_EQ(FaultsIn(file), Faults()) << rows << " rows";
    if (rows == 59) {
      EXPECT_GE(IndexLevels(file, "wide", "i"), 4);
    }
  }
}

TEST_F(WriterTrees, FitTogetherWithLongValues) {
  Table values{"long", {Memo("M"), Ole("O"), PlainMemo("P"), Long("N")}, {Index("N", "N")}, {}};
  for (std::size_t size : {0u,    1u,    2u,    31u,   32u,   33u,   62u,   63u,   64u,   65u,    1000u,
                           2038u, 2039u, 4073u, 4074u, 4075u, 4076u, 4077u, 8144u, 8145u, 100000u})
    values.rows.push_back({std::string(size, 'm'), std::vector<std::uint8_t>(size, 7), std::string(size, 'p'),
                           static_cast<std::int32_t>(size)});
  EXPECT_EQ(FaultsIn(Write({values, {"none", {Memo("M")}, {}, {{Null()}, {Null()}}}})), Faults());
}

TEST_F(WriterTrees, HaveACatalogOfSeveralPages) {
  std::vector<Table> tables;
  for (int i = 0; i < 300; ++i)
    tables.push_back(
        {"a table with a rather long name, number " + std::to_string(i), {Long("A")}, {}, {{i}}});
  const std::string file = Write(tables);
  EXPECT_EQ(FaultsIn(file), Faults());
  EXPECT_GE(IndexLevels(file, "MSysObjects", "ParentIdName"), 2);
}

TEST_F(WriterTrees, HaveDefinitionsOfSeveralPages) {
  // Also such as end just before, at and behind the end of a page.
  for (std::size_t pad = 1; pad <= 60; pad += 3) {
    Table wide{"wide", {}, {}, {Row(150, Cell(3))}};
    for (int i = 0; i < 150; ++i)
      wide.columns.push_back(Long("column " + std::to_string(i)));
    for (int i = 0; i < 20; ++i)
      wide.indexes.push_back(Index("index " + std::to_string(i), "column " + std::to_string(i)));
    wide.columns.back().name = std::string(pad, 'c');
    wide.columns[140].name = std::string(pad, 'd');
    ASSERT_EQ(FaultsIn(Write({wide})), Faults()) << pad;
  }
}

TEST_F(WriterTrees, HaveManyUsageMaps) {
  Table memos{"memos", {}, {}, {}};
  for (int i = 0; i < 40; ++i)
    memos.columns.push_back(Memo("memo " + std::to_string(i)));
  memos.rows.push_back(Row(40, Cell(std::string(300, 'x'))));
  EXPECT_EQ(FaultsIn(Write({memos, {"other", {Long("A")}, {}, {{1}}}})), Faults());
}

TEST_F(WriterTrees, FitTogetherBeyondTheMapsThatFitIntoARow) {
  // Long values of so many pages: the column's map with a later start, on pages of its own, the map of the
  // whole file on a page of its own; and tables behind all that.
  for (const std::size_t pages : {300u, 500u, 520u, 700u, 8100u}) {
    Table first{"first", {Ole("O")}, {}, {{std::vector<std::uint8_t>(pages * 4072, 1)}}};
    Table second{"second",
                 {Ole("O"), Long("A")},
                 {Index("i", "A")},
                 {{std::vector<std::uint8_t>(pages * 2000, 2), 5}}};
    EXPECT_EQ(FaultsIn(Write({first, second})), Faults()) << pages;
  }
}

TEST_F(WriterTrees, AreInspectedByWhatFindsFaults) {
  const Table table{
      "t", {Long("A"), Text("B", 20)}, {Index("i", "A"), Index("j", "B")}, {{1, "a"}, {2, "b"}, {3, "c"}}};
  const std::string good = Write({table});
  ASSERT_EQ(FaultsIn(good), Faults());
  // Pages 16 definition, 17 maps, 18 and 19 indexes, 20 data.
  const std::map<std::string, std::size_t> places = {
      {"rows", 16 * 4096 + 0x10},          {"length", 16 * 4096 + 8},
      {"data: free bytes", 20 * 4096 + 2}, {"index: key", 18 * 4096 + 0x1E4},
      {"index: row", 18 * 4096 + 0x1E8},   {"index: free bytes", 18 * 4096 + 2},
      {"index: link", 18 * 4096 + 0x10},   {"data: owner", 20 * 4096 + 4},
      {"data: value", 21 * 4096 - 13},     {"owned pages", 18 * 4096 - 62},
      {"global map", 2 * 4096 - 64}};
  for (const auto& [name, at] : places) {
    std::string bad = good;
    bad[at] = static_cast<char>(bad[at] ^ 1);
    EXPECT_NE(FaultsIn(bad), Faults()) << name;
  }
}

}  // namespace
}  // namespace zerbal::jet
