// Damaged indexes: the rows come all the same, in the same order, and are found as before.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
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

using testing::ElementsAre;
using testing::Not;

constexpr std::size_t kPerPage = 4;

class MendingTest : public BothFormats {
 protected:
  std::size_t Links() const { return file.IsJet3() ? 0x08 : 0x0C; }
  std::size_t Base() const { return file.IsJet3() ? 0xF8 : 0x1E0; }
  std::size_t Mask() const { return file.IsJet3() ? 0x16 : 0x1B; }
  std::uint32_t Leaf(std::size_t i) const { return firstLeaf + static_cast<std::uint32_t>(i); }

  Bytes Stored(std::string_view text) const {
    std::string narrow;
    std::u16string wide;
    ToCodePage(text, narrow);
    ToUtf16(text, wide);
    return file.IsJet3() ? Raw(narrow) : Utf16(wide);
  }
  /// The key of a code; where it is not known, one that stands behind the others.
  Bytes TextKey(std::string_view text, bool ascending) const {
    Bytes key;
    std::string narrow;
    std::u16string wide;
    ToCodePage(text, narrow);
    ToUtf16(text, wide);
    if (file.IsJet3())
      AppendTextKeyJet3(narrow, ascending, key);
    else if (!AppendTextKeyJet4(wide, ascending, key))
      AppendFoldedTextKey(text, ascending, key);
    return key;
  }

  /// A table "T" of Id (its row's number) and Code, under "code": the codes, then the Ids downwards. The last
  /// code is Null.
  void MakeTable(const std::vector<std::string>& codes, bool ascending = true) {
    TestTable table(
        file, "T", {{"Id", ColumnType::kLong, 0, true, 0, 4}, {"Code", ColumnType::kText, 1, false, 0, 510}});
    std::vector<TestEntry> entries;
    for (std::uint32_t i = 0; i <= codes.size(); ++i) {
      const bool null = i == codes.size();
      Bytes key;
      if (null)
        AppendNullKey(ascending, key);
      else
        key = TextKey(codes[i], ascending);
      AppendFixedKey(ColumnType::kLong, Chars(Le(i, 4)), false, key);
      entries.push_back({key, table.Add({Le(i, 4), null ? kNull : Cell(Stored(codes[i]))})});
      if (i % 6 == 5)
        table.StartPage();
    }
    rows = {};
    for (const TestEntry& entry : entries)
      rows.push_back(entry.row);
    firstLeaf = file.PageCount();
    root = AddIndexTree(file, table.Page(), entries, kPerPage, false);
    table.indexes = {{"code", {{1, ascending}, {0, false}}, root}};
    table.Finish();
    sought = codes;
  }
  void MakeUsualTable(bool ascending = true) {
    std::vector<std::string> codes = {"EUR", "eur", "EUR ", "", "Zürich", "co-op", "coop", "Ä"};
    for (int i = 0; i < 31; ++i)
      codes.push_back("Code " + std::to_string(i * 17 % 31));
    MakeTable(codes, ascending);
  }

  /// All that can be seen of the table by its index: the walk forwards, back again, the walks from every row
  /// sought, and where a search ends that finds nothing.
  std::vector<std::string> Look() {
    Recordset table = file.Open().OpenTable("T");
    table.SetIndex("code");
    std::vector<std::string> seen;
    std::string line = "forwards";
    for (; !table.Eof(); table.MoveNext())
      line += " " + table["Id"].AsText();
    seen.push_back(line);
    line = "backwards";
    for (table.MovePrevious(); !table.Bof(); table.MovePrevious())
      line += " " + table["Id"].AsText();
    table.MoveNext();
    seen.push_back(line + ", first " + table["Id"].AsText());
    for (const std::string& code : sought) {
      // A new cursor each time, which must find the damage itself.
      Recordset fresh = file.Open().OpenTable("T");
      fresh.SetIndex("code");
      fresh.Seek(code);
      line = code;
      for (int i = 0; i < 6 && !fresh.Eof(); ++i, fresh.MoveNext())
        line += " " + fresh["Id"].AsText();
      seen.push_back(line);
    }
    table.Seek("no such code");
    seen.emplace_back(table.NoMatch() ? "none" : "found");
    return seen;
  }

