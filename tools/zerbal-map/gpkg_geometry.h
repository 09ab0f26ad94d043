// Geometries as GeoPackage stores them: a header with the bounds, then well-known binary.
#pragma once

#include <span>
#include <string>

#include "zerbal-map/route_line.h"

namespace zerbal::mapcommand {

/// The spatial reference system of all geometries: WGS 84, longitude and latitude.
inline constexpr int kGpkgWgs84 = 4326;

/// The smallest box around positions, degrees.
struct GeoBox {
  double west = 0;
  double south = 0;
  double east = 0;
  double north = 0;

  static GeoBox Around(GeoPosition position) {
    return {position.lon, position.lat, position.lon, position.lat};
  }
  void Include(GeoPosition position);
};

/// There must be a line.
GeoBox BoxOf(std::span<const RouteLine> lines);

std::string GpkgPoint(GeoPosition position);
/// There must be a line.
std::string GpkgMultiLine(std::span<const RouteLine> lines);

}  // namespace zerbal::mapcommand
