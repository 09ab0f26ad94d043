// What is put on a page fits it.
#include "jet/write/page_bytes.h"

#include <vector>

#include <gtest/gtest.h>

namespace zerbal::jet::test {
namespace {

TEST(PageBytesTest, BeginsWithItsKind) {
  const PageBytes page(PageKind::kIndexLeaf);
  EXPECT_EQ(page.bytes[0], 4);
  EXPECT_EQ(page.bytes[1], 1);
  EXPECT_EQ(page.bytes[2], 0);
}

TEST(PageBytesTest, PutsNumbersLowestByteFirst) {
  PageBytes page(PageKind::kData);
  page.Put32(kPageSize - 4, 0x01020304);
  EXPECT_EQ(page.bytes[kPageSize - 4], 4);
  EXPECT_EQ(page.bytes[kPageSize - 1], 1);
}

#ifdef ZERBAL_ASSERTIONS
TEST(PageBytesDeathTest, TakesNothingThatDoesNotFit) {
  PageBytes page(PageKind::kData);
  EXPECT_DEATH(page.Put32(kPageSize - 3, 1), "assertion failed");
  EXPECT_DEATH(page.Put16(0, 0x10000), "assertion failed");
  EXPECT_DEATH(page.SetBit(kPageSize - 1, 8), "assertion failed");
  const std::vector<std::uint8_t> bytes(5);
  EXPECT_DEATH(page.Put(kPageSize - 4, bytes), "assertion failed");
}

TEST(DataPageBuilderDeathTest, TakesNoRowThatDoesNotFit) {
  DataPageBuilder page(1);
  const std::vector<std::uint8_t> row(kPageSize);
  ASSERT_FALSE(page.Fits(row.size()));
  EXPECT_DEATH(page.Add(row), "assertion failed");
}
#endif

}  // namespace
}  // namespace zerbal::jet::test