  JetFile file{GetParam()};
  std::vector<RecordPointer> rows;  ///< by Id
  std::uint32_t firstLeaf = 0;
  std::uint32_t root = 0;
  std::vector<std::string> sought;
};
ZERBAL_BOTH_FORMATS(MendingTest);

TEST_P(MendingTest, SortsTheRowsWhereAnIndexPageIsDamaged) {
  for (const bool ascending : {true, false}) {
    file = JetFile(GetParam());
    MakeUsualTable(ascending);
    const JetFile sound = file;
    const std::vector<std::string> expected = Look();
    ASSERT_THAT(expected[0], Not(testing::IsEmpty()));
    ASSERT_EQ(expected.back(), "none");
    const std::size_t leaves = (rows.size() + kPerPage - 1) / kPerPage;
    const std::size_t prefix = file.IsJet3() ? 0x14 : 0x18;
    using Hurt = std::function<void(std::uint32_t page)>;
    const std::vector<std::pair<const char*, Hurt>> damages = {
        {"another kind of page", [&](std::uint32_t page) { file.Put(page, 0, {1}); }},
        {"another owner", [&](std::uint32_t page) { file.Put(page, 4, Le(99, 4)); }},
        {"the page before is itself", [&](std::uint32_t page) { file.Put(page, Links(), Le(page, 4)); }},
        {"the page behind is itself", [&](std::uint32_t page) { file.Put(page, Links() + 4, Le(page, 4)); }},
        {"the page behind is the first",
         [&](std::uint32_t page) { file.Put(page, Links() + 4, Le(firstLeaf, 4)); }},
        {"the page behind is not there",
         [&](std::uint32_t page) { file.Put(page, Links() + 4, Le(0xFFFFFF, 4)); }},
        {"entries out of order", [&](std::uint32_t page) { file.Put(page, Base(), {0xFF}); }},
        {"entries too short", [&](std::uint32_t page) { file.Put(page, Mask(), Bytes(16, 0xFF)); }},
        {"too long a prefix", [&](std::uint32_t page) { file.Put(page, prefix, {0xFF}); }},
    };
    for (const auto& [what, hurt] : damages) {
      for (const std::size_t leaf : {std::size_t{0}, std::size_t{4}, leaves - 2}) {
        file = sound;
        hurt(Leaf(leaf));
        EXPECT_EQ(Look(), expected) << what << ", leaf " << leaf;
      }
    }
    for (std::size_t leaf = 0; leaf + 1 < leaves; ++leaf) {
      file = sound;
      file.Put(Leaf(leaf), Links() + 4, Le(0, 4));
      EXPECT_EQ(Look()[0], expected[0]) << "torn behind leaf " << leaf;
    }
  }
}

TEST_P(MendingTest, SortsTheRowsWhereTheRootIsDamaged) {
  MakeUsualTable();
  const JetFile sound = file;
  const std::vector<std::string> expected = Look();
  const std::vector<std::function<void()>> damages = {
      [&] { file.Put(root, 0, {5}); },
      [&] { file.Put(root, 4, Le(1, 4)); },
      [&] { file.Put(root, Links() + 8, Le(root, 4)); },
      [&] { file.Put(root, 0, Bytes(file.PageSize())); },
  };
  for (std::size_t i = 0; i < damages.size(); ++i) {
    file = sound;
    damages[i]();
    if (i == 2)  // the circle lies on the way to the last rows only
      EXPECT_EQ(Look()[0], expected[0]);
    else
      EXPECT_EQ(Look(), expected) << i;
  }
}

TEST_P(MendingTest, GoesOnFromTheRowWhereItMetTheDamage) {
  MakeUsualTable();
  Recordset whole = file.Open().OpenTable("T");
  whole.SetIndex("code");
  std::vector<std::string> ids;
  for (; !whole.Eof(); whole.MoveNext())
    ids.push_back(whole["Id"].AsText());
  EXPECT_FALSE(whole.IndexDamaged());
  file.Put(Leaf(5), 0, {1});
  Recordset table = file.Open().OpenTable("T");
  table.SetIndex("code");
  for (std::size_t i = 0; i < 6 * kPerPage; ++i) {
    ASSERT_EQ(table["Id"].AsText(), ids[i]) << i;
    table.MoveNext();
  }
  EXPECT_TRUE(table.IndexDamaged());
  for (std::size_t i = 6 * kPerPage; i-- > 0;) {
    table.MovePrevious();
    ASSERT_EQ(table["Id"].AsText(), ids[i]) << i;
  }
  table.SetIndex("");
  EXPECT_EQ(table["Id"].AsLong(), 0);
}

