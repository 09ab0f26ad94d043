#include "data/great_circle.h"

#include <algorithm>
#include <cmath>

#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/GeodesicLine.hpp>

namespace zerbal::data {
namespace {

bool IsOnGlobe(GeoPosition position) {
  return std::isfinite(position.lon) && std::fabs(position.lat) <= 90;
}

/// Parts of a way that are always looked at, so that a curve to both sides of a straight line is found.
constexpr int kParts = 8;
/// Of the earth's half this is 80 m.
constexpr int kDeepest = 15;

/// Adds positions of a way until it is straight enough between them.
class WayTracer {
 public:
  WayTracer(GeoPosition from, GeoPosition to, double tolerance, std::vector<GeoPosition>& line)
      : way_(GeographicLib::Geodesic::WGS84().InverseLine(from.lat, from.lon, to.lat, to.lon)),
        tolerance_(tolerance),
        line_(line) {}

  /// The share of the whole way from its start.
  GeoPosition At(double share) const {
    GeoPosition position;
    way_.ArcPosition(way_.Arc() * share, position.lat, position.lon);
    return position;
  }

  /// Adds what comes after `from`.
  void Trace(double fromShare, GeoPosition from, double toShare, GeoPosition to, int depth) {
    const double share = (fromShare + toShare) / 2;
    const GeoPosition middle = At(share);
    const double across = std::remainder(to.lon - from.lon, 360);
    const double lonAside = std::remainder(middle.lon - from.lon - across / 2, 360);
    const double latAside = middle.lat - (from.lat + to.lat) / 2;
    if (depth < kDeepest && std::max(std::fabs(lonAside), std::fabs(latAside)) > tolerance_) {
      Trace(fromShare, from, share, middle, depth + 1);
      Trace(share, middle, toShare, to, depth + 1);
      return;
    }
    if (std::fabs(across) > 90) {
      const double pole = std::copysign(90, to.lat);
      line_.push_back({from.lon, pole});
      line_.push_back({to.lon, pole});
    }
    line_.push_back(to);
  }

 private:
  GeographicLib::GeodesicLine way_;
  double tolerance_;
  std::vector<GeoPosition>& line_;
};

}  // namespace

std::optional<double> GreatCircleMetres(GeoPosition from, GeoPosition to) {
  if (!IsOnGlobe(from) || !IsOnGlobe(to))
    return std::nullopt;
  double metres = 0;
  GeographicLib::Geodesic::WGS84().Inverse(from.lat, from.lon, to.lat, to.lon, metres);
  return metres;
}

std::vector<GeoPosition> GreatCircleLine(GeoPosition from, GeoPosition to, double tolerance) {
  std::vector<GeoPosition> line{from};
  if (!IsOnGlobe(from) || !IsOnGlobe(to))
    return {from, to};
  WayTracer tracer(from, to, tolerance, line);
  GeoPosition before = from;
  for (int part = 1; part <= kParts; ++part) {
    const double share = static_cast<double>(part) / kParts;
    const GeoPosition next = part < kParts ? tracer.At(share) : to;
    tracer.Trace((part - 1.0) / kParts, before, share, next, 0);
    before = next;
  }
  return line;
}

}  // namespace zerbal::data
