// Clips a leg to the view.
#pragma once

#include "map/viewport.h"

namespace zerbal::map {

/// Bits of GetClipCode. A point exactly on a bound is inside.
inline constexpr unsigned kBeyondUpperLat = 1;  ///< above MapLatMax
inline constexpr unsigned kBeyondLowerLat = 2;  ///< below MapLatMin
inline constexpr unsigned kWestOfView = 4;
inline constexpr unsigned kEastOfView = 8;

/// The bounds of the view beyond which a position lies; 0 inside.
unsigned GetClipCode(const Viewport& viewport, MapPosition position);

/// Moves the ends of a segment onto the bounds that it crosses (Cohen-Sutherland). Returns false when no part
/// of it is in view, or when an end is not a number. Moved ends are singles, like all positions: they lie up
/// to one unit in the last place beside the given segment.
bool ClipLeg(const Viewport& viewport, MapPosition& from, MapPosition& to);

}  // namespace zerbal::map
