#include "print/contrast.h"

#include <gtest/gtest.h>

namespace zerbal::print {
namespace {

constexpr data::Rgb kBlack{0, 0, 0};
constexpr data::Rgb kWhite{255, 255, 255};
constexpr data::Rgb kYellow{255, 255, 0};

TEST(Contrast, IsFromOneToTwentyOne) {
  EXPECT_DOUBLE_EQ(ContrastOf(kBlack, kWhite), 21);
  EXPECT_DOUBLE_EQ(ContrastOf(kWhite, kBlack), 21);
  EXPECT_DOUBLE_EQ(ContrastOf(kYellow, kYellow), 1);
  EXPECT_NEAR(ContrastOf({119, 119, 119}, kWhite), 4.48, 0.01);
}

TEST(Contrast, OfTextIsTheLargerOne) {
  EXPECT_EQ(TextColourOn(kWhite), kBlack);
  EXPECT_EQ(TextColourOn(kYellow), kBlack);
  EXPECT_EQ(TextColourOn({0, 0, 128}), kWhite);
}

TEST(Contrast, LeavesAColourThatHasEnough) {
  EXPECT_EQ(WithContrast({200, 0, 0}, kWhite, 3), (data::Rgb{200, 0, 0}));
  EXPECT_EQ(WithContrast(kYellow, kBlack, 15), kYellow);
}

TEST(Contrast, DarkensOnLightAndLightensOnDarkBackgrounds) {
  const data::Rgb dark = WithContrast(kYellow, kWhite, 3);
  EXPECT_GE(ContrastOf(dark, kWhite), 3);
  EXPECT_LT(ContrastOf(dark, kWhite), 3.4);
  EXPECT_EQ(dark.red, dark.green);
  EXPECT_EQ(dark.blue, 0);
  const data::Rgb light = WithContrast({0, 0, 160}, kBlack, 3);
  EXPECT_GE(ContrastOf(light, kBlack), 3);
  EXPECT_GT(light.blue, light.red);
}

TEST(Contrast, ThatIsImpossibleGivesBlackOrWhite) {
  EXPECT_EQ(WithContrast(kYellow, kWhite, 22), kBlack);
  EXPECT_EQ(WithContrast(kYellow, {60, 60, 60}, 22), kWhite);
}

TEST(Contrast, MixesParts) {
  EXPECT_EQ(Mixed({0, 100, 200}, {100, 0, 200}, 0.25), (data::Rgb{25, 75, 200}));
  EXPECT_EQ(Mixed(kBlack, kWhite, 7), kWhite);
}

}  // namespace
}  // namespace zerbal::print
