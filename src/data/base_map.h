// The base map: coastlines, rivers and boundaries.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace zerbal::data {

/// Stored units per degree.
inline constexpr std::int32_t kStoredDegree = 1'000'000;
/// A row with this longitude ends a line; its latitude is ignored.
inline constexpr std::int32_t kEndOfLine = -kStoredDegree;

/// A point of a line as it is stored: map frame, in units of 1 / kStoredDegree degrees.
struct StoredPoint {
  std::int32_t lon = 0;
  std::int32_t lat = 0;
};

/// Degrees of a stored number.
inline float StoredDegrees(std::int32_t number) {
  return static_cast<float>(number / double{kStoredDegree});
}

/// The `count` numbers from `lowest` upwards; one comparison finds whether a number is among them.
struct StoredRange {
  std::uint32_t lowest = 0;
  std::uint32_t count = 0;
  bool Contains(std::int32_t number) const { return static_cast<std::uint32_t>(number) - lowest < count; }
};

/// The points that a reader needs.
struct StoredBounds {
  StoredRange lons;
  StoredRange lats;
  bool lonsExcluded = false;  ///< `lons` are the longitudes that are not needed
  bool Contain(StoredPoint point) const {
    return lats.Contains(point.lat) && lons.Contains(point.lon) != lonsExcluded;
  }
};

// The tables of polygons of land in the file of the coast: of the overview, and in full detail.
inline constexpr const char* kLandTable = "land";
inline constexpr const char* kFineLandTable = "landfine";

enum class LineKind { kCoast, kRiver, kBoundary };

struct BaseMapFiles;  // the open databases

/// Tables are opened for each visit. A table or file that does not exist has no lines.
class BaseMap {
 public:
  /// Is given neighbouring points of one line, two or more, all of them within the bounds.
  using Visitor = std::function<void(std::span<const StoredPoint>)>;

  /// Rivers and boundaries are optional. Throws jet::EngineError when a file cannot be
  /// opened.
  BaseMap(const std::filesystem::path& coast, const std::optional<std::filesystem::path>& river,
          const std::optional<std::filesystem::path>& boundary);

  // Both visit lines in stored order. A line that leaves the bounds and comes back is visited in parts.
  // jet::EngineError is thrown after the points before it have been visited.

  /// The coast of the whole world, in low detail.
  void VisitOverview(const StoredBounds& bounds, const Visitor& visit) const;
  /// The lines of one tile.
  void VisitTile(LineKind kind, std::string_view tile, const StoredBounds& bounds,
                 const Visitor& visit) const;

  /// Polygons of land are there, in the detail of the overview or of the tiles. The map window does not use
  /// them.
  bool HasLand(bool detailed) const;
  /// Visits them as whole rings, in which the last point is joined to the first. Land is inside an odd number
  /// of rings. No ring crosses the edge of the map frame.
  void VisitLand(bool detailed, const Visitor& visit) const;

 private:
  std::shared_ptr<const BaseMapFiles> files_;  ///< copies share the open databases
};

}  // namespace zerbal::data
