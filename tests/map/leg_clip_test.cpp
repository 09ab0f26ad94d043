#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "map/leg.h"
#include "map/views.h"
#include "support/test_random.h"

namespace zerbal::map {
namespace {

const Viewport kView = Exact(100, 40, 140, 60);

using Leg = std::pair<MapPosition, MapPosition>;

std::optional<Leg> Clipped(MapPosition from, MapPosition to) {
  if (!ClipLeg(kView, from, to))
    return std::nullopt;
  return Leg{from, to};
}

void ExpectLeg(const std::optional<Leg>& leg, MapPosition from, MapPosition to) {
  ASSERT_TRUE(leg.has_value());
  EXPECT_FLOAT_EQ(leg->first.lon, from.lon);
  EXPECT_FLOAT_EQ(leg->first.lat, from.lat);
  EXPECT_FLOAT_EQ(leg->second.lon, to.lon);
  EXPECT_FLOAT_EQ(leg->second.lat, to.lat);
}

TEST(GetClipCode, HasABitForEachBound) {
  EXPECT_EQ(GetClipCode(kView, {120, 50}), 0U);
  EXPECT_EQ(GetClipCode(kView, {120, 61}), 1U);
  EXPECT_EQ(GetClipCode(kView, {120, 39}), 2U);
  EXPECT_EQ(GetClipCode(kView, {99, 50}), 4U);
  EXPECT_EQ(GetClipCode(kView, {141, 50}), 8U);
  EXPECT_EQ(GetClipCode(kView, {99, 61}), 5U);
  EXPECT_EQ(GetClipCode(kView, {99, 39}), 6U);
  EXPECT_EQ(GetClipCode(kView, {141, 61}), 9U);
  EXPECT_EQ(GetClipCode(kView, {141, 39}), 10U);
}

TEST(GetClipCode, APointOnABoundIsInside) {
  for (const MapPosition corner : {MapPosition{100, 40}, {140, 40}, {100, 60}, {140, 60}})
    EXPECT_EQ(GetClipCode(kView, corner), 0U);
  EXPECT_EQ(GetClipCode(kView, {std::nextafter(100.0F, 0.0F), 50}), 4U);
}

TEST(ClipLeg, KeepsALegInside) {
  ExpectLeg(Clipped({110, 45}, {130, 55}), {110, 45}, {130, 55});
  ExpectLeg(Clipped({100, 40}, {140, 60}), {100, 40}, {140, 60});
  ExpectLeg(Clipped({110, 45}, {110, 45}), {110, 45}, {110, 45});
}

TEST(ClipLeg, CutsEachEndAtItsBound) {
  ExpectLeg(Clipped({90, 50}, {120, 50}), {100, 50}, {120, 50});
  ExpectLeg(Clipped({120, 50}, {150, 50}), {120, 50}, {140, 50});
  ExpectLeg(Clipped({120, 50}, {120, 30}), {120, 50}, {120, 40});
  ExpectLeg(Clipped({120, 70}, {120, 50}), {120, 60}, {120, 50});
  ExpectLeg(Clipped({90, 50}, {150, 50}), {100, 50}, {140, 50});
  // From outside of a corner: the latitude is cut first, at 105 by 40, which is in view.
  ExpectLeg(Clipped({95, 30}, {120, 55}), {105, 40}, {120, 55});
  // Both bounds: at latitude 40 the longitude is 95, so the leg begins at 100 by 45.
  ExpectLeg(Clipped({85, 30}, {115, 60}), {100, 45}, {115, 60});
}

TEST(ClipLeg, RejectsLegsOutsideOfTheView) {
  EXPECT_FALSE(Clipped({90, 45}, {95, 55}));
  EXPECT_FALSE(Clipped({145, 45}, {150, 55}));
  EXPECT_FALSE(Clipped({110, 30}, {130, 39}));
  EXPECT_FALSE(Clipped({110, 61}, {130, 80}));
  // Beside a corner: the ends share no bound, but nothing is in view.
  EXPECT_FALSE(Clipped({90, 45}, {110, 25}));
  EXPECT_FALSE(Clipped({135, 70}, {150, 55}));
}

TEST(ClipLeg, TouchingACornerIsAPoint) {
  ExpectLeg(Clipped({90, 50}, {110, 30}), {100, 40}, {100, 40});
}

TEST(ClipLeg, RejectsEndsThatAreNotNumbers) {
  constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
  constexpr float kInf = std::numeric_limits<float>::infinity();
  for (const float odd : {kNaN, kInf, -kInf}) {
    EXPECT_FALSE(Clipped({odd, 50}, {120, 50}));
    EXPECT_FALSE(Clipped({120, 50}, {120, odd}));
  }
}

TEST(ClipLeg, TerminatesWithReversedBounds) {
  const Viewport view =
      View(4'000, 1'100, 100, 200, 140, 210);  // the bottom is limited to 180, above the top
  ASSERT_GT(view.MapLatMin(), view.MapLatMax());
  MapPosition from{110, 170};
  MapPosition to{120, 210};
  EXPECT_FALSE(ClipLeg(view, from, to));
}

TEST(ClipLeg, AcceptsHugeNumbers) {
  constexpr float kHuge = std::numeric_limits<float>::max();
  const std::optional<Leg> leg = Clipped({-kHuge, 50}, {kHuge, 50});
  ASSERT_TRUE(leg);
  EXPECT_EQ(leg->first.lon, 100);
  EXPECT_EQ(leg->second.lon, 140);
}

/// The part of a segment that is in view by definition: the points within all four bounds.
std::optional<std::pair<double, double>> PartInView(const Viewport& view, MapPosition from, MapPosition to) {
  double begin = 0;
  double end = 1;
  const auto hold = [&](double start, double slope, double low, double high) {
    if (slope == 0) {
      if (start < low || start > high)
        end = -1;
      return;
    }
    const double t1 = (low - start) / slope;
    const double t2 = (high - start) / slope;
    begin = std::max(begin, std::min(t1, t2));
    end = std::min(end, std::max(t1, t2));
  };
  hold(from.lon, static_cast<double>(to.lon) - from.lon, view.MapLonMin(), view.MapLonMax());
  hold(from.lat, static_cast<double>(to.lat) - from.lat, view.MapLatMin(), view.MapLatMax());
  if (begin > end)
    return std::nullopt;
  return std::pair{begin, end};
}

constexpr double kUnit = 0x1p-16;  ///< unit in the last place of singles from 128 to 256

/// The allowed distance in degrees of an end from its exact position on the leg. Ends are singles, so a
/// clipped leg is up to kUnit beside the given one. The distance at a bound grows with a smaller angle to the
/// bound.
double Tolerance(MapPosition from, MapPosition to) {
  const double lonSpan = std::abs(static_cast<double>(to.lon) - from.lon);
  const double latSpan = std::abs(static_cast<double>(to.lat) - from.lat);
  const double shorter = std::min(lonSpan, latSpan);
  return shorter == 0 ? kUnit : kUnit * (1 + std::max(lonSpan, latSpan) / shorter);
}

/// The distance in degrees between a position and the straight line through a leg.
double DistanceFromLine(MapPosition position, MapPosition from, MapPosition to) {
  const double lon = static_cast<double>(to.lon) - from.lon;
  const double lat = static_cast<double>(to.lat) - from.lat;
  return std::abs((position.lon - from.lon) * lat - (position.lat - from.lat) * lon) / std::hypot(lon, lat);
}

TEST(ClipLeg, GivesThePartThatIsInView) {
  test::TestRandom random(180085026);
  const auto number = [&](float low, float high) {
    const float value = std::uniform_real_distribution<float>(low, high)(random);
    return random() % 4 == 0 ? std::round(value / 10) * 10 : value;  // often on a bound
  };
  int accepted = 0;
  for (int i = 0; i < 50'000; ++i) {
    const MapPosition from{number(60, 180), number(20, 80)};
    const MapPosition to{number(60, 180), number(20, 80)};
    const auto part = PartInView(kView, from, to);
    const std::optional<Leg> leg = Clipped(from, to);
    const double tolerance = Tolerance(from, to);
    if (part.has_value() != leg.has_value()) {
      // A leg that touches a corner may be accepted or rejected.
      const double length = part ? part->second - part->first : 0;
      const Leg cut = leg.value_or(Leg{});
      EXPECT_LE(length * std::hypot(to.lon - from.lon, to.lat - from.lat), 2 * tolerance);
      EXPECT_NEAR(cut.first.lon, cut.second.lon, 2 * tolerance);
      EXPECT_NEAR(cut.first.lat, cut.second.lat, 2 * tolerance);
      continue;
    }
    if (!leg)
      continue;
    ++accepted;
    const auto at = [](double t, float a, float b) { return a + (static_cast<double>(b) - a) * t; };
    EXPECT_NEAR(leg->first.lon, at(part->first, from.lon, to.lon), tolerance);
    EXPECT_NEAR(leg->first.lat, at(part->first, from.lat, to.lat), tolerance);
    EXPECT_NEAR(leg->second.lon, at(part->second, from.lon, to.lon), tolerance);
    EXPECT_NEAR(leg->second.lat, at(part->second, from.lat, to.lat), tolerance);
    if (from.lon != to.lon || from.lat != to.lat) {
      EXPECT_LE(DistanceFromLine(leg->first, from, to), kUnit);
      EXPECT_LE(DistanceFromLine(leg->second, from, to), kUnit);
    }
    EXPECT_EQ(GetClipCode(kView, leg->first) | GetClipCode(kView, leg->second), 0U);
  }
  EXPECT_GT(accepted, 10'000);
}

}  // namespace
}  // namespace zerbal::map
