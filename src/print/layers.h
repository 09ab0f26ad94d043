// The layers of a map for print.
#pragma once

#include "map/layers.h"
#include "print/contents.h"
#include "print/print_surface.h"
#include "print/projection.h"

namespace zerbal::print {

/// Lines of one logical pixel are those of every map.
void DrawPart(std::span<const TwipPoint> part, data::Rgb colour, double width, PrintSurface& surface);

// Filled areas

/// Fills what is visible of the globe.
void FillGlobe(const Projection& projection, data::Rgb colour, PrintSurface& surface);
/// Fills the land within the shores that the lines of the coast show.
void FillLand(const map::MapScene& scene, const Projection& projection, data::Rgb colour,
              PrintSurface& surface);

// Coastlines, rivers and boundaries

struct LineLayer {
  data::LineKind kind;
  const char* name;  ///< of the step, for the log
  data::Rgb colour;
  double width = map::kLineWidth;  ///< logical pixels
};

/// Draws the lines that the map window shows of this kind, cut at the edge of the view. A table that cannot
/// be read ends with the error, which is logged.
void DrawLineLayer(const map::MapScene& scene, const Projection& projection, const LineLayer& layer,
                   PrintSurface& surface);

/// The edge of the globe.
void DrawOutline(const Projection& projection, data::Rgb colour, double width, PrintSurface& surface);

// Airports

/// `radius` in twips.
void DrawAirportMarkers(const std::vector<PlacedAirport>& airports, std::int32_t radius,
                        PrintSurface& surface);
/// Right of and below the markers, as on the map of the window.
void DrawAirportLabels(map::Canvas& canvas, const std::vector<PlacedAirport>& airports);

// Flights

void DrawLegs(const std::vector<PlacedLeg>& legs, double width, PrintSurface& surface);
/// An aircraft on each part of a leg, a quarter of the way along the curve.
void DrawLegSymbols(map::Canvas& canvas, const map::MapScene& scene, const std::vector<PlacedLeg>& legs);
/// The numbers beside the symbols, as on the map of the window.
void DrawLegLabels(map::Canvas& canvas, const map::MapScene& scene, const std::vector<PlacedLeg>& legs);

/// A straight leg that has its symbol and its label where those of a curved part are: its quarter is that of
/// the curve, and its direction the curve's there.
struct StraightLeg {
  TwipPoint from;
  TwipPoint to;
};
StraightLeg StraightAtQuarter(std::span<const TwipPoint> part);

}  // namespace zerbal::print
