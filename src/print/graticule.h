// Meridians and parallels.
#pragma once

#include <string>
#include <vector>

#include "print/print_surface.h"
#include "print/projection.h"

namespace zerbal::print {

inline constexpr double kFinestGraticule = 0.1;  ///< degrees
inline constexpr double kWidestGraticule = 90;

/// A meridian or parallel with its visible parts.
struct GraticuleLine {
  std::string text;  ///< "10°E", "0°", "52.5°N"
  std::vector<std::vector<TwipPoint>> parts;
};

/// Every `degrees` from the Greenwich meridian and the equator. Where all meridians meet in one point, those
/// that are no multiples of 90 degrees end at the last parallel. Lines without a visible part are left out.
std::vector<GraticuleLine> MakeGraticule(const Projection& projection, double degrees);

}  // namespace zerbal::print
