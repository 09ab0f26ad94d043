#include "data/great_circle.h"

#include <cmath>

#include <GeographicLib/Geodesic.hpp>

namespace zerbal::data {
namespace {

bool IsOnGlobe(GeoPosition position) {
  return std::isfinite(position.lon) && std::fabs(position.lat) <= 90;
}

}  // namespace

std::optional<double> GreatCircleMetres(GeoPosition from, GeoPosition to) {
  if (!IsOnGlobe(from) || !IsOnGlobe(to))
    return std::nullopt;
  double metres = 0;
  GeographicLib::Geodesic::WGS84().Inverse(from.lat, from.lon, to.lat, to.lon, metres);
  return metres;
}

}  // namespace zerbal::data
