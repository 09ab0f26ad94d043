// The aircraft symbol and the flight number of one leg. Everything in twips on the drawing area.
#pragma once

#include <string_view>

#include "data/rgb.h"
#include "map/canvas.h"

namespace zerbal::map {

/// An aircraft seen from above that flies along the leg: a fuselage from the anchor, a quarter of the leg
/// from its start, to the nose, with wing and tail across. Wing and tail run from the left side of the
/// direction of flight to the right one.
struct LegSymbol {
  TwipPoint anchor;  ///< where the tail crosses
  TwipPoint nose;
  TwipPoint wingFrom, wingTo;
  TwipPoint tailFrom, tailTo;
};

/// The ends must differ.
LegSymbol ComputeLegSymbol(TwipPoint from, TwipPoint to, bool detailMode);

/// Top left corner of the label; the same whether or not the symbol is drawn.
TwipPoint LegLabelPosition(TwipPoint from, TwipPoint to, bool detailMode);

struct LegSymbolOptions {
  bool symbol = false;
  bool label = false;
  data::Rgb symbolColour;
  data::Rgb labelColour;
};

/// Draws symbol, then label, as the options say. A leg whose ends coincide has no symbol.
void DrawLegSymbol(Canvas& canvas, TwipPoint from, TwipPoint to, std::string_view label,
                   const LegSymbolOptions& options);

}  // namespace zerbal::map
