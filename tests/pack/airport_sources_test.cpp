// Lists of airports in the forms that there are.
#include "zerbal-pack/airport_sources.h"

#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace zerbal::pack {
namespace {

using zerbal::test::TempFolder;
using zerbal::test::WriteBytes;

const std::string kOurAirports =
    "\"id\",\"ident\",\"type\",\"name\",\"latitude_deg\",\"longitude_deg\",\"elevation_ft\",\"municipality\","
    "\"gps_code\",\"iata_code\",\"icao_code\"\n"
    "1,\"EAAA\",\"large_airport\",\"Alpha, \"\"A\"\"\",38.5,-9.25,374,\"Alpha\",\"EAAA\",\"AAA\",\"EAAA\"\n"
    "2,\"XX-01\",\"medium_airport\",\"Bravo\",-3.25,12.5,,\"Bravo\",\"EBBB\",\"BBB\",\n"
    "3,\"ECCC\",\"small_airport\",\"Charlie\",0,0,-7,,,,\n"
    "4,\"XX-02\",\"heliport\",\"Delta\",1,1,1,,\"D12\",,\n"
    "5,\"EEEE\",\"closed\",\"Echo\",2,2,1,,\"EEEE\",\"EEE\",\n";
const std::string kRunways =
    "\"id\",\"airport_ref\",\"airport_ident\",\"length_ft\",\"width_ft\",\"surface\",\"lighted\",\"closed\","
    "\"le_ident\"\n"
    "1,1,\"EAAA\",12000,148,\"ASP\",1,0,\"02\"\n"
    "2,1,\"EAAA\",13000,148,\"ASP\",1,1,\"09\"\n"
    "3,2,\"XX-01\",8000,148,\"CON\",1,0,\"17\"\n"
    "4,2,\"XX-01\",,148,\"TURF\",0,0,\"05\"\n"
    "5,4,\"XX-02\",60,60,\"CON\",1,0,\"H1\"\n";

class AirportSources : public testing::Test {
 protected:
  AirportList Read(const std::string& name = "airports.csv") {
    problems = Problems();
    return ReadAirportList({folder / name, ""}, problems);
  }

  std::string Messages() const {
    std::ostringstream text;
    problems.Print(text, true);
    std::string messages = text.str();
    const std::string name = (folder.Path() / "").string();
    for (std::size_t at = 0; (at = messages.find(name)) != std::string::npos;)
      messages.erase(at, name.size());
    return messages;
  }

  static std::string Shown(const AirportTable& table, std::string_view code) {
    const auto index = table.Find(code);
    if (!index)
      return "none";
    const Airport& a = table[*index];
    std::ostringstream text;
    text << a.code << "|" << a.iata << "|" << a.name << "|" << a.city << "|" << a.longitude << "|"
         << a.latitude << "|" << a.elevation << "|" << a.runways << "|" << a.longestRunway << "|"
         << (a.ils ? std::to_string(*a.ils) : "?") << (a.likelyIls ? " likely" : "")
         << (a.airfield ? "" : " no field");
    return text.str();
  }

