#include "print/orthographic.h"

#include <algorithm>
#include <cmath>

#include <proj.h>

#include "base/numbers.h"
#include "print/curve.h"

namespace zerbal::print {
namespace {

/// Halvings that find the horizon within a part.
constexpr int kHalvings = 40;
constexpr double kArcStep = M_PI / 180;

std::string Definition(GeoPosition centre) {
  return "+proj=ortho +R=6371007 +over +lat_0=" + base::DecimalText(centre.lat);
}

/// Whether a ray upwards from the point crosses the segment.
bool IsBelow(PlanePoint point, PlanePoint from, PlanePoint to) {
  if ((from.x > point.x) == (to.x > point.x))
    return false;
  return point.y > from.y + (to.y - from.y) * (point.x - from.x) / (to.x - from.x);
}

template <typename RingOf, typename ToPlane>
bool IsInsideOdd(PlanePoint point, std::span<const RingOf> rings, const ToPlane& toPlane) {
  bool inside = false;
  for (const RingOf& ring : rings) {
    for (std::size_t i = 0; i < ring.size(); ++i)
      inside ^= IsBelow(point, toPlane(ring[i]), toPlane(ring[(i + 1) % ring.size()]));
  }
  return inside;
}

}  // namespace

Orthographic::Orthographic(GeoPosition centre, const ProjView& view)
    : centre_(centre), frame_(view.frame), plane_(Definition(centre)) {
  std::vector<GeoPosition> positions = PositionsIn(view.fitted);
  std::erase_if(positions, [this](GeoPosition position) { return Height(position) < 0; });
  // All of the horizon counts when the view reaches beyond it.
  const bool whole =
      view.fitted.east - view.fitted.west >= 180 || view.fitted.north - view.fitted.south >= 180;
  for (GeoPosition& position : positions)
    position.lon -= centre_.lon;
  if (whole) {
    for (const GeoPosition direction : {GeoPosition{90, 0}, GeoPosition{-90, 0}})
      positions.push_back(direction);
    // Just this side of the horizon, in the north and in the south.
    constexpr double kQuarter = 90 - 1e-6;
    for (const double lat : {centre_.lat + kQuarter, centre_.lat - kQuarter})
      positions.push_back(std::fabs(lat) <= 90 ? GeoPosition{0, lat}
                                               : GeoPosition{180, std::copysign(180, lat) - lat});
  }
  plane_.Fit(positions, view.box);
  middle_ = plane_.Place({0, centre_.lat});
  const PlanePoint east = plane_.Place({90, 0});
  radius_ = std::hypot(east.x - middle_.x, east.y - middle_.y);
  visible_ = VisibleIn(*this, frame_, centre_.lon);
}

double Orthographic::Height(GeoPosition position) const {
  const double lat = proj_torad(position.lat);
  const double centreLat = proj_torad(centre_.lat);
  return std::sin(lat) * std::sin(centreLat) +
         std::cos(lat) * std::cos(centreLat) * std::cos(proj_torad(position.lon - centre_.lon));
}

PlanePoint Orthographic::Place(GeoPosition position) const {
  return plane_.Place({position.lon - centre_.lon, position.lat});
}

double Orthographic::TwipsPerDegree() const {
  return radius_ * M_PI / 180;
}

std::optional<TwipPoint> Orthographic::Project(GeoPosition position) const {
  if (!IsFinite(position) || Height(position) < 0)
    return std::nullopt;
  const PlanePoint place = Place(position);
  if (!frame_.Holds(place))
    return std::nullopt;
  return ToTwipPoint(place);
}

std::optional<GeoPosition> Orthographic::Unproject(TwipPoint twips) const {
  const PlanePoint place{static_cast<double>(twips.x), static_cast<double>(twips.y)};
  if (std::hypot(place.x - middle_.x, place.y - middle_.y) > radius_)
    return std::nullopt;
  std::optional<GeoPosition> position = plane_.Position(place);
  if (position)
    position->lon += centre_.lon;
  return position;
}

GeoPosition Orthographic::AtHorizon(GeoPosition from, GeoPosition to) const {
  GeoPosition visible = Height(from) >= 0 ? from : to;
  GeoPosition hidden = Height(from) >= 0 ? to : from;
  for (int i = 0; i < kHalvings; ++i) {
    const GeoPosition middle = Between(visible, hidden, 0.5);
    (Height(middle) >= 0 ? visible : hidden) = middle;
  }
  return visible;
}

/// Calls `enter` where the way comes over the horizon, `add` with visible places after that, and `leave`
/// where it goes below. `from` has been added when it is visible.
template <typename Enter, typename Add, typename Leave>
void Orthographic::VisitVisible(GeoPosition from, GeoPosition to, const Enter& enter, const Add& add,
                                const Leave& leave) const {
  const auto place = [this](GeoPosition position) { return Place(position); };
  VisitParts(from, to, [&](GeoPosition start, GeoPosition end) {
    const bool startVisible = Height(start) >= 0;
    const bool endVisible = Height(end) >= 0;
    if (!startVisible && !endVisible)
      return;
    if (startVisible && endVisible) {
      Bend(place, start, end, add);
      return;
    }
    const GeoPosition horizon = AtHorizon(start, end);
    if (endVisible)
      enter(Place(horizon));
    Bend(place, startVisible ? start : horizon, endVisible ? end : horizon, add);
    if (startVisible)
      leave(Place(horizon));
  });
}

void Orthographic::ProjectLine(std::span<const GeoPosition> line, const LineSink& part) const {
  LineRunner runner(frame_, part);
  const auto to = [&](PlanePoint place) { runner.To(place); };
  const auto leave = [&](PlanePoint) { runner.Break(); };
  for (std::size_t i = 1; i < line.size(); ++i) {
    const GeoPosition from = line[i - 1];
    GeoPosition end = line[i];
    if (!IsFinite(from) || !IsFinite(end)) {
      runner.Break();
      continue;
    }
    if (std::fabs(from.lat) == 90 && from.lat == end.lat)
      continue;
    end.lon = from.lon + std::remainder(end.lon - from.lon, 360);
    if ((i == 1 || !IsFinite(line[i - 2])) && Height(from) >= 0)
      to(Place(from));
    VisitVisible(from, end, to, to, leave);
  }
  runner.Break();
}

void Orthographic::AddArc(PlanePoint from, PlanePoint to, PlaneRing& ring) const {
  const double start = std::atan2(from.y - middle_.y, from.x - middle_.x);
  const double turn = std::remainder(std::atan2(to.y - middle_.y, to.x - middle_.x) - start, 2 * M_PI);
  const int steps = static_cast<int>(std::fabs(turn) / kArcStep);
  for (int step = 1; step <= steps; ++step) {
    const double angle = start + turn * step / (steps + 1);
    ring.push_back({middle_.x + radius_ * std::cos(angle), middle_.y + radius_ * std::sin(angle)});
  }
}

Orthographic::PlaneRing Orthographic::VisibleRing(const GeoRing& ring) const {
  PlaneRing placed;
  std::optional<PlanePoint> left;
  std::optional<PlanePoint> firstEntry;
  const auto add = [&](PlanePoint place) { placed.push_back(place); };
  const auto enter = [&](PlanePoint place) {
    if (left)
      AddArc(*left, place, placed);
    else
      firstEntry = place;
    placed.push_back(place);
  };
  for (std::size_t i = 0; i < ring.size(); ++i)
    VisitVisible(ring[i], ring[(i + 1) % ring.size()], enter, add, [&](PlanePoint place) { left = place; });
  // A ring that begins on this side left before it came back; one that begins beyond came first.
  if (left && firstEntry)
    AddArc(*left, *firstEntry, placed);
  return placed;
}

Orthographic::PlaneRing Orthographic::Disc() const {
  PlaneRing disc;
  for (double angle = 0; angle < 2 * M_PI; angle += kArcStep / 2)
    disc.push_back({middle_.x + radius_ * std::cos(angle), middle_.y + radius_ * std::sin(angle)});
  return disc;
}

/// Whether most of some places on this side are on the other side of the rings than on the globe: the way of
/// a ring along the horizon may be the wrong one of two, which exchanges inside and outside everywhere.
bool Orthographic::IsInverted(std::span<const GeoRing> rings, std::span<const PlaneRing> placed) const {
  int wrong = 0;
  constexpr double kDirections[] = {0, 1.3, 2.6, 3.9, 5.2};
  for (const double direction : kDirections) {
    const PlanePoint place{middle_.x + radius_ / 3 * std::cos(direction),
                           middle_.y + radius_ / 3 * std::sin(direction)};
    const std::optional<GeoPosition> position = plane_.Position(place);
    if (!position)
      continue;
    const PlanePoint onGlobe{std::remainder(position->lon + centre_.lon, 360), -position->lat};
    const bool wanted = IsInsideOdd(onGlobe, rings, [](GeoPosition at) {
      return PlanePoint{at.lon, -at.lat};
    });
    wrong += wanted != IsInsideOdd(place, placed, [](PlanePoint at) { return at; }) ? 1 : -1;
  }
  return wrong > 0;
}

std::vector<Ring> Orthographic::ProjectArea(std::span<const GeoRing> rings) const {
  std::vector<PlaneRing> placed;
  for (const GeoRing& ring : rings) {
    PlaneRing visible = VisibleRing(ring);
    if (visible.size() > 2)
      placed.push_back(std::move(visible));
  }
  if (IsInverted(rings, placed))
    placed.push_back(Disc());
  std::vector<Ring> result;
  for (PlaneRing& ring : placed) {
    Ring near = RingNear(frame_, std::move(ring));
    if (near.size() > 2)
      result.push_back(std::move(near));
  }
  return result;
}

std::vector<Ring> Orthographic::Globe() const {
  return {RingNear(frame_, Disc())};
}

}  // namespace zerbal::print
