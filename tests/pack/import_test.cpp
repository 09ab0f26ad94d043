// `zerbal-pack import` from the words of its command line to its files.
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "pack/ssim_lines.h"
#include "support/temp_folder.h"
#include "zerbal-pack/import_files.h"
#include "zerbal-pack/run.h"

namespace zerbal::pack {
namespace {

using test::At;
using test::SsimFile;
using test::SsimLegRecord;
using zerbal::test::NamesIn;
using zerbal::test::ReadBytes;
using zerbal::test::TempFolder;
using zerbal::test::WriteBytes;

const std::string kListOfAirports =
    "Code,Name,City,Longitude,Latitude,Elevation,Runways,Longest runway,ILS,IATA\n"
    "EAAA,Alpha Field,Alpha,-9.13592,38.7813,374,1,12162,1,AAA\n"
    "EBBB,\"Bravo, \"\"B\"\"\",Bravo,12.5,-3.25,0,2,8000,0,BBB\n"
    "ECCC,Charlie,,0,0,-7,1,3000,1,CCC\n"
    "EDDD,Delta,Delta,1,1,1,1,3000,0,\n"
    "EEEE,Echo,Echo,2,2,1,1,3000,0,EEE\n";

class ImportTest : public testing::Test {
 protected:
  void SetUp() override { WriteBytes(folder / "a.csv", kListOfAirports); }

  int Run(std::vector<std::string> words) {
    out.str("");
    err.str("");
    return RunPack(words, {.out = out, .err = err, .executable = {}, .interrupted = [] { return false; }});
  }

  std::string Name(const std::string& name) const { return (folder / name).string(); }

  int Import(const std::vector<std::string>& records, const std::vector<std::string>& options = {}) {
    WriteBytes(folder / "s.ssim", SsimFile(records));
    std::vector<std::string> words = {"import",     "--from",      "ssim",  Name("s.ssim"),
                                      "--airports", Name("a.csv"), "--out", Name("o")};
    words.insert(words.end(), options.begin(), options.end());
    return Run(words);
  }

  std::string Err() const {
    std::string text = err.str();
    const std::string name = (folder.Path() / "").string();
    for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name))
      text.erase(at, name.size());
    return text;
  }

  /// Service, flight, key, codes of each row of flights.csv.
  std::string Flights() const {
    std::string shown;
    const std::string bytes = ReadBytes(folder / "o" / "flights.csv");
    std::istringstream lines(bytes.substr(bytes.find('\n') + 1));
    for (std::string line; std::getline(lines, line);) {
      for (const char c : line) {
        if (c == ',' && !shown.ends_with(' '))
          shown += ' ';
        else if (c != '"' && c != ',' && c != '\r')
          shown += c;
      }
      shown += '\n';
    }
    return shown;
  }

  TempFolder folder;
  std::ostringstream out, err;
};

const std::string kPassengers = SsimLegRecord("101", 1, "AAA", "BBB");
const std::string kCargo = At(At(SsimLegRecord("7", 1, "BBB", "CCC"), 14, "F"), 73, "74Y");

TEST_F(ImportTest, WritesTheThreeTables) {
  ASSERT_EQ(Import({kPassengers, kCargo, SsimLegRecord("301", 1, "CCC", "AAA"),
                    SsimLegRecord("301", 2, "AAA", "BBB")}),
            0)
      << Err();
  EXPECT_EQ(Err(), "");
  EXPECT_EQ(out.str(), "2 flight services, 3 destinations, 3 flights\n");
  EXPECT_EQ(NamesIn(folder / "o"),
            (std::vector<std::string>{"destinations.csv", "flights.csv", "services.csv"}));
  EXPECT_EQ(ReadBytes(folder / "o" / "services.csv"),
            "\"Service\",\"Line\",\"Name\",\"Red\",\"Green\",\"Blue\"\r\n"
            "\"J\",\"1\",\"Passengers, scheduled\",0,120,232\r\n"
            "\"F\",\"2\",\"Cargo, scheduled\",238,90,126\r\n");
  EXPECT_EQ(ReadBytes(folder / "o" / "destinations.csv"),
            "\"Code\",\"Name\",\"City\",\"Longitude\",\"Latitude\",\"Elevation (ft)\",\"Runways\","
            "\"Longest runway (ft)\",\"ILS\",\"IATA\"\r\n"
            "\"EAAA\",\"Alpha Field\",\"Alpha\",-9.13592,38.7813,374,1,12162,\"1\",\"AAA\"\r\n"
            "\"EBBB\",\"Bravo, \"\"B\"\"\",\"Bravo\",12.5,-3.25,0,2,8000,\"0\",\"BBB\"\r\n"
            "\"ECCC\",\"Charlie\",\"\",0,0,-7,1,3000,\"1\",\"CCC\"\r\n");
  EXPECT_EQ(ReadBytes(folder / "o" / "flights.csv"),
            "\"Service\",\"Flight\",\"Key\",\"From\",\"Stop 1\",\"Stop 2\",\"Stop 3\",\"Stop 4\",\"Stop "
            "5\",\"Stop 6\","
            "\"Stop 7\",\"Stop 8\",\"Stop 9\",\"Stop 10\",\"To\"\r\n"
            "\"J\",\"XY101\",\"XY101\",\"EAAA\",,,,,,,,,,,\"EBBB\"\r\n"
            "\"F\",\"XY7\",\"XY7\",\"EBBB\",,,,,,,,,,,\"ECCC\"\r\n"
            "\"J\",\"XY301\",\"XY301\",\"ECCC\",\"EAAA\",,,,,,,,,,\"EBBB\"\r\n");
}

