// The sample data is complete and consistent and has data for every feature of the program.
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/recordset.h"
#include "pack/pack_fixture.h"
#include "support/temp_folder.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/write_tables.h"

namespace zerbal::pack {
namespace {

using test::kPackFolder;

struct Route {
  std::string service;
  std::vector<std::string> airports;
};

class PackContent : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    Problems problems;
    schedule = new Schedule(ReadSchedule(
        {kPackFolder / "services.csv", kPackFolder / "destinations.csv", kPackFolder / "flights.csv"},
        problems));
    program = new ProgramData(ReadProgramData(kPackFolder, problems));
    airports = new CsvTable(ReadAirports(kPackFolder / "airports.csv", problems));
    std::ostringstream text;
    problems.Print(text);
    faults = new std::string(text.str());
  }

  static void TearDownTestSuite() {
    delete schedule;
    delete program;
    delete airports;
    delete faults;
  }

  static std::string Text(const CsvTable& table, const CsvRow& row, std::string_view field) {
    return std::string(row.Text(table.layout->ColumnIndex(field)));
  }

  template <typename Number>
  static Number Value(const CsvTable& table, const CsvRow& row, std::string_view field) {
    return std::get<Number>(row.values[table.layout->ColumnIndex(field)]);
  }

  static std::vector<Route> Routes() {
    std::vector<Route> routes;
    const CsvTable& flights = schedule->flights;
    for (const CsvRow& row : flights.rows) {
      Route route{Text(flights, row, "Flit_FSrv"), {}};
      const std::size_t last = flights.layout->ColumnIndex("Flit_Arr");
      for (std::size_t i = flights.layout->ColumnIndex("Flit_Dep"); i <= last; ++i) {
        if (!row.Text(i).empty())
          route.airports.emplace_back(row.Text(i));
      }
      routes.push_back(std::move(route));
    }
    return routes;
  }

  static std::map<std::string, float> Longitudes() {
    std::map<std::string, float> longitudes;
    for (const CsvRow& row : schedule->destinations.rows)
      longitudes[Text(schedule->destinations, row, "AP")] =
          Value<float>(schedule->destinations, row, "AP_Lon");
    return longitudes;
  }

  static Schedule* schedule;
  static ProgramData* program;
  static CsvTable* airports;
  static std::string* faults;
};

Schedule* PackContent::schedule = nullptr;
ProgramData* PackContent::program = nullptr;
CsvTable* PackContent::airports = nullptr;
std::string* PackContent::faults = nullptr;

TEST_F(PackContent, HasNoErrors) {
  EXPECT_EQ(*faults, "");
}

TEST_F(PackContent, HasEnoughRows) {
  EXPECT_EQ(airports->rows.size(), 14705U);
  EXPECT_GE(schedule->services.rows.size(), 12U);
  EXPECT_GE(schedule->destinations.rows.size(), 90U);
  EXPECT_GE(schedule->flights.rows.size(), 400U);
  EXPECT_GE(program->regions.rows.size(), 15U);
  EXPECT_EQ(program->colours.rows.size(), 9U);
  EXPECT_EQ(program->fonts.rows.size(), 2U);
}

TEST_F(PackContent, HasRoutesOfEveryLength) {
  std::set<std::size_t> stops;
  for (const Route& route : Routes())
    stops.insert(route.airports.size() - 2);
  for (const std::size_t count : {0U, 1U, 2U, 3U, 9U, 10U})
    EXPECT_TRUE(stops.contains(count)) << count << " stopovers";
}

TEST_F(PackContent, CrossesTheDateLineInBothDirections) {
  const std::map<std::string, float> longitudes = Longitudes();
  int eastwards = 0;
  int westwards = 0;
  for (const Route& route : Routes()) {
    for (std::size_t i = 1; i < route.airports.size(); ++i) {
      const float step = longitudes.at(route.airports[i]) - longitudes.at(route.airports[i - 1]);
      eastwards += step < -180 ? 1 : 0;
      westwards += step > 180 ? 1 : 0;
    }
  }
  EXPECT_GE(eastwards, 10);
  EXPECT_GE(westwards, 10);
}

/// Counts as the program does: connecting flights that return to the origin of the first one.
TEST_F(PackContent, HasRoundTripsInEveryService) {
  std::map<std::string, int> roundTrips;
  std::string service, from, to;
  for (const Route& route : Routes()) {
    const bool goesOn = route.service == service && !from.empty() && route.airports.front() == to;
    if (!goesOn)
      from = route.airports.front();
    service = route.service;
    to = route.airports.back();
    if (to == from) {
      ++roundTrips[service];
      from.clear();
    }
  }
  for (const CsvRow& row : schedule->services.rows) {
    const std::string key = Text(schedule->services, row, "FSrv");
    EXPECT_GE(roundTrips[key], 5) << key;
  }
}

TEST_F(PackContent, KeepsTheFlightsOfAServiceTogether) {
  std::set<std::string> ended;
  std::string current;
  for (const Route& route : Routes()) {
    if (route.service == current)
      continue;
    ended.insert(current);
    current = route.service;
    EXPECT_FALSE(ended.contains(current)) << current;
  }
}

TEST_F(PackContent, TakesDestinationsFromTheWorldsAirports) {
  std::map<std::string, const CsvRow*> world;
  for (const CsvRow& row : airports->rows)
    world[Text(*airports, row, "AP")] = &row;
  std::set<std::string> used;
  for (const Route& route : Routes())
    used.insert(route.airports.begin(), route.airports.end());
  const CsvTable& destinations = schedule->destinations;
  for (const CsvRow& row : destinations.rows) {
    const std::string code = Text(destinations, row, "AP");
    ASSERT_TRUE(world.contains(code)) << code;
    for (const char* field : {"AP_Lon", "AP_Lat"})
      EXPECT_EQ(Value<float>(destinations, row, field), Value<float>(*airports, *world[code], field)) << code;
    EXPECT_TRUE(used.contains(code)) << code << " has no flight";
  }
}

TEST_F(PackContent, HasTheIataCodesOfAirports) {
  std::map<std::string, std::string> codes;
  std::set<std::string> iataCodes;
  for (const CsvRow& row : airports->rows) {
    const std::string iata = Text(*airports, row, "AP_IATA");
    if (iata.empty())
      continue;
    EXPECT_TRUE(iataCodes.insert(iata).second) << iata << " occurs twice";
    EXPECT_EQ(iata.size(), 3U) << iata;
    codes[Text(*airports, row, "AP")] = iata;
  }
  EXPECT_GT(codes.size(), 6000U);
  EXPECT_EQ(codes["LPPT"], "LIS");
  EXPECT_EQ(codes["PTSA"], "KSA");
  EXPECT_EQ(codes["NZAA"], "AKL");
}

TEST_F(PackContent, KeepsIataCodesOutOfTheDatabase) {
  const zerbal::test::TempFolder folder;
  WriteAirports(folder / "allaprt.mdb", *airports);
  const jet::Recordset rows = jet::Database::Open(folder / "allaprt.mdb").OpenTable("allaprt");
  EXPECT_FALSE(rows.FindField("AP_IATA"));
  EXPECT_EQ(rows.Columns().size(), 9U);
}

TEST_F(PackContent, HasRegionsAcrossTheDateLine) {
  int wrapping = 0;
  for (const CsvRow& row : program->regions.rows) {
    const double west = Value<double>(program->regions, row, "Reg_FromLon");
    const double east = Value<double>(program->regions, row, "Reg_ToLon");
    wrapping += east < west ? 1 : 0;
  }
  EXPECT_GE(wrapping, 3);
}

}  // namespace
}  // namespace zerbal::pack
