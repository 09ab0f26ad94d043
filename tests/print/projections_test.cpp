#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "base/error.h"
#include "data/great_circle.h"
#include "map/views.h"
#include "print/make_projection.h"
#include "print/map_data_bounds.h"
#include "print/parts.h"
#include "support/test_random.h"

namespace zerbal::print {
namespace {

constexpr ProjectionKind kKinds[] = {ProjectionKind::kPlateCarree, ProjectionKind::kMercator,
                                     ProjectionKind::kRobinson, ProjectionKind::kLambert,
                                     ProjectionKind::kOrthographic};
constexpr double kRadian = M_PI / 180;

/// A picture of 20000 by 12000 twips that shows these bounds in degrees.
map::Viewport Showing(double west, double north, double east, double south) {
  return map::View(20'000, 12'000, static_cast<float>(west + 180), static_cast<float>(90 - north),
                   static_cast<float>(east + 180), static_cast<float>(90 - south));
}

const map::Viewport kWorld = Showing(-175, 90, 175, -90);
const map::Viewport kPacific = Showing(140, 60, -130, 10);
const map::Viewport kNorth = Showing(-10, 72, 40, 34);

double Length(TwipPoint from, TwipPoint to) {
  return std::hypot(to.x - from.x, to.y - from.y);
}

TwipPoint At(const Projection& projection, GeoPosition position) {
  return projection.Project(position).value_or(TwipPoint{-1, -1});
}

TEST(Projections, APositionIsFoundAtItsPlace) {
  test::TestRandom random(2211);
  std::uniform_real_distribution<double> lon(-180, 180);
  std::uniform_real_distribution<double> lat(-90, 90);
  for (const map::Viewport& viewport : {kPacific, kNorth}) {
    for (const ProjectionKind kind : kKinds) {
      const auto projection = MakeProjection(kind, viewport, false);
      int visible = 0;
      for (int i = 0; i < 20'000; ++i) {
        const GeoPosition position{lon(random), lat(random)};
        const auto place = projection->Project(position);
        if (!place)
          continue;
        ++visible;
        const auto back = projection->Unproject(*place);
        ASSERT_TRUE(back || Length(*place, {10'000, 6'000}) > 5'900) << static_cast<int>(kind);
        if (back && data::GreatCircleMetres(position, {10, 50}) < 4e6) {
          ASSERT_LT(*data::GreatCircleMetres(position, *back), 2'000) << static_cast<int>(kind);
        }
      }
      EXPECT_GT(visible, 100) << static_cast<int>(kind);
    }
  }
}

TEST(Projections, MercatorHasTheHeightsOfTheEllipsoid) {
  const auto projection = MakeProjection(ProjectionKind::kMercator, kWorld, true);
  const TwipPoint centre = At(*projection, {0, 0});
  EXPECT_EQ(centre, (TwipPoint{10'000, 6'000}));
  const double degree = (At(*projection, {60, 0}).x - centre.x) / 60.0;
  const auto height = [](double lat) {
    const double e = 0.0818191908;
    const double s = std::sin(lat * kRadian);
    return (std::atanh(s) - e * std::atanh(e * s)) / kRadian;
  };
  for (const double lat : {-75.0, -40.0, 10.0, 60.0, 79.0})
    EXPECT_NEAR(At(*projection, {30, lat}).y, 6'000 - degree * height(lat), 2) << lat;
  EXPECT_FALSE(projection->Project({0, 86}));
}

TEST(Projections, RobinsonHasTheLengthsOfItsTable) {
  const auto projection = MakeProjection(ProjectionKind::kRobinson, kWorld, true);
  const auto width = [&](double lat) { return At(*projection, {150, lat}).x - 10'000.0; };
  EXPECT_NEAR(width(40) / width(0), 0.9216, 2e-4);
  EXPECT_NEAR(width(-70) / width(0), 0.7186, 2e-4);
  EXPECT_NEAR(width(90) / width(0), 0.5322, 2e-4);
  // The whole outline is within the picture, in its middle.
  const Ring globe = projection->Globe()[0];
  for (const TwipPoint point : globe) {
    EXPECT_TRUE(point.x >= 0 && point.x <= 20'000 && point.y >= 0 && point.y <= 12'000);
  }
}

TEST(Projections, LambertIsTrueAtItsTwoParallels) {
  const auto projection = MakeProjection(ProjectionKind::kLambert, kNorth, false);
  const auto scale = [&](double lat) {
    return Length(At(*projection, {14, lat}), At(*projection, {16, lat})) /
           data::GreatCircleMetres({14, lat}, {16, lat}).value();
  };
  const double south = 34 + 38 / 6.0;
  const double north = 72 - 38 / 6.0;
  EXPECT_NEAR(scale(south) / scale(north), 1, 5e-3);
  EXPECT_LT(scale(53) / scale(south), 0.985);
  // Meridians are straight and lean towards each other.
  const TwipPoint a = At(*projection, {0, 40});
  const TwipPoint b = At(*projection, {0, 50});
  const TwipPoint c = At(*projection, {0, 60});
  EXPECT_NEAR(static_cast<double>(b.x - a.x) / (b.y - a.y), static_cast<double>(c.x - b.x) / (c.y - b.y),
              5e-3);
  EXPECT_GT(c.x, a.x);
}

TEST(Projections, OrthographicIsTheGlobeFromAfar) {
  const auto projection = MakeProjection(ProjectionKind::kOrthographic, kWorld, true);
  const double radius = At(*projection, {90, 0}).x - 10'000.0;
  EXPECT_NEAR(radius, 12'000 * 0.48, 2);
  for (const GeoPosition position : {GeoPosition{30, 40}, GeoPosition{-60, -50}, GeoPosition{80, 10}}) {
    const TwipPoint place = At(*projection, position);
    EXPECT_NEAR(place.x,
                10'000 + radius * std::cos(position.lat * kRadian) * std::sin(position.lon * kRadian), 2);
    EXPECT_NEAR(place.y, 6'000 - radius * std::sin(position.lat * kRadian), 2);
  }
  EXPECT_FALSE(projection->Project({100, 0}));
  EXPECT_FALSE(projection->Project({180, 10}));
}

TEST(Projections, WhatIsAskedForFillsThePicture) {
  for (const ProjectionKind kind : kKinds) {
    const auto projection = MakeProjection(kind, kNorth, false);
    const TwipPoint centre = At(*projection, {15, 53});
    EXPECT_NEAR(centre.x, 10'000, 10) << static_cast<int>(kind);
    EXPECT_NEAR(centre.y, 6'000, 1'500) << static_cast<int>(kind);
    for (const GeoPosition corner : {GeoPosition{-9.9, 71.9}, GeoPosition{39.9, 34.1}})
      EXPECT_TRUE(projection->Project(corner)) << static_cast<int>(kind);
    EXPECT_TRUE(projection->Project({15, 71.9}).value_or(TwipPoint{0, 9'999}).y < 700)
        << static_cast<int>(kind);
  }
}

TEST(Projections, ALineThroughTheSeamEndsThereOnBothSides) {
  const auto projection = MakeProjection(ProjectionKind::kRobinson, kWorld, true);
  const Parts parts = PartsOf(*projection, {{170, 40}, {-170, 40}});
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[0].back().y, parts[1].front().y);
  EXPECT_NEAR(parts[0].back().x + parts[1].front().x, 20'000, 2);
  EXPECT_EQ(parts[0].back(), At(*projection, {179.999999, 40}));
  EXPECT_EQ(parts[1].back(), At(*projection, {-170, 40}));
}

TEST(Projections, TheSeamIsOppositeTheView) {
  const auto projection = MakeProjection(ProjectionKind::kRobinson, kPacific, false);
  EXPECT_EQ(PartsOf(*projection, {{170, 40}, {-170, 40}}).size(), 1U);
}

TEST(Projections, LinesAreCurvedWithinATwip) {
  for (const ProjectionKind kind : kKinds) {
    const auto projection = MakeProjection(kind, kNorth, false);
    const Parts parts = PartsOf(*projection, {{-5, 60}, {35, 60}});
    ASSERT_EQ(parts.size(), 1U) << static_cast<int>(kind);
    EXPECT_EQ(parts[0].size() > 2, kind != ProjectionKind::kPlateCarree)
        << static_cast<int>(kind) << ": " << parts[0].size();
    const TwipPoint place = At(*projection, {15.123, 60});
    double nearest = 1e9;
    for (std::size_t i = 1; i < parts[0].size(); ++i) {
      const TwipPoint from = parts[0][i - 1];
      const TwipPoint to = parts[0][i];
      if (from.x <= place.x && place.x <= to.x && from.x < to.x)
        nearest = std::fabs(
            from.y + static_cast<double>(place.x - from.x) / (to.x - from.x) * (to.y - from.y) - place.y);
    }
    EXPECT_LE(nearest, 3) << static_cast<int>(kind);
  }
}

TEST(Projections, LinesEndAtTheHorizon) {
  const auto projection = MakeProjection(ProjectionKind::kOrthographic, kWorld, true);
  const double radius = At(*projection, {90, 0}).x - 10'000.0;
  const Parts parts = PartsOf(*projection, {{20, 10}, {150, 60}, {-150, 60}, {-20, 10}});
  ASSERT_EQ(parts.size(), 2U);
  EXPECT_EQ(parts[0].front(), At(*projection, {20, 10}));
  EXPECT_NEAR(Length(parts[0].back(), {10'000, 6'000}), radius, 2);
  EXPECT_NEAR(Length(parts[1].front(), {10'000, 6'000}), radius, 2);
  EXPECT_EQ(parts[1].back(), At(*projection, {-20, 10}));
  EXPECT_EQ(PartsOf(*projection, {{150, 10}, {-150, 10}}), Parts{});
}

TEST(Projections, AWayOverThePoleIsDrawnOnTheGlobe) {
  const map::Viewport arctic = Showing(-40, 89, 40, 50);
  const auto projection = MakeProjection(ProjectionKind::kOrthographic, arctic, false);
  const Parts parts = PartsOf(*projection, data::GreatCircleLine({0, 75}, {180, 75}, 0.01));
  ASSERT_EQ(parts.size(), 1U);
  for (const TwipPoint point : parts[0])
    EXPECT_NEAR(point.x, 10'000, 2);
}

// Areas

/// A continent at both sides of 180 degrees with a lake, one around the South Pole, and a third one.
const std::vector<GeoRing> kLand = {
    {{100, -20}, {180, -20}, {180, 50}, {100, 50}},
    {{-180, -20}, {-150, -20}, {-150, 50}, {-180, 50}},
    {{120, 0}, {120, 30}, {140, 30}, {140, 0}},
    {{-180, -70}, {-180, -90}, {180, -90}, {180, -70}, {90, -68}, {0, -65}, {-90, -75}},
    {{-10, 40}, {40, 35}, {60, 70}, {0, 65}}};

template <typename Point, typename Place>
bool IsInsideOdd(Place place, const std::vector<std::vector<Point>>& rings) {
  bool inside = false;
  for (const auto& ring : rings) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const auto [x, y] = ring[i];
      const auto [nextX, nextY] = ring[(i + 1) % ring.size()];
      if ((x > place.first) != (nextX > place.first) &&
          place.second >
              y + (static_cast<double>(nextY) - y) * (place.first - x) / (static_cast<double>(nextX) - x))
        inside = !inside;
    }
  }
  return inside;
}

bool IsLand(GeoPosition position) {
  return IsInsideOdd(std::pair(position.lon, position.lat), kLand);
}

/// Neither a shore nor the edge of the picture or of the globe is near.
bool IsClear(GeoPosition position, const Projection& projection) {
  constexpr double kNear = 1.5;
  const double aside = kNear / std::max(std::cos(position.lat * kRadian), 0.05);
  const GeoPosition neighbours[] = {{position.lon - aside, position.lat},
                                    {position.lon + aside, position.lat},
                                    {position.lon, position.lat - kNear},
                                    {position.lon, position.lat + kNear}};
  return std::all_of(std::begin(neighbours), std::end(neighbours), [&](GeoPosition other) {
    return IsLand(other) == IsLand(position) && projection.Project(other);
  });
}

TEST(Projections, EveryPositionIsOnTheSameSideOfTheShores) {
  test::TestRandom random(2212);
  std::uniform_real_distribution<double> lon(-179.9, 179.9);
  std::uniform_real_distribution<double> lat(-89.9, 89.9);
  const map::Viewport antarctic = Showing(-90, -40, 90, -89);
  const map::Viewport lake = Showing(125, 25, 135, 5);
  for (const map::Viewport& viewport : {kWorld, kPacific, kNorth, antarctic, lake}) {
    for (const ProjectionKind kind : kKinds) {
      if (kind == ProjectionKind::kLambert && &viewport == &kWorld)
        continue;
      std::unique_ptr<Projection> projection;
      try {
        projection = MakeProjection(kind, viewport, false);
      } catch (const base::UsageError&) {
        continue;
      }
      const std::vector<Ring> area = projection->ProjectArea(kLand);
      int seen = 0;
      for (int i = 0; i < 60'000 && seen < 1'000; ++i) {
        const GeoPosition position{lon(random), lat(random)};
        const auto place = projection->Project(position);
        if (!place || !IsClear(position, *projection))
          continue;
        ++seen;
        ASSERT_EQ(IsInsideOdd(std::pair(static_cast<double>(place->x), static_cast<double>(place->y)), area),
                  IsLand(position))
            << position.lon << ' ' << position.lat << " by "
            << kProjectionNames[static_cast<std::size_t>(kind)];
      }
      EXPECT_GT(seen, 20);
    }
  }
}

TEST(Projections, AnAreaThatHidesTheWholeGlobeOrNothingIsRight) {
  const auto projection = MakeProjection(ProjectionKind::kOrthographic, kWorld, true);
  const std::vector<GeoRing> world{{{-180, -90}, {180, -90}, {180, 90}, {-180, 90}}};
  const std::vector<Ring> area = projection->ProjectArea(world);
  EXPECT_TRUE(IsInsideOdd(std::pair(10'001.0, 6'001.0), area));
  EXPECT_FALSE(IsInsideOdd(std::pair(10'001.0, 100.0), area));
  EXPECT_TRUE(projection->ProjectArea({}).empty());
  const std::vector<GeoRing> behind{{{150, -20}, {170, -20}, {170, 20}, {150, 20}}};
  EXPECT_TRUE(projection->ProjectArea(behind).empty());
}

TEST(Projections, AreasStayNearThePicture) {
  const map::Viewport small = Showing(20, 61, 22, 60);
  for (const ProjectionKind kind : kKinds) {
    for (const Ring& ring : MakeProjection(kind, small, false)->ProjectArea(kLand)) {
      for (const TwipPoint point : ring) {
        EXPECT_TRUE(point.x > -400 && point.x < 20'400 && point.y > -400 && point.y < 12'400)
            << point.x << ' ' << point.y << ' ' << kProjectionNames[static_cast<std::size_t>(kind)];
      }
    }
  }
}

// Data of the base map

TEST(Projections, SeeTheDataOfTheirView) {
  test::TestRandom random(2213);
  std::uniform_real_distribution<double> lon(-180, 180);
  std::uniform_real_distribution<double> lat(-90, 90);
  const map::Viewport small = Showing(-3, 64, 9, 58);
  for (const map::Viewport& viewport : {kWorld, kPacific, kNorth, small, Showing(-60, 89, 60, 60)}) {
    for (const ProjectionKind kind : kKinds) {
      if (kind == ProjectionKind::kLambert && viewport.MapLonSpan() > 300)
        continue;
      const auto projection = MakeProjection(kind, viewport, false);
      const data::StoredBounds bounds = StoredBoundsOf(projection->Visible());
      for (int i = 0; i < 5'000; ++i) {
        const GeoPosition position{lon(random), lat(random)};
        if (!projection->Project(position))
          continue;
        ASSERT_TRUE(bounds.Contain({static_cast<std::int32_t>((position.lon + 180) * 1e6),
                                    static_cast<std::int32_t>((90 - position.lat) * 1e6)}))
            << position.lon << ' ' << position.lat << " by "
            << kProjectionNames[static_cast<std::size_t>(kind)];
      }
    }
  }
}

TEST(Projections, TilesAreThoseThatTheViewTouches) {
  EXPECT_EQ(TilesIn({5, 15, 55, 60}), (std::vector<std::string>{"IC"}));
  EXPECT_EQ(TilesIn({-185, -175, 45, 55}), (std::vector<std::string>{"AC", "AE", "QC", "QE"}));
  EXPECT_EQ(TilesIn({-180, 180, -90, 90}).size(), 81U);
}

TEST(Projections, LambertNeedsAViewOnOneSideOfTheEquator) {
  EXPECT_THROW(MakeProjection(ProjectionKind::kLambert, kWorld, true), base::UsageError);
  EXPECT_THROW(MakeProjection(ProjectionKind::kLambert, Showing(0, 20, 30, -20), false), base::UsageError);
  EXPECT_NO_THROW(MakeProjection(ProjectionKind::kLambert, Showing(0, -10, 30, -40), false));
}

}  // namespace
}  // namespace zerbal::print
