#include "data/load_tables.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/counters.h"
#include "data/load_error.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/recordset.h"
#include "sample_databases.h"
#include "support/temp_folder.h"

namespace zerbal::data {
namespace {

using test::Row;

const std::vector<std::string> kCodes = {"MAPBG",  "ZOOM",  "CENTRE", "COAST", "RIVER",
                                         "IBOUND", "APALL", "APDEST", "ACSYMB"};

Row ColourRow(const std::string& code, int red, int green, int blue) {
  return {code, red, green, blue, "Entry" + code};
}

/// All codes, stored back to front.
std::vector<Row> AllColours() {
  std::vector<Row> rows;
  for (std::size_t i = kCodes.size(); i-- > 0;)
    rows.push_back(ColourRow(kCodes[i], static_cast<int>(i), 100, 255));
  rows.push_back(ColourRow("SPARE", 1, 2, 3));
  return rows;
}

class LoadTables : public testing::Test {
 protected:
  void Write(const std::vector<test::Table>& tables) { test::WriteDatabase(zbldata_, tables); }
  FlightServiceTable LoadServices(std::vector<Row> rows) {
    test::WriteDatabase(folder_ / "qavdata.mdb", {test::FsrvTable(std::move(rows)), test::FlitTable({})});
    const jet::Database database = jet::Database::Open(folder_ / "qavdata.mdb");
    return Schedule(database.OpenTable("fsrv"), database.OpenTable("flit")).LoadServices();
  }

