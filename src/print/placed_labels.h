// Labels of airports, legs and meridians without overlaps.
#pragma once

#include <string>
#include <vector>

#include "print/contents.h"
#include "print/graticule.h"
#include "print/label_placement.h"
#include "print/leg_groups.h"
#include "print/print_surface.h"

namespace zerbal::print {

/// Collects texts with the places where they may stand.
class LabelPlan {
 public:
  /// `surface` measures the texts. Letters and their halo stay within `area`.
  LabelPlan(PrintSurface& surface, const TwipBox& area, data::Rgb halo)
      : surface_(surface), area_(area), halo_(halo) {}

  /// No label covers it.
  void AddObstacle(const TwipBox& box) { obstacles_.push_back(box); }
  /// No label covers the markers, which have this radius (twips).
  void AddMarkers(const Contents& contents, std::int32_t radius);

  // In the order of their priority.

  /// Each airport once; those with more flights first.
  void AddAirports(const Contents& contents, std::int32_t markerRadius, const map::TextFont& font);
  /// At the ends of the lines.
  void AddGraticule(const std::vector<GraticuleLine>& lines, data::Rgb colour, const map::TextFont& font);
  /// One label for all flights of a leg; legs with more flights first. Without a colour, that of the service.
  /// `widest` is the width of the widest line, logical pixels.
  void AddLegs(const std::vector<LegGroup>& groups, std::optional<data::Rgb> colour, double widest,
               const map::TextFont& font);

  /// Draws the texts that have found a place.
  void Draw(PrintSurface& surface) const;

 private:
  struct Text {
    std::string text;
    TextStyle style;
  };

  /// With its halo.
  TwipSize SizeOf(std::string_view text, const map::TextFont& font) const;
  void Add(long priority, Text text, std::vector<TwipBox> places);

  PrintSurface& surface_;
  TwipBox area_;
  data::Rgb halo_;
  std::vector<TwipBox> obstacles_;
  std::vector<Text> texts_;
  std::vector<LabelRequest> requests_;  ///< of texts_
};

}  // namespace zerbal::print
