// Projections that show a rectangle of longitudes and latitudes, cut open along the seam.
#pragma once

#include "print/line_runner.h"
#include "print/projection.h"

namespace zerbal::print {

/// Cuts lines and areas for a projection, which says where a position is.
class RectangleProjection : public Projection {
 public:
  std::optional<TwipPoint> Project(GeoPosition position) const override;
  void ProjectLine(std::span<const GeoPosition> line, const LineSink& part) const override;
  std::vector<Ring> ProjectArea(std::span<const GeoRing> rings) const override;
  std::vector<Ring> Globe() const override;
  GeoBox Visible() const override { return shown_; }

 protected:
  /// `shown` is at most 360 degrees wide.
  RectangleProjection(const GeoBox& shown, const PlaneBox& frame) : shown_(shown), frame_(frame) {}

  /// The longitude is within the box that is shown.
  virtual PlanePoint Place(GeoPosition position) const = 0;
  /// Lines that are straight in degrees are straight on the picture.
  virtual bool IsStraight() const = 0;

  const GeoBox& Shown() const { return shown_; }
  const PlaneBox& Frame() const { return frame_; }
  /// The longitude of the same meridian from the west of the box on.
  double FromWest(double lon) const;

 private:
  void AddSegment(GeoPosition from, GeoPosition to, LineRunner& runner) const;
  template <typename Add>
  void VisitCurve(GeoPosition from, GeoPosition to, const Add& add) const;
  Ring PlacedRing(const GeoRing& ring) const;

  GeoBox shown_;
  PlaneBox frame_;
};

}  // namespace zerbal::print
