// The map for print: what zerbal-map draws with one of the options below.
#pragma once

#include <optional>
#include <string>

#include "map/draw_map.h"
#include "print/furniture_layout.h"
#include "print/make_projection.h"
#include "print/print_style.h"
#include "print/print_surface.h"

namespace zerbal::print {

enum class ColourLegsBy { kFlight, kService, kFrequency };

struct WantedPiece {
  bool shown = false;
  std::optional<Corner> corner{};  ///< nothing: the emptiest one
  bool operator==(const WantedPiece&) const = default;
};

/// What the map of the window does not have.
struct PrintOptions {
  bool greatCircles = false;  ///< legs are the shortest ways over the earth
  ProjectionKind projection = ProjectionKind::kPlateCarree;
  std::optional<data::Rgb> land;   ///< fills the land
  std::optional<data::Rgb> water;  ///< fills the rest of the globe

  bool labelsPlaced = false;    ///< no two labels overlap
  bool widthByFlights = false;  ///< legs are wider where more flights are
  /// kFlight draws each flight over the others, as the window does.
  ColourLegsBy colourBy = ColourLegsBy::kFlight;
  WantedPiece legend, scaleBar, north;
  std::string title{};   ///< UTF-8; none when empty
  double graticule = 0;  ///< degrees; 0: none
  std::string style{};   ///< name or file; the map's own colours and fonts when empty

  bool operator==(const PrintOptions&) const = default;
};

struct PrintScene {
  const map::MapScene& map;
  const PrintOptions& options;
  bool wholeWorld = false;  ///< the view is all of the world, in projections that can show it
  PrintStyle style = StyleOf(map.style);
};

/// Throws base::UsageError when a view cannot be drawn with the options, base::Error when data are missing.
void CheckPrintScene(const PrintScene& scene);

/// Draws everything, in the order of PrintLayer. After the background no error leaves this function: it ends
/// the layer that fails and is logged, and the next one is drawn.
void DrawPrintMap(const PrintScene& scene, PrintSurface& surface);

}  // namespace zerbal::print
