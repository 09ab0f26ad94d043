// Where title, legend, scale bar and north arrow stand, and what is where in the legend.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "print/twip_box.h"

namespace zerbal::print {

enum class Corner { kTopLeft, kTopRight, kBottomLeft, kBottomRight };
inline constexpr std::size_t kCorners = 4;

struct FurniturePiece {
  TwipSize size;
  std::optional<Corner> wanted;              ///< nothing: the emptiest corner
  std::array<Corner, kCorners> preferred{};  ///< the order among equally empty corners
};

/// The box of each piece inside `area`; nothing for a piece that does not fit. The emptiest corner is the one
/// where the fewest of the `busy` points are under the piece. Pieces with a wanted corner choose first. In a
/// corner, pieces stand one above the other, `gap` apart.
std::vector<std::optional<TwipBox>> PlaceFurniture(std::span<const FurniturePiece> pieces,
                                                   const TwipBox& area, std::int32_t gap,
                                                   std::span<const TwipPoint> busy);

/// Twips.
struct LegendMeasures {
  std::int32_t rowHeight = 0;
  std::int32_t sampleWidth = 0;  ///< of a row's line; 0 where rows have none
  std::int32_t gap = 0;          ///< between sample and text, and between columns
  std::int32_t padding = 0;      ///< inside of the frame
};

struct LegendRowSize {
  std::int32_t textWidth = 0;
  bool heading = false;  ///< has no sample and does not end a column
};

struct LegendLayout {
  TwipSize size;
  std::vector<TwipPoint> rows;  ///< the top left corner of each row's sample, of a heading's text
};

/// Rows in as many columns as the height needs. A height for less than two rows counts as two.
LegendLayout LayOutLegend(std::span<const LegendRowSize> rows, const LegendMeasures& measures,
                          std::int32_t mostHeight);

}  // namespace zerbal::print
