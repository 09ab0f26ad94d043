// The interface of the source of random numbers.
#pragma once

#include <algorithm>
#include <cmath>

namespace zerbal::data {

class RandomSource {
 public:
  virtual ~RandomSource() = default;
  /// The next value of a uniform distribution on [0, 1).
  virtual float Next() = 0;

  /// A whole number from 1 to m, drawn as the whole part of m * r + 1 in single precision. With the largest
  /// values of r the sum is rounded up to m + 1 when m is a power of two; that counts as m.
  int Draw(int m) {
    const float drawn = std::floor(static_cast<float>(m) * Next() + 1.0F);
    return std::min(static_cast<int>(drawn), m);
  }
};

}  // namespace zerbal::data
