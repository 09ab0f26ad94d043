#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/colours.h"
#include "data/error.h"
#include "data/flight.h"
#include "data/schedule.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/recordset.h"
#include "sample_databases.h"
#include "settings_fixture.h"

namespace zerbal::data {
namespace {

class FlightServicesTest : public SettingsTest {
 protected:
  FlightServiceTable LoadServices(std::vector<test::Row> rows) {
    test::WriteDatabase(folder_ / "qavdata.mdb", {test::FsrvTable(std::move(rows)), test::FlitTable({})});
    const jet::Database database = jet::Database::Open(folder_ / "qavdata.mdb");
    return Schedule(database.OpenTable("fsrv"), database.OpenTable("flit")).LoadServices();
  }
};

test::Row ServiceRow(int sort, const std::string& key, int red, int green, int blue) {
  return {sort, key, "L" + key, "Name " + key, red, green, blue};
}

TEST_F(FlightServicesTest, ServicesComeInTheOrderOfTheirSortValues) {
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

TEST_F(FlightServicesTest, TwoServicesOfOneKeyAreTwoRows) {
  const FlightServiceTable services =
      LoadServices({ServiceRow(1, "Q1", 1, 1, 1), ServiceRow(2, "Q1", 2, 2, 2)});
  ASSERT_EQ(services.size(), 2u);
  EXPECT_EQ(services[1].rgb, (Rgb{2, 2, 2}));
}

TEST_F(FlightServicesTest, OneServiceIsEnough) {
  EXPECT_EQ(LoadServices({ServiceRow(1, "Q1", 1, 1, 1)}).size(), 1u);
}

TEST_F(FlightServicesTest, NoServiceIsAnError) {
  EXPECT_EQ(WordsOf([&] { LoadServices({}); }), "No flightservices found. The program aborts.");
}

TEST_F(FlightServicesTest, AServiceColourBeyondAByteIsAConversionError) {
  for (const int component : {256, -1, 32767}) {
    EXPECT_THROW(LoadServices({ServiceRow(1, "Q1", component, 0, 0)}), jet::ConversionError) << component;
    EXPECT_THROW(LoadServices({ServiceRow(1, "Q1", 0, 0, component)}), jet::ConversionError) << component;
  }
  test::Row row = ServiceRow(1, "Q1", 0, 0, 0);
  row[5] = jet::Null();
  EXPECT_THROW(LoadServices({row}), jet::ConversionError);
}

TEST_F(FlightServicesTest, MoreThan32767ServicesAreAnOverflow) {
  std::vector<test::Row> rows(32767, ServiceRow(1, "Q", 1, 1, 1));
  EXPECT_EQ(LoadServices(rows).size(), 32767u);
  rows.push_back(rows.back());
  EXPECT_THROW(LoadServices(rows), OverflowError);
}

TEST_F(FlightServicesTest, TwoServicesOfOneKeyReadOneColour) {
  Write("[FlightColors]\r\nQ1=7,8,9\r\n");
  FlightServiceTable services = {{"Q1", "", false, {1, 1, 1}, true}, {"Q1", "", false, {2, 2, 2}, true}};
  ASSERT_TRUE(ReadFlightColourSettings(ini_, services));
  EXPECT_EQ(services[0].rgb, (Rgb{7, 8, 9}));
  EXPECT_EQ(services[1].rgb, (Rgb{7, 8, 9}));
  Write("");
  services[1].rgb = {2, 2, 2};
  ASSERT_TRUE(ReadFlightColourSettings(ini_, services));
  EXPECT_EQ(services[1].rgb, (Rgb{7, 8, 9})) << "the default that the first one wrote";
}

}  // namespace
}  // namespace zerbal::data
