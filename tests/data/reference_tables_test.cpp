#include "data/reference_tables.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "data/counters.h"

namespace zerbal::data {
namespace {

TEST(ReferenceTables, ClampRgbLimitsEachComponent) {
  EXPECT_EQ(ClampRgb(300, -5, 12), (Rgb{255, 0, 12}));
  EXPECT_EQ(ClampRgb(0, 255, 256), (Rgb{0, 255, 255}));
  using Limits = std::numeric_limits<std::int16_t>;
  EXPECT_EQ(ClampRgb(Limits::min(), Limits::max(), -1), (Rgb{0, 255, 0}));
}

TEST(ReferenceTables, GridBandsAreNineOfFortyAndNineOfTwentyDegrees) {
  const GridBands bands = BuildGridBands();
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

TEST(ReferenceTables, RegionCountLeavesTheWorldOut) {
  RegionTable regions;
  EXPECT_EQ(regions.RegionCount(), 0);
  regions.rows.resize(4);
  EXPECT_EQ(regions.RegionCount(), 3);
}

TEST(Counters, OverflowBeyond16Bits) {
  std::int16_t counter = 32766;
  CountUp(counter);
  EXPECT_EQ(counter, 32767);
  EXPECT_THROW(CountUp(counter), OverflowError);
  EXPECT_EQ(counter, 32767);
}

}  // namespace
}  // namespace zerbal::data
