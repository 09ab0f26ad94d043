#include "jet/read/usage_map.h"

#include <memory>
#include <numeric>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/jet_file.h"
#include "support/jet_formats.h"

namespace zerbal::jet::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class UsageMapTest : public BothFormats {
 protected:
  /// The set, read forwards; and backwards, which must give the same.
  std::vector<std::uint32_t> Read(RecordPointer where) {
    pages = std::make_unique<FilePages>(ImageOf(file.Build()));
    const UsageMap map(*pages, where);
    std::vector<std::uint32_t> forwards, backwards;
    for (std::uint32_t page = map.Next(0); page != 0; page = map.Next(page))
      forwards.push_back(page);
    for (std::uint32_t page = map.Previous(~0u); page != 0; page = map.Previous(page))
      backwards.insert(backwards.begin(), page);
    EXPECT_EQ(forwards, backwards);
    return forwards;
  }
  void GrowTo(std::uint32_t pageCount) {
    while (file.PageCount() < pageCount)
      file.AddPage(1);
  }
  RecordPointer Map(const Bytes& row) { return file.AddRow(file.AddDataPage(0), row); }

  JetFile file{GetParam()};
  std::unique_ptr<FilePages> pages;
};
ZERBAL_BOTH_FORMATS(UsageMapTest);

TEST_P(UsageMapTest, ReadsInlineMaps) {
  GrowTo(600);
  EXPECT_THAT(Read(file.AddMap({})), IsEmpty());
  EXPECT_THAT(Read(file.AddMap({1, 7, 8, 9, 63, 64, 65, 511})), ElementsAre(1, 7, 8, 9, 63, 64, 65, 511));
  EXPECT_THAT(Read(file.AddMap({88, 599}, 88)), ElementsAre(88, 599));
}

TEST_P(UsageMapTest, TakesTheLengthFromTheRow) {
  GrowTo(900);
  Bytes row(5 + 100);
  row[5 + 99] = 0x80;
  row[5] = 0x10;
  EXPECT_THAT(Read(Map(row)), ElementsAre(4, 799));
  EXPECT_THAT(Read(Map(Bytes(5))), IsEmpty());
}

TEST_P(UsageMapTest, ReadsReferenceMaps) {
  const std::uint32_t perPage = file.IsJet3() ? 16352 : 32736;
  GrowTo(perPage + 10);
  const std::vector<std::uint32_t> set = {1, 500, perPage - 1, perPage, perPage + 3};
  EXPECT_THAT(Read(file.AddReferenceMap(set)), ElementsAreArray(set));
  EXPECT_THAT(Read(file.AddReferenceMap({perPage + 3})),
              ElementsAre(perPage + 3));  // no page for the first range
}

TEST_P(UsageMapTest, LeavesAloneWhatLiesBehindTheFile) {
  GrowTo(20);
  // The second pointer is for pages that the file does not have.
  const std::uint32_t bitmap = file.AddPage(5);
  file.Put(bitmap, 4, {0x20});
  EXPECT_THAT(Read(Map(Bytes{1} + Le(bitmap, 4) + Bytes{0x80, 0xFF, 0xFF, 0xFF, 9})), ElementsAre(5));
}

TEST_P(UsageMapTest, LeavesOutPagesThatTheFileDoesNotHave) {
  GrowTo(20);
  EXPECT_THAT(Read(file.AddMap({5, 19, 400})), ElementsAre(5, 19));
  EXPECT_THAT(Read(file.AddMap({0, 5})), ElementsAre(5));
  EXPECT_THAT(Read(file.AddMap({400})), IsEmpty());
  EXPECT_THAT(Read(file.AddReferenceMap({5, 19, 400})), ElementsAre(5, 19));
  EXPECT_THAT(Read(Map(Bytes{0} + Le(0xFFFFFFF8, 4) + Bytes{0xFF})), IsEmpty());
  // The file's last page, and the first behind it.
  const RecordPointer map = file.AddMap({});
  const std::uint32_t last = (Read(map), pages->PageCount() - 1);
  ASSERT_LT(last, 500u);
  EXPECT_THAT(Read(file.AddMap({last, last + 1})), ElementsAre(last));
}

TEST_P(UsageMapTest, HasEveryPageWhereItCannotBeRead) {
  GrowTo(5);
  const std::vector<RecordPointer> maps = {Map({}),
                                           Map({0, 1, 2}),
                                           Map(Bytes{2} + Bytes(68)),
                                           {1, 9},
                                           {2, 0},
                                           {0, 0},
                                           {0x00FFFFFF, 0},
                                           Map(Bytes{1} + Le(1, 4)),  // page 1 is no bitmap
                                           Map(Bytes{1} + Le(0x00FFFFFF, 4))};
  for (const RecordPointer map : maps) {
    const std::vector<std::uint32_t> read = Read(map);
    std::vector<std::uint32_t> every(pages->PageCount() - 1);
    std::iota(every.begin(), every.end(), 1);
    EXPECT_EQ(read, every) << map.page << "/" << unsigned{map.row};
  }
  EXPECT_THAT(Read(Map(Bytes{1} + Le(0, 3))), IsEmpty());  // half a pointer is none
}

}  // namespace
}  // namespace zerbal::jet::test
