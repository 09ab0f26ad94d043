// Coasts, rivers and boundaries of a page.
#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "map/surface.h"

namespace zerbal::mapcommand {

/// The data of an SVG path: "M10 20l1 2-3 4". Leaves out points that are less than `least` twips from the one
/// before, but never the last one. Empty for fewer than two points.
std::string PathText(std::span<const TwipPoint> points, std::int32_t least = 0);

/// A surface that keeps the lines of the base map and nothing else.
class PageLines final : public map::Surface {
 public:
  void BeginLayer(map::Layer layer) override { layer_ = layer; }
  void Clear(data::Rgb) override {}
  void Polyline(std::span<const TwipPoint> points, const map::Pen& pen) override;
  void Rectangle(TwipPoint, TwipPoint, const map::Pen&) override {}
  void Circle(TwipPoint, std::int32_t, data::Rgb, bool) override {}
  void Text(TwipPoint, std::string_view, data::Rgb, const map::TextFont&) override {}

  /// SVG elements, whose classes are coast, river and boundary.
  std::string Elements() const;

 private:
  map::Layer layer_ = map::Layer::kBackground;
  std::map<map::Layer, std::vector<std::string>> paths_;  ///< data of one element each
};

}  // namespace zerbal::mapcommand
