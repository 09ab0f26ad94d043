#include "paint/ink.h"

#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

#include "paint/ink_rows.h"
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

/// Compares `Blender`, an ink or what it consists of, with the rule.
template <typename Blender>
void FollowsTheRule() {
  test::TestRandom random(20200817);
  const auto any = [&] { return kOpaque | (random() & 0xFFFFFF); };
  for (int round = 0; round < 2000; ++round) {
    const std::uint32_t background = any();
    const std::uint32_t colour = any();
    const Blender blender(background, colour);
    const int width = static_cast<int>(random() % 20);
    const int height = static_cast<int>(random() % 4);
    // The rows of the picture and of the mask are longer than the block.
    const int stride = width + static_cast<int>(random() % 3);
    const int coverageStride = width + static_cast<int>(random() % 3);
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(stride * height + 1));
    std::vector<std::uint8_t> coverage(static_cast<std::size_t>(coverageStride * height));
    for (std::uint32_t& pixel : pixels) {
      const std::uint32_t kind = random() % 4;
      pixel = kind == 0 ? background : kind == 1 ? colour : any();
    }
    for (std::uint8_t& each : coverage)
      each = static_cast<std::uint8_t>(random() % 3 == 0 ? 0 : random());
    std::vector<std::uint32_t> expected = pixels;
    for (int row = 0; row < height; ++row) {
      for (int column = 0; column < width; ++column) {
        std::uint32_t& pixel = expected[static_cast<std::size_t>(row * stride + column)];
        pixel = Expected(pixel, background, colour,
                         coverage[static_cast<std::size_t>(row * coverageStride + column)]);
      }
    }
    blender.Cover({pixels.data(), stride, width, height}, coverage.data(), coverageStride);
    ASSERT_EQ(pixels, expected) << round;
  }
}

TEST(Ink, FollowsItsRuleForEveryCoverageAndSize) {
  FollowsTheRule<Ink>();
}

TEST(Ink, FollowsItsRuleOnProcessorsWithoutAvx2) {
  FollowsTheRule<InkRows>();
}

TEST(Ink, DrawingAgainKeepsSoftEdges) {
  const std::uint32_t background = kOpaque | 0xE8EFF3;
  const Ink ink(background, kOpaque | 0x203040);
  for (int coverage = 0; coverage < 256; ++coverage) {
    const auto each = static_cast<std::uint8_t>(coverage);
    std::uint32_t pixel = background;
    ink.Cover({&pixel, 1, 1, 1}, &each, 1);
    const std::uint32_t once = pixel;
    ink.Cover({&pixel, 1, 1, 1}, &each, 1);
    EXPECT_EQ(pixel, once) << coverage;
  }
}

}  // namespace
}  // namespace zerbal::paint
