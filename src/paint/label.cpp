#include "paint/label.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

#include "base/utf8.h"

namespace zerbal::paint {
namespace {

/// Pixels of a mask; those of usual labels have some hundred.
constexpr std::int64_t kLargest = 1 << 22;

/// Columns of a mask that are copied at once.
using Columns = std::uint8_t __attribute__((vector_size(8)));
static_assert(sizeof(Columns) == Mask::kColumns);

void KeepLarger(std::uint8_t* to, const std::uint8_t* from, int width) {
  for (int column = 0; column < width; column += Mask::kColumns) {
    Columns a;
    Columns b;
    std::memcpy(&a, to + column, sizeof a);
    std::memcpy(&b, from + column, sizeof b);
    a = a > b ? a : b;
    std::memcpy(to + column, &a, sizeof a);
  }
}

}  // namespace

bool Label::Place(GlyphSet& glyphs, std::string_view text) {
  constexpr int kFar = std::numeric_limits<int>::max();
  letters_.clear();
  int x = 0;
  int left = kFar;
  int top = kFar;
  int right = -kFar;
  int bottom = -kFar;
  while (!text.empty()) {
    const GlyphSet::Glyph& glyph = glyphs.Of(base::TakeUtf8(text));
    if (!glyph.known || x > kLargest)
      return false;
    const Mask& mask = glyph.mask;
    if (mask.width > 0) {
      letters_.push_back({&mask, x + mask.left});
      left = std::min(left, x + mask.left);
      top = std::min(top, mask.top);
      right = std::max(right, x + mask.left + mask.width);
      bottom = std::max(bottom, mask.top + mask.height);
    }
    x += glyph.advance;
  }
  const bool empty = letters_.empty();
  shape_.left = empty ? 0 : left;
  shape_.top = empty ? 0 : top;
  shape_.width = empty ? 0 : (right - left + Mask::kColumns - 1) / Mask::kColumns * Mask::kColumns;
  shape_.height = empty ? 0 : bottom - top;
  return std::int64_t{shape_.width} * shape_.height <= kLargest;
}

bool Label::Compose(GlyphSet& glyphs, std::string_view text) {
  if (!Place(glyphs, text))
    return false;
  shape_.coverage.assign(static_cast<std::size_t>(shape_.width * shape_.height), 0);
  for (const auto& [mask, left] : letters_) {
    const std::uint8_t* from = mask->coverage.data();
    std::uint8_t* to =
        shape_.coverage.data() + std::ptrdiff_t{mask->top - shape_.top} * shape_.width + left - shape_.left;
    for (int row = 0; row < mask->height; ++row, from += mask->width, to += shape_.width)
      KeepLarger(to, from, mask->width);
  }
  shape_.top += glyphs.Ascent();
  return true;
}

}  // namespace zerbal::paint
