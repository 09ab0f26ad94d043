// Views for tests.
#pragma once

#include "map/viewport.h"

namespace zerbal::map {

inline const data::GridBands& kBands = data::kGridBands;

/// Makes `view` show exactly these bounds, on a drawing area of the same shape with 100 twips per degree.
inline void ShowExactly(Viewport& view, float west, float top, float east, float bottom) {
  const float lonSpan = east > west ? east - west : east + 360 - west;
  view.SetSize(lonSpan * 100.0, (bottom - top) * 100.0);
  view.SelectRegion({"", "", west, top, east, bottom});
  view.ComputeViewport();
}

/// The view of a request on a drawing area of this size in twips.
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