  TempFolder folder;
  Problems problems;
};

TEST_F(AirportSources, MayBeOurOwn) {
  WriteBytes(
      folder / "airports.csv",
      "Code;Name;City;Longitude;Latitude;Elevation;Runways;Longest runway;ILS;IATA\n"
      "EAAA;Alpha;A;-9,13592;38,7813;374;1;12162;1;AAA\nEBBB;Bravo;B;177.43784;-17.76182;59;2;6000;;AAA\n"
      "ECCC;Charlie;C;x;0;0;0;0;0;CCC\n");
  const AirportList list = Read();
  EXPECT_EQ(Messages(),
            "airports.csv: note: read as UTF-8, with semicolons between the fields\n"
            "airports.csv:3: warning: column 'IATA': 'AAA' is another airport's code already\n"
            "airports.csv:4: error: column 'Longitude': 'x' is not a number\n");
  EXPECT_EQ(Shown(list.table, "eaaa"), "EAAA|AAA|Alpha|A|-9.13592|38.7813|374|1|12162|1 likely");
  EXPECT_EQ(Shown(list.table, "aaa"), Shown(list.table, "EAAA"));
  EXPECT_EQ(Shown(list.table, "EBBB"), "EBBB||Bravo|B|177.438|-17.7618|59|2|6000|?");
  EXPECT_EQ(Shown(list.table, "ECCC"), "none");
}

TEST_F(AirportSources, FindThreeCharactersAmongOtherCodesOnlyWithoutIataCodes) {
  const std::string header = "Code,Name,City,Longitude,Latitude,Elevation,Runways,Longest runway,IATA\n";
  WriteBytes(folder / "airports.csv", header + "AAA,,,0,0,0,0,0,\n");
  EXPECT_NE(Shown(Read().table, "AAA"), "none");
  WriteBytes(folder / "airports.csv", header + "AAA,,,0,0,0,0,0,\nEBBB,,,0,0,0,0,0,BBB\n");
  EXPECT_EQ(Shown(Read().table, "AAA"), "none");
}

TEST_F(AirportSources, MayBeOurAirports) {
  WriteBytes(folder / "airports.csv", kOurAirports);
  WriteBytes(folder / "runways.csv", kRunways);
  const AirportList list = Read();
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(list.table.Size(), 4U);
  EXPECT_EQ(Shown(list.table, "AAA"), "EAAA|AAA|Alpha, \"A\"|Alpha|-9.25|38.5|374|1|12000|? likely");
  EXPECT_EQ(Shown(list.table, "EBBB"), "EBBB|BBB|Bravo|Bravo|12.5|-3.25|0|2|8000|? likely");
  EXPECT_EQ(Shown(list.table, "XX-01"), Shown(list.table, "EBBB"));
  EXPECT_EQ(Shown(list.table, "ECCC"), "ECCC||Charlie||0|0|-7|0|0|?");
  EXPECT_EQ(Shown(list.table, "XX-02"), "XX-02||Delta||1|1|1|0|0|? no field");
  EXPECT_EQ(Shown(list.table, "EEEE"), "none");
  problems = Problems();
  EXPECT_EQ(Shown(ReadAirportList({folder.Path(), ""}, problems).table, "AAA"), Shown(list.table, "AAA"));
}

TEST_F(AirportSources, FindTheRunwaysOfOurAirports) {
  WriteBytes(folder / "my-airports.csv", kOurAirports);
  WriteBytes(folder / "my-runways.csv", kRunways);
  WriteBytes(folder / "others.csv",
             kRunways.substr(0, kRunways.find('\n')) + "\n1,3,\"ECCC\",4000,1,\"ASP\",0,0,\"02\"\n");
  EXPECT_NE(Shown(Read("my-airports.csv").table, "AAA").find("|12000|"), std::string::npos);
  const AirportList list = ReadAirportList({folder / "my-airports.csv", folder / "others.csv"}, problems);
  EXPECT_EQ(Shown(list.table, "ECCC"), "ECCC||Charlie||0|0|-7|1|4000|?");
}

TEST_F(AirportSources, ReportBadRowsOfOurAirports) {
  WriteBytes(folder / "airports.csv", kOurAirports +
                                          "6,\"EFFF\",\"small_airport\",\"F\",91,0,,,,,\n"
                                          "7,\"EGGG\",\"small_airport\",\"G\",1,0,high,,,AAA,\n"
                                          "8,\"EAAA\",\"small_airport\",\"A\",1,0,,,,,\n"
                                          "9,,\"small_airport\",\"H\",1,0,,,,,\n"
                                          "10,\"E\"II,\"small_airport\"\n");
  const AirportList list = Read();
  EXPECT_EQ(Messages(),
            "airports.csv:7: error: column 'latitude_deg': '91' is not a position in degrees\n"
            "airports.csv:8: warning: column 'elevation_ft': 'high' is not a whole number; taken as 0\n"
            "airports.csv:8: warning: column 'iata_code': 'AAA' is another airport's code already\n"
            "airports.csv:9: warning: column 'ident': 'EAAA' is another airport's code already; left out\n"
            "airports.csv:10: error: column 'ident': is empty\n"
            "airports.csv:11: error: column '2': text after the closing quotation mark\n");
  EXPECT_EQ(list.table.Size(), 5U);
}

TEST_F(AirportSources, MayBeOpenFlights) {
  WriteBytes(
      folder / "a.dat",
      "1,\"Alpha\\'s\",\"A\",\"Land\",\"AAA\",\"EAAA\",38.5,-9.25,374,0,\"E\",\"Z\",\"airport\",\"x\"\n"
      "2,\"Bravo\",\"B\",\"Land\",\\N,\"EBBB\",1,2,3,\\N,\\N,\\N,\"airport\",\"x\"\n"
      "3,\"Charlie\",\"C\",\"Land\",\"CCC\",\\N,1,2,3,0,\"E\"\n"
      "4,\"Rail\",\"C\",\"Land\",\"DDD\",\\N,1,2,3,0,\"E\",\"Z\",\"station\",\"x\"\n"
      "5,\"Nothing\",\"C\",\"Land\",\\N,\\N,1,2,3,0,\"E\",\"Z\"\n"
      "6,\"Far\",\"C\",\"Land\",\"FFF\",\\N,1,200,3,0,\"E\",\"Z\"\n"
      "7,8,9\n");
  const AirportList list = Read("a.dat");
  EXPECT_EQ(Messages(),
            "a.dat:6: error: column 'longitude': '200' is not a position in degrees\n"
            "a.dat:7: error: is not an airport of 11, 12 or 14 fields that begin with a number\n");
  EXPECT_EQ(Shown(list.table, "AAA"), "EAAA|AAA|Alpha's|A|-9.25|38.5|374|0|0|?");
  EXPECT_EQ(Shown(list.table, "EBBB"), "EBBB||Bravo|B|2|1|3|0|0|?");
  EXPECT_EQ(Shown(list.table, "CCC"), "CCC|CCC|Charlie|C|2|1|3|0|0|?");
  EXPECT_EQ(list.ids.at("2"), list.table.Find("EBBB"));
  EXPECT_EQ(list.ids.size(), 4U);
  EXPECT_TRUE(IsOpenFlightsAirports(folder / "a.dat"));
}

TEST_F(AirportSources, MayBeMissing) {
  EXPECT_EQ(Read().table.Size(), 0U);
  EXPECT_EQ(Messages(), "airports.csv: error: cannot be read\n");
  EXPECT_FALSE(IsOpenFlightsAirports(folder / "airports.csv"));
}

}  // namespace
}  // namespace zerbal::pack
