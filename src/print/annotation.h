// What explains a map for print: lines by their number of flights, meridians, labels, legend, scale bar.
#pragma once

#include <vector>

#include "map/layers.h"
#include "print/contents.h"
#include "print/furniture.h"
#include "print/graticule.h"
#include "print/leg_groups.h"
#include "print/placed_labels.h"
#include "print/print_map.h"

namespace zerbal::print {

/// Lays everything out for a surface, then draws one layer after the other. An error ends the layer and is
/// logged.
class Annotation {
 public:
  /// All of these must outlive the annotation.
  Annotation(const PrintScene& scene, const Projection& projection, const Contents& contents,
             PrintSurface& surface);

  std::int32_t MarkerRadius() const { return markerRadius_; }    ///< twips
  const map::TextFont& LabelFont() const { return labelFont_; }  ///< of airports and legs

  void DrawGraticule();
  void DrawLegLines();
  /// Placed, or those of the map window drawn with `canvas`; those of meridians are always placed.
  void DrawLabels(map::Canvas& canvas);
  void DrawFurniture();

 private:
  bool DrawsGroups() const {
    return scene_.options.widthByFlights || scene_.options.colourBy != ColourLegsBy::kFlight;
  }
  std::vector<FurnitureItem> MakeFurniture() const;
  LegendContents Legend() const;
  std::vector<TwipPoint> BusyPoints() const;
  double WidestLeg() const;  ///< logical pixels
  void PlaceLabels(LabelPlan& plan) const;

  const PrintScene& scene_;
  const Projection& projection_;
  const Contents& contents_;
  PrintSurface& surface_;
  TwipBox picture_;
  std::int32_t markerRadius_;
  map::TextFont labelFont_;
  std::vector<LegGroup> groups_;
  std::vector<FlightStep> steps_;  ///< of groups_
  std::vector<GraticuleLine> graticule_;
  FurnitureMaker maker_;
  Furniture furniture_;
};

}  // namespace zerbal::print
