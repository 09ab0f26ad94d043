#include "paint/line_ink.h"

#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

#include "support/test_random.h"

namespace zerbal::paint {
namespace {

constexpr std::uint32_t kOpaqueBit = 0xFF000000;

int ComponentOf(std::uint32_t pixel, int shift) {
  return static_cast<int>(pixel >> shift & 0xFF);
}

std::uint32_t Covered(const LineInk& ink, std::uint32_t below, std::int32_t coverage) {
  std::uint32_t pixel = below;
  ink.Cover(pixel, coverage);
  return pixel;
}

class LineInkTest : public testing::Test {
 protected:
  std::uint32_t AnyColour() { return kOpaqueBit | (random_() & 0xFFFFFF); }
  std::int32_t AnyCoverage() { return static_cast<std::int32_t>(random_() % (LineInk::kFull + 1)); }

  test::TestRandom random_{20260310};
};

TEST_F(LineInkTest, TheLargestCoverageCountsInAnyOrder) {
  for (int round = 0; round < 3000; ++round) {
    const std::uint32_t background = AnyColour();
    const LineInk ink(background, AnyColour());
    const std::int32_t first = AnyCoverage();
    const std::int32_t second = AnyCoverage();
    EXPECT_EQ(Covered(ink, Covered(ink, background, first), second),
              Covered(ink, background, std::max(first, second)));
  }
}

TEST_F(LineInkTest, BlendsWithTheBackground) {
  for (int round = 0; round < 3000; ++round) {
    const std::uint32_t background = AnyColour();
    const std::uint32_t colour = AnyColour();
    const std::int32_t coverage = AnyCoverage();
    const std::uint32_t pixel = Covered(LineInk(background, colour), background, coverage);
    EXPECT_EQ(pixel & kOpaqueBit, kOpaqueBit);
    for (const int shift : {0, 8, 16}) {
      const int below = ComponentOf(background, shift);
      const double blended = below + (ComponentOf(colour, shift) - below) * coverage / 256.0;
      EXPECT_NEAR(ComponentOf(pixel, shift), blended, 1.5);
    }
  }
}

TEST_F(LineInkTest, NothingAndEverythingAreExact) {
  for (int round = 0; round < 3000; ++round) {
    const std::uint32_t colour = AnyColour();
    const LineInk ink(AnyColour(), colour);
    const std::uint32_t below = AnyColour();
    EXPECT_EQ(Covered(ink, below, 0), below);
    EXPECT_EQ(Covered(ink, below, LineInk::kFull), colour);
  }
}

TEST_F(LineInkTest, OverOtherColoursStaysBetweenThemAndItsOwn) {
  for (int round = 0; round < 3000; ++round) {
    const std::uint32_t colour = AnyColour();
    const LineInk ink(AnyColour(), colour);
    const std::uint32_t below = AnyColour();
    const std::uint32_t pixel = Covered(ink, below, AnyCoverage());
    for (const int shift : {0, 8, 16}) {
      EXPECT_GE(ComponentOf(pixel, shift), std::min(ComponentOf(below, shift), ComponentOf(colour, shift)));
      EXPECT_LE(ComponentOf(pixel, shift), std::max(ComponentOf(below, shift), ComponentOf(colour, shift)));
    }
  }
}

TEST_F(LineInkTest, DrawingAgainOverColoursNearerThanTheBackgroundChangesNothing) {
  const std::uint32_t background = kOpaqueBit | 0xE8EFF3;
  const std::uint32_t colour = kOpaqueBit | 0xC02018;
  const LineInk ink(background, colour);
  for (const std::uint32_t other : {0x305070U, 0x208020U, 0x101010U, 0xB0A090U}) {
    for (std::int32_t coverage = 0; coverage <= LineInk::kFull; ++coverage) {
      const std::uint32_t once = Covered(ink, kOpaqueBit | other, coverage);
      EXPECT_EQ(Covered(ink, once, coverage), once);
    }
  }
}

TEST_F(LineInkTest, StoresItsParameters) {
  const LineInk ink(1, 2);
  EXPECT_TRUE(ink.Is(1, 2));
  EXPECT_FALSE(ink.Is(2, 1));
  EXPECT_FALSE(ink.Is(1, 3));
}

}  // namespace
}  // namespace zerbal::paint
