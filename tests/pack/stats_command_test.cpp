// `zerbal-pack stats` from the words of its command line to its output.
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "pack/command_test.h"
#include "pack/schedule_files.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/write_tables.h"

namespace zerbal::pack {
namespace {

namespace fs = std::filesystem;
using test::AirportsOnTheEquator;
using test::WriteScheduleFiles;

class StatsCommand : public test::CommandTest {
 protected:
  int Stats(const std::string& source, const std::vector<std::string>& options = {}) {
    std::vector<std::string> words = {"stats", Name(source)};
    words.insert(words.end(), options.begin(), options.end());
    return Run(words);
  }

  /// A data folder whose flight from A to B also calls at C, which is not a destination.
  void WriteDataFolder(const std::string& worldAirports) {
    Problems problems;
    const std::string destinations = AirportsOnTheEquator("AB");
    Schedule schedule;
    schedule.services = ParseCsvTable(test::kTwoServices, "s", ServiceLayout(), problems);
    schedule.destinations = ParseCsvTable(destinations, "d", DestinationLayout(), problems);
    schedule.flights =
        ParseCsvTable("Service,Flight,Key,From,Stop 1,To\nX,N1,N1,A,C,B\n", "f", FlightLayout(), problems);
    ASSERT_TRUE(problems.Empty());
    fs::create_directories(folder / "data" / "app_data");
    WriteSchedule(folder / "data" / "app_data" / "qavdata.mdb", schedule);
    if (worldAirports.empty())
      return;
    WriteAirports(folder / "data" / "app_data" / "allaprt.mdb",
                  ParseCsvTable(AirportsOnTheEquator(worldAirports), "a", AirportLayout(), problems));
    ASSERT_TRUE(problems.Empty());
  }
};

TEST_F(StatsCommand, PrintsText) {
  WriteScheduleFiles(folder / "csv", "X,N10,N10,A,D,B\nX,N9,N9,B,A,\n");
  EXPECT_EQ(Stats("csv"), 0);
  EXPECT_EQ(out.str(),
            "All flights\n"
            "  flights           2\n"
            "  legs              3\n"
            "  airports          3\n"
            "  kilometres        4452.8\n"
            "  shortest leg      1113.2 km, B-A, flight N9\n"
            "  longest leg       2226.4 km, B-D, flight N10\n"
            "  busiest airports  B 3, A 2, D 1\n"
            "  busiest pairs     A-B 2, B-D 1\n"
            "\n"
            "Service X, Ex\n"
            "  flights           2\n"
            "  legs              3\n"
            "  airports          3\n"
            "  kilometres        4452.8\n"
            "  shortest leg      1113.2 km, B-A, flight N9\n"
            "  longest leg       2226.4 km, B-D, flight N10\n"
            "  busiest airports  B 3, A 2, D 1\n"
            "  busiest pairs     A-B 2, B-D 1\n"
            "\n"
            "Service Y, Why\n"
            "  flights           0\n"
            "  legs              0\n"
            "  airports          0\n"
            "  kilometres        0.0\n"
            "  shortest leg      none\n"
            "  longest leg       none\n"
            "  busiest airports  none\n"
            "  busiest pairs     none\n");
  EXPECT_EQ(err.str(), "");
}

TEST_F(StatsCommand, PrintsCsv) {
  WriteScheduleFiles(folder / "csv", "Y,N10,N10,A,D,B\n");
  EXPECT_EQ(Stats("csv", {"--csv"}), 0);
  EXPECT_EQ(
      out.str(),
      "\"Service\",\"Name\",\"Flights\",\"Legs\",\"Airports\",\"Kilometres\",\"Not measured\","
      "\"Shortest from\",\"Shortest to\",\"Shortest flight\",\"Shortest km\","
      "\"Longest from\",\"Longest to\",\"Longest flight\",\"Longest km\","
      "\"Airport 1\",\"Airport 1 legs\",\"Airport 2\",\"Airport 2 legs\",\"Airport 3\",\"Airport 3 legs\","
      "\"Airport 4\",\"Airport 4 legs\",\"Airport 5\",\"Airport 5 legs\","
      "\"Pair 1\",\"Pair 1 legs\",\"Pair 2\",\"Pair 2 legs\",\"Pair 3\",\"Pair 3 legs\","
      "\"Pair 4\",\"Pair 4 legs\",\"Pair 5\",\"Pair 5 legs\"\r\n"
      "\"\",\"\",1,2,3,3339.585,0,\"A\",\"B\",\"N10\",1113.195,\"B\",\"D\",\"N10\",2226.390,"
      "\"B\",2,\"A\",1,\"D\",1,,,,,\"A-B\",1,\"B-D\",1,,,,,,\r\n"
      "\"X\",\"Ex\",0,0,0,0.000,0,,,,,,,,,,,,,,,,,,,,,,,,,,,,\r\n"
      "\"Y\",\"Why\",1,2,3,3339.585,0,\"A\",\"B\",\"N10\",1113.195,\"B\",\"D\",\"N10\",2226.390,"
      "\"B\",2,\"A\",1,\"D\",1,,,,,\"A-B\",1,\"B-D\",1,,,,,,\r\n");
}

TEST_F(StatsCommand, PrintsJson) {
  WriteScheduleFiles(folder / "csv", "Y,N10,N10,A,D,B\n");
  EXPECT_EQ(Stats("csv", {"--json"}), 0);
  EXPECT_TRUE(out.str().starts_with("{\n  \"all\": {\n    \"flights\": 1,\n    \"legs\": 2,\n")) << out.str();
}

TEST_F(StatsCommand, LooksForAirportsInTheWholeDataFolder) {
  WriteDataFolder("ABCD");
  EXPECT_EQ(Stats("data"), 0) << err.str();
  EXPECT_NE(out.str().find("  kilometres        3339.6\n"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("  longest leg       2226.4 km, A-C, flight N1\n"), std::string::npos)
      << out.str();
}

TEST_F(StatsCommand, TellsWhichAirportsAreNowhere) {
  for (const std::string world : {"", "ABD"}) {
    WriteDataFolder(world);
    EXPECT_EQ(Stats("data"), 1);
    EXPECT_EQ(Err(), "zerbal-pack: the position of airport 'C' is not known\n");
    EXPECT_NE(out.str().find("  legs not measured 2\n"), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("  longest leg       none\n"), std::string::npos) << out.str();
  }
}

TEST_F(StatsCommand, CountsNothingWhenRowsAreBad) {
  WriteScheduleFiles(folder / "csv", "X,N1,N1,A,Q,\n");
  EXPECT_EQ(Stats("csv"), 1);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(
      Err(),
      "csv/flights.csv:2: column 'To': unknown airport 'Q'\nzerbal-pack: 1 problem; nothing was counted\n");
  EXPECT_EQ(Stats("none"), 1);
  EXPECT_TRUE(err.str().starts_with("zerbal-pack: ")) << err.str();
}

TEST_F(StatsCommand, RefusesInvalidCommandLines) {
  EXPECT_EQ(Run({"stats"}), 2);
  EXPECT_TRUE(err.str().starts_with("zerbal-pack: DIR is missing\n")) << err.str();
  EXPECT_EQ(Stats("csv", {"--csv", "--json"}), 2);
  EXPECT_TRUE(err.str().starts_with("zerbal-pack: --csv and --json exclude each other\n")) << err.str();
  EXPECT_EQ(Stats("csv", {"--csv=x"}), 2);
}

}  // namespace
}  // namespace zerbal::pack
