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

/// Puts a letter into a label, whose rows are `stride` bytes apart.
void KeepLarger(std::uint8_t* to, std::ptrdiff_t stride, const Mask& letter) {
  const std::ptrdiff_t width = letter.width;
  const int height = letter.height;
  // Row by row within the columns: nearly all letters of usual sizes are this narrow.
  for (std::ptrdiff_t column = 0; column < width; column += Mask::kColumns) {
    const std::uint8_t* from = letter.coverage.data() + column;
    std::uint8_t* at = to + column;
    for (int left = height; left > 0; --left, from += width, at += stride) {
      Columns a;
      Columns b;
      std::memcpy(&a, at, sizeof a);
      std::memcpy(&b, from, sizeof b);
      a = a > b ? a : b;
      std::memcpy(at, &a, sizeof a);
    }
  }
}

/// As TakeUtf8, which need not be called for ASCII.
char32_t TakeCharacter(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first >= 0x80)
    return base::TakeUtf8(text);
  text.remove_prefix(1);
  return first;
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
    const GlyphSet::Glyph& glyph = glyphs.Of(TakeCharacter(text));
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
  std::uint8_t* corner = shape_.coverage.data();
  const std::ptrdiff_t stride = shape_.width;
  for (const auto& [mask, left] : letters_)
    KeepLarger(corner + (mask->top - shape_.top) * stride + (left - shape_.left), stride, *mask);
  shape_.top += glyphs.Ascent();
  return true;
}

}  // namespace zerbal::paint
