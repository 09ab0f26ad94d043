// Keeps the operations of a map, so that a picture can be drawn in several parts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "map/surface.h"

namespace zerbal::paint {

/// A surface that keeps every operation but BeginLayer and draws them again on other surfaces. It takes 8
/// bytes per point and about 100 per operation.
class OperationList final : public map::Surface {
 public:
  void BeginLayer(map::Layer) override {}
  void Clear(data::Rgb colour) override;
  void Polyline(std::span<const TwipPoint> points, const map::Pen& pen) override;
  void Rectangle(TwipPoint corner1, TwipPoint corner2, const map::Pen& pen) override;
  void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) override;
  void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const map::TextFont& font) override;

  /// Draws the operations that can be visible between two heights (twips), in their order. Others may be
  /// omitted.
  void DrawBetween(std::int32_t top, std::int32_t bottom, map::Surface& surface) const;

 private:
  enum class Kind { kClear, kPolyline, kRectangle, kCircle, kText };
  struct Operation {
    Kind kind;
    std::size_t first;  ///< in points_
    std::size_t count;
    bool fill = false;
    std::int32_t radius = 0;
    // What the operation touches, generously.
    std::int64_t top = INT64_MIN;
    std::int64_t bottom = INT64_MAX;
    map::Pen pen{};
    std::size_t text = 0;  ///< in texts_
    std::size_t textSize = 0;
    std::size_t font = 0;  ///< in fonts_
  };

  Operation& Add(Kind kind, std::span<const TwipPoint> points, std::int64_t reach);
  std::size_t FontIndex(const map::TextFont& font);
  void Draw(const Operation& operation, map::Surface& surface) const;

  std::vector<Operation> operations_;
  std::vector<TwipPoint> points_;
  std::string texts_;
  std::vector<map::TextFont> fonts_;  ///< few
};

}  // namespace zerbal::paint
