// `zerbal-pack airports` from the words of its command line to its file.
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/recordset.h"
#include "pack/pack_fixture.h"
#include "support/temp_folder.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/run.h"
#include "zerbal-pack/write_tables.h"

namespace zerbal::pack {
namespace {

using test::kPackFolder;
using zerbal::test::NamesIn;
using zerbal::test::ReadBytes;
using zerbal::test::TempFolder;
using zerbal::test::WriteBytes;

class AirportsCommand : public testing::Test {
 protected:
  int Run(const std::vector<std::string>& files, const std::vector<std::string>& options = {}) {
    std::vector<std::string> words = {"airports", "--out", (folder / "a.mdb").string()};
    for (const std::string& file : files)
      words.push_back((folder / file).string());
    words.insert(words.end(), options.begin(), options.end());
    out.str("");
    err.str("");
    return RunPack(words, {.out = out, .err = err, .executable = {}, .interrupted = [] { return false; }});
  }

  /// Code, longest runway and ILS of each airport.
  std::string Airports() const {
    std::string shown;
    jet::Recordset rows = jet::Database::Open(folder / "a.mdb").OpenTable("allaprt");
    for (; !rows.Eof(); rows.MoveNext())
      shown += rows["AP"].AsText() + " " + rows["AP_RwyMaxL"].AsText() + " " + rows["AP_ILS"].AsText() + "\n";
    return shown;
  }

  TempFolder folder;
  std::ostringstream out, err;
};

const std::string kHeader = "Code,Name,City,Longitude,Latitude,Elevation,Runways,Longest runway,ILS,IATA\n";

TEST_F(AirportsCommand, MakesTheSameDatabaseAsBuildFromOurFile) {
  Problems problems;
  WriteAirports(folder / "b.mdb", ReadAirports(kPackFolder / "airports.csv", problems));
  ASSERT_EQ(Run({}, {(kPackFolder / "airports.csv").string()}), 0) << err.str();
  EXPECT_EQ(out.str(), "14705 airports\n");
  EXPECT_TRUE(ReadBytes(folder / "a.mdb") == ReadBytes(folder / "b.mdb"));
}

TEST_F(AirportsCommand, SelectsByRunwayAndFillsInUnknownIls) {
  WriteBytes(folder / "a.csv",
             kHeader + "A,,,0,0,0,1,3000,,\nB,,,0,0,0,1,7000,,\nC,,,0,0,0,1,7000,0,\nD,,,0,0,0,1,2999,1,\n");
  ASSERT_EQ(Run({"a.csv"}), 0);
  EXPECT_EQ(Airports(), "A 3000 0\nB 7000 0\nC 7000 0\nD 2999 1\n");
  ASSERT_EQ(Run({"a.csv"}, {"--min-runway", "3000", "--ils", "unknown=estimate"}), 0);
  EXPECT_EQ(Airports(), "A 3000 0\nB 7000 1\nC 7000 0\n");
  EXPECT_EQ(out.str(), "3 airports\n");
}

TEST_F(AirportsCommand, ReadsOurAirports) {
  WriteBytes(
      folder / "a.csv",
      "id,ident,type,name,latitude_deg,longitude_deg,elevation_ft,municipality,icao_code,iata_code\n"
      "1,X-1,medium_airport,Old,1,1,,,EAAA,\n2,EBBB,large_airport,B,1,1,,,EBBB,\n3,X-2,heliport,C,1,1,,,,\n"
      "4,EDDD,closed,D,1,1,,,EDDD,\n5,EEEE,medium_airport,E,1,1,,,EEEE,\n6,EFFF,small_airport,F,1,1,,,EFFF,"
      "\n");
  WriteBytes(
      folder / "r.csv",
      "airport_ref,length_ft,surface,lighted,closed\n1,8000,Turf-G,1,0\n2,4000,ASP,0,0\n5,7000,CONC,1,0\n"
      "6,9000,CONC,1,0\n6,9500,CONC,1,1\n");
  ASSERT_EQ(Run({"a.csv", "r.csv"}, {"--ils", "unknown=estimate"}), 0) << err.str();
  EXPECT_EQ(Airports(), "EAAA 8000 0\nEBBB 4000 1\nEEEE 7000 1\nEFFF 9000 0\n");
  ASSERT_EQ(Run({"a.csv"}, {"--ils", "unknown=no"}), 0) << err.str();
  EXPECT_EQ(Airports(), "EAAA 0 0\nEBBB 0 0\nEEEE 0 0\nEFFF 0 0\n");
}

TEST_F(AirportsCommand, WritesNothingWhenARowIsBad) {
  WriteBytes(folder / "a.csv", kHeader + "A,,,999,0,0,1,3000,1,\n");
  EXPECT_EQ(Run({"a.csv"}), 1);
  EXPECT_TRUE(
      err.str().ends_with("a.csv:2: error: column 'Longitude': '999' is not within -180 to 180\n"
                          "zerbal-pack: 1 error; nothing was written\n"))
      << err.str();
  EXPECT_EQ(Run({"none.csv"}), 1);
  EXPECT_EQ(NamesIn(folder.Path()), std::vector<std::string>{"a.csv"});
}

TEST_F(AirportsCommand, RefusesInvalidCommandLines) {
  EXPECT_EQ(Run({}), 2);
  EXPECT_TRUE(err.str().starts_with("zerbal-pack: AIRPORTS is missing\n")) << err.str();
  EXPECT_EQ(Run({"a", "b", "c"}), 2);
  EXPECT_EQ(Run({"a"}, {"--min-runway", "long"}), 2);
  EXPECT_TRUE(err.str().starts_with("zerbal-pack: --min-runway: 'long' is not a whole number of feet\n"))
      << err.str();
  EXPECT_EQ(Run({"a"}, {"--ils", "maybe"}), 2);
  EXPECT_TRUE(
      err.str().starts_with("zerbal-pack: --ils 'maybe' is neither unknown=no nor unknown=estimate\n"));
}

}  // namespace
}  // namespace zerbal::pack
