#include "print/box_grid.h"

#include <algorithm>

#include "base/assert.h"

namespace zerbal::print {
namespace {

/// Twips: a common label touches few squares of this size.
constexpr std::int32_t kSmallestSquare = 40 * kTwipsPerPixel;
constexpr std::int32_t kMostSquares = 256;  ///< a side

}  // namespace

BoxGrid::BoxGrid(const TwipBox& area)
    : area_(area),
      side_(std::max({kSmallestSquare, area.Width() / kMostSquares + 1, area.Height() / kMostSquares + 1})),
      columns_(static_cast<std::size_t>(std::max(area.Width(), 0) / side_) + 1),
      rows_(static_cast<std::size_t>(std::max(area.Height(), 0) / side_) + 1),
      squares_(columns_ * rows_) {}

BoxGrid::Squares BoxGrid::Touched(const TwipBox& box) const {
  const auto index = [this](std::int32_t at, std::int32_t begin, std::size_t count) {
    const std::int64_t square = (std::int64_t{at} - begin) / side_;
    return static_cast<std::size_t>(
        std::clamp<std::int64_t>(square, 0, static_cast<std::int64_t>(count) - 1));
  };
  return {index(box.left, area_.left, columns_), index(box.top, area_.top, rows_),
          index(box.right, area_.left, columns_), index(box.bottom, area_.top, rows_)};
}

void BoxGrid::Add(std::size_t number, const TwipBox& box) {
  VisitSquares(squares_, box, [&](std::vector<Entry>& entries) {
    entries.push_back({number, box});
    return false;
  });
}

void BoxGrid::Remove(std::size_t number, const TwipBox& box) {
  VisitSquares(squares_, box, [&](std::vector<Entry>& entries) {
    const auto found = std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
      return entry.number == number && entry.box == box;
    });
    ZERBAL_ASSERT(found != entries.end());
    entries.erase(found);
    return false;
  });
}

bool BoxGrid::Overlaps(const TwipBox& box) const {
  return VisitSquares(squares_, box, [&](const std::vector<Entry>& entries) {
    return std::any_of(entries.begin(), entries.end(),
                       [&](const Entry& entry) { return entry.box.Overlaps(box); });
  });
}

std::vector<std::size_t> BoxGrid::Overlapping(const TwipBox& box) const {
  std::vector<std::size_t> numbers;
  VisitSquares(squares_, box, [&](const std::vector<Entry>& entries) {
    for (const Entry& entry : entries)
      if (entry.box.Overlaps(box))
        numbers.push_back(entry.number);
    return false;
  });
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  return numbers;
}

}  // namespace zerbal::print
