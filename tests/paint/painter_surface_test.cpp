#include "paint/painter_surface.h"

#include <QPicture>

#include <gtest/gtest.h>

#include "extremes.h"
#include "paint/picture_surface.h"
#include "support/pictures.h"

namespace zerbal::paint {
namespace {

using test::Blank;
using test::Ink;
using Rows = std::vector<std::string>;

template <typename Draw>
QImage Drawn(int width, int height, double scale, const Draw& draw) {
  QImage image = Blank(width, height);
  QPainter painter(&image);
  PainterSurface surface(painter, scale, image.rect());
  draw(surface);
  return image;
}

TEST(PainterSurface, ClearFillsItsArea) {
  QImage image = Blank(6, 4);
  QPainter painter(&image);
  PainterSurface(painter, 1, QRectF(1, 1, 3, 2)).Clear({1, 2, 3});
  painter.end();
  EXPECT_EQ(Ink(image), (Rows{"......", ".###..", ".###..", "......"}));
  EXPECT_EQ(image.pixel(1, 1), qRgb(1, 2, 3));
}

TEST(PainterSurface, DrawsCirclesThatReachIntoThePicture) {
  for (const TwipPoint centre : {TwipPoint{480, -300}, {480, 900}, {-300, 300}, {1260, 300}}) {
    const auto draw = [&](map::Surface& surface) { surface.Circle(centre, 450, kBlack, true); };
    EXPECT_GT(test::InkAmount(Drawn(64, 40, 1, draw)), 0) << centre.x << ", " << centre.y;
  }
}

TEST(PainterSurface, DrawsLinesLikeThePictureSurface) {
  const auto draw = [](map::Surface& surface) {
    const TwipPoint run[] = {{30, 30}, {31, 31}, {300, 30}, {300, 240}, {30, 240}, {30, 30}};
    surface.Polyline(run, kPen);
    surface.Line({400, 100}, {400, 100}, kPen);
  };
  PreparedPictures prepared;
  for (const double ratio : {1.0, 2.0}) {
    QImage direct = Blank(64, 40);
    PictureSurface surface(direct, ratio, prepared);
    draw(surface);
    const QImage painted = Drawn(64, 40, ratio, draw);
    EXPECT_NEAR(test::InkAmount(painted), test::InkAmount(direct), 0.1 * test::InkAmount(direct)) << ratio;
    if (ratio == 1.0) {
      EXPECT_EQ(Ink(painted), Ink(direct));
    }
  }
}

TEST(PainterSurface, SlantedLinesHaveTheWeightOfThePictureSurface) {
  for (const double ratio : {1.0, 1.5, 2.0}) {
    const auto draw = [](map::Surface& surface) {
      surface.Clear({255, 255, 255});
      surface.Line({30, 30}, {500, 210}, kPen);
      surface.Line({500, 60}, {400, 500}, kPen);
    };
    PreparedPictures prepared;
    QImage direct = Blank(100, 100);
    PictureSurface surface(direct, ratio, prepared);
    draw(surface);
    const double expected = test::InkAmount(direct);
    EXPECT_NEAR(test::InkAmount(Drawn(100, 100, ratio, draw)), expected, 0.06 * expected) << ratio;
  }
}

TEST(PainterSurface, InvertingTwiceRestoresEveryPixel) {
  QImage image = Blank(60, 60, qRgb(12, 200, 99));
  const QImage before = image.copy();
  QPainter painter(&image);
  PainterSurface surface(painter, 1.5, image.rect());
  const map::Pen pen{.colour = {255, 0, 30}, .style = map::LineStyle::kDotted, .mode = map::PenMode::kXor};
  for (const TwipPoint to :
       {TwipPoint{30, 30}, TwipPoint{30, 300}, TwipPoint{400, 300}, TwipPoint{-99999, 99999}}) {
    surface.Rectangle({30, 30}, to, pen);
    surface.Rectangle({30, 30}, to, pen);
    EXPECT_EQ(image, before) << to.x << ", " << to.y;
  }
  surface.Rectangle({30, 30}, {400, 300}, pen);
  EXPECT_NE(image, before);
}

TEST(PainterSurface, APenDoesNotAffectTheNextOperation) {
  const QImage image = Drawn(20, 10, 1, [](map::Surface& surface) {
    surface.Line({15, 15}, {200, 15},
                 {.colour = kBlack, .style = map::LineStyle::kDotted, .mode = map::PenMode::kXor});
    surface.Circle({150, 75}, 30, {255, 0, 0}, true);
    surface.Line({15, 120}, {240, 120}, {.colour = {0, 0, 255}});
  });
  EXPECT_EQ(image.pixel(10, 5), qRgb(255, 0, 0));
  for (int x = 1; x <= 16; ++x)
    EXPECT_EQ(image.pixel(x, 8), qRgb(0, 0, 255)) << x;
}

TEST(PainterSurface, AcceptsTheLargestCoordinates) {
  const QImage image = Drawn(50, 40, 2, [](map::Surface& surface) {
    const TwipPoint far[] = {
        {kFarNegative, 150}, {kFar, 150}, {kFarNegative, kFar}, {150, kFarNegative}, {150, kFar}};
    surface.Polyline(far, kPen);
    surface.Polyline(far, {.colour = kBlack, .width = 3, .style = map::LineStyle::kDotted});
    for (const TwipPoint& at : far) {
      surface.Circle(at, kFar, kBlack, true);
      surface.Text(at, "far", kBlack, {"Liberation Sans", 8});
    }
  });
  EXPECT_EQ(image.pixel(20, 39), qRgb(0, 0, 0)) << "the line down through the picture";
}

TEST(PainterSurface, DrawsOnAnyDevice) {
  QPicture recording;
  QPainter painter(&recording);
  PainterSurface surface(painter, 4, QRectF(0, 0, 400, 300));
  surface.Clear({255, 255, 255});
  surface.Line({0, 0}, {900, 900}, kPen);
  surface.Text({150, 150}, "AAA", kBlack, {"Liberation Sans", 8});
  surface.Rectangle({0, 0}, {900, 900}, {.colour = kBlack, .mode = map::PenMode::kXor});
  painter.end();
  EXPECT_GT(recording.size(), 100U);
}

}  // namespace
}  // namespace zerbal::paint
