// Finds the boxes that overlap a box, among thousands.
#pragma once

#include <cstddef>
#include <vector>

#include "print/twip_box.h"

namespace zerbal::print {

/// Boxes with numbers. Each box is listed in all squares of a grid that it touches.
class BoxGrid {
 public:
  /// Boxes may reach beyond `area`; they are found there too, but slowly.
  explicit BoxGrid(const TwipBox& area);

  void Add(std::size_t number, const TwipBox& box);
  /// The box must be there.
  void Remove(std::size_t number, const TwipBox& box);

  bool Overlaps(const TwipBox& box) const;
  /// Each number once, ascending.
  std::vector<std::size_t> Overlapping(const TwipBox& box) const;

 private:
  struct Entry {
    std::size_t number;
    TwipBox box;
  };
  struct Squares {
    std::size_t left, top, right, bottom;  ///< inclusive
  };

  Squares Touched(const TwipBox& box) const;
  /// `visit(entries)` of each square until it returns true, which is returned.
  template <typename Lists, typename Visit>
  bool VisitSquares(Lists& lists, const TwipBox& box, const Visit& visit) const {
    const Squares touched = Touched(box);
    for (std::size_t y = touched.top; y <= touched.bottom; ++y)
      for (std::size_t x = touched.left; x <= touched.right; ++x)
        if (visit(lists[y * columns_ + x]))
          return true;
    return false;
  }

  TwipBox area_;
  std::int32_t side_;  ///< of a square, twips
  std::size_t columns_;
  std::size_t rows_;
  std::vector<std::vector<Entry>> squares_;  ///< row by row
};

}  // namespace zerbal::print
