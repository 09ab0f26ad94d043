// Reads the public coast, river and boundary data (GSHHG, in its binned netCDF form).
//
// The data cut the world into square bins, row by row from the north, each row from Greenwich eastwards. A
// bin has segments: lines whose points are 16-bit offsets from its south-west corner, 65535 being
// the bin's full size. A line that leaves a bin ends exactly on the bin's edge and continues at the same
// place in the next bin.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "base/error.h"
#include "zerbal-pack/map_point.h"

namespace zerbal::pack {

/// A source file is missing, damaged or foreign; what() is a sentence for the user.
class MapSourceError : public base::Error {
 public:
  using base::Error::Error;
};

enum class MapDetail { kLow, kIntermediate, kHigh, kFull };
enum class MapTheme { kCoast, kRiver, kBoundary };

// Levels of shores.
inline constexpr int kLandShore = 1;  ///< continents and islands; Antarctica by its ice front
inline constexpr int kLakeShore = 2;
inline constexpr int kLakeIsland = 3;
inline constexpr int kIslandPond = 4;
inline constexpr int kGroundingLine = 6;  ///< Antarctica again, by its grounding line

// Levels of rivers; higher levels are intermittent rivers (5 to 7) and canals (8 to 10).
inline constexpr int kRiverBanks =
    0;  ///< banks of wide rivers, which are among the shores too; without islands
inline constexpr int kMajorRiver = 1;
inline constexpr int kMinorRiver = 4;

// Levels of boundaries; higher levels are those of states within a country (2) and at sea (3).
inline constexpr int kNationalBoundary = 1;

/// The properties of a piece.
struct MapFeature {
  int level = 0;
  int polygon = -1;        ///< the shore's number; -1 for rivers and boundaries
  double areaKm2 = 0;      ///< inside the whole shore; 0 for rivers and boundaries
  bool riverLake = false;  ///< the banks of a wide river, or a shore within such banks
};

struct SourcePiece {
  MapFeature feature;
  MapLine points;  ///< longitudes from 180 to 540 degrees: a piece never wraps
};

/// The folder in which the Debian packages install the data.
inline constexpr const char* kMapSourceFolder = "/usr/share/gmt-gshhg";

/// The file of a theme and detail in the source folder.
std::filesystem::path MapSourceFile(const std::filesystem::path& folder, MapTheme theme, MapDetail detail);

/// The pieces for which `wanted` returns true, in the order of the file.
/// Throws MapSourceError; where the file is missing it names the Debian package that has it.
std::vector<SourcePiece> ReadMapSource(const std::filesystem::path& folder, MapTheme theme, MapDetail detail,
                                       const std::function<bool(const MapFeature&)>& wanted);

}  // namespace zerbal::pack
