#include "print/rectangle_projection.h"

#include <algorithm>
#include <cmath>

#include "print/curve.h"

namespace zerbal::print {
namespace {

/// Degrees; positions nearer to each other are the same.
constexpr double kSame = 1e-9;

bool IsSame(GeoPosition a, GeoPosition b) {
  return std::fabs(a.lon - b.lon) <= kSame && std::fabs(a.lat - b.lat) <= kSame;
}

/// Degrees as a plane with the north up.
PlaneBox BoxOf(const GeoBox& box) {
  return {box.west, -box.north, box.east, -box.south};
}

bool ClipToBox(const GeoBox& box, GeoPosition& from, GeoPosition& to) {
  PlanePoint start{from.lon, -from.lat};
  PlanePoint end{to.lon, -to.lat};
  if (!ClipToBox(BoxOf(box), start, end))
    return false;
  from = {start.x, -start.y};
  to = {end.x, -end.y};
  return true;
}

}  // namespace

double RectangleProjection::FromWest(double lon) const {
  const double turns = std::ceil((shown_.west - lon) / 360);
  return lon + 360 * turns;
}

std::optional<TwipPoint> RectangleProjection::Project(GeoPosition position) const {
  if (!IsFinite(position))
    return std::nullopt;
  position.lon = FromWest(position.lon);
  if (!(position.lon <= shown_.east && position.lat >= shown_.south && position.lat <= shown_.north))
    return std::nullopt;
  const PlanePoint place = Place(position);
  if (!frame_.Holds(place))
    return std::nullopt;
  return ToTwipPoint(place);
}

/// Calls `add` with the places after the first one.
template <typename Add>
void RectangleProjection::VisitCurve(GeoPosition from, GeoPosition to, const Add& add) const {
  if (IsStraight()) {
    add(Place(to));
    return;
  }
  const auto place = [this](GeoPosition position) { return Place(position); };
  VisitParts(from, to, [&](GeoPosition start, GeoPosition end) { Bend(place, start, end, add); });
}

void RectangleProjection::AddSegment(GeoPosition from, GeoPosition to, LineRunner& runner) const {
  GeoPosition start = from;
  GeoPosition end = to;
  if (!ClipToBox(shown_, start, end)) {
    runner.Break();
    return;
  }
  if (!IsSame(start, from))
    runner.Break();
  runner.To(Place(start));
  VisitCurve(start, end, [&](PlanePoint place) { runner.To(place); });
  if (!IsSame(end, to))
    runner.Break();
}

void RectangleProjection::ProjectLine(std::span<const GeoPosition> line, const LineSink& part) const {
  LineRunner runner(frame_, part);
  GeoPosition before;
  for (std::size_t i = 1; i < line.size(); ++i) {
    GeoPosition from = line[i - 1];
    GeoPosition to = line[i];
    // Between two positions at a pole there is nothing.
    if (!IsFinite(from) || !IsFinite(to) || (std::fabs(from.lat) == 90 && from.lat == to.lat)) {
      runner.Break();
      continue;
    }
    // Whole turns are added to what is given, so that positions keep their last bit.
    from.lon = FromWest(from.lon);
    to.lon += 360 * std::round((from.lon - to.lon) / 360);
    if (i > 1 && !IsSame(before, from))
      runner.Break();
    AddSegment(from, to, runner);
    // What leaves the box on one side of the seam continues on the other.
    const double turn = to.lon > shown_.west + 360 ? -360 : to.lon < shown_.west ? 360 : 0;
    before = {to.lon + turn, to.lat};
    if (turn != 0) {
      runner.Break();
      AddSegment({from.lon + turn, from.lat}, before, runner);
    }
  }
  runner.Break();
}

Ring RectangleProjection::PlacedRing(const GeoRing& ring) const {
  std::vector<PlanePoint> placed;
  for (std::size_t i = 0; i < ring.size(); ++i)
    VisitCurve(ring[i], ring[(i + 1) % ring.size()], [&](PlanePoint place) { placed.push_back(place); });
  return RingNear(frame_, std::move(placed));
}

std::vector<Ring> RectangleProjection::ProjectArea(std::span<const GeoRing> rings) const {
  std::vector<Ring> result;
  for (const GeoRing& ring : rings) {
    const auto [west, east] = std::minmax_element(ring.begin(), ring.end(),
                                                  [](GeoPosition a, GeoPosition b) { return a.lon < b.lon; });
    if (west == ring.end())
      continue;
    for (const double turn : {-360.0, 0.0, 360.0}) {
      if (west->lon + turn > shown_.east || east->lon + turn < shown_.west)
        continue;
      GeoRing part = ring;
      for (GeoPosition& position : part)
        position.lon += turn;
      CutRing(part, [this](GeoPosition at) { return at.lon - shown_.west; });
      CutRing(part, [this](GeoPosition at) { return shown_.east - at.lon; });
      CutRing(part, [this](GeoPosition at) { return at.lat - shown_.south; });
      CutRing(part, [this](GeoPosition at) { return shown_.north - at.lat; });
      Ring placed = PlacedRing(part);
      if (placed.size() > 2)
        result.push_back(std::move(placed));
    }
  }
  return result;
}

std::vector<Ring> RectangleProjection::Globe() const {
  return {PlacedRing({{shown_.west, shown_.north},
                      {shown_.east, shown_.north},
                      {shown_.east, shown_.south},
                      {shown_.west, shown_.south}})};
}

}  // namespace zerbal::print
