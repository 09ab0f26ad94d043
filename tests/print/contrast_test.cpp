#include "print/contrast.h"

#include <gtest/gtest.h>

namespace zerbal::print {
namespace {

constexpr data::Rgb kContrastBlack{0, 0, 0};
constexpr data::Rgb kContrastWhite{255, 255, 255};
constexpr data::Rgb kYellow{255, 255, 0};

TEST(Contrast, IsFromOneToTwentyOne) {
  EXPECT_DOUBLE_EQ(ContrastOf(kContrastBlack, kContrastWhite), 21);
  EXPECT_DOUBLE_EQ(ContrastOf(kContrastWhite, kContrastBlack), 21);
  EXPECT_DOUBLE_EQ(ContrastOf(kYellow, kYellow), 1);
  EXPECT_NEAR(ContrastOf({119, 119, 119}, kContrastWhite), 4.48, 0.01);
}

TEST(Contrast, OfTextIsTheLargerOne) {
  EXPECT_EQ(TextColourOn(kContrastWhite), kContrastBlack);
  EXPECT_EQ(TextColourOn(kYellow), kContrastBlack);
  EXPECT_EQ(TextColourOn({0, 0, 128}), kContrastWhite);
}

TEST(Contrast, LeavesAColourThatHasEnough) {
  EXPECT_EQ(WithContrast({200, 0, 0}, kContrastWhite, 3), (data::Rgb{200, 0, 0}));
  EXPECT_EQ(WithContrast(kYellow, kContrastBlack, 15), kYellow);
}

TEST(Contrast, DarkensOnLightAndLightensOnDarkBackgrounds) {
  const data::Rgb dark = WithContrast(kYellow, kContrastWhite, 3);
  EXPECT_GE(ContrastOf(dark, kContrastWhite), 3);
  EXPECT_LT(ContrastOf(dark, kContrastWhite), 3.4);
  EXPECT_EQ(dark.red, dark.green);
  EXPECT_EQ(dark.blue, 0);
  const data::Rgb light = WithContrast({0, 0, 160}, kContrastBlack, 3);
  EXPECT_GE(ContrastOf(light, kContrastBlack), 3);
  EXPECT_GT(light.blue, light.red);
}

TEST(Contrast, ThatIsImpossibleGivesBlackOrWhite) {
  EXPECT_EQ(WithContrast(kYellow, kContrastWhite, 22), kContrastBlack);
  EXPECT_EQ(WithContrast(kYellow, {60, 60, 60}, 22), kContrastWhite);
}

TEST(Contrast, MixesParts) {
  EXPECT_EQ(Mixed({0, 100, 200}, {100, 0, 200}, 0.25), (data::Rgb{25, 75, 200}));
  EXPECT_EQ(Mixed(kContrastBlack, kContrastWhite, 7), kContrastWhite);
}

}  // namespace
}  // namespace zerbal::print