TEST_P(MendingTest, PassesOverEntriesThatNameNoRow) {
  MakeUsualTable();
  const JetFile sound = file;
  const std::vector<std::string> expected = Look();
  const auto without = [&](std::size_t id) {
    std::vector<std::string> lines = {expected[0], expected[1].substr(0, expected[1].find(','))};
    for (std::string& line : lines) {
      line += " ";
      const std::string word = " " + std::to_string(id) + " ";
      line.replace(line.find(word), word.size(), " ");
      line.pop_back();
    }
    return lines;
  };
  const auto look = [&](const char* what, std::size_t id) {
    std::vector<std::string> lines = Look();
    const std::size_t first = lines[1].find(',');
    const std::size_t blank = lines[0].find(' ') + 1;
    EXPECT_EQ(lines[1].substr(first), ", first " + lines[0].substr(blank, lines[0].find(' ', blank) - blank));
    lines[1].resize(first);
    EXPECT_EQ((std::vector<std::string>{lines[0], lines[1]}), without(id)) << what << ", row " << id;
    Recordset table = file.Open().OpenTable("T");
    table.SetIndex("code");
    if (id + 1 < rows.size()) {
      table.Seek(sought[id]);
      EXPECT_TRUE(table.NoMatch()) << what << ", row " << id;
    }
  };
  for (std::size_t id = 0; id < rows.size(); ++id) {
    file = sound;
    const std::size_t entry = file.DirectoryEntry(rows[id].row);
    file.Put(rows[id].page, entry + 1,
             {static_cast<std::uint8_t>(file.Get(rows[id].page, entry + 1, 1) | 0xC0)});
    look("deleted", id);
  }
  // The first entries of the leaves: their last four bytes name the row.
  for (const std::uint32_t pointer : {0xFFFFFF00u, 0u, 0x100u, 0x200u, rows[0].page << 8 | 200}) {
    file = sound;
    std::size_t end = 0;
    do {
      ++end;
    } while ((file.Get(Leaf(0), Mask() + end / 8, 1) >> end % 8 & 1) == 0);
    file.Put(Leaf(0), Base() + end - 4, Be(pointer, 4));
    look("a wrong pointer", rows.size() - 1);  // the Null stands first
  }
}

TEST_P(MendingTest, PassesOverPagesOfOthersInTheOrderOfTheIndex) {
  MakeUsualTable();
  file.Put(rows[0].page, 4, Le(99, 4));
  for (const bool damaged : {false, true}) {
    if (damaged)
      file.Put(root, 0, {1});
    const std::vector<std::string> seen = Look();
    for (std::size_t id = 0; id < rows.size(); ++id) {
      const bool there = (seen[0] + " ").find(" " + std::to_string(id) + " ") != std::string::npos;
      EXPECT_EQ(there, rows[id].page != rows[0].page) << id;
    }
  }
}

TEST_P(MendingTest, GivesTextsOfUnknownOrderAPlace) {
  MakeTable({"Жук", "A", "б", "Z", "А", "жук"});
  file.Put(root, 0, {1});
  Recordset table = file.Open().OpenTable("T");
  table.SetIndex("code");
  std::vector<int> ids;
  for (; !table.Eof(); table.MoveNext())
    ids.push_back(table["Id"].AsLong());
  if (GetParam() == Format::kJet4) {
    EXPECT_THAT(ids, ElementsAre(6, 1, 3, 4, 2, 5, 0));
    table.Seek("Жук");
    EXPECT_EQ(table["Id"].AsLong(), 0);
  }
  EXPECT_EQ(ids.size(), 7u);
  table.Seek("Z");
  EXPECT_EQ(table["Id"].AsLong(), 3);
}

