#include "data/grid.h"

#include <string>

#include <gtest/gtest.h>

namespace zerbal::data {
namespace {

TEST(Grid, BandsAreNineOfFortyAndNineOfTwentyDegrees) {
  const GridBands& bands = kGridBands;
  std::string lonLetters;
  std::string latLetters;
  for (std::size_t i = 0; i < 9; ++i) {
    const int at = static_cast<int>(i);
    EXPECT_EQ(bands.lon[i].lower, 40 * at);
    EXPECT_EQ(bands.lon[i].upper, 40 * (at + 1));
    EXPECT_EQ(bands.lat[i].lower, 20 * at);
    EXPECT_EQ(bands.lat[i].upper, 20 * (at + 1));
    lonLetters += bands.lon[i].letter;
    latLetters += bands.lat[i].letter;
  }
  EXPECT_EQ(lonLetters, "ACEGIKMOQ");
  EXPECT_EQ(latLetters, "ACEGIKMOQ");
}

}  // namespace
}  // namespace zerbal::data
