#include "paint/line_slices.h"

#include <algorithm>
#include <vector>

#include <gtest/gtest.h>

#include "paint/line_vectors.h"
#include "paint/processor.h"
#include "paint/smooth_line.h"
#include "support/test_random.h"

namespace zerbal::paint {
namespace {

constexpr int kSide = 64;
constexpr std::uint32_t kOpaqueAlpha = 0xFF000000;

class LineSlicesTest : public testing::Test {
 protected:
  std::uint32_t Any() { return kOpaqueAlpha | (random_() & 0xFFFFFF); }
  std::int32_t Below(std::int32_t end) {
    return static_cast<std::int32_t>(random_() % static_cast<std::uint32_t>(end));
  }

  /// Background, other colours and what the ink has made of both.
  std::vector<std::uint32_t> AnyPicture(std::uint32_t background, const LineInk& ink) {
    std::vector<std::uint32_t> pixels(kSide * kSide);
    for (std::uint32_t& pixel : pixels) {
      const std::uint32_t any = random_();
      // One number for all, because making numbers takes longer than drawing.
      pixel = any >> 30 == 0 ? kOpaqueAlpha | (any & 0xFFFFFF) : background;
      if ((any >> 29 & 1) == 0)
        ink.Cover(pixel, static_cast<std::int32_t>((any >> 20 & 0x1FF) % (LineInk::kFull + 1)));
    }
    return pixels;
  }

  LineSlices AnySlices(std::vector<std::uint32_t>& pixels) {
    constexpr std::int64_t kPixel = std::int64_t{1} << LineSlices::kPositionBits;
    const bool steep = random_() % 2 == 0;
    LineSlices slices;
    slices.pixels = pixels.data();
    slices.nextSlice = steep ? kSide : 1;
    slices.next = steep ? 1 : kSide;
    slices.begin = kSide / 4 * kPixel + static_cast<std::int64_t>(random_());
    slices.step = static_cast<std::int64_t>(random_()) - kPixel / 2;
    slices.extent = LineInk::kFull + Below(3 * LineInk::kFull);
    slices.count = 1 + Below(3 * LineSlices::kStep);
    return slices;
  }

  test::TestRandom random_{20261122};
};

/// Pixel by pixel.
void CoverSlowly(const LineInk& ink, const LineSlices& slices, const SliceParts& parts) {
  for (int slice = 0; slice < slices.count; ++slice) {
    const std::int64_t begin = (slices.begin + slice * slices.step) >> (LineSlices::kPositionBits - 8);
    const std::int64_t end = begin + slices.extent;
    const std::int32_t part = std::min(slice == 0 ? parts.first : LineInk::kFull,
                                       slice == slices.count - 1 ? parts.last : LineInk::kFull);
    for (std::int64_t row = begin / 256; row * 256 < end; ++row) {
      const std::int64_t coverage = std::min(row * 256 + 256, end) - std::max(row * 256, begin);
      ink.Cover(slices.pixels[slice * slices.nextSlice + row * slices.next],
                static_cast<std::int32_t>(coverage * part / LineInk::kFull));
    }
  }
}

TEST_F(LineSlicesTest, VectorsMakeTheSamePixels) {
  for (int round = 0; round < 1000; ++round) {
    const std::uint32_t background = Any();
    const LineInk ink(background, random_() % 20 == 0 ? background : Any());
    std::vector<std::uint32_t> expected = AnyPicture(background, ink);
    std::vector<std::uint32_t> pixels = expected;
    LineSlices slices = AnySlices(expected);
    const SliceParts parts{Below(LineInk::kFull + 1), Below(LineInk::kFull + 1)};
    CoverSlowly(ink, slices, parts);
    slices.pixels = pixels.data();
#ifdef ZERBAL_AVX2
    if (HasAvx2()) {
      std::vector<std::uint32_t> others = pixels;
      LineSlices same = slices;
      same.pixels = others.data();
      CoverSlicesByAvx2(ink.ToRule(), same, parts);
      ASSERT_EQ(others, expected) << round;
    }
#endif
    LineVectors(ink.ToRule()).Cover(slices, parts);
    ASSERT_EQ(pixels, expected) << round;
  }
}

TEST_F(LineSlicesTest, KnowsHowManyPixelsOfASliceALineCanCover) {
  EXPECT_EQ(LineSlices::Rows(256), 2);
  EXPECT_EQ(LineSlices::Rows(257), 2);
  EXPECT_EQ(LineSlices::Rows(258), 3);
  EXPECT_EQ(LineSlices::Rows(513), 3);
  EXPECT_EQ(LineSlices::Rows(514), 4);
}

/// In tiles, nothing of a line is long enough for vectors.
void DrawInTiles(std::vector<std::uint32_t>& pixels, FinePoint from, FinePoint to, std::int32_t width,
                 const LineInk& ink, LineEnds ends) {
  constexpr int kTile = 8;
  for (int top = 0; top < kSide; top += kTile) {
    for (int left = 0; left < kSide; left += kTile) {
      const auto moved = [&](FinePoint point) {
        return FinePoint{point.x - left * kFinePerPixel, point.y - top * kFinePerPixel};
      };
      DrawSmoothLine({pixels.data() + top * kSide + left, kSide, kTile, kTile}, moved(from), moved(to), width,
                     ink, ends);
    }
  }
}

class LinesInTilesTest : public LineSlicesTest {
 protected:
  /// Compares a line with itself in tiles, over other colours.
  void Compare(FinePoint from, FinePoint to, std::int32_t width, LineEnds ends) {
    const std::uint32_t background = Any();
    const LineInk ink(background, Any());
    std::vector<std::uint32_t> pixels = AnyPicture(background, ink);
    std::vector<std::uint32_t> expected = pixels;
    DrawSmoothLine({pixels.data(), kSide, kSide, kSide}, from, to, width, ink, ends);
    DrawInTiles(expected, from, to, width, ink, ends);
    ASSERT_EQ(pixels, expected) << from.x << ' ' << from.y << ' ' << to.x << ' ' << to.y << ' ' << width;
  }
  /// Some way outside of the picture, along its edges, and inside.
  std::int32_t AnyPlace() { return Below((kSide + 40) * kFinePerPixel) - 20 * kFinePerPixel; }
  std::int32_t AnyWidth() { return kFinePerPixel + (random_() % 2 == 0 ? 0 : Below(3 * kFinePerPixel)); }
};

TEST_F(LinesInTilesTest, LongLinesHaveThePixelsOfTheirPieces) {
  for (int round = 0; round < 500; ++round) {
    const FinePoint from{AnyPlace(), AnyPlace()};
    const FinePoint to{random_() % 4 == 0 ? from.x + Below(150) : AnyPlace(),
                       random_() % 4 == 0 ? from.y + Below(150) : AnyPlace()};
    Compare(from, to, AnyWidth(), {.openFrom = random_() % 2 == 0, .openTo = random_() % 2 == 0});
  }
}

TEST_F(LinesInTilesTest, StrokesHaveThePixelsOfTheirPieces) {
  for (int round = 0; round < 500; ++round) {
    const FinePoint from{AnyPlace(), AnyPlace()};
    const std::int32_t reach = random_() % 3 == 0 ? 3 : 30;
    const auto aside = [&] { return Below(reach * kFinePerPixel) - reach * kFinePerPixel / 2; };
    const FinePoint to{from.x + aside(), from.y + aside()};
    Compare(from, to, AnyWidth(), {.flat = true});
  }
}

}  // namespace
}  // namespace zerbal::paint
