#include "map/leg.h"

#include <cmath>

#include "base/numbers.h"

namespace zerbal::map {

namespace {

/// The value at `at` of the straight line from (`begin`, `from`) to (`end`, `to`).
float Interpolate(float at, float begin, float end, float from, float to) {
  const double part = (static_cast<double>(at) - begin) / (static_cast<double>(end) - begin);
  return static_cast<float>(from + (static_cast<double>(to) - from) * part);
}

/// Moves an end onto one of the bounds that it lies beyond, latitudes first.
void MoveOntoBound(const Viewport& view, unsigned code, MapPosition& end, const MapPosition& other) {
  if ((code & (kBeyondUpperLat | kBeyondLowerLat)) != 0) {
    const float bound = (code & kBeyondUpperLat) != 0 ? view.MapLatMax() : view.MapLatMin();
    end = {Interpolate(bound, end.lat, other.lat, end.lon, other.lon), bound};
  } else {
    const float bound = (code & kEastOfView) != 0 ? view.MapLonMax() : view.MapLonMin();
    end = {bound, Interpolate(bound, end.lon, other.lon, end.lat, other.lat)};
  }
}

bool IsFinite(const MapPosition& position) {
  return std::isfinite(position.lon) && std::isfinite(position.lat);
}

}  // namespace

unsigned GetClipCode(const Viewport& viewport, MapPosition position) {
  unsigned code = 0;
  if (position.lat > viewport.MapLatMax())
    code |= kBeyondUpperLat;
  if (position.lat < viewport.MapLatMin())
    code |= kBeyondLowerLat;
  if (position.lon < viewport.MapLonMin())
    code |= kWestOfView;
  if (position.lon > viewport.MapLonMax())
    code |= kEastOfView;
  return code;
}

bool ClipLeg(const Viewport& viewport, MapPosition& from, MapPosition& to) {
  if (!IsFinite(from) || !IsFinite(to))
    return false;
  // Each move settles one bound of one end, so four are enough. A region whose bounds are the wrong way round
  // would never end.
  for (int move = 0; move <= 4; ++move) {
    const unsigned fromCode = GetClipCode(viewport, from);
    const unsigned toCode = GetClipCode(viewport, to);
    if ((fromCode | toCode) == 0)
      return true;
    if ((fromCode & toCode) != 0)
      return false;
    if (fromCode != 0)
      MoveOntoBound(viewport, fromCode, from, to);
    else
      MoveOntoBound(viewport, toCode, to, from);
  }
  return false;
}

namespace {

using base::Int;
using base::ToInt32;

struct Sizes {
  double nose;  ///< anchor to nose tip
  double wing;  ///< anchor to wing centre
  double halfWing;
  double halfTail;
};
constexpr Sizes kDetailSizes{160, 110, 100, 50};
constexpr Sizes kOverviewSizes{120, 82, 75, 37};

const Sizes& SizesOf(bool detailMode) {
  return detailMode ? kDetailSizes : kOverviewSizes;
}

/// -1, 0 or 1.
int Sign(double value) {
  return (value > 0) - (value < 0);
}

/// The direction of a leg. Cosine and sine of its acute angle with the x axis are ratios of its sides, so
/// that legs along an axis or with whole-numbered sides and length give exact results.
class Direction {
 public:
  Direction(TwipPoint from, TwipPoint to)
      : from_(from),
        dx_(static_cast<double>(to.x) - from.x),
        dy_(static_cast<double>(to.y) - from.y),
        length_(std::sqrt(dx_ * dx_ + dy_ * dy_)) {}

  int SignX() const { return Sign(dx_); }
  int SignY() const { return Sign(dy_); }

  /// A quarter of the leg from its start, rounded down after the addition.
  TwipPoint Anchor() const { return {ToInt32(Int(from_.x + dx_ / 4)), ToInt32(Int(from_.y + dy_ / 4))}; }

  /// `distance` further along the leg; the magnitude added or subtracted is rounded down.
  TwipPoint Along(TwipPoint point, double distance) const {
    return {point.x + SignX() * ToInt32(Int(TimesCos(distance))),
            point.y + SignY() * ToInt32(Int(TimesSin(distance)))};
  }

  /// `distance` to the left of the leg, to the right when negative; rounded down after the addition.
  TwipPoint Aside(TwipPoint point, double distance) const {
    return {ToInt32(Int(point.x + SignY() * TimesSin(distance))),
            ToInt32(Int(point.y - SignX() * TimesCos(distance)))};
  }

 private:
  double TimesCos(double distance) const { return distance * std::fabs(dx_) / length_; }
  double TimesSin(double distance) const { return distance * std::fabs(dy_) / length_; }

  TwipPoint from_;
  double dx_;
  double dy_;
  double length_;
};

/// Offset of the label's top left corner from the point two nose lengths after the anchor.
TwipPoint LabelOffset(int signX, int signY) {
  if (signX == 0)
    return {40, 0};
  if (signY == 0)
    return {0, 40};
  if (signX > 0)
    return signY < 0 ? TwipPoint{40, 40} : TwipPoint{40, -240};
  return signY < 0 ? TwipPoint{40, -200} : TwipPoint{40, 20};
}

}  // namespace

LegSymbol ComputeLegSymbol(TwipPoint from, TwipPoint to, bool detailMode) {
  const Sizes& sizes = SizesOf(detailMode);
  const Direction direction(from, to);
  const TwipPoint anchor = direction.Anchor();
  const TwipPoint wing = direction.Along(anchor, sizes.wing);
  return {.anchor = anchor,
          .nose = direction.Along(anchor, sizes.nose),
          .wingFrom = direction.Aside(wing, sizes.halfWing),
          .wingTo = direction.Aside(wing, -sizes.halfWing),
          .tailFrom = direction.Aside(anchor, sizes.halfTail),
          .tailTo = direction.Aside(anchor, -sizes.halfTail)};
}

TwipPoint LegLabelPosition(TwipPoint from, TwipPoint to, bool detailMode) {
  if (from == to)
    return {from.x + 50, from.y - 240};
  const Direction direction(from, to);
  const TwipPoint reference = direction.Along(direction.Anchor(), 2 * SizesOf(detailMode).nose);
  const TwipPoint offset = LabelOffset(direction.SignX(), direction.SignY());
  return {reference.x + offset.x, reference.y + offset.y};
}

void MakeLegLabel(std::string& label, std::string_view number, bool withLeg, std::size_t leg,
                  std::size_t legs) {
  label = number;
  if (withLeg)
    label.append(" (").append(std::to_string(leg)).append("/").append(std::to_string(legs)).append(")");
}

void DrawLegSymbol(Canvas& canvas, TwipPoint from, TwipPoint to, std::string_view label,
                   const LegSymbolOptions& options) {
  const bool detailMode = canvas.viewport.DetailMode();
  if (options.symbol && from != to) {
    constexpr int kFuselageWidth = 3;
    constexpr int kWingWidth = 2;
    const LegSymbol symbol = ComputeLegSymbol(from, to, detailMode);
    const Pen across{.colour = options.symbolColour, .width = kWingWidth};
    canvas.surface.Line(symbol.anchor, symbol.nose,
                        {.colour = options.symbolColour, .width = kFuselageWidth});
    canvas.surface.Line(symbol.wingFrom, symbol.wingTo, across);
    canvas.surface.Line(symbol.tailFrom, symbol.tailTo, across);
  }
  if (options.label)
    canvas.surface.Text(LegLabelPosition(from, to, detailMode), label, options.labelColour, canvas.font);
}

}  // namespace zerbal::map
