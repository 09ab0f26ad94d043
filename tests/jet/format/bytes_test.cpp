#include "jet/format/bytes.h"

#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

namespace zerbal::jet {
namespace {

constexpr std::uint8_t kBytes[] = {0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99};
const ByteView kView(kBytes, 8);  // without the last one

TEST(ByteViewTest, ReadsNumbersUpToItsEnd) {
  EXPECT_EQ(kView.U8(7), 0x88);
  EXPECT_EQ(kView.U16(6), 0x8877);
  EXPECT_EQ(kView.U32(4), 0x88776655U);
  EXPECT_EQ(kView.U64(0), 0x8877665544332211U);
  EXPECT_EQ(LoadU32Be(kBytes), 0x11223344U);
}

TEST(ByteViewTest, RefusesNumbersBeyondItsEnd) {
  constexpr std::size_t kFar = std::numeric_limits<std::size_t>::max();
  EXPECT_THROW(kView.U8(8), Damage);
  EXPECT_THROW(kView.U16(7), Damage);
  EXPECT_THROW(kView.U32(5), Damage);
  EXPECT_THROW(kView.U64(1), Damage);
  for (const std::size_t at : {std::size_t{9}, kFar - 3, kFar}) {
    EXPECT_THROW(kView.U8(at), Damage);
    EXPECT_THROW(kView.U32(at), Damage);
  }
  EXPECT_THROW(ByteView().U8(0), Damage);
}

TEST(ByteViewTest, GivesItsParts) {
  EXPECT_EQ(kView.Sub(2, 3).Chars(), "\x33\x44\x55");
  EXPECT_EQ(kView.Sub(8, 0).Size(), 0U);
  EXPECT_EQ(kView.From(6).Chars(), "\x77\x88");
  EXPECT_TRUE(kView.From(8).Empty());
  EXPECT_THROW(kView.Sub(2, 7), Damage);
  EXPECT_THROW(kView.Sub(9, 0), Damage);
  EXPECT_THROW(kView.From(9), Damage);
}

}  // namespace
}  // namespace zerbal::jet
