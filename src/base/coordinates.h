// The coordinate systems of the map and every conversion between them. Each system is a type of its own, so
// that mixing two does not compile. A point counts whole units, a position lies anywhere between them.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace zerbal {

/// Degrees on the globe, north and east positive.
struct GeoPosition {
  double lon = 0;
  double lat = 0;
};

/// Degrees in the map frame, single precision. Longitude: 0..360 from 180 W eastwards, up to 720 in a view
/// that runs through 360. Latitude: 0..180 from the North Pole downwards.
struct MapPosition {
  float lon = 0;
  float lat = 0;
};

/// Twips (15 per logical pixel) from the top left corner of the drawing area.
struct TwipPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const TwipPoint&) const = default;
};

/// The same between whole twips, single precision: the mouse on a screen whose pixels are smaller than
/// logical ones.
struct TwipPosition {
  float x = 0;
  float y = 0;
};

/// Device pixels from the top left corner of a picture.
struct PixelPoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const PixelPoint&) const = default;
};

/// The same between whole pixels: the middle of the first pixel is 0.5, 0.5.
struct PixelPosition {
  double x = 0;
  double y = 0;
};

/// Device pixels in 256ths, in the range that a line is drawn in: some hundred thousand pixels around the
/// picture.
struct FinePoint {
  std::int32_t x = 0;
  std::int32_t y = 0;
  bool operator==(const FinePoint&) const = default;
};
inline constexpr std::int32_t kFinePerPixel = 256;

/// In tables of points, a map longitude of exactly this ends a line. It is never a position.
inline constexpr float kPenUpLon = -1.0F;

// Globe and map frame

/// Takes full turns off a longitude until it is at most 360. Each turn is rounded to single precision, which
/// decides the last bit. Numbers far beyond any view are reduced in one step.
inline float UpTo360(float lon) {
  constexpr float kTooFar = 36'000.0F;
  if (!(lon <= kTooFar))
    return static_cast<float>(std::fmod(lon, 360.0));
  while (lon > 360.0F)
    lon -= 360.0F;
  return lon;
}

inline float ToMapLon(double geoLon) {
  return static_cast<float>(geoLon + 180);
}

inline MapPosition ToMapPosition(GeoPosition position) {
  return {ToMapLon(position.lon), static_cast<float>(90 - position.lat)};
}

/// The longitude is at most 180.
inline GeoPosition ToGeoPosition(MapPosition position) {
  return {UpTo360(position.lon) - 180.0F, 90.0F - position.lat};
}

// Map frame and drawing area

/// How a view places the map frame on the drawing area.
struct MapPlacement {
  float scale = 0;        ///< twips per degree, the same on both axes
  std::int32_t offX = 0;  ///< twips
  std::int32_t offY = 0;
};

/// Rounded down. Kept so far inside the range of the type that the lengths of markers and labels can be
/// added.
inline TwipPoint ToTwipPoint(MapPosition position, const MapPlacement& placement) {
  const auto twips = [](double value) {
    constexpr double kFar = 1e9;
    if (value >= -kFar && value <= kFar) {
      const auto whole = static_cast<std::int32_t>(value);
      return value < whole ? whole - 1 : whole;  // std::floor would cost a call per point
    }
    return value > 0 ? 1'000'000'000 : value < 0 ? -1'000'000'000 : 0;
  };
  const double scale = placement.scale;
  return {twips(scale * position.lon + placement.offX), twips(scale * position.lat + placement.offY)};
}

inline MapPosition ToMapPosition(TwipPosition position, const MapPlacement& placement) {
  const double x = position.x;
  const double y = position.y;
  return {static_cast<float>((x - placement.offX) / placement.scale),
          static_cast<float>((y - placement.offY) / placement.scale)};
}

// Drawing area and pixels

inline constexpr int kTwipsPerPixel = 15;  ///< logical pixels

/// From logical pixels.
inline TwipPosition ToTwipPosition(double x, double y) {
  return {static_cast<float>(x * kTwipsPerPixel), static_cast<float>(y * kTwipsPerPixel)};
}

/// `Ratio()` device pixels stand for one logical pixel.
class PixelScale {
 public:
  /// The ratio is limited to 1/8..8: nothing could be seen beyond that, and whole numbers would overflow.
  explicit PixelScale(double ratio)
      : ratio_(std::clamp(ratio, 0.125, 8.0)), step_(std::llround(ratio_ / kTwipsPerPixel * kOne)) {}

  double Ratio() const { return ratio_; }

  /// The pixel that holds a point (floor). Exact up to 25000 logical pixels from the corner; never overflows.
  PixelPoint ToPixelPoint(TwipPoint point) const { return {Pixel(point.x), Pixel(point.y)}; }
  PixelPosition ToPixelPosition(TwipPoint point) const { return {Length(point.x), Length(point.y)}; }
  /// In the same pixel as `ToPixelPoint`. For points at most `kFinestTwips` from the corner.
  FinePoint ToFinePoint(TwipPoint point) const { return {Fine(point.x), Fine(point.y)}; }
  static constexpr std::int32_t kFinestTwips = 1'900'000;

  /// Keeps its fraction.
  double Length(double twips) const { return twips * ratio_ / kTwipsPerPixel; }

  /// The nearest whole number of pixels, at least one. Halves go down: fine coasts look better thin.
  int LineWidth(int logicalPixels) const {
    return std::max(1, static_cast<int>(std::ceil(std::clamp(logicalPixels, 1, 1000) * ratio_ - 0.5)));
  }
  /// Of smooth lines of one logical pixel, in pixels.
  double SmoothLineWidth() const { return std::max(ratio_, static_cast<double>(LineWidth(1))); }

 private:
  static constexpr int kBits = 31;
  static constexpr std::int64_t kOne = std::int64_t{1} << kBits;
  /// A ten-thousandth of a pixel makes up for the step's rounding, so that a point exactly on a pixel's edge
  /// is in that pixel.
  static constexpr std::int64_t kSlack = kOne / 10000;

  std::int32_t Pixel(std::int32_t twips) const {
    return static_cast<std::int32_t>((twips * step_ + kSlack) >> kBits);
  }

  std::int32_t Fine(std::int32_t twips) const {
    return static_cast<std::int32_t>((twips * step_ + kSlack) >> (kBits - 8));
  }

  double ratio_;
  std::int64_t step_;  ///< pixels per twip, in units of 2^-31
};

}  // namespace zerbal
