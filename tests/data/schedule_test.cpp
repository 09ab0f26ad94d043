#include "data/schedule.h"

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "data/airports.h"
#include "data/flight_lists.h"
#include "jet/database.h"
#include "jet/recordset.h"
#include "sample_databases.h"
#include "support/temp_folder.h"

namespace zerbal::data {
namespace {

using Codes = std::vector<std::string>;

class ScheduleTest : public testing::Test {
 protected:
  void Open(std::vector<test::Row> flights, std::vector<test::Row> airports = {}) {
    OpenTable(test::FlitTable(std::move(flights)), std::move(airports));
  }
  void OpenTable(const test::Table& flit, std::vector<test::Row> airports = {}) {
    const std::filesystem::path file = folder_ / "qavdata.mdb";
    test::WriteDatabase(file, {test::FsrvTable({}), flit, test::AirportTable("dest", std::move(airports))});
    const jet::Database database = jet::Database::Open(file);
    schedule_.emplace(database.OpenTable("fsrv"), database.OpenTable("flit"));
    destinations_.emplace(database, "dest");
  }

  Flight Find(std::string_view key) {
    const std::optional<FlightRow> row = schedule_->Find(key);
    EXPECT_TRUE(row) << key;
    return row ? row->Read() : Flight();
  }

  Codes KeysOf(std::string_view service) {
    Codes keys;
    schedule_->VisitFlights(service, [&](const FlightRow& row) {
      keys.push_back(row.Read().key);
      return true;
    });
    return keys;
  }

