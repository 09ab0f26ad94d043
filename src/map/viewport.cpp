#include "map/viewport.h"

#include <algorithm>
#include <cmath>

#include "map/position_text.h"
#include "settings/rounding.h"

namespace zerbal::map {

namespace {

using settings::Round;
using settings::ToInt32;

/// Stores an intermediate result.
float Single(double value) {
  return static_cast<float>(value);
}

/// Takes full turns off a longitude until it is at most 360. One turn at a time, each rounded, since that is
/// what decides the last bit; a number far beyond any view must not keep us turning.
float UpTo360(float lon) {
  constexpr float kTooFar = 36'000.0F;
  if (!(lon <= kTooFar))
    return Single(std::fmod(lon, 360.0));
  while (lon > 360.0F)
    lon -= 360.0F;
  return lon;
}

/// Unlike std::clamp it takes bounds the wrong way round, which a region of odd numbers may give.
float Limit(float value, float low, float high) {
  return std::min(std::max(value, low), high);
}

bool Lies(const data::GridBand& band, float value) {
  return static_cast<float>(band.lower) <= value && value <= static_cast<float>(band.upper);
}

bool LiesEither(const data::GridBand& band, float value1, float value2) {
  return Lies(band, value1) || Lies(band, value2);
}

}  // namespace

Viewport::Viewport(const data::GridBands& bands) : bands_(&bands) {}

void Viewport::SetSize(double width, double height) {
  MapWidth = ToInt32(Round(width));
  MapHeight = ToInt32(Round(height));
}

void Viewport::ComputeViewport() {
  if (!HasArea())
    return;
  FitRequest();
  PlaceMap();
  ListDetailTiles();
}

void Viewport::FitRequest() {
  float west = ReqLonMin;
  float top = ReqLatMin;
  float east = ReqLonMax;
  float bottom = ReqLatMax;
  MapWrap = east <= west;
  if (MapWrap)
    east += 360.0F;
  MapLonSpan = east - west;
  MapLatSpan = bottom - top;

  const float scaleX = Single(static_cast<double>(MapWidth) / MapLonSpan);
  const float scaleY = Single(static_cast<double>(MapHeight) / MapLatSpan);
  if (scaleX < scaleY) {
    MapScale = scaleX;
    const float extra = Single((static_cast<double>(MapHeight) / MapScale - MapLatSpan) / 2);
    top -= extra;
    bottom += extra;
    // A side that meets the pole stops there; the other keeps what it gained.
    if (top < 0.0F)
      top = 0.0F;
    if (bottom > kWidestLatSpan)
      bottom = kWidestLatSpan;
    MapLatSpan = bottom - top;
  } else if (scaleX == scaleY) {
    MapScale = scaleX;
  } else if (scaleX > scaleY) {
    MapScale = scaleY;
    float span = Single(static_cast<double>(MapWidth) / MapScale);
    if (span > kWidestLonSpan)
      span = kWidestLonSpan;
    const float extra = Single((static_cast<double>(span) - MapLonSpan) / 2);
    west -= extra;
    east += extra;
    if (west < 0.0F) {
      west += 360.0F;
      east += 360.0F;
    }
    MapLonSpan = east - west;
  }
  MapLonMin = west;
  MapLatMin = top;
  MapLonMax = east;
  MapLatMax = bottom;
}

void Viewport::PlaceMap() {
  const auto margin = [this](std::int32_t area, float span) {
    const double shown = static_cast<double>(MapScale) * span;
    return shown < area ? Single((area - shown) / 2) : 0.0F;
  };
  const auto offset = [this](float unused, float low) {
    return ToInt32(Round(unused - static_cast<double>(low) * MapScale));
  };
  MapOffX = offset(margin(MapWidth, MapLonSpan), MapLonMin);
  MapOffY = offset(margin(MapHeight, MapLatSpan), MapLatMin);
}

void Viewport::ListDetailTiles() {
  DetailMode = false;
  DetailTiles.clear();
  if (!(MapLonSpan <= kDetailLonSpan && MapLatSpan <= kDetailLatSpan))
    return;
  // Bands are twice as wide as the widest detail view, so that at most two of each kind hold an edge.
  for (const data::GridBand& lon : bands_->lon)
    if (LiesEither(lon, MapLonMin, MapLonMax))
      for (const data::GridBand& lat : bands_->lat)
        if (LiesEither(lat, MapLatMin, MapLatMax))
          DetailTiles.push_back({lon.letter, lat.letter});
  DetailMode = !DetailTiles.empty();
}

bool Viewport::ProjectPoint(float lon, float lat) {
  if (lon == kPenUpLon)
    return false;
  PointInView = false;
  float x = lon;
  if (MapWrap) {
    // Unshifted where that fits; no upper test then.
    if (!(lon >= MapLonMin)) {
      x = lon + 360.0F;
      if (!(x <= MapLonMax))
        return true;
    }
  } else if (!(lon >= MapLonMin && lon <= MapLonMax)) {
    return true;
  }
  if (!(lat >= MapLatMin && lat <= MapLatMax))
    return true;
  const Point place = PictureAt(x, lat);
  PointInView = true;
  PointX = place.x;
  PointY = place.y;
  return true;
}

LonLat Viewport::Unproject(double x, double y) const {
  return {Single((x - MapOffX) / MapScale), Single((y - MapOffY) / MapScale)};
}

bool Viewport::IsOnMap(double x, double y) const {
  const LonLat at = Unproject(x, y);
  return MapLonMin <= at.lon && at.lon <= MapLonMax && MapLatMin <= at.lat && at.lat <= MapLatMax;
}

bool Viewport::ZoomIn(float percent) {
  const float lonSpan = Single(MapLonSpan / 100.0 * (100.0 - percent));
  const float latSpan = Single(MapLatSpan / 100.0 * (100.0 - percent));
  if (lonSpan < kSmallestLonSpan && latSpan < kSmallestLatSpan)
    return false;
  RequestAround(lonSpan, latSpan);
  return true;
}

bool Viewport::ZoomOut(float percent) {
  const float lonSpan = Single(MapLonSpan / 100.0 * (100.0 + percent));
  const float latSpan = Single(MapLatSpan / 100.0 * (100.0 + percent));
  const bool tooWide = lonSpan > kWidestLonSpan;
  const bool tooHigh = latSpan > kWidestLatSpan;
  if (tooWide && tooHigh)
    return false;
  if (tooWide || tooHigh)
    RequestAround(kWidestLonSpan, kWidestLatSpan);
  else
    RequestAround(lonSpan, latSpan);
  return true;
}

bool Viewport::ZoomReset() {
  RequestAround(kWidestLonSpan, kWidestLatSpan);
  return true;
}

void Viewport::RequestAround(float lonSpan, float latSpan) {
  const float centreLon = Single(MapLonMin + MapLonSpan / 2.0);
  const float centreLat = Single(MapLatMin + MapLatSpan / 2.0);
  float west = Single(centreLon - lonSpan / 2.0);
  float east = Single(centreLon + lonSpan / 2.0);
  if (west < 0.0F)
    west += 360.0F;
  west = UpTo360(west);
  east = UpTo360(east);
  Request(west, Single(centreLat - latSpan / 2.0), east, Single(centreLat + latSpan / 2.0), latSpan);
}

void Viewport::Request(float west, float top, float east, float bottom, float latSpan) {
  if (top < 0.0F) {
    top = 0.0F;
    bottom = latSpan;
  }
  if (bottom > kWidestLatSpan) {
    top = kWidestLatSpan - latSpan;
    bottom = kWidestLatSpan;
  }
  ReqLonMin = west;
  ReqLatMin = top;
  ReqLonMax = east;
  ReqLatMax = bottom;
}

bool Viewport::SelectRegion(const data::Region& region) {
  ReqLonMin = Single(region.fromLon);
  ReqLatMin = Single(region.fromLat);
  ReqLonMax = Single(region.toLon);
  ReqLatMax = Single(region.toLat);
  return ReqLonMin != ReqLonMax && ReqLatMin != ReqLatMax;
}

bool Viewport::CentreOn(double x, double y) {
  const LonLat at = Unproject(x, y);
  const float lon = UpTo360(Limit(at.lon, MapLonMin, MapLonMax));
  const float lat = Limit(at.lat, MapLatMin, MapLatMax);
  float west = Single(lon - MapLonSpan / 2.0);
  float east = Single(lon + MapLonSpan / 2.0);
  if (west < 0.0F)
    west += 360.0F;
  if (east > 360.0F)
    east -= 360.0F;
  Request(west, Single(lat - MapLatSpan / 2.0), east, Single(lat + MapLatSpan / 2.0), MapLatSpan);
  return true;
}

bool Viewport::ZoomToBox(double x1, double y1, double x2, double y2) {
  if (x1 == x2 || y1 == y2)
    return false;
  const LonLat low = Unproject(std::min(x1, x2), std::min(y1, y2));
  const LonLat high = Unproject(std::max(x1, x2), std::max(y1, y2));
  const float lonSpan = high.lon - low.lon;
  const float latSpan = high.lat - low.lat;
  if (!(lonSpan >= kSmallestLonSpan || latSpan >= kSmallestLatSpan))
    return false;
  ReqLonMin = UpTo360(low.lon);
  ReqLatMin = low.lat;
  ReqLonMax = UpTo360(high.lon);
  ReqLatMax = high.lat;
  return true;
}

std::string Viewport::ExtentText() const {
  return TwoDecimals(MapLatSpan) + "° Latitude / " + TwoDecimals(MapLonSpan) + "° Longitude";
}

LonLat ToGeographic(LonLat position) {
  return {UpTo360(position.lon) - 180.0F, 90.0F - position.lat};
}

}  // namespace zerbal::map
