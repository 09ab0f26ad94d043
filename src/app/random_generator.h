// The program's random generator.
#pragma once

#include <cstdint>
#include <random>

#include "data/random_source.h"

namespace zerbal::app {

/// A source that start-up seeds from the clock.
class RandomGenerator : public data::RandomSource {
 public:
  virtual void Seed(std::uint32_t seed) = 0;
};

class MersenneRandom final : public RandomGenerator {
 public:
  void Seed(std::uint32_t seed) override { engine_.seed(seed); }
  /// One of 2^24 evenly spaced singles in [0, 1). Rounding cannot give 1.
  float Next() override { return static_cast<float>(engine_() >> 8) * 0x1p-24F; }

 private:
  std::mt19937 engine_;
};

}  // namespace zerbal::app
