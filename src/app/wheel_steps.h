// What the mouse wheel has done since it was last asked.
#pragma once

#include <utility>
#include <vector>

#include "base/coordinates.h"

namespace zerbal::app {

class WheelSteps {
 public:
  struct Step {
    TwipPosition place{};
    bool big = false;
    int notches = 0;  ///< positive: away from the user
  };

  /// Adds a movement in eighths of a degree. Parts of a notch add up; those of the other direction are
  /// dropped.
  void Add(int eighths, bool big, TwipPosition place);
  /// The whole notches since the last call, in order.
  std::vector<Step> Take() { return std::exchange(steps_, {}); }

 private:
  static constexpr int kNotch = 120;

  int part_ = 0;
  std::vector<Step> steps_;
};

inline void WheelSteps::Add(int eighths, bool big, TwipPosition place) {
  if ((part_ < 0) != (eighths < 0))
    part_ = 0;
  part_ += eighths;
  if (const int notches = part_ / kNotch; notches != 0)
    steps_.push_back({place, big, notches});
  part_ %= kNotch;
}

}  // namespace zerbal::app
