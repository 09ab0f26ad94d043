#include "zerbal-pack/map_source.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>

#include <fmt/format.h>

#include "zerbal-pack/map_netcdf.h"

namespace zerbal::pack {

namespace {

constexpr std::int64_t kBinUnits = 65535;  // the size of a bin in units of offsets

struct Bins {
  std::int64_t minutes = 0;  // width and height of a bin
  std::int64_t columns = 0;
  std::int64_t rows = 0;
  std::vector<std::int32_t> firstSegment;
  std::vector<std::int32_t> segmentCount;
};

struct Segments {
  std::vector<MapFeature> features;
  std::vector<std::int32_t> pointCount;
  std::vector<std::int32_t> firstPoint;
};

struct Points {
  std::vector<std::uint16_t> east;  // offsets from the bin's south-west corner
  std::vector<std::uint16_t> north;
};

const char* PackageOf(MapDetail detail) {
  switch (detail) {
    case MapDetail::kFull:
      return "gmt-gshhg-full";
    case MapDetail::kHigh:
      return "gmt-gshhg-high";
    case MapDetail::kLow:
    case MapDetail::kIntermediate:
      break;
  }
  return "gmt-gshhg-low";
}

std::size_t Size(std::int64_t count) {
  return static_cast<std::size_t>(count);
}

Bins ReadBins(const NetcdfFile& file) {
  Bins bins;
  bins.minutes = file.Int("Bin_size_in_minutes");
  bins.columns = file.Int("N_bins_in_360_longitude_range");
  bins.rows = file.Int("N_bins_in_180_degree_latitude_range");
  constexpr std::int64_t kPoleToPole = 10'800;  // minutes
  if (bins.minutes < 1 || bins.columns * bins.minutes != 2 * kPoleToPole ||
      bins.rows * bins.minutes != kPoleToPole)
    file.Fail("its bins do not cover the world");
  bins.firstSegment = file.Ints("Id_of_first_segment_in_a_bin", Size(bins.columns * bins.rows));
  bins.segmentCount = file.Ints("N_segments_in_a_bin", Size(bins.columns * bins.rows));
  return bins;
}

// Polygons that are the banks of a wide river, marked by a negative area, or lie within such banks. A
// polygon's parent is the one around it, or -1; there are at most three around one.
std::vector<bool> FindRiverPolygons(const std::vector<double>& areas,
                                    const std::vector<std::int32_t>& parents) {
  constexpr int kDeepest = 3;
  std::vector<bool> inRiver(areas.size(), false);
  for (std::size_t i = 0; i < areas.size(); ++i) {
    std::size_t polygon = i;
    for (int depth = 0; depth <= kDeepest && polygon < areas.size() && !inRiver[i]; ++depth) {
      inRiver[i] = areas[polygon] < 0;
      polygon = Size(parents[polygon]);
    }
  }
  return inRiver;
}

// A shore's segment packs its number of points, its level, and the bin's sides where it ends into one number.
Segments ReadShoreSegments(const NetcdfFile& file) {
  const std::size_t polygonCount = file.Length("The_km_squared_area_of_polygons");
  const std::vector<double> areas = file.Doubles("The_km_squared_area_of_polygons", polygonCount);
  const std::vector<std::int32_t> parents = file.Ints("Id_of_parent_polygons", polygonCount);
  const std::size_t count = file.Length("Embedded_npts_levels_exit_entry_for_a_segment");
  const std::vector<std::int32_t> packed = file.Ints("Embedded_npts_levels_exit_entry_for_a_segment", count);
  const std::vector<std::int32_t> polygons = file.Ints("Id_of_GSHHS_ID", count);

  const std::vector<bool> inRiver = FindRiverPolygons(areas, parents);
  Segments segments;
  segments.features.reserve(count);
  segments.pointCount.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const auto bits = static_cast<std::uint32_t>(packed[i]);
    const std::int32_t polygon = polygons[i];
    if (polygon < 0 || Size(polygon) >= polygonCount)
      file.Fail(fmt::format("segment {} belongs to no polygon", i));
    segments.features.push_back(
        {static_cast<int>((bits >> 6) & 7), polygon, std::abs(areas[Size(polygon)]), inRiver[Size(polygon)]});
    segments.pointCount.push_back(static_cast<std::int32_t>(bits >> 9));
  }
  segments.firstPoint = file.Ints("Id_of_first_point_in_a_segment", count);
  return segments;
}

Segments ReadLineSegments(const NetcdfFile& file) {
  const std::size_t count = file.Length("N_points_for_a_segment");
  Segments segments;
  for (const std::int32_t level : file.Ints("Hierarchial_level_of_a_segment", count))
    segments.features.push_back({level, -1, 0, false});
  for (const std::uint16_t points : file.Offsets("N_points_for_a_segment", count))
    segments.pointCount.push_back(points);
  segments.firstPoint = file.Ints("Id_of_first_point_in_a_segment", count);
  return segments;
}

Points ReadPoints(const NetcdfFile& file) {
  Points points;
  const std::size_t count = file.Length("Relative_longitude_from_SW_corner_of_bin");
  points.east = file.Offsets("Relative_longitude_from_SW_corner_of_bin", count);
  points.north = file.Offsets("Relative_latitude_from_SW_corner_of_bin", count);
  return points;
}

void CheckRanges(const NetcdfFile& file, const Bins& bins, const Segments& segments, const Points& points) {
  for (std::size_t i = 0; i < bins.firstSegment.size(); ++i) {
    const std::int64_t first = bins.firstSegment[i];
    const std::int64_t count = bins.segmentCount[i];
    if (count < 0 || (count > 0 && (first < 0 || Size(first + count) > segments.features.size())))
      file.Fail(fmt::format("bin {} names segments that are not there", i));
  }
  for (std::size_t i = 0; i < segments.features.size(); ++i) {
    const std::int64_t first = segments.firstPoint[i];
    const std::int64_t count = segments.pointCount[i];
    if (first < 0 || Size(first + count) > points.east.size())
      file.Fail(fmt::format("segment {} names points that are not there", i));
  }
}

// Computed from the corner of the whole world, not of the bin, so that a point on the edge between two bins
// is the same in both.
std::int32_t Millionths(std::int64_t units, const Bins& bins) {
  return static_cast<std::int32_t>(DivideRounded(units * bins.minutes * kDegree, 60 * kBinUnits));
}

MapLine PointsOf(std::int64_t bin, std::int64_t first, std::int64_t count, const Bins& bins,
                 const Points& points) {
  const std::int64_t west = bin % bins.columns * kBinUnits;
  const std::int64_t south = (bin / bins.columns + 1) * kBinUnits;
  MapLine line;
  line.reserve(Size(count));
  for (std::size_t i = Size(first); i < Size(first + count); ++i) {
    line.push_back({kFrameWidth / 2 + Millionths(west + points.east[i], bins),
                    Millionths(south - points.north[i], bins)});
  }
  return line;
}

}  // namespace

