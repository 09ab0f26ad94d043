// The projections of PROJ that show the whole earth or a band of it, cut open opposite the central meridian.
#pragma once

#include <string>

#include "print/proj_plane.h"
#include "print/rectangle_projection.h"

namespace zerbal::print {

/// What a projection shows, and where.
struct ProjView {
  double centreLon = 0;
  GeoBox shown;    ///< what the projection can show: all around from `centreLon` - 180, or less
  GeoBox fitted;   ///< what is fitted into `box`
  PlaneBox frame;  ///< the picture
  PlaneBox box;
};

class ProjRectangle final : public RectangleProjection {
 public:
  ProjRectangle(const std::string& definition, const ProjView& view);

  std::optional<GeoPosition> Unproject(TwipPoint place) const override;
  GeoBox Visible() const override { return visible_; }
  double TwipsPerDegree() const override { return twipsPerDegree_; }

 protected:
  PlanePoint Place(GeoPosition position) const override;
  bool IsStraight() const override { return false; }

 private:
  double centreLon_;
  ProjPlane plane_;
  GeoBox visible_;
  double twipsPerDegree_;
};

/// What of the globe is on a picture, by looking at many of its places.
GeoBox VisibleIn(const Projection& projection, const PlaneBox& frame, double centreLon);

/// Positions all over a box, its edges included.
std::vector<GeoPosition> PositionsIn(const GeoBox& box);

}  // namespace zerbal::print
