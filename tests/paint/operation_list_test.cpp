#include "paint/operation_list.h"

#include <gtest/gtest.h>

#include "extremes.h"
#include "map/recorder.h"

namespace zerbal::paint {
namespace {

using map::Operation;

/// One operation of each kind between the heights 1500 and 3000.
void DrawAll(map::Surface& surface) {
  surface.BeginLayer(map::Layer::kBackground);
  surface.Clear({1, 2, 3});
  const TwipPoint points[] = {{0, 1500}, {40, 3000}, {90, 2000}};
  surface.Polyline(points, {.colour = {4, 5, 6}, .width = 2});
  surface.Rectangle({5, 1700}, {60, 2900},
                    {.colour = {7, 8, 9}, .style = map::LineStyle::kDotted, .mode = map::PenMode::kXor});
  surface.Circle({10, 2000}, 45, {10, 11, 12}, true);
  surface.Circle({10, 2000}, 450, {10, 11, 12}, false);
  surface.Text({20, 2500}, "Zürich", {13, 14, 15}, {"Some Sans", 9});
  surface.Text({20, 2600}, "", {13, 14, 15}, {"Other", 12});
}

std::vector<Operation> DrawnBetween(const OperationList& list, std::int32_t top, std::int32_t bottom) {
  map::Recorder recorder;
  recorder.BeginLayer(map::Layer::kBackground);
  list.DrawBetween(top, bottom, recorder);
  return recorder.Operations();
}

TEST(OperationList, DrawsEveryOperationAgainInItsOrder) {
  OperationList list;
  DrawAll(list);
  map::Recorder direct;
  DrawAll(direct);
  EXPECT_EQ(DrawnBetween(list, 0, 5000), direct.Operations());
  EXPECT_EQ(DrawnBetween(list, 2000, 2600), direct.Operations());
}

TEST(OperationList, OmitsWhatIsFarAboveOrBelow) {
  OperationList list;
  DrawAll(list);
  for (const auto& [top, bottom] : {std::pair(0, 100), std::pair(8000, 9000)}) {
    const std::vector<Operation> drawn = DrawnBetween(list, top, bottom);
    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_EQ(drawn[0].kind, Operation::Kind::kClear);
  }
}

TEST(OperationList, KeepsWhatReachesIn) {
  OperationList list;
  list.Line({0, 0}, {0, 1000}, kPen);
  list.Circle({0, 1400}, 400, kBlack, true);
  list.Text({0, 900}, "A", kBlack, {"Sans", 12});
  list.Line({0, kFarNegative}, {0, kFar}, kPen);
  EXPECT_EQ(DrawnBetween(list, 1005, 1010).size(), 4U);
  EXPECT_EQ(DrawnBetween(list, kFar - 5, kFar).size(), 1U);
}

TEST(OperationList, ARunOfOnePointDrawsNothing) {
  OperationList list;
  const TwipPoint point[] = {{1, 2}};
  list.Polyline(point, kPen);
  list.Polyline({}, kPen);
  EXPECT_TRUE(DrawnBetween(list, 0, 10).empty());
}

}  // namespace
}  // namespace zerbal::paint
