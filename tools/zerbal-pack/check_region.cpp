#include "zerbal-pack/check_region.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

namespace zerbal::pack {

namespace {

constexpr double kFrame = 360;
constexpr double kWidestSpan = 350;
constexpr double kDetailWidth = 20;
constexpr double kDetailHeight = 10;

bool ReachesAcross(const RegionBounds& region) {
  return region.east <= region.west;
}

/// The widest span around the region's middle that stays inside the frame.
double RoomInFrame(const RegionBounds& region) {
  const double middle = (region.west + region.east) / 2;
  return 2 * std::min(middle, kFrame - middle);
}

/// Rounds down to one decimal, so that the number is on the safe side.
double Floor1(double value) {
  return std::floor(value * 10) / 10;
}

}  // namespace

std::optional<double> RatioCutOff(const RegionBounds& region) {
  const double height = region.bottom - region.top;
  const bool inFrame = region.west >= 0 && region.east <= kFrame;
  if (!inFrame || ReachesAcross(region) || !(height > 0) || RoomInFrame(region) >= kWidestSpan)
    return std::nullopt;
  return RoomInFrame(region) / height;
}

bool HasDetailAcrossEdge(const RegionBounds& region) {
  return ReachesAcross(region) && region.east + kFrame - region.west <= kDetailWidth &&
         region.bottom - region.top <= kDetailHeight;
}

std::optional<std::string> CutOffNote(const RegionBounds& region) {
  if (HasDetailAcrossEdge(region))
    return fmt::format(
        "in detail the map has no lines east of 180 degrees; make the region more than {} degrees wide or {} "
        "degrees high",
        kDetailWidth, kDetailHeight);
  const std::optional<double> ratio = RatioCutOff(region);
  if (!ratio || *ratio >= kWidestMap)
    return std::nullopt;
  const bool west = region.west + region.east < kFrame;
  return fmt::format(
      "a map wider than {:.1f} times its height {}; set {}, so that the region reaches across 180 degrees, "
      "or "
      "make it at most {:.1f} degrees high",
      Floor1(*ratio), west ? "shows little of it" : "is empty east of 180 degrees",
      west ? "Reg_FromLon to 359" : "Reg_ToLon to 1", Floor1(RoomInFrame(region) / kWidestMap));
}

}  // namespace zerbal::pack
