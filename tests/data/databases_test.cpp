#include "data/databases.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "jet/error.h"
#include "sample_databases.h"
#include "support/temp_folder.h"

namespace zerbal::data {
namespace {

namespace fs = std::filesystem;

test::Table LineTable(const std::string& name) {
  return test::MapTable(name, {{1000000, 2000000}, {1000001, 2000000}});
}

class OpenDatabasesTest : public testing::Test {
 protected:
  void SetUp() override {
    test::WriteDatabase(files_.qavdata, {test::FsrvTable({{1, "Q1", "1", "One", 1, 2, 3}}),
                                         test::AirportTable("dest", {{"BBB", "Beta"}, {"AAA", "Alpha"}}),
                                         test::FlitTable({test::Flight("Q1", "1", "AAA", {}, "BBB")})});
    test::WriteDatabase(files_.allaprt, {test::AirportTable("allaprt", {{"ZZZ", "Omega"}})});
    for (const fs::path& file : {files_.coast, *files_.river, *files_.ibound})
      test::WriteDatabase(file, {LineTable("CEwdb2")});
  }
  static int RunsOfTile(const BaseMap& baseMap) {
    int runs = 0;
    for (const LineKind kind : {LineKind::kCoast, LineKind::kRiver, LineKind::kBoundary})
      baseMap.VisitTile(kind, "CE", {{0, 2'000'000}, {0, 3'000'000}}, [&](auto) { ++runs; });
    return runs;
  }

  test::TempFolder folder_;
  DataFiles files_{folder_ / "zbldata.mdb", folder_ / "qavdata.mdb", folder_ / "allaprt.mdb",
                   folder_ / "coast.mdb",   folder_ / "river.mdb",   folder_ / "ibound.mdb"};
};

TEST(FindDataFiles, LooksInBothFoldersInAnyLetterCase) {
  const test::TempFolder folder;
  fs::create_directories(folder / "App_Data");
  fs::create_directories(folder / "app_map");
  const std::vector<fs::path> names = {"App_Data/ZBLDATA.mdb", "App_Data/qavdata.mdb", "App_Data/allaprt.MDB",
                                       "app_map/Coast.mdb",    "app_map/river.mdb",    "app_map/IBOUND.MDB"};
  for (const fs::path& name : names)
    test::WriteBytes(folder / name, "");
  const auto [files, missing] = FindDataFiles(folder.Path());
  EXPECT_TRUE(missing.empty());
  EXPECT_EQ(files.zbldata, folder / names[0]);
  EXPECT_EQ(files.qavdata, folder / names[1]);
  EXPECT_EQ(files.allaprt, folder / names[2]);
  EXPECT_EQ(files.coast, folder / names[3]);
  EXPECT_EQ(files.river, folder / names[4]);
  EXPECT_EQ(files.ibound, folder / names[5]);
}

TEST(FindDataFiles, ListsTheMissingRequiredFiles) {
  const test::TempFolder folder;
  const auto [files, missing] = FindDataFiles(folder.Path());
  EXPECT_EQ(missing, (std::vector<fs::path>{folder / "app_data/zbldata.mdb", folder / "app_data/qavdata.mdb",
                                            folder / "app_data/allaprt.mdb", folder / "app_map/coast.mdb"}));
  EXPECT_FALSE(files.river);
  EXPECT_FALSE(files.ibound);
}

TEST_F(OpenDatabasesTest, OpensEverythingWithItsIndexes) {
  const Databases databases = OpenDatabases(files_);
  const auto alpha = databases.destinations.Find("AAA");
  ASSERT_TRUE(alpha);
  EXPECT_EQ(alpha->City(), "Alpha");
  EXPECT_TRUE(databases.allAirports.Find("ZZZ"));
  EXPECT_TRUE(databases.schedule.Find("1"));
  EXPECT_EQ(databases.schedule.LoadServices().size(), 1u);
  EXPECT_EQ(RunsOfTile(databases.baseMap), 3);
}

TEST_F(OpenDatabasesTest, WorksWithoutRiversAndBoundaries) {
  files_.river.reset();
  files_.ibound.reset();
  EXPECT_EQ(RunsOfTile(OpenDatabases(files_).baseMap), 1);
}

TEST_F(OpenDatabasesTest, DoesNotChangeTheFiles) {
  const std::string before = test::ReadBytes(files_.qavdata);
  const auto time = fs::last_write_time(files_.qavdata);
  {
    const Databases databases = OpenDatabases(files_);
    databases.schedule.VisitFlights("Q1", [](const FlightRow&) { return true; });
  }
  EXPECT_EQ(test::ReadBytes(files_.qavdata), before);
  EXPECT_EQ(fs::last_write_time(files_.qavdata), time);
}

TEST_F(OpenDatabasesTest, NamesTheFileThatCannotBeOpened) {
  const auto fault = [&]() -> std::string {
    try {
      OpenDatabases(files_);
    } catch (const jet::EngineError& error) {
      return error.File();
    }
    return "none";
  };
  EXPECT_EQ(fault(), "none");
  test::WriteBytes(*files_.ibound, "no database");
  EXPECT_EQ(fault(), files_.ibound->string());
  fs::remove(files_.coast);
  EXPECT_EQ(fault(), files_.coast.string());
  test::WriteDatabase(files_.allaprt, {LineTable("other")});
  EXPECT_EQ(fault(), files_.allaprt.string());
}

}  // namespace
}  // namespace zerbal::data
