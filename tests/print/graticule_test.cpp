#include "print/graticule.h"

#include <map>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/grid.h"
#include "print/plate_carree.h"

namespace zerbal::print {
namespace {

using testing::ElementsAre;

/// A view of 4 x 3 degrees per picture of 4000 x 3000 twips.
map::Viewport ViewOf(float west, float top, float east, float bottom) {
  map::Viewport view(data::kGridBands);
  view.SetSize((east - west) * 100, (bottom - top) * 100);
  data::Region region;
  region.fromLon = west;
  region.fromLat = top;
  region.toLon = east;
  region.toLat = bottom;
  view.SelectRegion(region);
  view.ComputeViewport();
  return view;
}

std::vector<std::string> TextsOf(const std::vector<GraticuleLine>& lines) {
  std::vector<std::string> texts;
  for (const GraticuleLine& line : lines)
    texts.push_back(line.text);
  return texts;
}

TEST(Graticule, HasEveryMeridianAndParallelInView) {
  const map::Viewport view = ViewOf(168, 75, 202, 102);  // 12 W to 22 E, 15 N to 12 S
  const auto lines = MakeGraticule(PlateCarree(view), 10);
  ASSERT_THAT(TextsOf(lines), ElementsAre("10°W", "0°", "10°E", "20°E", "10°S", "0°", "10°N"));
  EXPECT_THAT(lines[0].parts,
              ElementsAre(ElementsAre(TwipPoint{200, 2700}, TwipPoint{200, 1500}, TwipPoint{200, 0})));
  EXPECT_EQ(lines[6].parts.size(), 1U);
  EXPECT_EQ(lines[6].parts[0].front(), (TwipPoint{0, 500}));
  EXPECT_EQ(lines[6].parts[0].back(), (TwipPoint{3400, 500}));
}

TEST(Graticule, GoesOnOverTheSeam) {
  const map::Viewport view = ViewOf(345, 40, 375, 60);
  const auto lines = MakeGraticule(PlateCarree(view), 10);
  EXPECT_THAT(TextsOf(lines), ElementsAre("170°E", "180°", "170°W", "30°N", "40°N", "50°N"));
  for (const GraticuleLine& line : lines)
    EXPECT_EQ(line.parts.size(), 1U) << line.text;
}

TEST(Graticule, TakesFractionsOfDegrees) {
  const map::Viewport view = ViewOf(180, 45, 182, 46);
  EXPECT_THAT(TextsOf(MakeGraticule(PlateCarree(view), 0.7)),
              ElementsAre("0°", "0.7°E", "1.4°E", "44.1°N", "44.8°N"));
}

/// All meridians meet in the middle of the picture.
class Polar final : public Projection {
 public:
  std::optional<TwipPoint> Project(GeoPosition position) const override {
    if (position.lat < 0)
      return std::nullopt;
    return TwipPoint{position.lat == 90 ? 0 : static_cast<std::int32_t>(position.lon), 0};
  }
  std::optional<GeoPosition> Unproject(TwipPoint) const override { return std::nullopt; }
  void ProjectLine(std::span<const GeoPosition> line, const LineSink& part) const override {
    const TwipPoint ends[] = {{static_cast<std::int32_t>(line.front().lat), 0},
                              {static_cast<std::int32_t>(line.back().lat), 0}};
    part(ends);
  }
  std::vector<Ring> ProjectArea(std::span<const GeoRing>) const override { return {}; }
  std::vector<Ring> Globe() const override { return {}; }
  GeoBox Visible() const override { return {.west = -180, .east = 180, .south = 0, .north = 90}; }
  double TwipsPerDegree() const override { return 1; }
};

TEST(Graticule, MostMeridiansEndBeforeThePoleWhereTheyMeet) {
  std::map<std::string, std::int32_t> ends;
  for (const GraticuleLine& line : MakeGraticule(Polar(), 20))
    ends[line.text] = line.parts[0].back().x;
  EXPECT_EQ(ends.at("20°E"), 80);
  EXPECT_EQ(ends.at("180°"), 90);
  EXPECT_EQ(ends.at("0°"), 0);  // the equator, which came last
  EXPECT_EQ(ends.count("90°E"), 0U);
  for (const GraticuleLine& line : MakeGraticule(Polar(), 30))
    ends[line.text] = line.parts[0].back().x;
  EXPECT_EQ(ends.at("30°E"), 60);
  EXPECT_EQ(ends.at("90°E"), 90);
}

}  // namespace
}  // namespace zerbal::print
