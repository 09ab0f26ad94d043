#include "data/airports.h"

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/error.h"
#include "support/database_builder.h"
#include "support/temp_folder.h"

namespace zerbal::data {
namespace {

using Codes = std::vector<std::string>;

/// code, name, city, longitude, latitude, elevation, runways, longest runway, ILS; numbers may be given
/// as Text, so that a row can contain an invalid one.
test::Table AirportTable(std::vector<test::Row> rows) {
  return {"dest",
          {test::Text("AP"), test::Text("AP_Name"), test::Text("AP_City"), test::Single("AP_Lon"),
           test::Single("AP_Lat"), test::Text("AP_Elev"), test::Text("AP_RwyNr"), test::Text("AP_RwyMaxL"),
           test::Text("AP_ILS")},
          {test::Index("aprt", "AP")},
          std::move(rows)};
}

test::Row AirportRow(const std::string& code, test::Cell elevation = "0", test::Cell ils = "0") {
  return {code, "Name of " + code, "City", 190.5F, 30.25F, std::move(elevation), "1", "5000", std::move(ils)};
}

class AirportsTest : public testing::Test {
 protected:
  Airports Open(const test::Table& table) {
    test::WriteDatabase(folder_ / "qavdata.mdb", {table});
    return Airports(jet::Database::Open(folder_ / "qavdata.mdb"), "dest");
  }
  static Codes Meeting(const Airports& airports, const AirportCriteria& criteria) {
    Codes codes;
    airports.VisitMeeting(criteria, {}, [&](const Airport& airport) { codes.emplace_back(airport.Code()); });
    return codes;
  }

  test::TempFolder folder_;
};

TEST_F(AirportsTest, AreVisitedInTheOrderOfTheirCodes) {
  const Airports airports = Open(AirportTable({AirportRow("CCC"), AirportRow("AAA"), AirportRow("BBB")}));
  Codes codes;
  airports.Visit([&](const Airport& airport) { codes.emplace_back(airport.Code()); });
  EXPECT_EQ(codes, (Codes{"AAA", "BBB", "CCC"}));
  EXPECT_EQ(Meeting(airports, {}), codes);
}

TEST_F(AirportsTest, OnlyAirportsWithinTheBoundsAreVisited) {
  test::Table table = AirportTable({});
  const auto add = [&](const char* code, test::Cell lon, test::Cell lat) {
    test::Row& row = table.rows.emplace_back(AirportRow(code));
    table.CellOf(row, "AP_Lon") = std::move(lon);
    table.CellOf(row, "AP_Lat") = std::move(lat);
  };
  add("EEE", 20.0F, 30.0F);
  add("DDD", 10.0F, test::Null());
  add("CCC", 350.0F, 40.0F);
  add("BBB", 15.0F, 41.0F);
  add("AAA", 10.0F, 35.0F);
  const Airports airports = Open(table);
  const auto within = [&](const MapBounds& bounds) {
    Codes codes;
    airports.VisitMeeting({}, bounds, [&](const Airport& airport) { codes.emplace_back(airport.Code()); });
    return codes;
  };
  EXPECT_EQ(within({10, 30, 20, 40}), (Codes{"AAA", "DDD", "EEE"}));
  EXPECT_EQ(within({340, 30, 15, 50}), (Codes{"AAA", "BBB", "CCC", "DDD"}));  // through 360
  EXPECT_EQ(within({}), (Codes{"AAA", "BBB", "CCC", "DDD", "EEE"}));
}

TEST_F(AirportsTest, FactsThatAreNotKnownAreMissing) {
  const Airports airports = Open(AirportTable({AirportRow("AAA", "681", "1"), AirportRow("BBB", "high", "0"),
                                               AirportRow("CCC", test::Null(), "yes")}));
  const auto known = airports.Find("AAA");
  EXPECT_EQ(known->Elevation(), 681);
  EXPECT_EQ(known->Runways(), 1);
  EXPECT_EQ(known->LongestRunway(), 5000);
  EXPECT_EQ(known->HasIls(), true);
  const auto unreadable = airports.Find("BBB");
  EXPECT_EQ(unreadable->Elevation(), std::nullopt);
  EXPECT_EQ(unreadable->HasIls(), false);
  const auto empty = airports.Find("CCC");
  EXPECT_EQ(empty->Elevation(), std::nullopt);
  EXPECT_EQ(empty->HasIls(), std::nullopt);
}

TEST_F(AirportsTest, AnAirportIsFoundByExactlyItsCode) {
  const Airports airports = Open(AirportTable({AirportRow("AAA"), AirportRow("BBB")}));
  const auto airport = airports.Find("BBB");
  ASSERT_TRUE(airport);
  EXPECT_EQ(airport->Code(), "BBB");
  EXPECT_EQ(airport->Name(), "Name of BBB");
  EXPECT_EQ(airport->City(), "City");
  EXPECT_EQ(airport->Position().lon, 190.5F);
  EXPECT_EQ(airport->Position().lat, 30.25F);
  EXPECT_FALSE(airports.Find("bbb"));
  EXPECT_FALSE(airports.Find(""));
}

TEST_F(AirportsTest, ACriterionTreatsANullOrInvalidNumberAsZero) {
  const Airports airports = Open(
      AirportTable({AirportRow("AAA", "500"), AirportRow("BBB", test::Null()), AirportRow("CCC", "high")}));
  AirportCriteria criteria;
  criteria.numeric[0] = {.active = true, .limit = Limit::kAtMost, .atMost = 0};
  EXPECT_EQ(Meeting(airports, criteria), (Codes{"BBB", "CCC"}));
  criteria.numeric[0] = {.active = true, .limit = Limit::kAtLeast, .atLeast = 1};
  EXPECT_EQ(Meeting(airports, criteria), Codes{"AAA"});
}

TEST_F(AirportsTest, AMissingIlsMeetsNeitherCriterion) {
  const Airports airports = Open(AirportTable(
      {AirportRow("AAA", "0", "1"), AirportRow("BBB", "0", "0"), AirportRow("CCC", "0", test::Null())}));
  EXPECT_EQ(Meeting(airports, {.numeric = {}, .ilsActive = true, .withIls = true}), Codes{"AAA"});
  EXPECT_EQ(Meeting(airports, {.numeric = {}, .ilsActive = true, .withIls = false}), Codes{"BBB"});
}

TEST_F(AirportsTest, NoAirportMeetsCriteriaWhenAPositionOrTextFieldIsMissing) {
  for (const std::size_t column : {0u, 1u, 2u, 3u, 4u}) {
    test::Table table = AirportTable({AirportRow("AAA")});
    table.columns[column].name = "Other";
    if (column == 0)
      table.indexes = {test::Index("aprt", "Other")};
    const Airports airports = Open(table);
    EXPECT_EQ(Meeting(airports, {}), Codes{}) << column;
  }
}

TEST_F(AirportsTest, AFieldThatTheTableLacksIsAnErrorWhenItIsRead) {
  test::Table table = AirportTable({AirportRow("AAA")});
  table.columns[2].name = "Town";
  const Airports airports = Open(table);
  const auto airport = airports.Find("AAA");
  ASSERT_TRUE(airport);
  EXPECT_EQ(airport->Name(), "Name of AAA");
  EXPECT_THROW(static_cast<void>(airport->City()), jet::EngineError);
}

TEST_F(AirportsTest, WithoutItsIndexTheTableIsNotOpened) {
  test::Table table = AirportTable({AirportRow("AAA")});
  table.indexes.clear();
  EXPECT_THROW(Open(table), jet::EngineError);
}

}  // namespace
}  // namespace zerbal::data
