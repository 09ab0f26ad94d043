// Chooses places for labels so that none overlaps another one or an obstacle.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "print/twip_box.h"

namespace zerbal::print {

/// A label and where it may stand.
struct LabelRequest {
  long priority = 0;            ///< labels with larger numbers choose first
  std::vector<TwipBox> places;  ///< the best one first
};

/// The number of the place that each label gets; nothing for those that find none. Places outside of `area`
/// or over an obstacle are never chosen. Labels choose in the order of their priority, then of the list.
/// Afterwards, a label without a place may move one or two others to other places of theirs, and labels move
/// to better places that have become free.
std::vector<std::optional<std::size_t>> PlaceLabels(std::span<const LabelRequest> labels,
                                                    std::span<const TwipBox> obstacles, const TwipBox& area);

/// Places for a label of `size` around a marker: at `gap` from its edge, then at a greater distance. Right
/// below comes first, as on the map of the window.
std::vector<TwipBox> PlacesAround(TwipPoint centre, std::int32_t radius, std::int32_t gap, TwipSize size);

/// Places for a label of `size` along a line: beside its middle on both sides, then towards its ends, then on
/// the line itself. None when the line has no length.
std::vector<TwipBox> PlacesAlong(std::span<const TwipPoint> line, std::int32_t gap, TwipSize size);

/// Places for a label of `size` on a line at `gap` from its beginning and from its end. None when the line
/// has no length.
std::vector<TwipBox> PlacesAtEnds(std::span<const TwipPoint> line, std::int32_t gap, TwipSize size);

}  // namespace zerbal::print
