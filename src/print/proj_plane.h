// A map projection of the library PROJ, fitted into a picture.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>

#include "print/line_runner.h"
#include "print/projection.h"

namespace zerbal::print {

/// Longitudes count from the central meridian.
class ProjPlane {
 public:
  /// `definition` is PROJ's, without a central meridian.
  explicit ProjPlane(const std::string& definition);

  /// Fits what these positions span into the middle of a box on the picture.
  void Fit(std::span<const GeoPosition> positions, const PlaneBox& box);

  /// Not a number where the projection has no place.
  PlanePoint Place(GeoPosition position) const;
  std::optional<GeoPosition> Position(PlanePoint place) const;

 private:
  struct Transformation;

  std::shared_ptr<const Transformation> transformation_;
  double scale_ = 1;  ///< twips per metre
  PlanePoint offset_;
};

}  // namespace zerbal::print
