#include "print/area_fill.h"

#include <QPainter>
#include <QPainterPath>
#include <random>

#include <gtest/gtest.h>

#include "support/pictures.h"
#include "support/test_random.h"

namespace zerbal::print {
namespace {

using Corners = std::vector<PixelPosition>;

QImage Filled(QSize size, const std::vector<Corners>& rings, int top = 0) {
  QImage picture = test::Blank(size.width(), size.height());
  AreaFill fill(picture, top);
  for (const Corners& ring : rings)
    for (std::size_t i = 0; i < ring.size(); ++i)
      fill.AddSide(ring[i], ring[(i + 1) % ring.size()]);
  fill.Colour(0xFF000000);
  return picture;
}

TEST(AreaFill, APixelIsAsDarkAsItIsCovered) {
  const QImage picture = Filled({4, 3}, {{{0.5, 1}, {2.25, 1}, {2.25, 1.5}, {0.5, 1.5}}});
  const auto dark = [&](int x, int y) { return 255 - qGray(picture.pixel(x, y)); };
  EXPECT_EQ(dark(0, 1), 64);
  EXPECT_EQ(dark(1, 1), 128);
  EXPECT_EQ(dark(2, 1), 32);
  EXPECT_EQ(dark(3, 1), 0);
  EXPECT_EQ(dark(1, 0), 0);
  EXPECT_EQ(dark(1, 2), 0);
}

TEST(AreaFill, WhatIsOutsideThePictureCountsOnTheRight) {
  EXPECT_EQ(test::Ink(Filled({4, 2}, {{{-9, -9}, {2, -9}, {2, 9}, {-9, 9}}})),
            (std::vector<std::string>{"##..", "##.."}));
  EXPECT_EQ(test::Ink(Filled({4, 2}, {{{2, -9}, {99, -9}, {99, 9}, {2, 9}}})),
            (std::vector<std::string>{"..##", "..##"}));
  EXPECT_EQ(test::Ink(Filled({4, 2}, {{{-5, -9}, {-2, -9}, {-2, 9}, {-5, 9}}})),
            (std::vector<std::string>{"....", "...."}));
}

TEST(AreaFill, RandomAreasLookAsQPainterFillsThem) {
  test::TestRandom random(2214);
  std::uniform_real_distribution<double> place(-30, 90);
  for (int round = 0; round < 100; ++round) {
    std::vector<Corners> rings(3);
    QPainterPath path;
    path.setFillRule(Qt::OddEvenFill);
    for (Corners& ring : rings) {
      QPolygonF polygon;
      for (int i = 0; i < 3; ++i) {
        ring.push_back({place(random), place(random)});
        polygon.append(QPointF(ring.back().x, ring.back().y));
      }
      path.addPolygon(polygon);
      path.closeSubpath();
    }
    QImage expected = test::Blank(60, 60);
    QPainter painter(&expected);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, Qt::black);
    painter.end();
    const QImage drawn = Filled({60, 60}, rings);
    int far = 0;
    for (int y = 0; y < 60; ++y)
      for (int x = 0; x < 60; ++x)
        far += std::abs(qGray(drawn.pixel(x, y)) - qGray(expected.pixel(x, y))) > 12 ? 1 : 0;
    EXPECT_LE(far, 2) << round;
  }
}

TEST(AreaFill, ABandHasTheRowsOfTheWholePicture) {
  const std::vector<Corners> rings{{{-7.3, 1.1}, {50.7, 11.9}, {20.2, 39.4}}, {{3, 3}, {33.3, 20}, {5, 38}}};
  const QImage whole = Filled({40, 40}, rings);
  for (const int top : {7, 20}) {
    const QImage band = Filled({40, 9}, rings, top);
    for (int y = 0; y < 9; ++y)
      for (int x = 0; x < 40; ++x)
        ASSERT_EQ(band.pixel(x, y), whole.pixel(x, y + top));
  }
}

}  // namespace
}  // namespace zerbal::print
