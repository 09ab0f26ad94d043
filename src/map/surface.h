// What the map is drawn on. Positions and lengths are whole twips (15 a logical pixel) from the top left
// corner of the drawing area; the geometry above never sees a pixel.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "data/reference_tables.h"

namespace zerbal::map {

inline constexpr int kTwipsPerPixel = 15;

struct Point {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const Point&) const = default;
};

enum class LineStyle { kSolid, kDotted };
enum class PenMode { kCopy, kXor };

struct Pen {
  data::Rgb colour{};
  int width = 1;  ///< logical pixels
  LineStyle style = LineStyle::kSolid;
  PenMode mode = PenMode::kCopy;
  bool operator==(const Pen&) const = default;
};

struct TextFont {
  std::string name{};  ///< family
  int size = 8;        ///< points
  bool operator==(const TextFont&) const = default;
};

/// What an operation belongs to, in painting order.
enum class Layer {
  kBackground,
  kCentre,
  kCoast,
  kRiver,
  kBoundary,
  kAirports,
  kDestinations,
  kFlights,
  kZoomBox
};

class Surface {
 public:
  virtual ~Surface() = default;

  /// Names the layer of the operations that follow.
  virtual void BeginLayer(Layer layer) = 0;
  virtual void Clear(data::Rgb colour) = 0;
  /// A run of connected points. Fewer than two points draw nothing.
  virtual void Polyline(std::span<const Point> points, const Pen& pen) = 0;
  /// An unfilled rectangle between two opposite corners.
  virtual void Rectangle(Point corner1, Point corner2, const Pen& pen) = 0;
  virtual void Circle(Point centre, std::int32_t radius, data::Rgb colour, bool fill) = 0;
  /// `topLeft` is the top left corner of the text's box; `text` is UTF-8.
  virtual void Text(Point topLeft, std::string_view text, data::Rgb colour, const TextFont& font) = 0;

  void Line(Point from, Point to, const Pen& pen) {
    const Point ends[] = {from, to};
    Polyline(ends, pen);
  }
};

}  // namespace zerbal::map
