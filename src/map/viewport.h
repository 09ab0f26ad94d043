// The one coordinate frame of the map and the one projection through which every layer draws.
//
// Map frame, degrees, single precision: map longitude = geographic longitude + 180 (0..360, up to 720 in a
// view that runs through 360); map latitude = 90 - geographic latitude (0 at the North Pole, growing
// downwards like y). Bounds are inclusive on every side.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/reference_tables.h"
#include "map/surface.h"

namespace zerbal::map {

/// A map longitude of exactly this ends a polyline and is never a position.
inline constexpr float kPenUpLon = -1.0F;
inline constexpr float kWidestLonSpan = 350.0F;
inline constexpr float kWidestLatSpan = 180.0F;
inline constexpr float kDetailLonSpan = 20.0F;
inline constexpr float kDetailLatSpan = 10.0F;
/// A zoom to less than both of these is refused.
inline constexpr float kSmallestLonSpan = 0.5F;
inline constexpr float kSmallestLatSpan = 0.25F;

struct LonLat {
  float lon = 0;
  float lat = 0;
};

class Viewport {
 public:
  explicit Viewport(const data::GridBands& bands);

  // The drawing area, twips.
  std::int32_t MapWidth = 0;
  std::int32_t MapHeight = 0;
  // What was asked for: west, top, east, bottom. East at or below west runs through 360.
  float ReqLonMin = 0;
  float ReqLatMin = 0;
  float ReqLonMax = 0;
  float ReqLatMax = 0;
  // What is shown: the request widened to the shape of the drawing area.
  bool MapWrap = false;
  float MapLonMin = 0;
  float MapLatMin = 0;
  float MapLonMax = 0;
  float MapLatMax = 0;
  float MapLonSpan = 0;
  float MapLatSpan = 0;
  float MapScale = 0;  ///< twips a degree, the same on both axes
  std::int32_t MapOffX = 0;
  std::int32_t MapOffY = 0;
  bool DetailMode = false;
  std::vector<std::string> DetailTiles;  ///< one to four cell names in detail mode, else none
  // The last projected point.
  bool PointInView = false;
  std::int32_t PointX = 0;
  std::int32_t PointY = 0;

  /// Width and height of the drawing area in twips, rounded to whole ones.
  void SetSize(double width, double height);
  bool HasArea() const { return MapWidth >= 1 && MapHeight >= 1; }

  /// Derives everything below the request from request and size; does nothing without an area.
  void ComputeViewport();

  /// False only for the pen-up marker, which changes nothing. Otherwise sets PointInView and, when that is
  /// true, PointX and PointY.
  bool ProjectPoint(float lon, float lat);
  /// Where a map position is on the drawing area, in view or not. Kept so far inside the range of its type
  /// that the lengths of markers and labels can be added to it.
  Point PictureAt(float lon, float lat) const {
    return {Twips(static_cast<double>(MapScale) * lon + MapOffX),
            Twips(static_cast<double>(MapScale) * lat + MapOffY)};
  }

  /// The map position under a point of the drawing area, on the map or not.
  LonLat Unproject(double x, double y) const;
  /// Whether the inverse lies within the shown bounds: the margins beside the map are not on it.
  bool IsOnMap(double x, double y) const;

  // Each changes the request and returns true when the view is to be computed and drawn anew.
  bool ZoomIn(float percent);
  bool ZoomOut(float percent);
  bool ZoomReset();
  bool SelectRegion(const data::Region& region);
  /// A click: same spans around the point.
  bool CentreOn(double x, double y);
  /// A box between two corners of the drawing area; false when it is too small.
  bool ZoomToBox(double x1, double y1, double x2, double y2);

  /// What the status bar says about the size of the view.
  std::string ExtentText() const;

 private:
  static std::int32_t Twips(double value) {
    constexpr double kFar = 1e9;
    if (value >= -kFar && value <= kFar) {
      const auto whole = static_cast<std::int32_t>(value);
      return value < whole ? whole - 1 : whole;  // down, without the cost of a call for each point
    }
    return value > 0 ? 1'000'000'000 : value < 0 ? -1'000'000'000 : 0;
  }

  void FitRequest();
  void PlaceMap();
  void ListDetailTiles();
  /// Spans around the centre of what is shown.
  void RequestAround(float lonSpan, float latSpan);
  /// Slides a view of this latitude span back between the poles.
  void Request(float west, float top, float east, float bottom, float latSpan);

  const data::GridBands* bands_;
};

/// Geographic longitude and latitude, degrees, of a map position.
LonLat ToGeographic(LonLat position);

}  // namespace zerbal::map
