// The part of the world that the map shows, and the projection that every layer uses.
//
// Longitudes and latitudes are those of the map frame (base/coordinates.h). Bounds are inclusive on every
// side.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/coordinates.h"
#include "data/grid.h"
#include "data/regions.h"

namespace zerbal::map {

inline constexpr float kWidestLonSpan = 350.0F;
inline constexpr float kWidestLatSpan = 180.0F;
inline constexpr float kDetailLonSpan = 20.0F;
inline constexpr float kDetailLatSpan = 10.0F;
/// A zoom to less than both of these is refused.
inline constexpr float kSmallestLonSpan = 0.5F;
inline constexpr float kSmallestLatSpan = 0.25F;

// The steps of the zoom, percent of the spans.
inline constexpr float kZoomStep = 20;
inline constexpr float kZoomBigStep = 50;

class Viewport {
 public:
  explicit Viewport(const data::GridBands& bands);

  // The drawing area, twips.
  std::int32_t MapWidth() const { return width_; }
  std::int32_t MapHeight() const { return height_; }
  // The requested region. An east bound at or below the west bound runs through 360.
  float ReqLonMin() const { return request_.west; }
  float ReqLatMin() const { return request_.top; }
  float ReqLonMax() const { return request_.east; }
  float ReqLatMax() const { return request_.bottom; }
  // The region shown: the request widened to the shape of the drawing area.
  bool MapWrap() const { return wrap_; }
  float MapLonMin() const { return shown_.west; }
  float MapLatMin() const { return shown_.top; }
  float MapLonMax() const { return shown_.east; }
  float MapLatMax() const { return shown_.bottom; }
  float MapLonSpan() const { return lonSpan_; }
  float MapLatSpan() const { return latSpan_; }
  float MapScale() const { return placement_.scale; }  ///< twips per degree, the same on both axes
  std::int32_t MapOffX() const { return placement_.offX; }
  std::int32_t MapOffY() const { return placement_.offY; }
  bool DetailMode() const { return !detailTiles_.empty(); }
  /// One to four tile names in detail mode, else none.
  const std::vector<std::string>& DetailTiles() const { return detailTiles_; }

  /// Width and height of the drawing area in twips, rounded to whole ones.
  void SetSize(double width, double height);
  bool HasArea() const { return width_ >= 1 && height_ >= 1; }

  /// Derives the region shown from request and size. Does nothing when the drawing area is empty.
  void ComputeViewport();

  /// The point of a position on the drawing area; nothing when it is out of view.
  std::optional<TwipPoint> ProjectPoint(MapPosition position) const;
  /// The same for any position, in view or not.
  TwipPoint PictureAt(MapPosition position) const { return ToTwipPoint(position, placement_); }

  /// The position at a place of the drawing area, on the map or not.
  MapPosition Unproject(TwipPosition place) const { return ToMapPosition(place, placement_); }
  /// Whether that position is within the bounds shown; false in the margins beside the map.
  bool IsOnMap(TwipPosition place) const;

  // Each changes the request and returns whether the view must be computed and drawn again.
  bool ZoomIn(float percent);
  bool ZoomOut(float percent);
  /// The same steps and limits, but the position at the place stays there, and the map fills the drawing area
  /// as far as the poles and the widest view allow.
  bool ZoomInAt(TwipPosition place, float percent);
  bool ZoomOutAt(TwipPosition place, float percent);
  /// Moves the view by parts of its spans, east and south positive, as far as the poles. Refused when it is
  /// there already.
  bool Move(float lonPart, float latPart);
  bool ZoomReset();
  bool SelectRegion(const data::Region& region);
  /// Keeps the spans and centres the view on the place.
  bool CentreOn(TwipPosition place);
  /// Takes two opposite corners; refused when the box is too small.
  bool ZoomToBox(TwipPosition corner1, TwipPosition corner2);

  /// Latitude and longitude spans for the status bar.
  std::string ExtentText() const;

 private:
  struct Bounds {
    float west = 0;
    float top = 0;
    float east = 0;
    float bottom = 0;
  };

  struct Spans {
    float lon = 0;
    float lat = 0;
  };

  void FitRequest();
  void PlaceMap();
  void ListDetailTiles();
  /// The spans after a step of the zoom; nothing when it is refused.
  std::optional<Spans> Narrower(float percent) const;
  std::optional<Spans> Wider(float percent) const;
  /// Requests these spans around the centre of the region shown.
  bool RequestAround(std::optional<Spans> spans);
  /// Requests these spans, widened to the shape of the drawing area, so that `position` is at `place`.
  void RequestAt(TwipPosition place, MapPosition position, Spans spans);
  /// Moves a region of this latitude span back between the poles.
  void Request(Bounds bounds, float latSpan);

  const data::GridBands* bands_;
  std::int32_t width_ = 0;
  std::int32_t height_ = 0;
  Bounds request_;
  bool wrap_ = false;
  Bounds shown_;
  float lonSpan_ = 0;
  float latSpan_ = 0;
  MapPlacement placement_;
  std::vector<std::string> detailTiles_;
};

inline std::optional<TwipPoint> Viewport::ProjectPoint(MapPosition position) const {
  if (wrap_) {
    // The unshifted longitude takes precedence and has no upper limit.
    if (!(position.lon >= shown_.west)) {
      position.lon += 360.0F;
      if (!(position.lon <= shown_.east))
        return std::nullopt;
    }
  } else if (!(position.lon >= shown_.west && position.lon <= shown_.east)) {
    return std::nullopt;
  }
  if (!(position.lat >= shown_.top && position.lat <= shown_.bottom))
    return std::nullopt;
  return PictureAt(position);
}

}  // namespace zerbal::map