TEST_F(ImportTest, WritesTheDatabaseOfTheTables) {
  ASSERT_EQ(
      Import({kPassengers, kCargo, SsimLegRecord("101", 1, "AAA", "CCC", 2)}, {"--schedule", Name("q.mdb")}),
      0);
  ASSERT_EQ(Run({"schedule", "--out", Name("r.mdb"), "--services", Name("o/services.csv"), "--destinations",
                 Name("o/destinations.csv"), "--flights", Name("o/flights.csv")}),
            0)
      << Err();
  EXPECT_TRUE(ReadBytes(folder / "q.mdb") == ReadBytes(folder / "r.mdb"));
}

TEST_F(ImportTest, TakesVariationsOfOneRouteTogether) {
  const std::vector<std::string> records = {kPassengers, SsimLegRecord("101", 1, "AAA", "BBB", 2),
                                            SsimLegRecord("101", 1, "AAA", "CCC", 3),
                                            At(kPassengers, 2, "D")};
  ASSERT_EQ(Import(records), 0);
  EXPECT_EQ(Flights(), "J XY101 XY101 EAAA EBBB\nJ XY101 XY101/3 EAAA ECCC\nJ XY101D XY101D EAAA EBBB\n");
  ASSERT_EQ(Import(records, {"--keep-variations"}), 0);
  EXPECT_EQ(Flights(),
            "J XY101 XY101 EAAA EBBB\nJ XY101 XY101/2 EAAA EBBB\nJ XY101 XY101/3 EAAA ECCC\n"
            "J XY101D XY101D EAAA EBBB\n");
}

TEST_F(ImportTest, TakesSeveralFiles) {
  WriteBytes(folder / "t.ssim", SsimFile({kPassengers, SsimLegRecord("5", 1, "AAA", "BBB")}));
  ASSERT_EQ(Import({kPassengers}, {Name("t.ssim")}), 0);
  EXPECT_EQ(Flights(), "J XY101 XY101 EAAA EBBB\nJ XY5 XY5 EAAA EBBB\n");
  ASSERT_EQ(Import({kPassengers}, {Name("t.ssim"), "--keep-variations"}), 0);
  EXPECT_EQ(Flights(), "J XY101 XY101 EAAA EBBB\nJ XY101 XY101/1 EAAA EBBB\nJ XY5 XY5 EAAA EBBB\n");
}

