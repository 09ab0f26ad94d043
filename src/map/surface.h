// The interface on which the map is drawn. Positions and lengths are whole twips.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/coordinates.h"
#include "data/rgb.h"

namespace zerbal::map {

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

/// The layers of the map in painting order.
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

  /// The operations that follow belong to this layer.
  virtual void BeginLayer(Layer layer) = 0;
  virtual void Clear(data::Rgb colour) = 0;
  /// A run of connected points. Fewer than two points draw nothing.
  virtual void Polyline(std::span<const TwipPoint> points, const Pen& pen) = 0;
  /// An unfilled rectangle between two opposite corners.
  virtual void Rectangle(TwipPoint corner1, TwipPoint corner2, const Pen& pen) = 0;
  virtual void Circle(TwipPoint centre, std::int32_t radius, data::Rgb colour, bool fill) = 0;
  /// `topLeft` is the top left corner of the text's box; `text` is UTF-8.
  virtual void Text(TwipPoint topLeft, std::string_view text, data::Rgb colour, const TextFont& font) = 0;

  void Line(TwipPoint from, TwipPoint to, const Pen& pen) {
    const TwipPoint ends[] = {from, to};
    Polyline(ends, pen);
  }
};

}  // namespace zerbal::map