TEST_P(MendingTest, FindsTextsInDamagedIndexesOfOtherSortOrders) {
  TestTable table(
      file, "T",
      {{"Id", ColumnType::kLong, 0, true, 0, 4}, {"Code", ColumnType::kText, 1, false, 0, 510, 0, 0x0407}});
  const std::vector<std::string> codes = {"b", "A", "C", "a", "B "};
  std::vector<TestEntry> entries;
  for (std::uint32_t i = 0; i < codes.size(); ++i) {
    Bytes key;
    AppendFoldedTextKey(codes[i], true, key);
    entries.push_back({key, table.Add({Le(i, 4), Stored(codes[i])})});
  }
  firstLeaf = file.PageCount();
  table.indexes = {{"code", {{1, true}}, AddIndexTree(file, table.Page(), entries, 2, false)}};
  table.Finish();
  sought = codes;
  const std::vector<std::string> expected = Look();
  EXPECT_EQ(expected[0], "forwards 1 3 0 4 2");
  file.Put(Leaf(1), 0, {1});  // met while all texts are being read
  EXPECT_EQ(Look(), expected);
}

TEST_P(MendingTest, SortsNumbersOfEveryKind) {
  const auto sorted = [this](ColumnType type, const std::vector<Cell>& values, bool ascending,
                             std::uint8_t flags) {
    file = JetFile(GetParam());
    const int length = SizeOfType(type);
    TestTable table(file, "T", {{"Id", ColumnType::kLong, 0, true, 0, 4}, {"F", type, 1, true, 4, length}});
    for (std::uint32_t i = 0; i < values.size(); ++i)
      table.Add({Le(i, 4), values[i]});
    table.indexes = {{"f", {{1, ascending}}, 0xFFFFFF, flags}};
    table.Finish();
    Recordset found = file.Open().OpenTable("T");
    found.SetIndex("f");
    std::vector<int> ids;
    for (; !found.Eof(); found.MoveNext())
      ids.push_back(found["Id"].AsLong());
    return ids;
  };
  EXPECT_THAT(sorted(ColumnType::kLong, {Le(5, 4), kNull, Le(~0u, 4), Le(0, 4)}, true, 0),
              ElementsAre(1, 2, 3, 0));
  EXPECT_THAT(sorted(ColumnType::kLong, {Le(5, 4), kNull, Le(~0u, 4), Le(0, 4)}, false, 0),
              ElementsAre(0, 3, 2, 1));
  EXPECT_THAT(sorted(ColumnType::kLong, {Le(5, 4), kNull, Le(~0u, 4), Le(0, 4)}, true, 2),
              ElementsAre(2, 3, 0));  // an index that leaves out Nulls
  EXPECT_THAT(sorted(ColumnType::kBoolean, {kNull, Bytes{0}, kNull}, true, 2), ElementsAre(1, 0, 2));
  if (GetParam() == Format::kJet4) {
    const auto numeric = [](std::uint8_t sign, std::uint32_t value) {
      return Bytes{sign} + Le(0, 12) + Le(value, 4);
    };
    EXPECT_THAT(
        sorted(ColumnType::kNumeric, {numeric(0, 12), kNull, numeric(0x80, 7), numeric(0, 3)}, true, 0),
        ElementsAre(1, 2, 3, 0));
  }
}

TEST_P(MendingTest, KeepsADamagedRowAnError) {
  TestTable table(file, "T", {{"Id", ColumnType::kLong, 0, true, 0, 4}});
  table.Add({Le(7, 4)});
  table.AddBytes({0xFF, 0xFF, 0});
  table.Add({Le(5, 4)});
  table.indexes = {{"i", {{0, true}}, 0xFFFFFF, 2}};
  table.Finish();
  Recordset found = file.Open().OpenTable("T");
  EXPECT_NE(ReasonOf([&] { found.SetIndex("i"); }), "none");
  found.MoveNext();
  EXPECT_EQ(found["Id"].AsLong(), 5);
  found.MoveNext();
  EXPECT_EQ(found["Id"].AsLong(), 7);
  found.MoveNext();
  EXPECT_TRUE(found.Eof());
}

}  // namespace
}  // namespace zerbal::jet::test
