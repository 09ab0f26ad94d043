#include "map/tee_surface.h"

#include <gtest/gtest.h>

#include "map/recorder.h"

namespace zerbal::map {
namespace {

void DrawAll(Surface& surface) {
  surface.BeginLayer(Layer::kCoast);
  surface.Clear({1, 2, 3});
  surface.Line({0, 0}, {10, 20}, {.colour = {4, 5, 6}, .width = 2});
  surface.Rectangle({1, 2}, {3, 4}, {.colour = {7, 8, 9}});
  surface.Circle({5, 6}, 30, {10, 11, 12}, true);
  surface.Text({7, 8}, "QAV", {13, 14, 15}, {"Sans", 10});
}

TEST(TeeSurface, DrawsEverythingOnBoth) {
  Recorder direct, first, second;
  DrawAll(direct);
  TeeSurface both(first, second);
  DrawAll(both);
  ASSERT_EQ(direct.Operations().size(), 5U);
  EXPECT_EQ(first.Operations(), direct.Operations());
  EXPECT_EQ(second.Operations(), direct.Operations());
}

}  // namespace
}  // namespace zerbal::map
