#include "print/make_projection.h"

#include <algorithm>
#include <cmath>

#include "base/error.h"
#include "base/numbers.h"
#include "print/orthographic.h"
#include "print/plate_carree.h"
#include "print/proj_rectangle.h"

namespace zerbal::print {
namespace {

/// Degrees from the equator that a map by Mercator shows, and those of the whole world by Mercator.
constexpr double kMercatorReach = 85;
constexpr double kMercatorWorld = 80;
/// The part of the picture that is left free around the whole world.
constexpr double kWorldMargin = 0.02;

GeoBox RequestOf(const map::Viewport& viewport) {
  const double west = double{viewport.ReqLonMin()} - 180;
  double east = double{viewport.ReqLonMax()} - 180;
  if (east <= west)
    east += 360;
  return {west, east, 90 - double{viewport.ReqLatMax()}, 90 - double{viewport.ReqLatMin()}};
}

ProjView ViewOf(const map::Viewport& viewport, bool wholeWorld) {
  const double width = viewport.MapWidth();
  const double height = viewport.MapHeight();
  const double margin = wholeWorld ? kWorldMargin * std::min(width, height) : 0;
  ProjView view;
  view.fitted = RequestOf(viewport);
  view.centreLon = (view.fitted.west + view.fitted.east) / 2;
  view.shown = {view.centreLon - 180, view.centreLon + 180, -90, 90};
  if (wholeWorld)
    view.fitted = view.shown;
  view.frame = {0, 0, width, height};
  view.box = {margin, margin, width - margin, height - margin};
  return view;
}

std::unique_ptr<Projection> Mercator(ProjView view, bool wholeWorld) {
  view.shown.south = -kMercatorReach;
  view.shown.north = kMercatorReach;
  const double reach = wholeWorld ? kMercatorWorld : kMercatorReach;
  view.fitted.south = std::clamp(view.fitted.south, -reach, reach);
  view.fitted.north = std::clamp(view.fitted.north, -reach, reach);
  view.box = view.frame;
  return std::make_unique<ProjRectangle>("+proj=merc +ellps=WGS84 +over", view);
}

/// The cone cuts the earth a sixth of the view inside its edges.
std::unique_ptr<Projection> Lambert(ProjView view) {
  const double height = view.fitted.north - view.fitted.south;
  const double middle = (view.fitted.north + view.fitted.south) / 2;
  constexpr double kNearestToEquator = 3;
  if (std::fabs(middle) < kNearestToEquator)
    throw base::UsageError(
        "--projection: lambert is for views north or south of the equator; this one is around it");
  constexpr double kBeyondEquator = 60;
  (middle > 0 ? view.shown.south : view.shown.north) = std::copysign(kBeyondEquator, -middle);
  view.fitted.south = std::max(view.fitted.south, view.shown.south);
  view.fitted.north = std::min(view.fitted.north, view.shown.north);
  return std::make_unique<ProjRectangle>("+proj=lcc +ellps=WGS84 +over +lat_0=" + base::DecimalText(middle) +
                                             " +lat_1=" + base::DecimalText(view.fitted.south + height / 6) +
                                             " +lat_2=" + base::DecimalText(view.fitted.north - height / 6),
                                         view);
}

}  // namespace

std::unique_ptr<Projection> MakeProjection(ProjectionKind kind, const map::Viewport& viewport,
                                           bool wholeWorld) {
  const ProjView view = ViewOf(viewport, wholeWorld);
  switch (kind) {
    case ProjectionKind::kMercator:
      return Mercator(view, wholeWorld);
    case ProjectionKind::kRobinson:
      return std::make_unique<ProjRectangle>("+proj=robin +R=6371007 +over", view);
    case ProjectionKind::kLambert:
      return Lambert(view);
    case ProjectionKind::kOrthographic:
      return std::make_unique<Orthographic>(
          GeoPosition{view.centreLon, (view.fitted.south + view.fitted.north) / 2}, view);
    case ProjectionKind::kPlateCarree:
      break;
  }
  return std::make_unique<PlateCarree>(viewport);
}

bool HasOutline(ProjectionKind kind) {
  return kind == ProjectionKind::kRobinson || kind == ProjectionKind::kOrthographic;
}

}  // namespace zerbal::print
