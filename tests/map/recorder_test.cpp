#include "map/recorder.h"

#include <gtest/gtest.h>

namespace zerbal::map {
namespace {

using Kind = Operation::Kind;

TEST(Recorder, KeepsAPolylineAsItsSegments) {
  Recorder recorder;
  recorder.BeginLayer(Layer::kCoast);
  const Pen pen{.colour = {1, 2, 3}, .width = 2, .style = LineStyle::kDotted, .mode = PenMode::kXor};
  const TwipPoint points[] = {{0, 0}, {10, 0}, {10, 20}};
  recorder.Polyline(points, pen);
  const std::vector<Operation> expected{
      {.kind = Kind::kLine, .layer = Layer::kCoast, .from = {0, 0}, .to = {10, 0}, .pen = pen},
      {.kind = Kind::kLine, .layer = Layer::kCoast, .from = {10, 0}, .to = {10, 20}, .pen = pen}};
  EXPECT_EQ(recorder.Operations(), expected);
}

TEST(Recorder, FewerThanTwoPointsDrawNothing) {
  Recorder recorder;
  const TwipPoint one[] = {{5, 5}};
  recorder.Polyline({}, {});
  recorder.Polyline(one, {});
  EXPECT_TRUE(recorder.Operations().empty());
  recorder.Line({5, 5}, {5, 5}, {});
  EXPECT_EQ(recorder.Operations().size(), 1U);
}

TEST(Recorder, KeepsEveryOtherKindInOrder) {
  Recorder recorder;
  recorder.BeginLayer(Layer::kAirports);
  recorder.Circle({1, 2}, 30, {9, 8, 7}, true);
  recorder.Text({3, 4}, "QAV", {9, 8, 7}, {"Sans", 10});
  recorder.BeginLayer(Layer::kZoomBox);
  recorder.Rectangle({1, 1}, {5, 6}, {.colour = {4, 4, 4}});
  const std::vector<Operation> expected{{.kind = Kind::kCircle,
                                         .layer = Layer::kAirports,
                                         .from = {1, 2},
                                         .radius = 30,
                                         .fill = true,
                                         .pen = {.colour = {9, 8, 7}}},
                                        {.kind = Kind::kText,
                                         .layer = Layer::kAirports,
                                         .from = {3, 4},
                                         .pen = {.colour = {9, 8, 7}},
                                         .text = "QAV",
                                         .font = {"Sans", 10}},
                                        {.kind = Kind::kRectangle,
                                         .layer = Layer::kZoomBox,
                                         .from = {1, 1},
                                         .to = {5, 6},
                                         .pen = {.colour = {4, 4, 4}}}};
  EXPECT_EQ(recorder.Operations(), expected);
}

TEST(Recorder, ClearRemovesEarlierOperations) {
  Recorder recorder;
  recorder.Line({0, 0}, {1, 1}, {});
  recorder.BeginLayer(Layer::kBackground);
  recorder.Clear({10, 20, 30});
  ASSERT_EQ(recorder.Operations().size(), 1U);
  EXPECT_EQ(recorder.Operations()[0].kind, Kind::kClear);
  EXPECT_EQ(recorder.Operations()[0].pen.colour, (data::Rgb{10, 20, 30}));
}

}  // namespace
}  // namespace zerbal::map
