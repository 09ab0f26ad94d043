// A small picture of coverage: the shape of a marker or of a letter, without colour.
#pragma once

#include <cstdint>
#include <vector>

namespace zerbal::paint {

/// Coverage 0..255, row by row. The reference pixel of the shape (a marker's centre, a letter's place on the
/// base line) has the coordinates 0, 0; the picture's own top left pixel has `left`, `top`. The width is a
/// multiple of four, filled up with empty columns.
struct Mask {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> coverage;
};

}  // namespace zerbal::paint
