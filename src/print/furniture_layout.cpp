#include "print/furniture_layout.h"

#include <algorithm>
#include <tuple>

namespace zerbal::print {
namespace {

class Corners {
 public:
  Corners(const TwipBox& area, std::int32_t gap, std::span<const TwipPoint> busy)
      : area_(area), gap_(gap), busy_(busy) {}

  std::optional<TwipBox> Put(TwipSize size, Corner corner) {
    const TwipBox box = NextBox(size, corner);
    if (!IsFree(box))
      return std::nullopt;
    placed_.push_back(box);
    Used(corner) += size.height + gap_;
    return box;
  }

  std::optional<TwipBox> PutInEmptiest(const FurniturePiece& piece) {
    // How many points are under it, whether it is the second one there, the order of preference.
    using Rank = std::tuple<std::ptrdiff_t, bool, std::size_t>;
    std::optional<Rank> best;
    for (std::size_t i = 0; i < kCorners; ++i) {
      const TwipBox box = NextBox(piece.size, piece.preferred[i]);
      if (!IsFree(box))
        continue;
      const Rank rank{PointsUnder(box), Used(piece.preferred[i]) > 0, i};
      best = best ? std::min(*best, rank) : rank;
    }
    return best ? Put(piece.size, piece.preferred[std::get<std::size_t>(*best)]) : std::nullopt;
  }

 private:
  std::int32_t& Used(Corner corner) { return used_[static_cast<std::size_t>(corner)]; }

  TwipBox NextBox(TwipSize size, Corner corner) {
    const bool atLeft = corner == Corner::kTopLeft || corner == Corner::kBottomLeft;
    const bool atTop = corner == Corner::kTopLeft || corner == Corner::kTopRight;
    return TwipBox::At({atLeft ? area_.left : area_.right - size.width,
                        atTop ? area_.top + Used(corner) : area_.bottom - Used(corner) - size.height},
                       size);
  }

  bool IsFree(const TwipBox& box) const {
    return area_.Holds(box) && std::none_of(placed_.begin(), placed_.end(), [&](const TwipBox& other) {
             return other.Grown(gap_).Overlaps(box);
           });
  }

  std::ptrdiff_t PointsUnder(const TwipBox& box) const {
    return std::count_if(busy_.begin(), busy_.end(), [&](TwipPoint point) { return box.Holds(point); });
  }

  TwipBox area_;
  std::int32_t gap_;
  std::span<const TwipPoint> busy_;
  std::vector<TwipBox> placed_;
  std::array<std::int32_t, kCorners> used_{};  ///< height in each corner
};

}  // namespace

std::vector<std::optional<TwipBox>> PlaceFurniture(std::span<const FurniturePiece> pieces,
                                                   const TwipBox& area, std::int32_t gap,
                                                   std::span<const TwipPoint> busy) {
  Corners corners(area, gap, busy);
  std::vector<std::optional<TwipBox>> boxes(pieces.size());
  for (std::size_t i = 0; i < pieces.size(); ++i)
    if (pieces[i].wanted)
      boxes[i] = corners.Put(pieces[i].size, *pieces[i].wanted);
  for (std::size_t i = 0; i < pieces.size(); ++i)
    if (!pieces[i].wanted)
      boxes[i] = corners.PutInEmptiest(pieces[i]);
  return boxes;
}

LegendLayout LayOutLegend(std::span<const LegendRowSize> rows, const LegendMeasures& measures,
                          std::int32_t mostHeight) {
  const auto most = static_cast<std::size_t>(
      std::max(2, (mostHeight - 2 * measures.padding) / std::max(measures.rowHeight, 1)));
  const std::size_t columns = (rows.size() + most - 1) / most;
  const std::size_t perColumn = columns == 0 ? 0 : (rows.size() + columns - 1) / columns;
  LegendLayout layout;
  std::int32_t left = measures.padding;
  std::int32_t columnWidth = 0;
  std::size_t line = 0;
  std::size_t longest = 0;
  for (const LegendRowSize& row : rows) {
    if (line >= perColumn || (row.heading && line > 0 && line + 1 == perColumn)) {
      left += columnWidth + measures.gap;
      columnWidth = 0;
      line = 0;
    }
    layout.rows.push_back({left, measures.padding + static_cast<std::int32_t>(line) * measures.rowHeight});
    const bool sampled = !row.heading && measures.sampleWidth > 0;
    columnWidth = std::max(columnWidth, row.textWidth + (sampled ? measures.sampleWidth + measures.gap : 0));
    longest = std::max(longest, ++line);
  }
  layout.size = {left + columnWidth + measures.padding,
                 2 * measures.padding + static_cast<std::int32_t>(longest) * measures.rowHeight};
  return layout;
}

}  // namespace zerbal::print
