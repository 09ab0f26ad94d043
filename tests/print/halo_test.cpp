#include "print/halo.h"

#include <gtest/gtest.h>

#include "support/pictures.h"

namespace zerbal::print {
namespace {

TEST(Halo, ReachesAsFarAroundTheLetters) {
  const paint::Mask point{10, 20, 1, 1, {255}};
  const paint::Mask halo = Thickened(point, 2);
  EXPECT_EQ(halo.left, 8);
  EXPECT_EQ(halo.top, 18);
  ASSERT_EQ(halo.width, 5);
  ASSERT_EQ(halo.height, 5);
  EXPECT_EQ(halo.coverage[12], 255);  // the pixel itself
  EXPECT_EQ(halo.coverage[13], 255);
  EXPECT_EQ(halo.coverage[14], 128);  // two pixels away: the edge
  EXPECT_EQ(halo.coverage[0], 0);     // the corner, 2.8 pixels away
}

TEST(Halo, NothingHasNone) {
  EXPECT_TRUE(Thickened({}, 2).coverage.empty());
}

TEST(Halo, IsDrawnOnlyForPreparedLetters) {
  QImage rows = test::Blank(60, 30);
  paint::PreparedPictures prepared;
  Halos halos(prepared, 1);
  const map::TextFont font{"Liberation Sans", 8};
  EXPECT_FALSE(halos.Draw(rows, {0, 30}, {75, 75}, "A\xCC\x8A", font, {255, 0, 0}));
  EXPECT_TRUE(test::InkBounds(rows).isNull());
  EXPECT_TRUE(halos.Draw(rows, {0, 30}, {75, 75}, "OSL", font, {255, 0, 0}));
  EXPECT_FALSE(test::InkBounds(rows).isNull());
}

TEST(Halo, OutsideThePictureNothingIsDrawn) {
  QImage rows = test::Blank(20, 10);
  paint::PreparedPictures prepared;
  Halos halos(prepared, 1);
  for (const TwipPoint place : {TwipPoint{-900, 0}, TwipPoint{900, 0}, TwipPoint{0, -900}, TwipPoint{0, 900}})
    EXPECT_TRUE(halos.Draw(rows, {0, 10}, place, "OSL", {"Liberation Sans", 8}, {255, 0, 0}));
  EXPECT_TRUE(test::InkBounds(rows).isNull());
}

}  // namespace
}  // namespace zerbal::print
