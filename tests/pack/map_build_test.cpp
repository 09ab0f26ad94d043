#include "zerbal-pack/map_build.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/error.h"
#include "jet/pair_reader.h"
#include "jet/recordset.h"
#include "support/temp_folder.h"
#include "zerbal-pack/land_tables.h"
#include "zerbal-pack/map_tables.h"

namespace zerbal::pack {
namespace {

constexpr std::pair<MapTheme, const char*> kFiles[] = {
    {MapTheme::kCoast, "coast.mdb"}, {MapTheme::kRiver, "river.mdb"}, {MapTheme::kBoundary, "ibound.mdb"}};

// All tests that only read share one build of the installed low resolution data.
struct Built {
  test::TempFolder folder;
  std::vector<double> progress;
  std::vector<MapTableSize> sizes = BuildMapDatabases({MapDetail::kLow, folder.Path(), kMapSourceFolder},
                                                      [this](double done) { progress.push_back(done); });

  std::filesystem::path File(const char* name) const { return folder / "app_map" / name; }
};

class MapBuild : public testing::Test {
 protected:
  void SetUp() override {
    for (const auto& [theme, file] : kFiles) {
      if (!std::filesystem::exists(MapSourceFile(kMapSourceFolder, theme, MapDetail::kLow)))
        GTEST_SKIP() << "gmt-gshhg-low is not installed";
    }
  }

  static void TearDownTestSuite() { built_.reset(); }

  static const Built& Low() {
    if (!built_)
      built_ = std::make_unique<Built>();
    return *built_;
  }

  test::TempFolder folder_;

 private:
  static inline std::unique_ptr<Built> built_;
};

std::vector<MapPoint> ReadTable(const jet::Database& database, const std::string& table) {
  jet::PairReader reader(database.OpenTable(table), "Lon", "Lat");
  std::vector<MapPoint> points;
  std::array<jet::LongPair, 1000> batch;
  while (const std::size_t count = reader.Read(batch)) {
    for (std::size_t i = 0; i < count; ++i)
      points.push_back({batch[i].first, batch[i].second});
  }
  return points;
}

TEST_F(MapBuild, WritesEveryLineWithAMarkerAfterIt) {
  const std::vector<MapTableSize>& sizes = Low().sizes;
  auto size = sizes.begin();
  for (const auto& [theme, file] : kFiles) {
    const jet::Database database = jet::Database::Open(Low().File(file));
    std::vector<MapTable> tables = MakeMapTables(theme, MapDetail::kLow, kMapSourceFolder);
    if (theme == MapTheme::kCoast)
      std::ranges::move(MakeLandTables(MapDetail::kLow, kMapSourceFolder), std::back_inserter(tables));
    std::vector<std::string> names = database.TableNames();
    EXPECT_EQ(names.size(), tables.size());
    for (const MapTable& table : tables) {
      ASSERT_NE(std::find(names.begin(), names.end(), table.name), names.end()) << table.name;
      std::vector<MapPoint> expected;
      for (const MapLine& line : table.lines) {
        expected.insert(expected.end(), line.begin(), line.end());
        expected.push_back({-1'000'000, 0});
      }
      EXPECT_TRUE(ReadTable(database, table.name) == expected) << file << " " << table.name;
      ASSERT_NE(size, sizes.end());
      EXPECT_EQ(size->file, file);
      EXPECT_EQ(size->table, table.name);
      EXPECT_EQ(size->rows, expected.size());
      EXPECT_EQ(size->lines, table.lines.size());
      ++size;
    }
  }
  EXPECT_EQ(size, sizes.end());
}

TEST_F(MapBuild, HasTheTwoColumnsAsWholeNumbersAndNoIndex) {
  const jet::Recordset world = jet::Database::Open(Low().File("coast.mdb")).OpenTable("wcl");
  ASSERT_EQ(world.Columns().size(), 2u);
  EXPECT_EQ(world.Columns()[0].name, "Lon");
  EXPECT_EQ(world.Columns()[1].name, "Lat");
  for (const jet::ColumnInfo& column : world.Columns())
    EXPECT_EQ(column.type, jet::ColumnType::kLong);
  EXPECT_TRUE(world.Indexes().empty());
}

TEST_F(MapBuild, WritesTheSameBytesAgain) {
  BuildMapDatabases({MapDetail::kLow, folder_.Path(), kMapSourceFolder}, {});
  for (const auto& [theme, file] : kFiles) {
    const std::string again = test::ReadBytes(folder_ / "app_map" / file);
    EXPECT_GT(again.size(), 100'000u);
    EXPECT_TRUE(again == test::ReadBytes(Low().File(file))) << file;
  }
}

TEST_F(MapBuild, ReportsItsProgress) {
  const std::vector<double>& progress = Low().progress;
  EXPECT_GT(progress.size(), 50u);
  EXPECT_EQ(progress.front(), 0);
  EXPECT_EQ(progress.back(), 1);
  EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
}

TEST_F(MapBuild, NamesThePackageOfAMissingResolution) {
  const std::filesystem::path sources = folder_ / "sources";
  std::filesystem::create_directories(sources);
  const std::filesystem::path low = MapSourceFile(kMapSourceFolder, MapTheme::kCoast, MapDetail::kLow);
  std::filesystem::create_symlink(low, sources / low.filename());
  try {
    BuildMapDatabases({MapDetail::kFull, folder_.Path(), sources}, {});
    FAIL() << "no error";
  } catch (const MapSourceError& error) {
    const std::string message = error.what();
    EXPECT_NE(message.find("binned_GSHHS_f.nc is missing"), std::string::npos) << message;
    EXPECT_NE(message.find("gmt-gshhg-full"), std::string::npos) << message;
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder_ / "app_map"));
}

TEST_F(MapBuild, FailsWithAMessageWhenItCannotWrite) {
  std::filesystem::create_directories(folder_ / "app_map" /
                                      "coast.mdb");  // a folder has the name of the file
  EXPECT_THROW(BuildMapDatabases({MapDetail::kLow, folder_.Path(), kMapSourceFolder}, {}), jet::EngineError);
}

}  // namespace
}  // namespace zerbal::pack
