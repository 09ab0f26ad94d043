#include "data/regions.h"

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/error.h"
#include "jet/error.h"
#include "sample_databases.h"
#include "settings_fixture.h"
#include "some_tables.h"

namespace zerbal::data {
namespace {

class RegionsTest : public SettingsTest {};

test::Row RegionRow(int sort, const std::string& code, double fromLon) {
  return {sort, code, "Name of " + code, fromLon, 10.5, 230.25, 80.0};
}

TEST_F(RegionsTest, RulesAreInTheOrderOfTheirNames) {
  for (std::size_t i = 0; i < kWorldCentreRules.size(); ++i)
    EXPECT_EQ(static_cast<std::size_t>(kWorldCentreRules[i].centre), i);
}

TEST_F(RegionsTest, RegionsComeInTheOrderOfTheirSortValues) {
  WriteTable(test::RegTable({RegionRow(3, "C", 300), RegionRow(-1, "A", 100.125), RegionRow(2, "B", 200)}));
  const RegionTable regions = LoadRegions(zbldata_);
  ASSERT_EQ(regions.RegionCount(), 3);
  EXPECT_EQ(regions.rows[1].code, "A");
  EXPECT_EQ(regions.rows[1].name, "Name of A");
  EXPECT_EQ(regions.rows[1].fromLon, 100.125);
  EXPECT_EQ(regions.rows[1].fromLat, 10.5);
  EXPECT_EQ(regions.rows[1].toLon, 230.25);
  EXPECT_EQ(regions.rows[1].toLat, 80);
  EXPECT_EQ(regions.rows[2].code, "B");
  EXPECT_EQ(regions.rows[3].code, "C");
}

TEST_F(RegionsTest, AnEmptyRegionTableGivesNoRowNotEvenTheWorld) {
  WriteTable(test::RegTable({}));
  EXPECT_TRUE(LoadRegions(zbldata_).rows.empty());
}

TEST_F(RegionsTest, MoreThan32767RegionsAreAnOverflow) {
  std::vector<test::Row> rows(32767, RegionRow(1, "R", 100));
  WriteTable(test::RegTable(rows));
  EXPECT_EQ(LoadRegions(zbldata_).RegionCount(), 32767);
  rows.push_back(rows.back());
  WriteTable(test::RegTable(rows));
  EXPECT_THROW(LoadRegions(zbldata_), OverflowError);
}

TEST_F(RegionsTest, RegionCountExcludesTheWorld) {
  RegionTable regions;
  EXPECT_EQ(regions.RegionCount(), 0);
  regions.rows.resize(4);
  EXPECT_EQ(regions.RegionCount(), 3);
}

TEST_F(RegionsTest, TheChosenCentreIsWrittenAndTheWorldRowComputed) {
  RegionTable regions = SomeRegions();
  ChooseWorldCentre(ini_, regions, WorldCentre::kChosen, -12.5);
  EXPECT_EQ(regions.centreWorldAtLon, -12.5F);
  EXPECT_EQ(regions.rows[0].fromLon, 352.5);
  ChooseWorldCentre(ini_, regions, WorldCentre::kGreenwich, 99);
  EXPECT_EQ(regions.centreWorldAtLon, -12.5F) << "stays for the next choice";
  EXPECT_EQ(regions.rows[0].fromLon, 5);
  EXPECT_EQ(Bytes(), "[Region]\r\nCentreWorld=0\r\nCentreWorldAtLON=-12.5\r\n");
}

struct RegionCase {
  const char* centre;
  const char* longitude;
  WorldCentre centreHeld;
  float longitudeHeld;
  double from;
  double to;
};

TEST_F(RegionsTest, TheWorldIsCentredAsTheSettingsSay) {
  const std::array<RegionCase, 12> cases = {
      {{"0", "0", WorldCentre::kGreenwich, 0, 5, 355},
       {"1", "0", WorldCentre::kWest75, 0, 290, 280},
       {"2", "170", WorldCentre::kChosen, 170, 175, 165},
       {"2", "0", WorldCentre::kChosen, 0, 5, 355},
       {"2", "200", WorldCentre::kChosen, 180, 185, 175},
       {"2", "-181", WorldCentre::kChosen, -180, 185, 175},
       {"2", "-12.5", WorldCentre::kChosen, -12.5F, 352.5, 342.5},
       {"2", "x", WorldCentre::kChosen, 0, 5, 355},
       {"7", "30", WorldCentre::kWest75, 30, 290, 280},
       {"", "", WorldCentre::kWest75, 0, 290, 280},
       {"02", "1", WorldCentre::kWest75, 1, 290, 280},
       {"-1", "99999999999999999999", WorldCentre::kWest75, 180, 290, 280}}};
  for (const RegionCase& c : cases) {
    Write(std::string("[Region]\r\nCentreWorld=") + c.centre + "\r\nCentreWorldAtLON=" + c.longitude +
          "\r\n");
    RegionTable regions = SomeRegions();
    ASSERT_TRUE(ReadRegionSettings(ini_, regions));
    EXPECT_EQ(regions.centreWorld, c.centreHeld) << c.centre << " " << c.longitude;
    EXPECT_EQ(regions.centreWorldAtLon, c.longitudeHeld) << c.longitude;
    EXPECT_EQ(regions.rows[0].fromLon, c.from) << c.centre << " " << c.longitude;
    EXPECT_EQ(regions.rows[0].toLon, c.to) << c.centre << " " << c.longitude;
    EXPECT_EQ(regions.rows[0].fromLat, 0);
    EXPECT_EQ(regions.rows[0].toLat, 180);
  }
}

TEST_F(RegionsTest, WithoutARegionTheWorldHasNoRow) {
  RegionTable regions;
  EXPECT_THROW(ReadRegionSettings(ini_, regions), jet::EngineError);
}

}  // namespace
}  // namespace zerbal::data
