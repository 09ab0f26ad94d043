// Views for tests, each in one line.
#pragma once

#include "map/viewport.h"

namespace zerbal::map {

inline const data::GridBands& kBands = data::kGridBands;

/// Makes `view` show these bounds on a drawing area of their own shape, so that nothing is widened: 100 twips
/// a degree.
inline void ShowExactly(Viewport& view, float west, float top, float east, float bottom) {
  const float lonSpan = east > west ? east - west : east + 360 - west;
  view.SetSize(lonSpan * 100.0, (bottom - top) * 100.0);
  view.SelectRegion({"", "", west, top, east, bottom});
  view.ComputeViewport();
}

/// The view that a request gives on a drawing area of this size in twips.
inline Viewport View(double width, double height, float west, float top, float east, float bottom) {
  Viewport view(kBands);
  view.SetSize(width, height);
  view.SelectRegion({"", "", west, top, east, bottom});
  view.ComputeViewport();
  return view;
}

inline Viewport Exact(float west, float top, float east, float bottom) {
  Viewport view(kBands);
  ShowExactly(view, west, top, east, bottom);
  return view;
}

}  // namespace zerbal::map
