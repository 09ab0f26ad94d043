#include "paint/ink.h"

#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

#include "support/test_random.h"

namespace zerbal::paint {
namespace {

int Component(std::uint32_t pixel, int shift) {
  return static_cast<int>(pixel >> shift & 0xFF);
}

/// One component of a colour blended with another colour.
int Laid(int below, int colour, int coverage) {
  const int weight = coverage + coverage / 128;
  return (below * (256 - weight) + colour * weight) / 256;
}

/// The new value of a pixel, directly from the rule.
std::uint32_t Expected(std::uint32_t below, std::uint32_t background, std::uint32_t colour, int coverage) {
  bool farther = false;
  std::uint32_t laid = 0;
  for (const int shift : {0, 8, 16, 24}) {
    const int ink = Component(colour, shift);
    const int own = Component(below, shift);
    const int plain = Laid(Component(background, shift), ink, coverage);
    farther = farther || std::abs(own - ink) > std::abs(plain - ink);
    laid |= static_cast<std::uint32_t>(Laid(own, ink, coverage)) << shift;
  }
  return farther ? laid : below;
}

constexpr std::uint32_t kOpaque = 0xFF000000;

TEST(Ink, FollowsItsRuleForEveryCoverageAndLength) {
  test::TestRandom random(20200817);
  const auto any = [&] { return kOpaque | (random() & 0xFFFFFF); };
  for (int round = 0; round < 2000; ++round) {
    const std::uint32_t background = any();
    const std::uint32_t colour = any();
    const Ink ink(background, colour);
    const int count = static_cast<int>(random() % 20);
    std::vector<std::uint32_t> pixels;
    std::vector<std::uint8_t> coverage;
    std::vector<std::uint32_t> expected;
    for (int i = 0; i < count; ++i) {
      const std::uint32_t kind = random() % 4;
      pixels.push_back(kind == 0 ? background : kind == 1 ? colour : any());
      coverage.push_back(static_cast<std::uint8_t>(random() % 3 == 0 ? 0 : random()));
      expected.push_back(Expected(pixels.back(), background, colour, coverage.back()));
    }
    const std::uint32_t past = any();
    pixels.push_back(past);
    expected.push_back(past);
    ink.Cover(pixels.data(), coverage.data(), count);
    ASSERT_EQ(pixels, expected) << round;
  }
}

TEST(Ink, DrawingAgainKeepsSoftEdges) {
  const std::uint32_t background = kOpaque | 0xE8EFF3;
  const Ink ink(background, kOpaque | 0x203040);
  for (int coverage = 0; coverage < 256; ++coverage) {
    const auto each = static_cast<std::uint8_t>(coverage);
    std::uint32_t pixel = background;
    ink.Cover(&pixel, &each, 1);
    const std::uint32_t once = pixel;
    ink.Cover(&pixel, &each, 1);
    EXPECT_EQ(pixel, once) << coverage;
  }
}

TEST(Ink, StoresItsParameters) {
  const Ink ink(1, 2);
  EXPECT_TRUE(ink.Is(1, 2));
  EXPECT_FALSE(ink.Is(2, 1));
  EXPECT_FALSE(ink.Is(1, 3));
}

}  // namespace
}  // namespace zerbal::paint
