// What a map for print is drawn on: the surface of the map, and filled areas, lines of any width and dashes,
// texts with a halo.
#pragma once

#include <optional>
#include <vector>

#include "map/surface.h"

namespace zerbal::print {

/// The layers in painting order.
enum class PrintLayer {
  kBackground,
  kWater,
  kLand,
  kLines,
  kGraticule,
  kAirports,
  kFlights,
  kLabels,
  kFurniture
};

/// A closed line; the last point is joined to the first.
using Ring = std::vector<TwipPoint>;

struct StrokeStyle {
  data::Rgb colour{};
  double width = 1;  ///< logical pixels
  /// Lengths of dashes and gaps in turn, an even number of them, logical pixels; a solid line without.
  std::vector<double> dashes{};
  bool operator==(const StrokeStyle&) const = default;
};

struct TextStyle {
  map::TextFont font{};
  data::Rgb colour{};
  std::optional<data::Rgb> halo{};
  bool operator==(const TextStyle&) const = default;
};

/// How far a halo reaches beyond the letters, logical pixels.
inline constexpr double kHaloReach = 1.5;

/// The box of a text, twips.
struct TextSize {
  std::int32_t width = 0;
  std::int32_t height = 0;
  bool operator==(const TextSize&) const = default;
};

class PrintSurface : public map::Surface {
 public:
  /// The operations that follow belong to this layer.
  virtual void BeginPrintLayer(PrintLayer layer) = 0;
  /// Fills what is inside an odd number of the rings. Rings of one area share edges without a gap.
  virtual void Fill(std::span<const Ring> rings, data::Rgb colour) = 0;
  /// A run of connected points with round joints. Fewer than two points draw nothing.
  virtual void Stroke(std::span<const TwipPoint> points, const StrokeStyle& style) = 0;
  /// `topLeft` is the top left corner of the text's box, without its halo; `text` is UTF-8.
  virtual void StyledText(TwipPoint topLeft, std::string_view text, const TextStyle& style) = 0;
  virtual TextSize Measure(std::string_view text, const map::TextFont& font) = 0;
};

}  // namespace zerbal::print