  test::TempFolder folder_;
  std::filesystem::path zbldata_ = folder_ / "zbldata.mdb";
};

/// The words of the LoadError that `load` throws; "none" when it throws none.
template <typename Load>
std::string WordsOf(const Load& load) {
  try {
    load();
  } catch (const LoadError& error) {
    return error.what();
  }
  return "none";
}

TEST_F(LoadTables, ColoursComeByTheirCodesInTheOrderOfTheTable) {
  Write({test::ColTable(AllColours())});
  const ColourTable colours = LoadColours(zbldata_);
  for (std::size_t i = 0; i < kCodes.size(); ++i) {
    EXPECT_EQ(colours.rows[i].code, kCodes[i]);
    EXPECT_EQ(colours.rows[i].rgb, (Rgb{static_cast<std::uint8_t>(i), 100, 255}));
    EXPECT_EQ(colours.rows[i].entry, "Entry" + kCodes[i]);
  }
}

TEST_F(LoadTables, MissingColoursAreListedInOneError) {
  std::vector<Row> rows = AllColours();
  rows.erase(rows.begin());  // ACSYMB
  rows[6] = ColourRow("zoom", 1, 2, 3);
  Write({test::ColTable(rows)});
  EXPECT_EQ(
      WordsOf([&] { LoadColours(zbldata_); }),
      "Colors are missing in the table for:\r\nCode = ZOOM\r\nCode = ACSYMB\r\n\r\nThe program aborts.");
}

TEST_F(LoadTables, AnEmptyColourTableMissesAllCodes) {
  Write({test::ColTable({})});
  std::string text = "Colors are missing in the table for:\r\n";
  for (const std::string& code : kCodes)
    text += "Code = " + code + "\r\n";
  EXPECT_EQ(WordsOf([&] { LoadColours(zbldata_); }), text + "\r\nThe program aborts.");
}

TEST_F(LoadTables, ColourComponentsAreLimitedButMustBeNumbers) {
  std::vector<Row> rows = AllColours();
  rows[0] = ColourRow("ACSYMB", 300, -1, 12);
  Write({test::ColTable(rows)});
  EXPECT_EQ(LoadColours(zbldata_)[ColourCode::kAcSymb], (Rgb{255, 0, 12}));
  rows[0][2] = jet::Null();
  Write({test::ColTable(rows)});
  EXPECT_THROW(LoadColours(zbldata_), jet::ConversionError);
}

TEST_F(LoadTables, FontsComeByTheirCodes) {
  Write({test::FonTable(
      {{"HIRES", "Arial", 8, "HighResolution"}, {"LORES", "Small Fonts", 7, "LowResolution"}})});
  const FontTable fonts = LoadFonts(zbldata_);
  EXPECT_EQ(fonts[FontCode::kLoRes].code, "LORES");
  EXPECT_EQ(fonts[FontCode::kLoRes].name, "Small Fonts");
  EXPECT_EQ(fonts[FontCode::kLoRes].size, 7);
  EXPECT_EQ(fonts[FontCode::kLoRes].entry, "LowResolution");
  EXPECT_EQ(fonts[FontCode::kHiRes].name, "Arial");
}

TEST_F(LoadTables, MissingFontsAreListedInOneError) {
  Write({test::FonTable({})});
  EXPECT_EQ(WordsOf([&] { LoadFonts(zbldata_); }),
            "Fonts are missing in the table for:\r\nCode = LORES\r\nCode = HIRES\r\n\r\nThe program aborts.");
}

Row RegionRow(int sort, const std::string& code, double fromLon) {
  return {sort, code, "Name of " + code, fromLon, 10.5, 230.25, 80.0};
}

TEST_F(LoadTables, RegionsComeInTheOrderOfTheirSortValues) {
  Write({test::RegTable({RegionRow(3, "C", 300), RegionRow(-1, "A", 100.125), RegionRow(2, "B", 200)})});
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

TEST_F(LoadTables, AnEmptyRegionTableLeavesNoRowNotEvenTheWorlds) {
  Write({test::RegTable({})});
  EXPECT_TRUE(LoadRegions(zbldata_).rows.empty());
}

TEST_F(LoadTables, MoreRegionsThanACounterHoldsAreAnOverflow) {
  std::vector<Row> rows(32767, RegionRow(1, "R", 100));
  Write({test::RegTable(rows)});
  EXPECT_EQ(LoadRegions(zbldata_).RegionCount(), 32767);
  rows.push_back(rows.back());
  Write({test::RegTable(rows)});
  EXPECT_THROW(LoadRegions(zbldata_), OverflowError);
}

TEST_F(LoadTables, ErrorsOfTheEngineAreNotCaught) {
  EXPECT_THROW(LoadColours(zbldata_), jet::EngineError) << "no file";
  test::WriteBytes(zbldata_, "no database");
  EXPECT_THROW(LoadRegions(zbldata_), jet::EngineError) << "foreign file";
  test::Table col = test::ColTable(AllColours());
  col.indexes.clear();
  Write({col});
  EXPECT_THROW(LoadColours(zbldata_), jet::EngineError) << "no index";
  EXPECT_THROW(LoadFonts(zbldata_), jet::EngineError) << "no table";
  col = test::ColTable(AllColours());
  col.columns[4].name = "Entry";
  Write({col});
  EXPECT_THROW(LoadColours(zbldata_), jet::EngineError) << "no field";
}

Row ServiceRow(int sort, const std::string& key, int red, int green, int blue) {
  return {sort, key, "L" + key, "Name " + key, red, green, blue};
}

TEST_F(LoadTables, ServicesComeInTheOrderOfTheirSortValues) {
  const FlightServiceTable services =
      LoadServices({ServiceRow(20, "Q2", 1, 2, 3), ServiceRow(10, "Q1", 0, 255, 128)});
  ASSERT_EQ(services.size(), 2u);
  EXPECT_EQ(services[0].key, "Q1");
  EXPECT_EQ(services[0].displayText, "LQ1 - Name Q1");
  EXPECT_EQ(services[0].rgb, (Rgb{0, 255, 128}));
  EXPECT_FALSE(services[0].displayFlag);
  EXPECT_TRUE(services[0].randomPick);
  EXPECT_EQ(services[1].key, "Q2");
}

TEST_F(LoadTables, TwoServicesOfOneKeyAreTwoRows) {
  const FlightServiceTable services =
      LoadServices({ServiceRow(1, "Q1", 1, 1, 1), ServiceRow(2, "Q1", 2, 2, 2)});
  ASSERT_EQ(services.size(), 2u);
  EXPECT_EQ(services[1].rgb, (Rgb{2, 2, 2}));
}

TEST_F(LoadTables, OneServiceIsEnough) {
  EXPECT_EQ(LoadServices({ServiceRow(1, "Q1", 1, 1, 1)}).size(), 1u);
}

TEST_F(LoadTables, NoServiceIsAnError) {
  EXPECT_EQ(WordsOf([&] { LoadServices({}); }), "No flightservices found. The program aborts.");
}

TEST_F(LoadTables, AServiceColourBeyondAByteIsAConversionError) {
  for (const int component : {256, -1, 32767}) {
    EXPECT_THROW(LoadServices({ServiceRow(1, "Q1", component, 0, 0)}), jet::ConversionError) << component;
    EXPECT_THROW(LoadServices({ServiceRow(1, "Q1", 0, 0, component)}), jet::ConversionError) << component;
  }
  Row row = ServiceRow(1, "Q1", 0, 0, 0);
  row[5] = jet::Null();
  EXPECT_THROW(LoadServices({row}), jet::ConversionError);
}

TEST_F(LoadTables, MoreServicesThanACounterHoldsAreAnOverflow) {
  std::vector<Row> rows(32767, ServiceRow(1, "Q", 1, 1, 1));
  EXPECT_EQ(LoadServices(rows).size(), 32767u);
  rows.push_back(rows.back());
  EXPECT_THROW(LoadServices(rows), OverflowError);
}

}  // namespace
}  // namespace zerbal::data