std::filesystem::path MapSourceFile(const std::filesystem::path& folder, MapTheme theme, MapDetail detail) {
  constexpr const char* kThemes[] = {"GSHHS", "river", "border"};
  constexpr const char* kDetails[] = {"l", "i", "h", "f"};
  return folder / fmt::format("binned_{}_{}.nc", kThemes[static_cast<std::size_t>(theme)],
                              kDetails[static_cast<std::size_t>(detail)]);
}

std::vector<SourcePiece> ReadMapSource(const std::filesystem::path& folder, MapTheme theme, MapDetail detail,
                                       const std::function<bool(const MapFeature&)>& wanted) {
  const std::filesystem::path path = MapSourceFile(folder, theme, detail);
  if (!std::filesystem::exists(path)) {
    throw MapSourceError(fmt::format("The map source {} is missing. Install the Debian package {}.",
                                     path.string(), PackageOf(detail)));
  }
  const NetcdfFile file(path);
  const Bins bins = ReadBins(file);
  const Segments segments = theme == MapTheme::kCoast ? ReadShoreSegments(file) : ReadLineSegments(file);
  const Points points = ReadPoints(file);
  CheckRanges(file, bins, segments, points);

  std::vector<SourcePiece> pieces;
  for (std::int64_t bin = 0; bin < bins.columns * bins.rows; ++bin) {
    const std::size_t first = Size(bins.firstSegment[Size(bin)]);
    for (std::size_t i = first; i < first + Size(bins.segmentCount[Size(bin)]); ++i) {
      if (wanted(segments.features[i])) {
        pieces.push_back({segments.features[i],
                          PointsOf(bin, segments.firstPoint[i], segments.pointCount[i], bins, points)});
      }
    }
  }
  return pieces;
}

}  // namespace zerbal::pack
