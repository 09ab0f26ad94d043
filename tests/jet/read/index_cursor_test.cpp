// Walking trees of index pages, whole and damaged.
#include "jet/read/index_cursor.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/jet_file.h"
#include "support/jet_formats.h"
#include "support/test_random.h"

namespace zerbal::jet::test {
namespace {

constexpr std::uint32_t kOwner = 77;

class IndexCursorTest : public BothFormats {
 protected:
  IndexCursor Cursor(std::uint32_t root) {
    pages = std::make_unique<FilePages>(ImageOf(file.Build()));
    return {*pages, root, kOwner};
  }
  /// The rows' numbers in index order; read backwards they must be the same.
  std::vector<std::uint32_t> Walk(std::uint32_t root) {
    IndexCursor cursor = Cursor(root);
    std::vector<std::uint32_t> rows;
    for (bool found = cursor.MoveFirst(); found; found = cursor.MoveNext())
      rows.push_back(cursor.Row().ToU32());
    if (rows.empty())
      return rows;
    std::vector<std::uint32_t> backwards;
    do {
      backwards.insert(backwards.begin(), cursor.Row().ToU32());
    } while (cursor.MovePrevious());
    EXPECT_EQ(rows, backwards);
    return rows;
  }
  std::string Failure(std::uint32_t root) {
    try {
      Walk(root);
    } catch (const Damage& damage) {
      return damage.what();
    }
    return "none";
  }
  std::size_t Links() const { return file.IsJet3() ? 0x08 : 0x0C; }
  std::size_t Base() const { return file.IsJet3() ? 0xF8 : 0x1E0; }

  static Bytes Entry(std::string_view key, std::uint32_t row) { return Raw(key) + Be(row, 4); }
  static std::vector<TestEntry> Numbered(unsigned count) {
    std::vector<TestEntry> entries;
    for (unsigned i = 0; i < count; ++i)
      entries.push_back(
          {Bytes{0x7F} + Be(i / 3, 4), RecordPointer::FromU32(1000 + i)});  // keys occur three times
    return entries;
  }

