// The globe as seen from far away.
#pragma once

#include "print/proj_rectangle.h"

namespace zerbal::print {

class Orthographic final : public Projection {
 public:
  /// `view` has what is fitted, as far as it is this side of the horizon; the middle of the globe is
  /// `centre`.
  Orthographic(GeoPosition centre, const ProjView& view);

  std::optional<TwipPoint> Project(GeoPosition position) const override;
  std::optional<GeoPosition> Unproject(TwipPoint place) const override;
  void ProjectLine(std::span<const GeoPosition> line, const LineSink& part) const override;
  std::vector<Ring> ProjectArea(std::span<const GeoRing> rings) const override;
  std::vector<Ring> Globe() const override;
  GeoBox Visible() const override { return visible_; }
  double TwipsPerDegree() const override;

 private:
  using PlaneRing = std::vector<PlanePoint>;

  /// Above 0 this side of the horizon.
  double Height(GeoPosition position) const;
  PlanePoint Place(GeoPosition position) const;
  /// The place where the way between two positions, only one of which is visible, crosses the horizon.
  GeoPosition AtHorizon(GeoPosition from, GeoPosition to) const;
  template <typename Enter, typename Add, typename Leave>
  void VisitVisible(GeoPosition from, GeoPosition to, const Enter& enter, const Add& add,
                    const Leave& leave) const;
  PlaneRing VisibleRing(const GeoRing& ring) const;
  /// Adds places along the horizon, the short way.
  void AddArc(PlanePoint from, PlanePoint to, PlaneRing& ring) const;
  bool IsInverted(std::span<const GeoRing> rings, std::span<const PlaneRing> placed) const;
  PlaneRing Disc() const;

  GeoPosition centre_;
  PlaneBox frame_;
  ProjPlane plane_;
  PlanePoint middle_;
  double radius_ = 0;  ///< twips
  GeoBox visible_;
};

}  // namespace zerbal::print
