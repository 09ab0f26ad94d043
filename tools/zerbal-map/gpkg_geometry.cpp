#include "zerbal-map/gpkg_geometry.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace zerbal::mapcommand {
namespace {

// Types of well-known binary.
constexpr std::uint32_t kPoint = 1;
constexpr std::uint32_t kLineString = 2;
constexpr std::uint32_t kMultiLineString = 5;

// Flags of the header.
constexpr char kLittleEndian = 0x01;
constexpr char kBox = 0x02;

template <typename Number>
void AppendLittleEndian(std::string& bytes, Number value) {
  for (std::size_t i = 0; i < sizeof value; ++i)
    bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

void AppendDouble(std::string& bytes, double value) {
  AppendLittleEndian(bytes, std::bit_cast<std::uint64_t>(value));
}

void AppendHeader(std::string& bytes, char flags) {
  bytes.append({'G', 'P', 0, flags});
  AppendLittleEndian(bytes, std::uint32_t{kGpkgWgs84});
}

void AppendType(std::string& bytes, std::uint32_t type) {
  bytes += kLittleEndian;
  AppendLittleEndian(bytes, type);
}

void AppendPosition(std::string& bytes, GeoPosition position) {
  AppendDouble(bytes, position.lon);
  AppendDouble(bytes, position.lat);
}

}  // namespace

void GeoBox::Include(GeoPosition position) {
  west = std::min(west, position.lon);
  south = std::min(south, position.lat);
  east = std::max(east, position.lon);
  north = std::max(north, position.lat);
}

GeoBox BoxOf(std::span<const RouteLine> lines) {
  GeoBox box = GeoBox::Around(lines.front().front());
  for (const RouteLine& line : lines) {
    for (const GeoPosition position : line)
      box.Include(position);
  }
  return box;
}

std::string GpkgPoint(GeoPosition position) {
  std::string bytes;
  AppendHeader(bytes, kLittleEndian);
  AppendType(bytes, kPoint);
  AppendPosition(bytes, position);
  return bytes;
}

std::string GpkgMultiLine(std::span<const RouteLine> lines) {
  std::string bytes;
  AppendHeader(bytes, kLittleEndian | kBox);
  const GeoBox box = BoxOf(lines);
  for (const double bound : {box.west, box.east, box.south, box.north})
    AppendDouble(bytes, bound);
  AppendType(bytes, kMultiLineString);
  AppendLittleEndian(bytes, static_cast<std::uint32_t>(lines.size()));
  for (const RouteLine& line : lines) {
    AppendType(bytes, kLineString);
    AppendLittleEndian(bytes, static_cast<std::uint32_t>(line.size()));
    for (const GeoPosition position : line)
      AppendPosition(bytes, position);
  }
  return bytes;
}

}  // namespace zerbal::mapcommand
