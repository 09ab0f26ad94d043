// The shape of a marker or a letter as coverage, without colour.
#pragma once

#include <cstdint>
#include <vector>

namespace zerbal::paint {

/// Coverage 0..255, row by row. The reference pixel of the shape (a marker's centre, a letter's origin on the
/// base line) has the coordinates 0, 0; the top left pixel of the mask has `left`, `top`. The width is padded
/// with empty columns to a multiple of four.
struct Mask {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> coverage;
};

}  // namespace zerbal::paint
