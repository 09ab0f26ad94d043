#include "paint/label.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

namespace zerbal::paint {
namespace {

class LabelTest : public testing::Test {
 protected:
  GlyphSet& Glyphs(int size = 8) { return prepared_.Glyphs({"Liberation Sans", size}, PixelScale(1)); }

  PreparedPictures prepared_;
  Label label_;
};

/// Of a pixel whose coordinates count from the reference pixel.
int CoverageAt(const Mask& mask, int x, int y) {
  const int column = x - mask.left;
  const int row = y - mask.top;
  if (column < 0 || row < 0 || column >= mask.width || row >= mask.height)
    return 0;
  return mask.coverage[static_cast<std::size_t>(row * mask.width + column)];
}

TEST_F(LabelTest, HasTheLargestCoverageOfItsLetters) {
  GlyphSet& glyphs = Glyphs();
  const std::string text = "QAV 12 (2/3) jf,gj";
  ASSERT_TRUE(label_.Compose(glyphs, text));
  const Mask& shape = label_.Shape();
  EXPECT_EQ(shape.width % Mask::kColumns, 0);
  for (int y = -5; y < 25; ++y) {
    for (int x = -5; x < 150; ++x) {
      int largest = 0;
      int origin = 0;
      for (const char letter : text) {
        const GlyphSet::Glyph& glyph = glyphs.Of(static_cast<char32_t>(letter));
        largest = std::max(largest, CoverageAt(glyph.mask, x - origin, y - glyphs.Ascent()));
        origin += glyph.advance;
      }
      ASSERT_EQ(CoverageAt(shape, x, y), largest) << x << ", " << y;
    }
  }
}

TEST_F(LabelTest, ForgetsTheTextBefore) {
  ASSERT_TRUE(label_.Compose(Glyphs(), "A long label"));
  ASSERT_TRUE(label_.Compose(Glyphs(), "I"));
  const Mask first = label_.Shape();
  Label other;
  ASSERT_TRUE(other.Compose(Glyphs(), "I"));
  EXPECT_EQ(first.width, other.Shape().width);
  EXPECT_EQ(first.coverage, other.Shape().coverage);
}

TEST_F(LabelTest, TextWithoutInkIsEmpty) {
  for (const char* text : {"", "   "}) {
    ASSERT_TRUE(label_.Compose(Glyphs(), text));
    EXPECT_EQ(label_.Shape().width, 0);
    EXPECT_EQ(label_.Shape().height, 0);
  }
}

TEST_F(LabelTest, RefusesUnknownLettersAndHugeTexts) {
  EXPECT_FALSE(label_.Compose(Glyphs(), "A\n"));
  EXPECT_FALSE(label_.Compose(Glyphs(), std::string(1 << 20, 'M')));
  EXPECT_TRUE(label_.Compose(Glyphs(500), "M"));
  EXPECT_FALSE(label_.Compose(Glyphs(500), std::string(20, 'M')));
}

}  // namespace
}  // namespace zerbal::paint
