#include "zerbal-map/route_line.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace zerbal::mapcommand {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

bool Crosses(GeoPosition from, GeoPosition to) {
  return std::fabs(to.lon - from.lon) > 180;
}

double StraightLat(GeoPosition from, GeoPosition to, double edge) {
  const double toLon = to.lon + 2 * edge;
  return from.lat + (to.lat - from.lat) * (edge - from.lon) / (toLon - from.lon);
}

double GreatCircleLat(GeoPosition from, GeoPosition to, double edge) {
  const double tangents = std::tan(from.lat * kDegree) * std::sin((to.lon - edge) * kDegree) +
                          std::tan(to.lat * kDegree) * std::sin((edge - from.lon) * kDegree);
  return std::atan(tangents / std::sin((to.lon - from.lon) * kDegree)) / kDegree;
}

class Cutter {
 public:
  explicit Cutter(CutAt cutAt) : cutAt_(cutAt) {}

  void Add(GeoPosition position) {
    if (line_.empty() || line_.back().lon != position.lon || line_.back().lat != position.lat)
      line_.push_back(position);
  }

  void AddLeg(GeoPosition from, GeoPosition to) {
    if (Crosses(from, to)) {
      const double edge = from.lon > to.lon ? 180 : -180;
      const double lat = LatAt(from, to, edge);
      Add({edge, lat});
      EndLine();
      Add({-edge, lat});
    }
    Add(to);
  }

  std::vector<RouteLine> Lines() && {
    if (lines_.empty() && line_.size() == 1)
      line_.push_back(line_.front());
    EndLine();
    return std::move(lines_);
  }

 private:
  double LatAt(GeoPosition from, GeoPosition to, double edge) const {
    if (from.lon == edge)
      return from.lat;
    if (to.lon == -edge)
      return to.lat;
    return cutAt_ == CutAt::kStraightLine ? StraightLat(from, to, edge) : GreatCircleLat(from, to, edge);
  }

  void EndLine() {
    if (line_.size() > 1)
      lines_.push_back(std::move(line_));
    line_.clear();
  }

  CutAt cutAt_;
  RouteLine line_;
  std::vector<RouteLine> lines_;
};

}  // namespace

std::vector<RouteLine> CutAtAntimeridian(std::span<const GeoPosition> points, CutAt cutAt) {
  Cutter cutter(cutAt);
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i == 0)
      cutter.Add(points[i]);
    else
      cutter.AddLeg(points[i - 1], points[i]);
  }
  return std::move(cutter).Lines();
}

}  // namespace zerbal::mapcommand
