#include "print/label_placement.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "print/box_grid.h"
#include "support/test_random.h"

namespace zerbal::print {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Places = std::vector<std::optional<std::size_t>>;

constexpr TwipBox kLabelArea{0, 0, 10000, 10000};
constexpr TwipBox kA{100, 100, 400, 200};
constexpr TwipBox kB{500, 100, 800, 200};
constexpr TwipBox kC{900, 100, 1200, 200};

Places PlacesOf(const std::vector<LabelRequest>& labels, const std::vector<TwipBox>& obstacles = {}) {
  return PlaceLabels(labels, obstacles, kLabelArea);
}

TEST(PlaceLabels, TakesTheFirstFreePlace) {
  EXPECT_THAT(PlacesOf({{0, {kA, kB}}}), ElementsAre(0));
  EXPECT_THAT(PlacesOf({{0, {kA, kB}}, {0, {kA, kB}}}), ElementsAre(0, 1));
  EXPECT_THAT(PlacesOf({{0, {kA}}, {0, {}}}), ElementsAre(0, std::nullopt));
  EXPECT_THAT(PlacesOf({}), IsEmpty());
}

TEST(PlaceLabels, LetsHigherPrioritiesChooseFirst) {
  EXPECT_THAT(PlacesOf({{1, {kA}}, {2, {kA}}, {2, {kA}}}), ElementsAre(std::nullopt, 0, std::nullopt));
}

TEST(PlaceLabels, StaysInsideTheAreaAndBesideObstacles) {
  const TwipBox outside{9900, 100, 10001, 200};
  const TwipBox onTheEdge{9900, 100, 10000, 200};
  EXPECT_THAT(PlacesOf({{0, {outside, onTheEdge}}}), ElementsAre(1));
  EXPECT_THAT(PlacesOf({{0, {outside}}}), ElementsAre(std::nullopt));
  EXPECT_THAT(PlacesOf({{0, {kA, kB}}}, {TwipBox{399, 199, 500, 300}}), ElementsAre(1));
  // A shared edge is no overlap.
  EXPECT_THAT(PlacesOf({{0, {kA}}}, {TwipBox{400, 100, 500, 200}}), ElementsAre(0));
}

TEST(PlaceLabels, MovesALabelToMakeRoom) {
  EXPECT_THAT(PlacesOf({{2, {kA, kB}}, {1, {kA}}}), ElementsAre(1, 0));
}

TEST(PlaceLabels, MovesTwoLabelsToMakeRoom) {
  const TwipBox both{300, 100, 600, 200};
  const TwipBox below{100, 500, 400, 600};
  EXPECT_THAT(PlacesOf({{2, {kA, kC}}, {2, {kB, below}}, {1, {both}}}), ElementsAre(1, 1, 0));
}

TEST(PlaceLabels, LeavesLabelsThatCannotMoveBoth) {
  const TwipBox both{300, 100, 600, 200};
  EXPECT_THAT(PlacesOf({{2, {kA, kC}}, {2, {kB}}, {1, {both}}}), ElementsAre(0, 0, std::nullopt));
}

TEST(PlaceLabels, MovesBackToABetterPlaceThatBecameFree) {
  // The third label moves the first one away, which was in the way of the second.
  const TwipBox rightOfA{350, 100, 600, 200};
  const TwipBox leftOfA{50, 100, 150, 200};
  const TwipBox low{100, 500, 400, 600};
  EXPECT_THAT(PlacesOf({{3, {kA, kC}}, {2, {rightOfA, low}}, {1, {leftOfA}}}), ElementsAre(1, 0, 0));
}

struct RandomMap {
  std::vector<LabelRequest> labels;
  std::vector<TwipBox> obstacles;
};

RandomMap MakeRandomMap(std::uint32_t seed, std::size_t markers, std::int32_t side) {
  test::TestRandom random(seed);
  std::uniform_int_distribution<std::int32_t> place(0, side);
  std::uniform_int_distribution<std::int32_t> width(200, 900);
  RandomMap map;
  for (std::size_t i = 0; i < markers; ++i) {
    const TwipPoint centre{place(random), place(random)};
    map.obstacles.push_back(TwipBox::Around(centre, 30));
    map.labels.push_back(
        {static_cast<long>(place(random) % 7), PlacesAround(centre, 30, 20, {width(random), 150})});
  }
  return map;
}

TEST(PlaceLabels, NeverOverlapsAnything) {
  constexpr std::int32_t kSide = 12000;
  const TwipBox area{0, 0, kSide, kSide};
  const RandomMap map = MakeRandomMap(71, 500, kSide);
  const Places chosen = PlaceLabels(map.labels, map.obstacles, area);
  std::vector<TwipBox> boxes;
  for (std::size_t i = 0; i < chosen.size(); ++i)
    if (chosen[i])
      boxes.push_back(map.labels[i].places[*chosen[i]]);
  EXPECT_GT(boxes.size(), 150U);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    EXPECT_TRUE(area.Holds(boxes[i]));
    for (const TwipBox& obstacle : map.obstacles)
      EXPECT_FALSE(boxes[i].Overlaps(obstacle));
    for (std::size_t k = 0; k < i; ++k)
      EXPECT_FALSE(boxes[i].Overlaps(boxes[k]));
  }
}

