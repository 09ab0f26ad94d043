// The projection of the map window: degrees are the same length everywhere.
#pragma once

#include "map/viewport.h"
#include "print/rectangle_projection.h"

namespace zerbal::print {

class PlateCarree final : public RectangleProjection {
 public:
  /// Every position is where `viewport` has it.
  explicit PlateCarree(const map::Viewport& viewport);

  std::optional<TwipPoint> Project(GeoPosition position) const override;
  std::optional<GeoPosition> Unproject(TwipPoint place) const override;
  double TwipsPerDegree() const override { return viewport_.MapScale(); }

 protected:
  PlanePoint Place(GeoPosition position) const override;
  bool IsStraight() const override { return true; }

 private:
  const map::Viewport& viewport_;
};

}  // namespace zerbal::print