TEST_F(ImportTest, ChoosesFlightsByTheirFirstLeg) {
  // Leaves on Wednesdays; its second leg on Thursdays.
  const std::string first = At(At(SsimLegRecord("9", 1, "AAA", "BBB"), 29, "  3    "), 15, "07APR2728APR27");
  const std::string second = At(At(SsimLegRecord("9", 2, "BBB", "CCC"), 29, "   4   "), 15, "08APR2729APR27");
  const auto flights = [&](const std::vector<std::string>& options) {
    return Import({first, second}, options) == 0 ? Flights() : Err();
  };
  const std::string all = "J XY9 XY9 EAAA EBBB ECCC\n";
  const std::string none = "zerbal-pack: no flight remains; nothing was written\n";
  EXPECT_EQ(flights({"--on", "2027-04-28"}), all);
  EXPECT_EQ(flights({"--on", "2027-04-29"}), none);
  EXPECT_EQ(flights({"--on", "2027-04-20"}), none);
  EXPECT_EQ(flights({"--from-date", "2027-04-22", "--to-date", "2027-04-28"}), all);
  EXPECT_EQ(flights({"--from-date", "2027-04-22", "--to-date", "2027-04-27"}), none);
  EXPECT_EQ(flights({"--from-date", "2027-04-28"}), all);
  EXPECT_EQ(flights({"--to-date", "2027-04-06"}), none);
  EXPECT_EQ(flights({"--days", "34"}), all);
  EXPECT_EQ(flights({"--days", "4"}), none);
  EXPECT_EQ(flights({"--season", "S27"}), all);
  EXPECT_EQ(flights({"--season", "w27"}), none);
  EXPECT_EQ(flights({"--airline", "xy"}), all);
  EXPECT_EQ(flights({"--airline", "ZZ"}), none);
}

TEST_F(ImportTest, GroupsFlightsIntoServices) {
  const auto services = [&](const char* by, const char* codes) {
    EXPECT_EQ(Import({kPassengers, kCargo, SsimLegRecord("8", 1, "CCC", "AAA")},
                     {"--services-by", by, "--codes", codes}),
              0);
    return Flights();
  };
  EXPECT_EQ(services("service-type", "icao"),
            "J XY101 XY101 EAAA EBBB\nF XY7 XY7 EBBB ECCC\nJ XY8 XY8 ECCC EAAA\n");
  EXPECT_EQ(services("aircraft-type", "iata"),
            "320 XY101 XY101 AAA BBB\n74Y XY7 XY7 BBB CCC\n320 XY8 XY8 CCC AAA\n");
  EXPECT_EQ(services("airline", "icao"),
            "XY XY101 XY101 EAAA EBBB\nXY XY7 XY7 EBBB ECCC\nXY XY8 XY8 ECCC EAAA\n");
  EXPECT_EQ(services("origin", "iata"),
            "AAA XY101 XY101 AAA BBB\nBBB XY7 XY7 BBB CCC\nCCC XY8 XY8 CCC AAA\n");
  EXPECT_NE(ReadBytes(folder / "o" / "services.csv").find("\"CCC\",\"3\",\"Charlie\""), std::string::npos);
}

TEST_F(ImportTest, NotesAirportsWithoutTheCodeOfTheResult) {
  std::string airports = kListOfAirports;
  airports.replace(airports.find(",CCC\n"), 5, ",DDD\n");
  airports.replace(airports.find(",0,\n"), 4, ",0,CCC\n");
  WriteBytes(folder / "a.csv", airports);
  ASSERT_EQ(Import({kPassengers, kCargo}, {"--codes", "iata"}), 0);
  EXPECT_EQ(Flights(), "J XY101 XY101 AAA BBB\nF XY7 XY7 BBB CCC\n");
  WriteBytes(folder / "a.csv",
             "Code,Name,City,Longitude,Latitude,Elevation,Runways,Longest "
             "runway\nAAA,,,0,0,0,0,0\nBBB,,,0,0,0,0,0\n");
  ASSERT_EQ(Import({kPassengers}, {"--codes", "iata"}), 0);
  EXPECT_EQ(Err(),
            "a.csv: note: airport AAA has no IATA code; the result has its other code\n"
            "a.csv: note: airport BBB has no IATA code; the result has its other code\n");
  EXPECT_EQ(Flights(), "J XY101 XY101 AAA BBB\n");
}

TEST_F(ImportTest, ListsWhatItLeavesOut) {
  const std::string bad = At(SsimLegRecord("7", 2, "BBB", "CCC"), 55, "QPX");
  EXPECT_EQ(Import({kPassengers, SsimLegRecord("7", 1, "AAA", "BBB"), bad}), 1);
  EXPECT_EQ(out.str(), "1 flight service, 2 destinations, 1 flight\n");
  EXPECT_EQ(Err(),
            "s.ssim:5:55: error: unknown airport 'QPX'\n"
            "zerbal-pack: 1 error, 0 warnings; 2 records left out, listed in o/rejected.csv\n");
  EXPECT_EQ(Flights(), "J XY101 XY101 EAAA EBBB\n");
  std::string rejected = ReadBytes(folder / "o" / kRejectedFile);
  EXPECT_TRUE(rejected.starts_with("\"File\",\"Line\",\"Reason\",\"Record\"\r\n"));
  EXPECT_NE(rejected.find("s.ssim\",4,\"belongs to a flight with an error on line 5\",\"3 XY    70101J"),
            std::string::npos);
  EXPECT_NE(rejected.find("s.ssim\",5,\"unknown airport 'QPX'\",\"3 XY    70102J"), std::string::npos);
  EXPECT_EQ(Import({kPassengers}), 0);
  EXPECT_EQ(NamesIn(folder / "o"),
            (std::vector<std::string>{"destinations.csv", "flights.csv", "services.csv"}));
}

