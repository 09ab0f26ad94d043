#include "map/viewport.h"

#include <algorithm>

#include "base/numbers.h"
#include "map/position_text.h"

namespace zerbal::map {

namespace {

using base::Round;
using base::ToInt32;

/// Results that have a name are single precision.
float Single(double value) {
  return static_cast<float>(value);
}

/// Unlike std::clamp it allows bounds the wrong way round, which a faulty region may give.
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
  width_ = ToInt32(Round(width));
  height_ = ToInt32(Round(height));
}

void Viewport::ComputeViewport() {
  if (!HasArea())
    return;
  FitRequest();
  PlaceMap();
  ListDetailTiles();
}

void Viewport::FitRequest() {
  auto [west, top, east, bottom] = request_;
  wrap_ = east <= west;
  if (wrap_)
    east += 360.0F;
  lonSpan_ = east - west;
  latSpan_ = bottom - top;

  const float scaleX = Single(static_cast<double>(width_) / lonSpan_);
  const float scaleY = Single(static_cast<double>(height_) / latSpan_);
  if (scaleX < scaleY) {
    placement_.scale = scaleX;
    const float extra = Single((static_cast<double>(height_) / placement_.scale - latSpan_) / 2);
    top -= extra;
    bottom += extra;
    // Only the side that reaches beyond a pole is cut back.
    if (top < 0.0F)
      top = 0.0F;
    if (bottom > kWidestLatSpan)
      bottom = kWidestLatSpan;
    latSpan_ = bottom - top;
  } else if (scaleX == scaleY) {
    placement_.scale = scaleX;
  } else if (scaleX > scaleY) {
    placement_.scale = scaleY;
    float span = Single(static_cast<double>(width_) / placement_.scale);
    if (span > kWidestLonSpan)
      span = kWidestLonSpan;
    const float extra = Single((static_cast<double>(span) - lonSpan_) / 2);
    west -= extra;
    east += extra;
    if (west < 0.0F) {
      west += 360.0F;
      east += 360.0F;
    }
    lonSpan_ = east - west;
  }
  shown_ = {west, top, east, bottom};
}

void Viewport::PlaceMap() {
  const auto margin = [this](std::int32_t area, float span) {
    const double shown = static_cast<double>(placement_.scale) * span;
    return shown < area ? Single((area - shown) / 2) : 0.0F;
  };
  const auto offset = [this](float unused, float low) {
    return ToInt32(Round(unused - static_cast<double>(low) * placement_.scale));
  };
  placement_.offX = offset(margin(width_, lonSpan_), shown_.west);
  placement_.offY = offset(margin(height_, latSpan_), shown_.top);
}

void Viewport::ListDetailTiles() {
  detailTiles_.clear();
  if (!(lonSpan_ <= kDetailLonSpan && latSpan_ <= kDetailLatSpan))
    return;
  // Bands are twice as wide as the widest detail view, so at most two of each kind hold an edge.
  for (const data::GridBand& lon : bands_->lon)
    if (LiesEither(lon, shown_.west, shown_.east))
      for (const data::GridBand& lat : bands_->lat)
        if (LiesEither(lat, shown_.top, shown_.bottom))
          detailTiles_.push_back({lon.letter, lat.letter});
}

bool Viewport::IsOnMap(TwipPosition place) const {
  const MapPosition at = Unproject(place);
  return shown_.west <= at.lon && at.lon <= shown_.east && shown_.top <= at.lat && at.lat <= shown_.bottom;
}

bool Viewport::ZoomIn(float percent) {
  const float lonSpan = Single(lonSpan_ / 100.0 * (100.0 - percent));
  const float latSpan = Single(latSpan_ / 100.0 * (100.0 - percent));
  if (lonSpan < kSmallestLonSpan && latSpan < kSmallestLatSpan)
    return false;
  RequestAround(lonSpan, latSpan);
  return true;
}

bool Viewport::ZoomOut(float percent) {
  const float lonSpan = Single(lonSpan_ / 100.0 * (100.0 + percent));
  const float latSpan = Single(latSpan_ / 100.0 * (100.0 + percent));
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
  const float centreLon = Single(shown_.west + lonSpan_ / 2.0);
  const float centreLat = Single(shown_.top + latSpan_ / 2.0);
  float west = Single(centreLon - lonSpan / 2.0);
  float east = Single(centreLon + lonSpan / 2.0);
  if (west < 0.0F)
    west += 360.0F;
  west = UpTo360(west);
  east = UpTo360(east);
  Request({west, Single(centreLat - latSpan / 2.0), east, Single(centreLat + latSpan / 2.0)}, latSpan);
}

void Viewport::Request(Bounds bounds, float latSpan) {
  if (bounds.top < 0.0F) {
    bounds.top = 0.0F;
    bounds.bottom = latSpan;
  }
  if (bounds.bottom > kWidestLatSpan) {
    bounds.top = kWidestLatSpan - latSpan;
    bounds.bottom = kWidestLatSpan;
  }
  request_ = bounds;
}

bool Viewport::SelectRegion(const data::Region& region) {
  request_ = {Single(region.fromLon), Single(region.fromLat), Single(region.toLon), Single(region.toLat)};
  return request_.west != request_.east && request_.top != request_.bottom;
}

bool Viewport::CentreOn(TwipPosition place) {
  const MapPosition at = Unproject(place);
  const float lon = UpTo360(Limit(at.lon, shown_.west, shown_.east));
  const float lat = Limit(at.lat, shown_.top, shown_.bottom);
  float west = Single(lon - lonSpan_ / 2.0);
  float east = Single(lon + lonSpan_ / 2.0);
  if (west < 0.0F)
    west += 360.0F;
  if (east > 360.0F)
    east -= 360.0F;
  Request({west, Single(lat - latSpan_ / 2.0), east, Single(lat + latSpan_ / 2.0)}, latSpan_);
  return true;
}

bool Viewport::ZoomToBox(TwipPosition corner1, TwipPosition corner2) {
  if (corner1.x == corner2.x || corner1.y == corner2.y)
    return false;
  const MapPosition low = Unproject({std::min(corner1.x, corner2.x), std::min(corner1.y, corner2.y)});
  const MapPosition high = Unproject({std::max(corner1.x, corner2.x), std::max(corner1.y, corner2.y)});
  const float lonSpan = high.lon - low.lon;
  const float latSpan = high.lat - low.lat;
  if (!(lonSpan >= kSmallestLonSpan || latSpan >= kSmallestLatSpan))
    return false;
  request_ = {UpTo360(low.lon), low.lat, UpTo360(high.lon), high.lat};
  return true;
}

std::string Viewport::ExtentText() const {
  return TwoDecimals(latSpan_) + "° Latitude / " + TwoDecimals(lonSpan_) + "° Longitude";
}

}  // namespace zerbal::map
