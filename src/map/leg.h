// One leg of a flight: its part that is in view, its aircraft symbol, the place of its flight number.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "data/rgb.h"
#include "map/layers.h"
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

/// An aircraft seen from above, flying along the leg. The fuselage runs from the anchor, a quarter of the leg
/// from its start, to the nose; wing and tail cross it from the left to the right side of the direction of
/// flight.
struct LegSymbol {
  TwipPoint anchor;  ///< where the tail crosses
  TwipPoint nose;
  TwipPoint wingFrom, wingTo;
  TwipPoint tailFrom, tailTo;
};

/// The ends must differ.
LegSymbol ComputeLegSymbol(TwipPoint from, TwipPoint to, bool detailMode);

/// Top left corner of the label, which does not depend on whether the symbol is drawn.
TwipPoint LegLabelPosition(TwipPoint from, TwipPoint to, bool detailMode);

/// The label of a leg: the flight's number, on request with the leg's own number (from 1) and that of legs.
void MakeLegLabel(std::string& label, std::string_view number, bool withLeg, std::size_t leg,
                  std::size_t legs);

struct LegSymbolOptions {
  bool symbol = false;
  bool label = false;
  data::Rgb symbolColour;
  data::Rgb labelColour;
};

/// Draws the symbol, then the label. A leg whose ends coincide has no symbol.
void DrawLegSymbol(Canvas& canvas, TwipPoint from, TwipPoint to, std::string_view label,
                   const LegSymbolOptions& options);

}  // namespace zerbal::map
