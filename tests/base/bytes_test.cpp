#include "base/bytes.h"

#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zerbal::base {
namespace {

TEST(LittleEndian, LoadsTheLowestByteFirst) {
  const std::uint8_t bytes[] = {0xFF, 0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x88};
  EXPECT_EQ(LoadU16(bytes + 1), 0x0201);
  EXPECT_EQ(LoadU32(bytes + 1), 0x04030201U);
  EXPECT_EQ(LoadU64(bytes + 1), 0x8807060504030201U);
}

TEST(LittleEndian, StoresTheLowestBytes) {
  std::uint8_t bytes[] = {1, 2, 3, 4, 5};
  StoreLittleEndian(bytes + 1, 3, 0xAABBCCDD);
  EXPECT_EQ(std::vector<std::uint8_t>(std::begin(bytes), std::end(bytes)),
            (std::vector<std::uint8_t>{1, 0xDD, 0xCC, 0xBB, 5}));
}

TEST(LittleEndian, AppendsTheLowestBytes) {
  std::string text = "x";
  AppendLittleEndian(text, 2, 0x414243);
  EXPECT_EQ(text, "xCB");
  std::vector<std::uint8_t> bytes;
  AppendLittleEndian(bytes, 8, 0x8807060504030201);
  EXPECT_EQ(bytes, (std::vector<std::uint8_t>{1, 2, 3, 4, 5, 6, 7, 0x88}));
}

}  // namespace
}  // namespace zerbal::base
