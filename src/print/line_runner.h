// Joins parts of a line on the picture's plane, and cuts them at the edge of a frame.
#pragma once

#include <vector>

#include "print/projection.h"

namespace zerbal::print {

/// A place on the picture, twips.
struct PlanePoint {
  double x = 0;
  double y = 0;
};

/// Bounds on the picture, twips, inclusive.
struct PlaneBox {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  bool Holds(PlanePoint point) const {
    return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
  }
};

/// Rounded down, and limited as every point of the map.
TwipPoint ToTwipPoint(PlanePoint point);

/// Cuts a segment at a box. Returns false when no part of it is inside or when an end is not a number.
bool ClipToBox(const PlaneBox& box, PlanePoint& from, PlanePoint& to);

class LineRunner {
 public:
  LineRunner(const PlaneBox& frame, const LineSink& sink) : frame_(frame), sink_(sink) {}
  ~LineRunner() = default;
  LineRunner(const LineRunner&) = delete;
  LineRunner& operator=(const LineRunner&) = delete;

  /// Continues the line to a point, from the one before when there is one.
  void To(PlanePoint point);
  /// The next point begins a new part.
  void Break();

 private:
  void Add(PlanePoint point);
  void Flush();

  PlaneBox frame_;
  const LineSink& sink_;
  bool open_ = false;
  PlanePoint last_;
  std::vector<TwipPoint> part_;
};

}  // namespace zerbal::print
