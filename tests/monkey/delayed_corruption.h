// Corruption of a file while the program works, instead of between two actions. Drawing operations and
// random numbers that the program asks for count as steps.
#pragma once

#include <cstdint>

#include "app/random_generator.h"
#include "file_corruption.h"
#include "map/surface.h"

namespace zerbal::monkey {

class DelayedCorruption {
 public:
  explicit DelayedCorruption(FileCorrupter& corrupter) : corrupter_(corrupter) {}

  /// Applies `corruption` at the `steps`th step from now. Replaces a corruption that is still scheduled.
  void Schedule(const FileCorruption& corruption, int steps) {
    corruption_ = corruption;
    steps_ = steps;
  }
  void Step() {
    if (steps_ > 0 && --steps_ == 0)
      corrupter_.Apply(corruption_);
  }

 private:
  FileCorrupter& corrupter_;
  FileCorruption corruption_;
  int steps_ = 0;
};

/// Every drawing operation is a step.
class CorruptingSurface final : public map::Surface {
 public:
  explicit CorruptingSurface(DelayedCorruption& corruption) : corruption_(corruption) {}

  void BeginLayer(map::Layer) override { corruption_.Step(); }
  void Clear(data::Rgb) override { corruption_.Step(); }
  void Polyline(std::span<const TwipPoint>, const map::Pen&) override { corruption_.Step(); }
  void Rectangle(TwipPoint, TwipPoint, const map::Pen&) override { corruption_.Step(); }
  void Circle(TwipPoint, std::int32_t, data::Rgb, bool) override { corruption_.Step(); }
  void Text(TwipPoint, std::string_view, data::Rgb, const map::TextFont&) override { corruption_.Step(); }

 private:
  DelayedCorruption& corruption_;
};

/// The program's generator with the seed of the session instead of the clock's. Every number is a step.
class CorruptingRandom final : public app::RandomGenerator {
 public:
  CorruptingRandom(DelayedCorruption& corruption, std::uint32_t seed)
      : corruption_(corruption), seed_(seed) {}

  void Seed(std::uint32_t) override { generator_.Seed(seed_); }
  float Next() override {
    corruption_.Step();
    return generator_.Next();
  }

 private:
  DelayedCorruption& corruption_;
  std::uint32_t seed_;
  app::MersenneRandom generator_;
};

}  // namespace zerbal::monkey
