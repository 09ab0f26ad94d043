// What a map of a region shows of the world at its place.
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>

#include "data/grid.h"
#include "map/viewport.h"
#include "zerbal-pack/check_region.h"

namespace zerbal::pack::test {

/// The view of the region on a map of this ratio of width to height.
inline map::Viewport ViewOf(const RegionBounds& region, double ratio) {
  constexpr double kHeight = 10'000;  // twips
  map::Viewport view(data::kGridBands);
  view.SetSize(kHeight * ratio, kHeight);
  view.SelectRegion({"", "", region.west, region.top, region.east, region.bottom});
  view.ComputeViewport();
  return view;
}

/// Whether the tile at this longitude of the frame is among those that a detailed map draws.
inline bool DrawsTileAt(const map::Viewport& view, float lon) {
  const char letter = static_cast<char>('A' + 2 * std::min(static_cast<int>(lon / 40), 8));
  return std::any_of(view.DetailTiles().begin(), view.DetailTiles().end(),
                     [&](const std::string& tile) { return tile.front() == letter; });
}

/// A longitude inside the view at which nothing is drawn, or not at its place; nothing when there is none.
inline std::optional<double> LongitudeNotDrawn(const map::Viewport& view) {
  constexpr int kSteps = 400;
  const float lat = (view.MapLatMin() + view.MapLatMax()) / 2;
  constexpr double kNearEnd = 0.0005;  // of the span: not on the bounds, which are rounded
  for (int i = 0; i <= kSteps; ++i) {
    const double part = std::clamp(static_cast<double>(i) / kSteps, kNearEnd, 1 - kNearEnd);
    const double shown = view.MapLonMin() + view.MapLonSpan() * part;
    const auto lon = static_cast<float>(shown > 360 ? shown - 360 : shown);
    const std::optional<TwipPoint> point = view.ProjectPoint({lon, lat});
    const double place = view.MapScale() * shown + view.MapOffX();
    if (!point || std::abs(point->x - place) > 2 || (view.DetailMode() && !DrawsTileAt(view, lon)))
      return shown;
  }
  return std::nullopt;
}

}  // namespace zerbal::pack::test
