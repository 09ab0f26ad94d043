// The map for print: what zerbal-map draws with one of the options below.
#pragma once

#include "map/draw_map.h"
#include "print/print_surface.h"
#include "print/projection.h"

namespace zerbal::print {

/// What the map of the window does not have.
struct PrintOptions {
  bool greatCircles = false;  ///< legs are the shortest ways over the earth

  bool operator==(const PrintOptions&) const = default;
};

struct PrintScene {
  const map::MapScene& map;
  const PrintOptions& options;
};

/// Draws everything, in the order of PrintLayer. After the background no error leaves this function: it ends
/// the layer that fails and is logged, and the next one is drawn.
void DrawPrintMap(const PrintScene& scene, PrintSurface& surface);

}  // namespace zerbal::print
