// Forwards every operation to two surfaces, so that the drawing of the map window can be observed.
#pragma once

#include "map/surface.h"

namespace zerbal::map {

class TeeSurface final : public Surface {
 public:
  TeeSurface(Surface& first, Surface& second) : first_(first), second_(second) {}

  void BeginLayer(Layer layer) override {
    first_.BeginLayer(layer);
    second_.BeginLayer(layer);
  }
  void Clear(data::Rgb colour) override {
    first_.Clear(colour);
    second_.Clear(colour);
  }
  void Polyline(std::span<const TwipPoint> points, const Pen& pen) override {
    first_.Polyline(points, pen);
    second_.Polyline(points, pen);
  }
  void Rectangle(TwipPoint corner1, TwipPoint corner2, const Pen& pen) override {
    first_.Rectangle(corner1, corner2, pen);
    second_.Rectangle(corner1, corner2, pen);
  }
  void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) override {
    first_.Circle(centre, radius, colour, fill);
    second_.Circle(centre, radius, colour, fill);
  }
  void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const TextFont& font) override {
    first_.Text(topLeft, text, colour, font);
    second_.Text(topLeft, text, colour, font);
  }

 private:
  Surface& first_;
  Surface& second_;
};

}  // namespace zerbal::map