TEST(PlaceLabels, LeavesOutNothingThatHasAFreePlace) {
  constexpr std::int32_t kSide = 12000;
  const RandomMap map = MakeRandomMap(72, 400, kSide);
  const Places chosen = PlaceLabels(map.labels, map.obstacles, {0, 0, kSide, kSide});
  const auto isFree = [&](const TwipBox& box) {
    for (std::size_t i = 0; i < chosen.size(); ++i)
      if (chosen[i] && map.labels[i].places[*chosen[i]].Overlaps(box))
        return false;
    for (const TwipBox& obstacle : map.obstacles)
      if (obstacle.Overlaps(box))
        return false;
    return TwipBox{0, 0, kSide, kSide}.Holds(box);
  };
  for (std::size_t i = 0; i < chosen.size(); ++i) {
    if (chosen[i])
      continue;
    for (const TwipBox& box : map.labels[i].places)
      EXPECT_FALSE(isFree(box)) << i;
  }
}

TEST(BoxGrid, FindsBoxesBeyondItsArea) {
  BoxGrid grid({0, 0, 1000, 1000});
  grid.Add(3, {-500, -500, -400, -400});
  grid.Add(1, {-450, -450, 5000, 5000});
  EXPECT_THAT(grid.Overlapping({-420, -420, -410, -410}), ElementsAre(1, 3));
  EXPECT_THAT(grid.Overlapping({4000, 4000, 4001, 4001}), ElementsAre(1));
  grid.Remove(1, {-450, -450, 5000, 5000});
  EXPECT_THAT(grid.Overlapping({-420, -420, -410, -410}), ElementsAre(3));
  EXPECT_FALSE(grid.Overlaps({4000, 4000, 4001, 4001}));
}

TEST(PlacesAround, AreBesideTheMarker) {
  constexpr TwipPoint kCentre{1000, 1000};
  constexpr TwipSize kSize{300, 100};
  const TwipBox marker = TwipBox::Around(kCentre, 30);
  const auto places = PlacesAround(kCentre, 30, 20, kSize);
  ASSERT_EQ(places.size(), 16U);
  EXPECT_EQ(places[0], (TwipBox{1035, 1035, 1335, 1135}));
  EXPECT_EQ(places[3], (TwipBox{665, 865, 965, 965}));
  EXPECT_EQ(places[4], (TwipBox{1050, 950, 1350, 1050}));
  EXPECT_EQ(places[7], (TwipBox{850, 850, 1150, 950}));
  for (const TwipBox& place : places)
    EXPECT_FALSE(place.Overlaps(marker));
}

TEST(PlacesAlong, AreOnBothSidesOfTheLine) {
  const TwipPoint line[] = {{0, 1000}, {1000, 1000}, {1000, 1000}, {2000, 1000}};
  const auto places = PlacesAlong(line, 10, {300, 100});
  ASSERT_EQ(places.size(), 33U);
  EXPECT_EQ(places[0], (TwipBox{850, 890, 1150, 990}));
  EXPECT_EQ(places[1], (TwipBox{850, 1010, 1150, 1110}));
  EXPECT_EQ(places[2], (TwipBox{690, 890, 990, 990}));
  EXPECT_EQ(places[22], (TwipBox{850, 950, 1150, 1050}));
}

TEST(PlacesAlong, KeepDistanceFromSteepLines) {
  const TwipPoint line[] = {{1000, 0}, {1000, 2000}};
  const auto places = PlacesAlong(line, 10, {300, 100});
  EXPECT_EQ(places[0], (TwipBox{1010, 950, 1310, 1050}));
  EXPECT_EQ(places[1], (TwipBox{690, 950, 990, 1050}));
}

TEST(PlacesAlong, NeedALength) {
  const TwipPoint point[] = {{5, 5}, {5, 5}};
  EXPECT_THAT(PlacesAlong(point, 10, {300, 100}), IsEmpty());
  EXPECT_THAT(PlacesAlong({}, 10, {300, 100}), IsEmpty());
}

}  // namespace
}  // namespace zerbal::print
