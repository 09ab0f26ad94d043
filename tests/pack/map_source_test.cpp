#include "zerbal-pack/map_source.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "pack/tiny_source.h"
#include "support/temp_folder.h"

namespace zerbal::pack {
namespace {

using test::Shores;
using test::TinySource;
using test::TwoLines;

class MapSource : public testing::Test {
 protected:
  std::vector<SourcePiece> Read(const TinySource& source, MapTheme theme) {
    source.WriteTo(MapSourceFile(folder_.Path(), theme, MapDetail::kLow));
    return ReadMapSource(folder_.Path(), theme, MapDetail::kLow, [](const MapFeature&) { return true; });
  }

  std::string Failure(const TinySource& source, MapTheme theme) {
    try {
      Read(source, theme);
    } catch (const MapSourceError& error) {
      return error.what();
    }
    return "";
  }

  test::TempFolder folder_;
};

TEST_F(MapSource, ConvertsPointsToTheMapFrame) {
  const std::vector<SourcePiece> pieces = Read(TwoLines(), MapTheme::kRiver);
  ASSERT_EQ(pieces.size(), 3u);
  // 45 E on the equator, then 90 E 30 N on the edge between two bins.
  EXPECT_EQ(pieces[0].points, (MapLine{{225'000'687, 90'000'000}, {270'000'000, 60'000'000}}));
  EXPECT_EQ(pieces[1].points.front(), pieces[0].points.back());
  EXPECT_EQ(pieces[1].points.back(), (MapPoint{270'137'331, 0}));
  // 90 degrees beyond the edge of the frame: above 360, not wrapped.
  EXPECT_EQ(pieces[2].points,
            (MapLine{{360'000'000, 180'000'000}, {450'000'000, 180'000'000}, {450'000'000, 90'000'000}}));
  EXPECT_EQ(pieces[2].feature.level, 4);
}

TEST_F(MapSource, ReadsOnlyTheRequestedLines) {
  TwoLines().WriteTo(MapSourceFile(folder_.Path(), MapTheme::kBoundary, MapDetail::kFull));
  const auto pieces = ReadMapSource(folder_.Path(), MapTheme::kBoundary, MapDetail::kFull,
                                    [](const MapFeature& feature) { return feature.level == 4; });
  ASSERT_EQ(pieces.size(), 1u);
  EXPECT_EQ(pieces[0].points.size(), 3u);
}

TEST_F(MapSource, DistinguishesShores) {
  const std::vector<SourcePiece> pieces = Read(Shores(), MapTheme::kCoast);
  ASSERT_EQ(pieces.size(), 4u);
  EXPECT_EQ(pieces[0].points.size(), 3u);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(pieces[static_cast<std::size_t>(i)].feature.level, i + 1);
    EXPECT_EQ(pieces[static_cast<std::size_t>(i)].feature.polygon, i);
    // The banks, the island and its pond belong to the river.
    EXPECT_EQ(pieces[static_cast<std::size_t>(i)].feature.riverLake, i > 0);
  }
  EXPECT_EQ(pieces[1].feature.areaKm2, 250.5);
}

TEST_F(MapSource, NamesThePackageOfAMissingFile) {
  const std::pair<MapDetail, std::string> packages[] = {{MapDetail::kLow, "gmt-gshhg-low"},
                                                        {MapDetail::kIntermediate, "gmt-gshhg-low"},
                                                        {MapDetail::kHigh, "gmt-gshhg-high"},
                                                        {MapDetail::kFull, "gmt-gshhg-full"}};
  for (const auto& [detail, package] : packages) {
    try {
      ReadMapSource(folder_.Path(), MapTheme::kRiver, detail, [](const MapFeature&) { return true; });
      FAIL() << "no error";
    } catch (const MapSourceError& error) {
      EXPECT_EQ(error.what(), "The map source " +
                                  MapSourceFile(folder_.Path(), MapTheme::kRiver, detail).string() +
                                  " is missing. Install the Debian package " + package + ".");
    }
  }
}

TEST_F(MapSource, RefusesAFileThatIsNotNetcdf) {
  test::WriteBytes(MapSourceFile(folder_.Path(), MapTheme::kRiver, MapDetail::kLow), "nothing of the kind");
  EXPECT_THROW(ReadMapSource(folder_.Path(), MapTheme::kRiver, MapDetail::kLow,
                             [](const MapFeature&) { return true; }),
               MapSourceError);
}

TEST_F(MapSource, RefusesDamagedFilesWithAMessage) {
  struct Damage {
    const char* variable;
    std::vector<int> values;
    const char* message;
  };
  const Damage damages[] = {
      {"Bin_size_in_minutes", {100}, "its bins do not cover the world"},
      {"Bin_size_in_minutes", {0}, "its bins do not cover the world"},
      {"N_bins_in_360_longitude_range", {-4}, "its bins do not cover the world"},
      {"N_segments_in_a_bin", {1, 1, 0}, "\"N_segments_in_a_bin\" has 3 values where 8 are needed"},
      {"N_segments_in_a_bin", {1, 1, 0, 0, 0, 0, 2, 0}, "bin 6 names segments that are not there"},
      {"N_segments_in_a_bin", {-1, 1, 0, 0, 0, 0, 1, 0}, "bin 0 names segments that are not there"},
      {"Id_of_first_segment_in_a_bin",
       {0, 1, 2, 2, 2, 2, 2147483647, 3},
       "bin 6 names segments that are not there"},
      {"Id_of_first_point_in_a_segment", {0, 2, 5}, "segment 2 names points that are not there"},
      {"Id_of_first_point_in_a_segment", {0, -1, 4}, "segment 1 names points that are not there"},
      {"Relative_latitude_from_SW_corner_of_bin",
       {0},
       "\"Relative_latitude_from_SW_corner_of_bin\" has 1 values where 7 are needed"},
  };
  for (const Damage& damage : damages) {
    TinySource source = TwoLines();
    source.ints[damage.variable] = damage.values;
    const std::string message = Failure(source, MapTheme::kRiver);
    EXPECT_NE(message.find(damage.message), std::string::npos) << message;
    EXPECT_NE(message.find("binned_river_l.nc"), std::string::npos) << message;
  }
  for (const auto& [variable, values] : TwoLines().ints) {
    TinySource source = TwoLines();
    source.ints.erase(variable);
    const std::string message = Failure(source, MapTheme::kRiver);
    EXPECT_NE(message.find("reading \"" + variable + "\" failed"), std::string::npos) << message;
  }
  TinySource shores = Shores();
  shores.ints["Id_of_GSHHS_ID"] = {0, 1, 4, 3};
  EXPECT_NE(Failure(shores, MapTheme::kCoast).find("segment 2 belongs to no polygon"), std::string::npos);
}

}  // namespace
}  // namespace zerbal::pack
