#include "print/contrast.h"

#include <algorithm>
#include <cmath>

namespace zerbal::print {
namespace {

/// The relative luminance in sRGB, 0 to 1.
double Luminance(data::Rgb colour) {
  const auto linear = [](std::uint8_t component) {
    const double part = component / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

constexpr data::Rgb kBlack{0, 0, 0};
constexpr data::Rgb kWhite{255, 255, 255};

}  // namespace

double ContrastOf(data::Rgb colour, data::Rgb background) {
  constexpr double kFlare = 0.05;  // light that even black reflects
  const auto [darker, lighter] = std::minmax({Luminance(colour), Luminance(background)});
  return (lighter + kFlare) / (darker + kFlare);
}

data::Rgb Mixed(data::Rgb colour, data::Rgb other, double part) {
  const auto mix = [part](std::uint8_t a, std::uint8_t b) {
    return static_cast<int>(std::lround(a + (b - a) * std::clamp(part, 0.0, 1.0)));
  };
  return data::ClampRgb(mix(colour.red, other.red), mix(colour.green, other.green),
                        mix(colour.blue, other.blue));
}

data::Rgb TextColourOn(data::Rgb background) {
  return ContrastOf(kBlack, background) >= ContrastOf(kWhite, background) ? kBlack : kWhite;
}

data::Rgb WithContrast(data::Rgb colour, data::Rgb background, double least) {
  constexpr int kSteps = 32;
  const data::Rgb towards = TextColourOn(background);
  for (int step = 0; step < kSteps; ++step) {
    const data::Rgb mixed = Mixed(colour, towards, static_cast<double>(step) / kSteps);
    if (ContrastOf(mixed, background) >= least)
      return mixed;
  }
  return towards;
}

}  // namespace zerbal::print
