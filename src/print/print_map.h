// The map for print: what zerbal-map draws with one of the options below.
#pragma once

#include <optional>

#include "map/draw_map.h"
#include "print/make_projection.h"
#include "print/print_surface.h"

namespace zerbal::print {

/// What the map of the window does not have.
struct PrintOptions {
  bool greatCircles = false;  ///< legs are the shortest ways over the earth
  ProjectionKind projection = ProjectionKind::kPlateCarree;
  std::optional<data::Rgb> land;   ///< fills the land
  std::optional<data::Rgb> water;  ///< fills the rest of the globe

  bool operator==(const PrintOptions&) const = default;
};

struct PrintScene {
  const map::MapScene& map;
  const PrintOptions& options;
  bool wholeWorld = false;  ///< the view is all of the world, in projections that can show it
};

/// Throws base::UsageError when a view cannot be drawn with the options, base::Error when data are missing.
void CheckPrintScene(const PrintScene& scene);

/// Draws everything, in the order of PrintLayer. After the background no error leaves this function: it ends
/// the layer that fails and is logged, and the next one is drawn.
void DrawPrintMap(const PrintScene& scene, PrintSurface& surface);

}  // namespace zerbal::print
