// Blends a colour into a picture by coverage, and the masks that hold coverage.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zerbal::paint {

/// The shape of a marker, a letter or a label: coverage 0..255, row by row. The reference pixel of the shape
/// (a marker's centre, a letter's origin on the base line, the top left corner of a label's box) has the
/// coordinates 0, 0; the top left pixel of the mask has `left`, `top`. The width is
/// padded with empty columns to a multiple of kColumns.
struct Mask {
  static constexpr int kColumns = 8;
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> coverage;
};

/// A rectangle of a 32-bit picture.
struct PixelBlock {
  std::uint32_t* pixels = nullptr;
  std::ptrdiff_t stride = 0;  ///< pixels from one row to the next
  int width = 0;
  int height = 0;
};

/// Drawing the same shape repeatedly, as flights do with their airports, does not harden its soft edges: a
/// pixel that is already as close to the colour as one drawing on the background would make it is left
/// unchanged.
class Ink {
 public:
  /// Both are pixels of a 32-bit picture.
  Ink(std::uint32_t background, std::uint32_t colour) : background_(background), colour_(colour) {}

  /// Blends the colour into each pixel by its coverage (0..255).
  void Cover(const PixelBlock& block, const std::uint8_t* coverage, std::ptrdiff_t coverageStride) const;

 private:
  std::uint32_t background_;
  std::uint32_t colour_;
};

}  // namespace zerbal::paint