  JetFile file{GetParam()};
  std::unique_ptr<FilePages> pages;
};
ZERBAL_BOTH_FORMATS(IndexCursorTest);

using testing::ElementsAre;
using testing::HasSubstr;

TEST_P(IndexCursorTest, WalksTreesOfAllShapes) {
  for (const unsigned count : {0u, 1u, 2u, 5u, 50u, 333u}) {
    for (const std::size_t perPage : {std::size_t{2}, std::size_t{7}, std::size_t{60}}) {
      for (const bool compress : {false, true}) {
        file = JetFile(GetParam());
        const std::uint32_t root = AddIndexTree(file, kOwner, Numbered(count), perPage, compress);
        std::vector<std::uint32_t> expected;
        for (unsigned i = 0; i < count; ++i)
          expected.push_back(1000 + i);
        EXPECT_EQ(Walk(root), expected)
            << count << " entries, " << perPage << " a page, compressed " << compress;
      }
    }
  }
}

TEST_P(IndexCursorTest, FindsTheFirstEntryNotBelowAKey) {
  for (const bool compress : {false, true}) {
    file = JetFile(GetParam());
    std::vector<TestEntry> entries;  // even keys only, each three times
    for (unsigned i = 0; i < 300; ++i)
      entries.push_back({Bytes{0x7F} + Be(std::uint64_t{i} / 3 * 2, 4), RecordPointer::FromU32(1000 + i)});
    IndexCursor cursor = Cursor(AddIndexTree(file, kOwner, entries, 5, compress));
    for (unsigned key = 0; key < 200; ++key) {
      const Bytes wanted = Bytes{0x7F} + Be(key, 4);
      ASSERT_EQ(cursor.MoveTo(wanted), key < 199) << key;
      if (key < 199) {
        ASSERT_EQ(cursor.Row().ToU32(), 1000 + (key + 1) / 2 * 3) << key;
        ASSERT_EQ(cursor.StartsWith(wanted), key % 2 == 0) << key;
      }
    }
  }
}

TEST_P(IndexCursorTest, SearchesAsABruteForceWalkDoes) {
  zerbal::test::TestRandom random(20150401);
  for (int round = 0; round < 20; ++round) {
    file = JetFile(GetParam());
    std::vector<TestEntry> entries;
    for (unsigned i = 0; i < 200; ++i) {
      Bytes key = {0x7F};
      for (unsigned length = random() % 6; length > 0; --length)
        key.push_back(static_cast<std::uint8_t>(2 + random() % 3));
      key.push_back(0);
      entries.push_back({key, RecordPointer::FromU32(i)});
    }
    const std::uint32_t root = AddIndexTree(file, kOwner, entries, 2 + random() % 20, round % 2 == 0);
    std::vector<std::string> sorted;
    for (const TestEntry& entry : entries)
      sorted.emplace_back(Chars(entry.key + Be(entry.row.ToU32(), 4)));
    std::sort(sorted.begin(), sorted.end());
    IndexCursor cursor = Cursor(root);
    for (const TestEntry& entry : entries) {
      for (const Bytes& key :
           {entry.key, entry.key + Bytes{1}, Bytes(entry.key.begin(), entry.key.end() - 1)}) {
        const auto first = std::lower_bound(sorted.begin(), sorted.end(), Chars(key));
        ASSERT_EQ(cursor.MoveTo(key), first != sorted.end());
        if (first != sorted.end()) {
          ASSERT_EQ(Chars(Be(cursor.Row().ToU32(), 4)), std::string_view(*first).substr(first->size() - 4));
        }
      }
    }
  }
}

TEST_P(IndexCursorTest, SharesBytesUpToTheRowNumber) {
  // All keys equal and all rows on one page: the entries differ in their last byte alone.
  std::vector<TestEntry> entries;
  for (unsigned i = 0; i < 30; ++i)
    entries.push_back({Raw("\x7Fsame"), RecordPointer::FromU32(0x500 + i)});
  const std::vector<std::uint32_t> rows = Walk(AddIndexTree(file, kOwner, entries, 10, true));
  ASSERT_EQ(rows.size(), 30u);
  EXPECT_EQ(rows[29], 0x500u + 29);
}

TEST_P(IndexCursorTest, ReadsNodesWithoutATail) {
  const std::uint32_t leaf = AddIndexPage(file, kOwner, true, {Entry("a", 1), Entry("b", 2)}, false);
  const std::uint32_t node = AddIndexPage(file, kOwner, false, {Entry("b", 2) + Be(leaf, 4)}, false);
  EXPECT_THAT(Walk(node), ElementsAre(1, 2));
  EXPECT_FALSE(Cursor(node).MoveTo(Raw("c")));
}

TEST_P(IndexCursorTest, FindsLeavesThatOnlyTheChainNames) {
  const std::uint32_t first = AddIndexPage(file, kOwner, true, {Entry("a", 1)}, false);
  const std::uint32_t empty = AddIndexPage(file, kOwner, true, {}, false);
  const std::uint32_t last = AddIndexPage(file, kOwner, true, {Entry("c", 3)}, false);
  file.Put(first, Links() + 4, Le(empty, 4));
  file.Put(empty, Links(), Le(first, 4) + Le(last, 4));
  file.Put(last, Links(), Le(empty, 4));
  const std::uint32_t node = AddIndexPage(file, kOwner, false, {Entry("a", 1) + Be(first, 4)}, false);
  EXPECT_THAT(Walk(node), ElementsAre(1, 3));
  IndexCursor cursor = Cursor(node);
  EXPECT_TRUE(cursor.MoveTo(Raw("b")));
  EXPECT_EQ(cursor.Row().row, 3);
}

TEST_P(IndexCursorTest, RefusesPagesThatAreNoIndexPages) {
  const std::uint32_t leaf = AddIndexPage(file, kOwner, true, {Entry("a", 1)}, false);
  EXPECT_THAT(Failure(0), HasSubstr("page 0"));
  EXPECT_THAT(Failure(1), HasSubstr("not an index page"));
  EXPECT_THAT(Failure(0x00FFFFFF), HasSubstr("pages"));
  file.Put(leaf, 4, Le(kOwner + 1, 4));
  EXPECT_THAT(Failure(leaf), HasSubstr("another table"));
}

TEST_P(IndexCursorTest, RefusesCirclesOfNodes) {
  const std::uint32_t node = AddIndexPage(file, kOwner, false, {}, false);
  EXPECT_THAT(Failure(node), HasSubstr("no children"));
  file.Put(node, Links() + 8, Le(node, 4));
  EXPECT_THAT(Failure(node), HasSubstr("circle"));
  EXPECT_THROW(Cursor(node).MoveTo(Raw("x")), Damage);
}

TEST_P(IndexCursorTest, RefusesCirclesOfLeaves) {
  const std::uint32_t a = AddIndexPage(file, kOwner, true, {Entry("a", 1)}, false);
  const std::uint32_t b = AddIndexPage(file, kOwner, true, {Entry("b", 2)}, false);
  file.Put(a, Links(), Le(b, 4) + Le(b, 4));
  file.Put(b, Links(), Le(a, 4) + Le(a, 4));
  EXPECT_THAT(Failure(a), HasSubstr("out of order"));
  const std::uint32_t empty = AddIndexPage(file, kOwner, true, {}, false);
  file.Put(empty, Links(), Le(empty, 4) + Le(empty, 4));
  EXPECT_THAT(Failure(empty), HasSubstr("circle"));
}

TEST_P(IndexCursorTest, RefusesWrongLinks) {
  const std::uint32_t a = AddIndexPage(file, kOwner, true, {Entry("a", 1)}, false);
  const std::uint32_t b = AddIndexPage(file, kOwner, true, {Entry("b", 2)}, false);
  file.Put(a, Links() + 4, Le(b, 4));
  EXPECT_THAT(Failure(a), HasSubstr("linked"));
  const std::uint32_t node = AddIndexPage(file, kOwner, false, {}, false);
  file.Put(a, Links() + 4, Le(node, 4));
  EXPECT_THAT(Failure(a), HasSubstr("linked"));
}

TEST_P(IndexCursorTest, NoticesATornChainOfLeaves) {
  const std::uint32_t firstLeaf = file.PageCount();
  const std::uint32_t root = AddIndexTree(file, kOwner, Numbered(50), 4, true);
  const Bytes link = Le(file.Get(firstLeaf + 4, Links() + 4, 4), 4);
  file.Put(firstLeaf + 4, Links() + 4, Le(0, 4));
  EXPECT_THAT(Failure(root), HasSubstr("torn"));
  EXPECT_FALSE(Cursor(root).MoveTo(Bytes{0x80}));  // the last leaf is where it should be
  file.Put(firstLeaf + 4, Links() + 4, link);
  file.Put(firstLeaf + 4, Links(), Le(0, 4));
  IndexCursor cursor = Cursor(root);
  ASSERT_TRUE(cursor.MoveTo(Bytes{0x7F} + Be(16, 4)));
  EXPECT_THROW(while (cursor.MovePrevious()){}, Damage);
}

TEST_P(IndexCursorTest, RefusesEntriesOutOfOrder) {
  EXPECT_THAT(Failure(AddIndexPage(file, kOwner, true, {Entry("b", 1), Entry("a", 2)}, false)),
              HasSubstr("out of order"));
  EXPECT_THAT(Failure(AddIndexPage(file, kOwner, true, {Entry("a", 1), Entry("a", 1)}, false)),
              HasSubstr("out of order"));
}

TEST_P(IndexCursorTest, RefusesEntriesThatAreTooShort) {
  EXPECT_THAT(Failure(AddIndexPage(file, kOwner, true, {Be(1, 4)}, false)), HasSubstr("too short"));
  EXPECT_THAT(Failure(AddIndexPage(file, kOwner, false, {Be(1, 8)}, false)), HasSubstr("too short"));
}

TEST_P(IndexCursorTest, RefusesPrefixesLongerThanTheFirstEntry) {
  const std::uint32_t leaf = AddIndexPage(file, kOwner, true, {Entry("a", 1), Entry("b", 2)}, false);
  file.Put(leaf, file.IsJet3() ? 0x14 : 0x18, {6});
  EXPECT_THAT(Failure(leaf), HasSubstr("shares more"));
}

TEST_P(IndexCursorTest, TakesAPageThatIsFullToTheLastByte) {
  std::vector<Bytes> entries;
  const std::size_t room = file.PageSize() - Base();
  for (std::size_t i = 0; (i + 1) * 8 <= room; ++i)
    entries.push_back(Be(i, 4) + Be(i, 4));
  const auto count = entries.size();
  EXPECT_EQ(count * 8, room);
  EXPECT_EQ(Walk(AddIndexPage(file, kOwner, true, entries, false)).size(), count);
}

TEST_P(IndexCursorTest, TakesAMaskOfAllOnesForDamage) {
  const std::uint32_t leaf = AddIndexPage(file, kOwner, true, {Entry("a", 1)}, false);
  file.Put(leaf, file.IsJet3() ? 0x16 : 0x1B, Bytes(file.IsJet3() ? 226 : 453, 0xFF));
  EXPECT_THAT(Failure(leaf), HasSubstr("too short"));
}

TEST_P(IndexCursorTest, GoesBackToAPlace) {
  IndexCursor cursor = Cursor(AddIndexTree(file, kOwner, Numbered(50), 4, true));
  EXPECT_EQ(cursor.Here().page, 0u);
  ASSERT_TRUE(cursor.MoveTo(Bytes{0x7F} + Be(9, 4)));
  const IndexCursor::Place place = cursor.Here();
  const std::uint32_t row = cursor.Row().ToU32();
  cursor.MoveFirst();
  cursor.GoTo(place);
  EXPECT_EQ(cursor.Row().ToU32(), row);
}

// The file may change while it is open.
TEST_P(IndexCursorTest, RefusesAPlaceWhoseEntryIsGone) {
  const std::uint32_t root = AddIndexTree(file, kOwner, Numbered(9), 20, false);
  Bytes bytes = file.Build();
  FileImage image = ImageOf({});
  image.bytes = {bytes.data(), bytes.size()};
  const FilePages changing(image);
  IndexCursor cursor(changing, root, kOwner);
  ASSERT_TRUE(cursor.MoveFirst() && cursor.MoveNext());
  const IndexCursor::Place place = cursor.Here();
  const auto mask =
      bytes.begin() + static_cast<std::ptrdiff_t>(root * file.PageSize() + (file.IsJet3() ? 0x16 : 0x1B));
  std::fill(mask, mask + 200, std::uint8_t{0});
  EXPECT_THROW(cursor.GoTo(place), Damage);
}

}  // namespace
}  // namespace zerbal::jet::test
