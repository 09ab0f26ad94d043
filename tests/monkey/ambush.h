// Misfortunes in the middle of the program's work instead of between two actions. They come through what the
// program is given from outside: the surface that watches its map, and its source of chance.
#pragma once

#include <cstdint>

#include "app/random_generator.h"
#include "map/surface.h"
#include "misfortune.h"

namespace zerbal::monkey {

class Ambush {
 public:
  explicit Ambush(Misfortune& misfortune) : misfortune_(misfortune) {}

  /// `event` strikes at the `steps`th step from now, instead of one that still waits.
  void Lay(const Misfortune::Event& event, int steps) {
    event_ = event;
    steps_ = steps;
  }
  /// The program has drawn something or asked for chance.
  void Step() {
    if (steps_ > 0 && --steps_ == 0)
      misfortune_.Strike(event_);
  }

 private:
  Misfortune& misfortune_;
  Misfortune::Event event_;
  int steps_ = 0;
};

class AmbushedSurface final : public map::Surface {
 public:
  explicit AmbushedSurface(Ambush& ambush) : ambush_(ambush) {}

  void BeginLayer(map::Layer) override { ambush_.Step(); }
  void Clear(data::Rgb) override { ambush_.Step(); }
  void Polyline(std::span<const TwipPoint>, const map::Pen&) override { ambush_.Step(); }
  void Rectangle(TwipPoint, TwipPoint, const map::Pen&) override { ambush_.Step(); }
  void Circle(TwipPoint, std::int32_t, data::Rgb, bool) override { ambush_.Step(); }
  void Text(TwipPoint, std::string_view, data::Rgb, const map::TextFont&) override { ambush_.Step(); }

 private:
  Ambush& ambush_;
};

/// The program's own generator, whose seed is the life's and not the clock's.
class AmbushedRandom final : public app::RandomGenerator {
 public:
  AmbushedRandom(Ambush& ambush, std::uint32_t seed) : ambush_(ambush), seed_(seed) {}

  void Seed(std::uint32_t) override { generator_.Seed(seed_); }
  float Next() override {
    ambush_.Step();
    return generator_.Next();
  }

 private:
  Ambush& ambush_;
  std::uint32_t seed_;
  app::MersenneRandom generator_;
};

}  // namespace zerbal::monkey