  test::TempFolder folder_;
  std::optional<Schedule> schedule_;
  std::optional<Airports> destinations_;
};

TEST_F(ScheduleTest, AllFlightsAreLoadedInStoredOrder) {
  Open({test::Flight("Q2", "22", "AAA", {}, "BBB"), test::Flight("Q1", "11", "BBB", {"CCC"}, "AAA")});
  EXPECT_EQ(Find("11").number, "QV11");
  const std::vector<Flight> flights = schedule_->LoadFlights();
  ASSERT_EQ(flights.size(), 2U);
  EXPECT_EQ(flights[0].key, "22");
  EXPECT_EQ(flights[1].key, "11");
  EXPECT_EQ(flights[1].route, (Codes{"BBB", "CCC", "AAA"}));
  EXPECT_EQ(Find("22").number, "QV22") << "the index of keys is selected again";
  EXPECT_EQ(KeysOf("Q1"), Codes{"11"});
  EXPECT_EQ(Find("11").number, "QV11");
}

TEST_F(ScheduleTest, AFlightIsReadWithItsRoute) {
  Open({test::Flight("Q1", "11", "AAA", {"BBB", "CCC"}, "DDD")});
  const Flight flight = Find("11");
  EXPECT_EQ(flight.key, "11");
  EXPECT_EQ(flight.service, "Q1");
  EXPECT_EQ(flight.number, "QV11");
  EXPECT_EQ(flight.route, (Codes{"AAA", "BBB", "CCC", "DDD"}));
  EXPECT_EQ(flight.Origin(), "AAA");
  EXPECT_EQ(flight.Destination(), "DDD");
}

TEST_F(ScheduleTest, TheFirstNullEndsTheStopovers) {
  Open({test::Flight("Q1", "1", "AAA", {}, "ZZZ"), test::Flight("Q1", "2", "AAA", {"-", "CCC"}, "ZZZ"),
        test::Flight("Q1", "3", "AAA", {"BBB", "-", "DDD", "EEE"}, "ZZZ"),
        test::Flight("Q1", "4", "AAA", {"B1", "B2", "B3", "B4", "B5", "B6", "B7", "B8", "B9", "BX"}, "ZZZ"),
        test::Flight("Q1", "5", "AAA", {"-", "B2", "B3", "B4", "B5", "B6", "B7", "B8", "B9", "BX"}, "ZZZ"),
        test::Flight("Q1", "6", "AAA", {"", "CCC"}, "ZZZ")});
  EXPECT_EQ(Find("1").route, (Codes{"AAA", "ZZZ"}));
  EXPECT_EQ(Find("2").route, (Codes{"AAA", "ZZZ"}));
  EXPECT_EQ(Find("3").route, (Codes{"AAA", "BBB", "ZZZ"}));
  EXPECT_EQ(Find("4").route,
            (Codes{"AAA", "B1", "B2", "B3", "B4", "B5", "B6", "B7", "B8", "B9", "BX", "ZZZ"}));
  EXPECT_EQ(Find("5").route, (Codes{"AAA", "ZZZ"}));
  EXPECT_EQ(Find("6").route, (Codes{"AAA", "", "CCC", "ZZZ"})) << "an empty text is a text";
}

TEST_F(ScheduleTest, AStopColumnThatIsNotTextEndsTheStopovers) {
  test::Table table = test::FlitTable({test::Flight("Q1", "1", "AAA", {"BBB", "CCC", "DDD"}, "ZZZ")});
  constexpr std::size_t kStop2 = 5;
  const std::vector<std::pair<jet::ColumnInfo, test::Cell>> others = {{test::Long("Flit_Stop2"), 7},
                                                                      {test::Double("Flit_Stop2"), 1.5},
                                                                      {test::Boolean("Flit_Stop2"), true},
                                                                      {test::Byte("Flit_Stop2"), 0}};
  for (const auto& [column, cell] : others) {
    table.columns[kStop2] = column;
    table.rows[0][kStop2] = cell;
    OpenTable(table);
    EXPECT_EQ(Find("1").route, (Codes{"AAA", "BBB", "ZZZ"}));
  }
  table.columns[kStop2] = test::Memo("Flit_Stop2");
  table.rows[0][kStop2] = "CCC";
  OpenTable(table);
  EXPECT_EQ(Find("1").route, (Codes{"AAA", "BBB", "CCC", "DDD", "ZZZ"})) << "a memo is a text";
  table.rows[0][kStop2] = jet::Null();
  OpenTable(table);
  EXPECT_EQ(Find("1").route, (Codes{"AAA", "BBB", "ZZZ"}));
}

TEST_F(ScheduleTest, AFlightContainsNothingOfThePreviousOne) {
  Open({test::Flight("Q1", "4", "AAA", {"B1", "B2", "B3"}, "ZZZ"), test::Flight("Q1", "1", "AAA", {}, "ZZZ"),
        test::Flight("Q1", "2", "AAA", {"LONGERCODETHANFITSINPLACE", "CCC"}, "ZZZ"),
        test::Flight("Q1", "3", "X", {"Y"}, "Z")});
  std::vector<Codes> routes;
  schedule_->VisitFlights("Q1", [&](const FlightRow& row) {
    routes.push_back(row.Read().route);
    EXPECT_EQ(row.Origin(), routes.back().front());
    EXPECT_EQ(row.Destination(), routes.back().back());
    return true;
  });
  EXPECT_EQ(routes, (std::vector<Codes>{{"AAA", "B1", "B2", "B3", "ZZZ"},
                                        {"AAA", "ZZZ"},
                                        {"AAA", "LONGERCODETHANFITSINPLACE", "CCC", "ZZZ"},
                                        {"X", "Y", "Z"}}));
}

TEST_F(ScheduleTest, TheFlightsOfAServiceAreAdjacentInItsIndex) {
  Open({test::Flight("Q2", "1", "A", {}, "B"), test::Flight("Q1", "2", "A", {}, "B"),
        test::Flight("Q2X", "3", "A", {}, "B"), test::Flight("Q2", "4", "A", {}, "B"),
        test::Flight("Q3", "5", "A", {}, "B")});
  EXPECT_EQ(KeysOf("Q2"), (Codes{"1", "4"}));
  EXPECT_EQ(KeysOf("Q1"), Codes{"2"});
  EXPECT_EQ(KeysOf("Q3"), Codes{"5"}) << "ends with the table";
  EXPECT_EQ(KeysOf("Q4"), Codes{});
  EXPECT_EQ(KeysOf(""), Codes{});
}

TEST_F(ScheduleTest, ServiceKeysAreComparedExactly) {
  Open({test::Flight("PAC", "1", "A", {}, "B"), test::Flight("PAC", "2", "A", {}, "B"),
        test::Flight("pac", "3", "A", {}, "B")});
  EXPECT_EQ(KeysOf("PAC"), (Codes{"1", "2"}));
  EXPECT_EQ(KeysOf("pac"), Codes{"3"});
  EXPECT_EQ(KeysOf("Pac"), Codes{});
}

TEST_F(ScheduleTest, AVisitEndsWhenTheVisitorReturnsFalse) {
  Open({test::Flight("Q1", "1", "A", {}, "B"), test::Flight("Q1", "2", "A", {}, "B"),
        test::Flight("Q1", "3", "A", {}, "B")});
  int rows = 0;
  schedule_->VisitFlights("Q1", [&](const FlightRow&) { return ++rows < 2; });
  EXPECT_EQ(rows, 2);
}

TEST_F(ScheduleTest, VisitsAndLookUpsCanAlternate) {
  Open({test::Flight("Q2", "1", "A", {}, "B"), test::Flight("Q1", "2", "A", {}, "B")});
  EXPECT_EQ(Find("1").service, "Q2");
  EXPECT_EQ(KeysOf("Q1"), Codes{"2"});
  EXPECT_EQ(Find("2").service, "Q1");
  EXPECT_EQ(Find("1").service, "Q2");
  EXPECT_EQ(KeysOf("Q2"), Codes{"1"});
  EXPECT_FALSE(schedule_->Find("3"));
}

TEST_F(ScheduleTest, AnEmptyScheduleHasNoFlights) {
  Open({});
  EXPECT_EQ(KeysOf("Q1"), Codes{});
}

TEST_F(ScheduleTest, AFlightLineNamesKnownCities) {
  Open({}, {{"AAA", "Alpha"}, {"BBB", "Beta"}, {"CCC", "Gamma"}, {"NUL", jet::Null()}});
  const auto line = [&](Codes route, bool cities) {
    return FlightLine({"key", "Q1", "123", std::move(route)}, *destinations_, cities);
  };
  EXPECT_EQ(line({"AAA", "BBB", "CCC"}, false), "123 - Alpha AAA -> BBB -> Gamma CCC");
  EXPECT_EQ(line({"AAA", "BBB", "CCC"}, true), "123 - Alpha AAA -> Beta BBB -> Gamma CCC");
  EXPECT_EQ(line({"AAA", "CCC"}, false), "123 - Alpha AAA -> Gamma CCC");
  EXPECT_EQ(line({"XXX", "YYY", "ZZZ"}, true), "123 - XXX -> YYY -> ZZZ");
  EXPECT_EQ(line({"aaa", "bbb", "Ccc"}, true), "123 - aaa -> bbb -> Ccc") << "codes are compared exactly";
  EXPECT_EQ(line({"NUL", "AAA"}, false), "123 -  NUL -> Alpha AAA");
}

TEST_F(ScheduleTest, EveryListUsesTheSameLineForAGap) {
  Open({test::Flight("Q1", "7", "AAA", {"-", "BBB"}, "CCC")}, {{"AAA", "Alpha"}});
  EXPECT_EQ(FlightLine(Find("7"), *destinations_, true), "QV7 - Alpha AAA -> CCC");
}

}  // namespace
}  // namespace zerbal::data
