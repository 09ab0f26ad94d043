// Where chance comes from; start-up and tests supply the source.
#pragma once

#include <cmath>

namespace zerbal::data {

class RandomSource {
 public:
  virtual ~RandomSource() = default;
  /// The next value of a uniform distribution on [0, 1).
  virtual float Next() = 0;

  /// A whole number from 1 to m, drawn as the whole part of m * r + 1 in single precision.
  int Draw(int m) { return static_cast<int>(std::floor(static_cast<float>(m) * Next() + 1.0F)); }
};

}  // namespace zerbal::data
