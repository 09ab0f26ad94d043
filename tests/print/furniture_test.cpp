#include "print/furniture.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/great_circle.h"
#include "print/print_recorder.h"

namespace zerbal::print {
namespace {

using enum Corner;
using Kind = PrintOperation::Kind;

constexpr TwipBox kPicture{0, 0, 12000, 9000};
constexpr std::int32_t kPadding = 90;

PrintStyle MakeStyle() {
  PrintStyle style;
  style.text = {1, 1, 1};
  style.box = {2, 2, 2};
  style.frame = {3, 3, 3};
  style.legend = {.name = "Sans", .size = 8};  // 80 x 160 twips a letter
  style.title = {.name = "Sans", .size = 20};  // 200 x 400 twips
  return style;
}

/// Degrees are 100 twips; turned by `angle` around the middle of the picture, which is 50 north, 10 east.
class TurnedPlane final : public Projection {
 public:
  explicit TurnedPlane(double angle) : sin_(std::sin(angle)), cos_(std::cos(angle)) {}

  std::optional<TwipPoint> Project(GeoPosition position) const override {
    const double right = (position.lon - 10) * 100;
    const double up = (position.lat - 50) * 100;
    return TwipPoint{static_cast<std::int32_t>(std::lround(6000 + right * cos_ + up * sin_)),
                     static_cast<std::int32_t>(std::lround(4500 + right * sin_ - up * cos_))};
  }
  std::optional<GeoPosition> Unproject(TwipPoint place) const override {
    if (onlyMiddle && (std::abs(place.x - 6000) > 1000 || std::abs(place.y - 4500) > 1000))
      return std::nullopt;
    const double x = place.x - 6000;
    const double y = 4500 - place.y;
    return GeoPosition{10 + (x * cos_ - y * sin_) / 100, 50 + (x * sin_ + y * cos_) / 100};
  }
  void ProjectLine(std::span<const GeoPosition>, const LineSink&) const override {}
  std::vector<Ring> ProjectArea(std::span<const GeoRing>) const override { return {}; }
  std::vector<Ring> Globe() const override { return {}; }
  GeoBox Visible() const override { return {}; }
  double TwipsPerDegree() const override { return 100; }

  bool onlyMiddle = false;

 private:
  double sin_, cos_;
};

class FurniturePieces : public testing::Test {
 protected:
  std::vector<PrintOperation> Drawn(const FurnitureItem& item, TwipPoint at = {1000, 1000}) {
    PrintRecorder recorder;
    item.draw(TwipBox::At(at, item.piece.size), recorder);
    return recorder.Operations();
  }

