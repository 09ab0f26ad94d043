#include "print/proj_plane.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <proj.h>

#include "base/error.h"

namespace zerbal::print {

struct ProjPlane::Transformation {
  PJ_CONTEXT* context;
  PJ* projection;

  explicit Transformation(const std::string& definition)
      : context(proj_context_create()), projection(proj_create(context, definition.c_str())) {}
  ~Transformation() {
    proj_destroy(projection);
    proj_context_destroy(context);
  }
  Transformation(const Transformation&) = delete;
  Transformation& operator=(const Transformation&) = delete;
};

ProjPlane::ProjPlane(const std::string& definition)
    : transformation_(std::make_shared<Transformation>(definition)) {
  if (transformation_->projection == nullptr)
    throw base::Error("The projection '" + definition + "' cannot be used.");
}

PlanePoint ProjPlane::Place(GeoPosition position) const {
  const PJ_COORD result =
      proj_trans(transformation_->projection, PJ_FWD,
                 proj_coord(proj_torad(position.lon), proj_torad(position.lat), 0, HUGE_VAL));
  if (!std::isfinite(result.xy.x) || !std::isfinite(result.xy.y))
    return {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()};
  return {offset_.x + scale_ * result.xy.x, offset_.y - scale_ * result.xy.y};
}

std::optional<GeoPosition> ProjPlane::Position(PlanePoint place) const {
  const PJ_COORD result =
      proj_trans(transformation_->projection, PJ_INV,
                 proj_coord((place.x - offset_.x) / scale_, (offset_.y - place.y) / scale_, 0, HUGE_VAL));
  const GeoPosition position{proj_todeg(result.lp.lam), proj_todeg(result.lp.phi)};
  if (!std::isfinite(position.lon) || !std::isfinite(position.lat))
    return std::nullopt;
  return position;
}

void ProjPlane::Fit(std::span<const GeoPosition> positions, const PlaneBox& box) {
  constexpr double kFar = std::numeric_limits<double>::infinity();
  scale_ = 1;
  offset_ = {};
  PlaneBox extent{kFar, kFar, -kFar, -kFar};
  for (const GeoPosition position : positions) {
    const PlanePoint place = Place(position);
    if (!std::isfinite(place.x))
      continue;
    extent = {std::min(extent.left, place.x), std::min(extent.top, place.y), std::max(extent.right, place.x),
              std::max(extent.bottom, place.y)};
  }
  const double width = extent.right - extent.left;
  const double height = extent.bottom - extent.top;
  if (!(width > 0) || !(height > 0))
    throw base::UsageError("--projection: the view is too small or not visible in this projection");
  scale_ = std::min((box.right - box.left) / width, (box.bottom - box.top) / height);
  offset_ = {(box.left + box.right) / 2 - scale_ * (extent.left + extent.right) / 2,
             (box.top + box.bottom) / 2 - scale_ * (extent.top + extent.bottom) / 2};
}

}  // namespace zerbal::print
