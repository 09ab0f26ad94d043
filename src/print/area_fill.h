// Fills areas in the rows of a picture. QPainter's time grows with the square of the shores in a row, which
// wide pictures of the world have many of.
#pragma once

#include <QImage>
#include <cstdint>
#include <span>
#include <vector>

#include "base/coordinates.h"

namespace zerbal::print {

/// Adds up the exact coverage of each pixel by areas, then colours the pixels. Reuses its memory.
class AreaFill {
 public:
  /// For pictures with these rows, the first of which is row `top` of what is drawn.
  AreaFill(QImage& rows, int top);

  /// A side of a ring. The sides of a ring must close it.
  void AddSide(PixelPosition from, PixelPosition to);
  /// Colours what is inside an odd number of rings, and forgets them.
  void Colour(std::uint32_t pixel);

 private:
  /// Part of a side within one row: `cover` is its height, positive downwards.
  void AddInRow(int row, double left, double right, double cover);

  QImage& rows_;
  int top_;
  std::size_t stride_;  ///< a row and two columns beyond it
  std::vector<float> covers_;
};

}  // namespace zerbal::print
