#include "map/viewport.h"

#include <algorithm>
#include <cmath>

#include "base/numbers.h"
#include "map/position_text.h"

namespace zerbal::map {

namespace {

using base::Round;
using base::ToInt32;

/// A degree from which the longitudes of the widest view can be rounded to less than 0. Not visible there.
constexpr double kNearZero = 1e-3;

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

std::optional<Viewport::Spans> Viewport::Narrower(float percent) const {
  const Spans spans{Single(lonSpan_ / 100.0 * (100.0 - percent)),
                    Single(latSpan_ / 100.0 * (100.0 - percent))};
  if (spans.lon < kSmallestLonSpan && spans.lat < kSmallestLatSpan)
    return std::nullopt;
  return spans;
}

std::optional<Viewport::Spans> Viewport::Wider(float percent) const {
  const Spans spans{Single(lonSpan_ / 100.0 * (100.0 + percent)),
                    Single(latSpan_ / 100.0 * (100.0 + percent))};
  const bool tooWide = spans.lon > kWidestLonSpan;
  const bool tooHigh = spans.lat > kWidestLatSpan;
  if (tooWide && tooHigh)
    return std::nullopt;
  return tooWide || tooHigh ? Spans{kWidestLonSpan, kWidestLatSpan} : spans;
}

bool Viewport::ZoomIn(float percent) {
  return RequestAround(Narrower(percent));
}

bool Viewport::ZoomOut(float percent) {
  return RequestAround(Wider(percent));
}

bool Viewport::ZoomReset() {
  return RequestAround(Spans{kWidestLonSpan, kWidestLatSpan});
}

bool Viewport::RequestAround(std::optional<Spans> spans) {
  if (!spans)
    return false;
  const auto [lonSpan, latSpan] = *spans;
  const float centreLon = Single(shown_.west + lonSpan_ / 2.0);
  const float centreLat = Single(shown_.top + latSpan_ / 2.0);
  float west = Single(centreLon - lonSpan / 2.0);
  float east = Single(centreLon + lonSpan / 2.0);
  if (west < 0.0F)
    west += 360.0F;
  west = UpTo360(west);
  east = UpTo360(east);
  Request({west, Single(centreLat - latSpan / 2.0), east, Single(centreLat + latSpan / 2.0)}, latSpan);
  return true;
}

bool Viewport::ZoomInAt(TwipPosition place, float percent) {
  const std::optional<Spans> spans = Narrower(percent);
  if (spans)
    RequestAt(place, Unproject(place), *spans);
  return spans.has_value();
}

bool Viewport::ZoomOutAt(TwipPosition place, float percent) {
  const std::optional<Spans> spans = Wider(percent);
  if (spans)
    RequestAt(place, Unproject(place), *spans);
  return spans.has_value();
}

bool Viewport::Move(float lonPart, float latPart) {
  const float beyond = latPart < 0 ? shown_.top : kWidestLatSpan - shown_.bottom;
  const bool atPole = beyond * placement_.scale < 1;  // twips
  if (lonPart == 0.0F && (latPart == 0.0F || atPole))
    return false;
  const TwipPosition middle{Single(width_ / 2.0), Single(height_ / 2.0)};
  const MapPosition centre = Unproject(middle);
  RequestAt(middle, {centre.lon + lonPart * lonSpan_, centre.lat + latPart * latSpan_}, {lonSpan_, latSpan_});
  return true;
}

void Viewport::RequestAt(TwipPosition place, MapPosition position, Spans spans) {
  const double scale = std::min(width_ / double{spans.lon}, height_ / double{spans.lat});
  const double lonSpan = std::min(width_ / scale, double{kWidestLonSpan});
  const double latSpan = std::min(height_ / scale, double{kWidestLatSpan});
  // The margins beside the map are equal. The position at a place in a margin becomes the map's edge.
  const double toWest = std::clamp((place.x - (width_ - lonSpan * scale) / 2) / scale, 0.0, lonSpan);
  const double toTop = std::clamp((place.y - (height_ - latSpan * scale) / 2) / scale, 0.0, latSpan);
  double west = std::fmod(position.lon - toWest + 720, 360);
  const double top = std::clamp(position.lat - toTop, 0.0, kWidestLatSpan - latSpan);
  double reduced = 0;
  if (lonSpan < kWidestLonSpan)
    // Lets rounding widen the latitudes alone: widened longitudes west of 0 would not run through 360.
    reduced = latSpan / 2000;
  else if (west < kNearZero)
    west = 360;
  request_ = {Single(west), Single(top + reduced), UpTo360(Single(west + lonSpan)),
              Single(top + latSpan - reduced)};
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