TEST_F(ImportTest, WritesNothingWhenItIsStrict) {
  EXPECT_EQ(Import({kPassengers, At(kCargo, 55, "QPX")}, {"--strict", "--schedule", Name("q.mdb")}), 1);
  EXPECT_EQ(
      Err(),
      "s.ssim:4:55: error: unknown airport 'QPX'\nzerbal-pack: 1 error, 0 warnings; nothing was written\n");
  EXPECT_EQ(Import({kPassengers, kPassengers}, {"--strict"}), 1);
  EXPECT_EQ(NamesIn(folder.Path()), (std::vector<std::string>{"a.csv", "s.ssim"}));
  EXPECT_EQ(Import({kPassengers, kPassengers}), 0);
  EXPECT_EQ(Import({At(kPassengers, 15, "01JAN2702JAN27")}, {"--strict"}), 0);
  EXPECT_EQ(Err(), "s.ssim:3:15: note: the period is outside of the schedule's validity\n");
}

TEST_F(ImportTest, WritesNothingWhenAFileCannotBeWritten) {
  zerbal::test::WriteBytes(folder / "o", "");
  EXPECT_EQ(Import({kPassengers}, {"--schedule", Name("q.mdb")}), 1);
  EXPECT_EQ(NamesIn(folder.Path()), (std::vector<std::string>{"a.csv", "o", "s.ssim"}));
  EXPECT_EQ(Import({kPassengers}, {"--schedule", Name("none/q.mdb")}), 1);
}

TEST_F(ImportTest, RefusesInvalidCommandLines) {
  const auto usage = [&](const std::vector<std::string>& options) {
    EXPECT_EQ(Import({kPassengers}, options), 2);
    return err.str().substr(0, err.str().find('\n'));
  };
  EXPECT_EQ(Run({"import"}), 2);
  EXPECT_EQ(Run({"import", "--from", "ssim", "x", "--out", "y"}), 2);
  EXPECT_EQ(Err(), "zerbal-pack: option '--airports' is missing\nTry 'zerbal-pack --help'.\n");
  EXPECT_EQ(Run({"import", "--from", "iata", "x", "--airports", "y", "--out", "z"}), 2);
  EXPECT_EQ(
      Err(),
      "zerbal-pack: --from 'iata' is none of ssim, phpvms and openflights\nTry 'zerbal-pack --help'.\n");
  EXPECT_EQ(usage({"--season", "27"}), "zerbal-pack: --season: '27' is not a season such as S27 or W27");
  EXPECT_EQ(usage({"--on", "14JUL27"}),
            "zerbal-pack: --on: there is no date '14JUL27'; write it as 2027-07-14");
  EXPECT_EQ(usage({"--from-date", "2027-02-29"}),
            "zerbal-pack: --from-date: there is no date '2027-02-29'; write it as 2027-07-14");
  EXPECT_EQ(usage({"--from-date", "2027-03-02", "--to-date", "2027-03-01"}),
            "zerbal-pack: no day is within all of the dates and the season that are given");
  EXPECT_EQ(usage({"--days", "76"}),
            "zerbal-pack: --days: '76' is not made of the digits 1 (Monday) to 7 in ascending order");
  EXPECT_EQ(usage({"--codes", "faa"}), "zerbal-pack: --codes 'faa' is none of icao and iata");
  EXPECT_EQ(usage({"--services-by", "colour"}),
            "zerbal-pack: --services-by 'colour' is none of service-type, aircraft-type, airline and origin");
  EXPECT_EQ(usage({"--strict=1"}), "zerbal-pack: option '--strict' takes no value");
}

}  // namespace
}  // namespace zerbal::pack
