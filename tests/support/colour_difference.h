// How different two colours look, to normal eyes and to those of the colour-blind.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace zerbal::test {

/// Red, green and blue of sRGB, 0 to 255.
using Srgb = std::array<int, 3>;
/// The same, proportional to light: 0 to 1.
using LinearRgb = std::array<double, 3>;

struct CieLab {
  double l = 0;  ///< lightness, 0 to 100
  double a = 0;
  double b = 0;
};

enum class Eyes { kNormal, kProtanopia, kDeuteranopia, kTritanopia };

inline LinearRgb Linear(const Srgb& colour) {
  const auto linear = [](int value) {
    const double part = value / 255.0;
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return {linear(colour[0]), linear(colour[1]), linear(colour[2])};
}

inline double Luminance(const LinearRgb& light) {
  return 0.2126729 * light[0] + 0.7151522 * light[1] + 0.0721750 * light[2];
}

/// The contrast ratio of WCAG 2: 1 to 21.
inline double ContrastRatio(const Srgb& one, const Srgb& other) {
  const auto [darker, lighter] = std::minmax({Luminance(Linear(one)), Luminance(Linear(other))});
  return (lighter + 0.05) / (darker + 0.05);
}

/// The model of Machado, Oliveira and Fernandes (2009) at full severity.
inline LinearRgb AsSeenBy(Eyes eyes, const LinearRgb& light) {
  using Row = std::array<double, 3>;
  constexpr std::array<std::array<Row, 3>, 4> kMatrices = {{
      {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}},
      {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
      {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
      {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}},
  }};
  LinearRgb seen{};
  for (std::size_t i = 0; i < 3; ++i) {
    const Row& row = kMatrices[static_cast<std::size_t>(eyes)][i];
    seen[i] = std::clamp(row[0] * light[0] + row[1] * light[1] + row[2] * light[2], 0.0, 1.0);
  }
  return seen;
}

/// In daylight (D65).
inline CieLab ToLab(const LinearRgb& light) {
  const auto [r, g, b] = light;
  const auto f = [](double t) {
    constexpr double kLinearUpTo = 216.0 / 24389;
    return t > kLinearUpTo ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116;
  };
  const double x = f((0.4124564 * r + 0.3575761 * g + 0.1804375 * b) / 0.95047);
  const double y = f(Luminance(light));
  const double z = f((0.0193339 * r + 0.1191920 * g + 0.9503041 * b) / 1.08883);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

/// CIEDE2000: about 1 is the smallest difference that an eye notices between large areas side by side. Names
/// are those of the formula.
inline double ColourDifference(const CieLab& one, const CieLab& other) {
  constexpr double kTurn = 360;
  const auto radians = [](double degrees) { return degrees * std::numbers::pi / 180; };
  const auto weight = [](double c) { return std::sqrt(std::pow(c, 7) / (std::pow(c, 7) + std::pow(25, 7))); };
  const double meanC = (std::hypot(one.a, one.b) + std::hypot(other.a, other.b)) / 2;
  const double stretch = 1 + (1 - weight(meanC)) / 2;
  const auto hue = [&](const CieLab& lab) {
    const double degrees = std::atan2(lab.b, lab.a * stretch) * 180 / std::numbers::pi;
    return degrees < 0 ? degrees + kTurn : degrees;
  };
  const double c1 = std::hypot(one.a * stretch, one.b), c2 = std::hypot(other.a * stretch, other.b);
  const double h1 = hue(one), h2 = hue(other);
  const bool grey = c1 * c2 == 0;
  double dh = grey ? 0 : h2 - h1;
  double meanH = grey ? h1 + h2 : (h1 + h2) / 2;
  if (std::abs(dh) > kTurn / 2) {
    dh += dh > 0 ? -kTurn : kTurn;
    meanH += h1 + h2 < kTurn ? kTurn / 2 : -kTurn / 2;
  }
  const double meanL = (one.l + other.l) / 2, c = (c1 + c2) / 2;
  const double t = 1 - 0.17 * std::cos(radians(meanH - 30)) + 0.24 * std::cos(radians(2 * meanH)) +
                   0.32 * std::cos(radians(3 * meanH + 6)) - 0.20 * std::cos(radians(4 * meanH - 63));
  const double fromMiddle = (meanL - 50) * (meanL - 50);
  const double l = (other.l - one.l) / (1 + 0.015 * fromMiddle / std::sqrt(20 + fromMiddle));
  const double chroma = (c2 - c1) / (1 + 0.045 * c);
  const double dH = 2 * std::sqrt(c1 * c2) * std::sin(radians(dh / 2)) / (1 + 0.015 * c * t);
  const double turn = 30 * std::exp(-std::pow((meanH - 275) / 25, 2));
  const double rotation = -std::sin(radians(2 * turn)) * 2 * weight(c);
  return std::sqrt(l * l + chroma * chroma + dH * dH + rotation * chroma * dH);
}

inline double ColourDifference(Eyes eyes, const Srgb& one, const Srgb& other) {
  return ColourDifference(ToLab(AsSeenBy(eyes, Linear(one))), ToLab(AsSeenBy(eyes, Linear(other))));
}

}  // namespace zerbal::test
