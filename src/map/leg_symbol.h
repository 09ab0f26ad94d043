// The aircraft symbol and the flight number of one leg.
#pragma once

#include <string_view>

#include "data/rgb.h"
#include "map/canvas.h"

namespace zerbal::map {

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