  PrintStyle style_ = MakeStyle();
  PrintRecorder meter_;
  FurnitureMaker maker_{style_, kPicture, meter_};
};

TEST_F(FurniturePieces, TitleStandsInItsBox) {
  const FurnitureItem title = maker_.Title("Routes");
  EXPECT_EQ(title.piece.size, (TwipSize{1200 + 2 * kPadding, 400 + kPadding}));
  const auto drawn = Drawn(title);
  ASSERT_EQ(drawn.size(), 3U);
  EXPECT_EQ(drawn[0].kind, Kind::kFill);
  EXPECT_EQ(drawn[0].colour, style_.box);
  EXPECT_EQ(drawn[0].rings, (std::vector<Ring>{{{1000, 1000}, {2380, 1000}, {2380, 1490}, {1000, 1490}}}));
  EXPECT_EQ(drawn[1].stroke, (StrokeStyle{.colour = style_.frame, .width = 1}));
  EXPECT_EQ(drawn[1].points.front(), drawn[1].points.back());
  EXPECT_EQ(drawn[2].points[0], (TwipPoint{1090, 1045}));
  EXPECT_EQ(drawn[2].style, (TextStyle{.font = style_.title, .colour = style_.text}));
}

TEST_F(FurniturePieces, LongTitleIsSmaller) {
  const auto drawn = Drawn(maker_.Title(std::string(80, 'x')));  // 11580 twips are left: 144 a letter
  EXPECT_EQ(drawn.back().style.font.size, 14);
  EXPECT_EQ(drawn.back().text.size(), 80U);
}

TEST_F(FurniturePieces, VeryLongTitleIsCut) {
  std::string title;
  for (int i = 0; i < 300; ++i)
    title += "é";
  const auto drawn = Drawn(maker_.Title(title));
  EXPECT_EQ(drawn.back().style.font.size, 6);
  EXPECT_EQ(drawn.back().text.substr(drawn.back().text.size() - 5), "é…");
  EXPECT_LE(meter_.Measure(drawn.back().text, drawn.back().style.font).width, 11580);
}

TEST_F(FurniturePieces, LegendHasSamplesBesideTexts) {
  const FurnitureItem legend = maker_.Legend(
      {{.text = "Head", .heading = true}, {.text = "Red", .sample = {.colour = {200, 0, 0}, .width = 12}}},
      kTopRight);
  EXPECT_EQ(legend.piece.wanted, kTopRight);
  // A row is as high as the thickest line with two pixels more.
  EXPECT_EQ(legend.piece.size, (TwipSize{360 + 90 + 240 + 2 * kPadding, 2 * 210 + 2 * kPadding}));
  const auto drawn = Drawn(legend, {0, 0});
  ASSERT_EQ(drawn.size(), 5U);
  EXPECT_EQ(drawn[2].text, "Head");
  EXPECT_EQ(drawn[2].points[0], (TwipPoint{90, 90 + 105 - 80}));
  EXPECT_EQ(drawn[3].points, (std::vector<TwipPoint>{{90, 405}, {450, 405}}));
  EXPECT_EQ(drawn[3].stroke, (StrokeStyle{.colour = {200, 0, 0}, .width = 12}));
  EXPECT_EQ(drawn[4].points[0], (TwipPoint{540, 405 - 80}));
}

TEST_F(FurniturePieces, ScaleBarHasTheLengthInTheMiddleOfThePicture) {
  const auto scale = maker_.Scale(TurnedPlane(0), std::nullopt);
  ASSERT_TRUE(scale);
  const auto drawn = Drawn(*scale, {0, 0});
  ASSERT_EQ(drawn.size(), 5U);
  EXPECT_EQ(drawn[2].text, "2000\u00A0km at 50°N");
  const double degree = *data::GreatCircleMetres({9.5, 50}, {10.5, 50});
  const std::int32_t length = drawn[4].points[1].x - drawn[4].points[0].x;
  EXPECT_NEAR(length, 2'000'000 / degree * 100, 3);
  EXPECT_EQ(drawn[3].rings[0][1].x - drawn[3].rings[0][0].x, length / 2);
}

TEST_F(FurniturePieces, ScaleBarNeedsAScale) {
  class Nowhere : public Projection {
   public:
    std::optional<TwipPoint> Project(GeoPosition) const override { return std::nullopt; }
    std::optional<GeoPosition> Unproject(TwipPoint) const override { return std::nullopt; }
    void ProjectLine(std::span<const GeoPosition>, const LineSink&) const override {}
    std::vector<Ring> ProjectArea(std::span<const GeoRing>) const override { return {}; }
    std::vector<Ring> Globe() const override { return {}; }
    GeoBox Visible() const override { return {}; }
    double TwipsPerDegree() const override { return 100; }
  };
  EXPECT_FALSE(maker_.Scale(Nowhere(), std::nullopt));
}

TEST_F(FurniturePieces, ArrowPointsNorth) {
  const double kQuarter = std::acos(0.0);
  for (const bool onlyMiddle : {false, true}) {
    TurnedPlane plane(kQuarter);
    plane.onlyMiddle = onlyMiddle;
    const auto drawn = Drawn(maker_.North(plane, std::nullopt), {0, 0});
    ASSERT_EQ(drawn.size(), 5U);
    // The box is 660 twips wide; north is on the right.
    EXPECT_EQ(drawn[2].rings[0], (Ring{{330 + 150, 330}, {330 - 240, 330 - 105}, {330 - 165, 330}}));
    EXPECT_EQ(drawn[4].text, "N");
    EXPECT_EQ(drawn[4].points[0], (TwipPoint{330 + 240 - 40, 330 - 80}));
  }
  const TurnedPlane plane(0);
  const auto upright = Drawn(maker_.North(plane, std::nullopt), {0, 4000});
  EXPECT_EQ(upright[2].rings[0].front(), (TwipPoint{330, 4180}));
}

TEST_F(FurniturePieces, AreDrawnWhereTheyHaveFoundAPlace) {
  const auto item = [](TwipSize size, Corner corner) {
    return FurnitureItem{{size, corner, {}}, [](const TwipBox& box, PrintSurface& surface) {
                           surface.Fill({}, {});
                           surface.StyledText(box.TopLeft(), "here", {});
                         }};
  };
  const Furniture furniture({item({1000, 500}, kTopLeft), item({20000, 500}, kTopRight)}, kPicture, {});
  EXPECT_EQ(furniture.Boxes(), (std::vector<TwipBox>{{120, 120, 1120, 620}}));
  PrintRecorder recorder;
  furniture.Draw(recorder);
  ASSERT_EQ(recorder.Operations().size(), 2U);
  EXPECT_EQ(recorder.Operations()[1].points[0], (TwipPoint{120, 120}));
}

}  // namespace
}  // namespace zerbal::print
