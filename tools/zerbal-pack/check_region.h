// Checks whether the map shows all of a region in a window of any shape.
#pragma once

#include <optional>
#include <string>

namespace zerbal::pack {

/// Bounds in degrees of the map frame. A region whose east bound is not above its west bound reaches across
/// the edge of the frame, the meridian at 180 degrees.
struct RegionBounds {
  double west = 0;
  double top = 0;
  double east = 0;
  double bottom = 0;
};

/// Maps of at most this ratio of width to height are checked; only windows on several screens are wider.
inline constexpr double kWidestMap = 3.5;

/// The ratio of width to height above which a map of the region is cut off at the edge of the map frame;
/// nothing when no map is, or when the region is not inside the frame. The map widens a region to its own
/// shape, but draws beyond the edge only when the region itself reaches across it.
std::optional<double> RatioCutOff(const RegionBounds& region);

/// Whether a map of the region can be in detail and has the edge of the frame inside. Detailed lines are
/// drawn only west of it.
bool HasDetailAcrossEdge(const RegionBounds& region);

/// What a map of the region does not show, and how to cure that; nothing when it shows everything up to
/// kWidestMap.
std::optional<std::string> CutOffNote(const RegionBounds& region);

}  // namespace zerbal::pack
