// The commands from their arguments to the exit status.
#include "zerbal-pack/run.h"

#include <sstream>

#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/recordset.h"
#include "pack/command_test.h"
#include "pack/pack_fixture.h"
#include "support/temp_folder.h"

namespace zerbal::pack {
namespace {

namespace fs = std::filesystem;
using test::kPackFolder;
using zerbal::test::ReadBytes;
using zerbal::test::WriteBytes;

class RunPackTest : public test::CommandTest {
 protected:
  RunPackTest() { executable = fs::path(ZERBAL_SOURCE_DIR) / "build" / "x" / "bin" / "zerbal-pack"; }

  /// The schedule of the sample airline.
  int MakeSampleSchedule(const std::string& out_file) {
    return Run({"schedule", "--out", out_file, "--services", (kPackFolder / "services.csv").string(),
                "--destinations", (kPackFolder / "destinations.csv").string(), "--flights",
                (kPackFolder / "flights.csv").string()});
  }

  int MakeSchedule(const std::string& out_file, const fs::path& exported) {
    return Run({"schedule", "--out", out_file, "--services", (exported / "fsrv.csv").string(),
                "--destinations", (exported / "dest.csv").string(), "--flights",
                (exported / "flit.csv").string()});
  }
};

TEST_F(RunPackTest, PrintsHelpOnStandardOutput) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"--help"}, {"-h"}, {"build", "--help"}, {"export", "x", "-h"}}) {
    EXPECT_EQ(Run(words), 0);
    EXPECT_NE(out.str().find("zerbal-pack build --out DIR"), std::string::npos);
    EXPECT_EQ(err.str(), "");
  }
}

TEST_F(RunPackTest, PrintsItsVersion) {
  EXPECT_EQ(Run({"--version"}), 0);
  EXPECT_EQ(out.str(), "zerbal-pack 1.100\n");
}

TEST_F(RunPackTest, RefusesInvalidCommandLines) {
  const auto usage = [this](const std::vector<std::string>& words) {
    EXPECT_EQ(Run(words), 2);
    EXPECT_EQ(out.str(), "");
    std::string text = err.str();
    EXPECT_TRUE(text.ends_with("\nTry 'zerbal-pack --help'.\n")) << text;
    return text.substr(0, text.find('\n'));
  };
  EXPECT_EQ(usage({}), "zerbal-pack: a command is missing");
  EXPECT_EQ(usage({"make"}), "zerbal-pack: there is no command 'make'");
  EXPECT_EQ(usage({"build"}), "zerbal-pack: option '--out' is missing");
  EXPECT_EQ(usage({"build", "--out", Name("x"), "--detail", "best"}),
            "zerbal-pack: detail 'best' is none of low, intermediate, high and full");
  EXPECT_EQ(usage({"build", "--out", Name("x"), "here"}), "zerbal-pack: 'here' is one argument too many");
  EXPECT_EQ(usage({"schedule", "--out", Name("x")}), "zerbal-pack: option '--services' is missing");
  EXPECT_EQ(usage({"export", "x.mdb"}), "zerbal-pack: DIR is missing");
  EXPECT_EQ(usage({"export", "x.mdb", "y", "--table"}), "zerbal-pack: option '--table' needs a value");
  EXPECT_EQ(usage({"check"}), "zerbal-pack: DIR is missing");
  executable = folder / "bin" / "zerbal-pack";
  EXPECT_EQ(usage({"build", "--out", Name("x")}),
            "zerbal-pack: the sources of the sample data are not found; name their folder with --pack");
}

TEST_F(RunPackTest, FindsTheSourcesFromItsOwnLocation) {
  EXPECT_EQ(FindSources(executable), kPackFolder);
  fs::create_directories(folder / "usr" / "share" / "zerbal" / "pack");
  WriteBytes(folder / "usr" / "share" / "zerbal" / "pack" / "airports.csv", "");
  EXPECT_EQ(FindSources(folder / "usr" / "bin" / "zerbal-pack"),
            folder / "usr" / "share" / "zerbal" / "pack");
  EXPECT_EQ(FindSources(folder / "opt" / "bin" / "zerbal-pack"), fs::path());
  EXPECT_EQ(FindSources(fs::path()), fs::path());
}

TEST_F(RunPackTest, FindsTheSourcesFromABuildFolderAnywhere) {
  const fs::path build = ZERBAL_BINARY_DIR;
  EXPECT_EQ(FindSources(build / "bin" / "zerbal-pack"), build / "share" / "zerbal" / "pack");
  EXPECT_EQ(fs::canonical(build / "share" / "zerbal" / "pack"), fs::canonical(kPackFolder));
}

TEST_F(RunPackTest, BuildsAndChecksTheSampleData) {
  ASSERT_EQ(Run({"build", "--out", Name("data"), "--detail", "low"}), 0) << err.str();
  EXPECT_EQ(err.str(), "");
  EXPECT_NE(out.str().find("app_data/allaprt.mdb allaprt: 14705 rows\n"), std::string::npos) << out.str();
  EXPECT_NE(out.str().find("app_map/coast.mdb wcl: "), std::string::npos) << out.str();
  EXPECT_EQ(Run({"check", Name("data")}), 0) << out.str();
  EXPECT_TRUE(out.str().ends_with("All is well.\n")) << out.str();
  EXPECT_EQ(out.str().find("Note"), std::string::npos) << out.str();
}

TEST_F(RunPackTest, WritesNothingWhenInterrupted) {
  interrupted = true;
  EXPECT_EQ(Run({"build", "--out", Name("data"), "--detail", "low"}), 1);
  EXPECT_EQ(Err(), "zerbal-pack: interrupted; nothing was written\n");
  EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST_F(RunPackTest, RefusesToReplaceOtherData) {
  fs::create_directories(folder / "app_data");
  WriteBytes(folder / "app_data" / "qavdata.mdb", "own");
  EXPECT_EQ(Run({"build", "--out", folder.Path().string(), "--detail", "low"}), 1);
  EXPECT_EQ(Err(),
            "zerbal-pack: app_data was not made by zerbal-pack; move it away or choose another folder\n");
  EXPECT_EQ(ReadBytes(folder / "app_data" / "qavdata.mdb"), "own");
}

TEST_F(RunPackTest, ExportsTheSourcesOfTheSchedule) {
  ASSERT_EQ(MakeSampleSchedule(Name("a.mdb")), 0) << err.str();
  ASSERT_EQ(Run({"export", Name("a.mdb"), Name("a"), "--schema"}), 0) << err.str();
  ASSERT_EQ(MakeSchedule(Name("b.mdb"), folder / "a"), 0) << err.str();
  ASSERT_EQ(Run({"export", Name("b.mdb"), Name("b"), "--schema"}), 0) << err.str();
  EXPECT_EQ(test::FolderContent(folder / "a"), test::FolderContent(folder / "b"));
  EXPECT_EQ(test::FolderContent(folder / "a").size(), 4U);
  EXPECT_EQ(ReadBytes(folder / "a.mdb"), ReadBytes(folder / "b.mdb"));
}

TEST_F(RunPackTest, AppliesAPlannersChange) {
  ASSERT_EQ(MakeSampleSchedule(Name("a.mdb")), 0) << err.str();
  ASSERT_EQ(Run({"export", Name("a.mdb"), Name("plan")}), 0) << err.str();
  std::string flights = ReadBytes(folder / "plan" / "flit.csv");
  const std::string old = "\"HOME\",\"QV101\",\"QV101\",\"LPPT\",,,,,,,,,,,\"LPPR\"\r\n";
  const std::string edited = "HOME,QV101X,QV101,LPPT,LPFR,,,,,,,,,,LPPR\r\n";
  ASSERT_NE(flights.find(old), std::string::npos) << flights.substr(0, 500);
  flights.replace(flights.find(old), old.size(), edited);
  WriteBytes(folder / "plan" / "flit.csv", flights);
  ASSERT_EQ(MakeSchedule(Name("a.mdb"), folder / "plan"), 0) << err.str();
  ASSERT_EQ(Run({"export", Name("a.mdb"), Name("again")}), 0) << err.str();
  const std::string stored = "\"HOME\",\"QV101X\",\"QV101\",\"LPPT\",\"LPFR\",,,,,,,,,,\"LPPR\"\r\n";
  flights.replace(flights.find(edited), edited.size(), stored);
  EXPECT_EQ(ReadBytes(folder / "again" / "flit.csv"), flights);
  EXPECT_EQ(ReadBytes(folder / "again" / "dest.csv"), ReadBytes(folder / "plan" / "dest.csv"));
  jet::Recordset rows = jet::Database::Open(folder / "a.mdb").OpenTable("flit");
  rows.SetIndex("flituni");
  rows.Seek("QV101");
  ASSERT_FALSE(rows.NoMatch());
  EXPECT_EQ(rows["Flit_Stop1"].AsText(), "LPFR");
  EXPECT_TRUE(rows["Flit_Stop2"].IsNull());
}

TEST_F(RunPackTest, WritesNoScheduleFromInvalidRows) {
  ASSERT_EQ(MakeSampleSchedule(Name("a.mdb")), 0) << err.str();
  const std::string before = ReadBytes(folder / "a.mdb");
  WriteBytes(folder / "fsrv.csv", "Service,Line,Name,Red,Green,Blue\nEUR,1,Europe,0,0,256\n");
  WriteBytes(
      folder / "dest.csv",
      "Code,Name,City,Longitude,Latitude,Elevation,Runways,Longest runway,ILS\nLPPT,x,y,-9.1,98,1,1,1,1\n");
  WriteBytes(folder / "flit.csv", "Service,Flight,Key,From,To\nEUR,QV1,A,LPPT,EGLL\n");
  EXPECT_EQ(MakeSchedule(Name("a.mdb"), folder.Path()), 1);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(Err(),
            "fsrv.csv:2: column 'Blue': '256' is not within 0 to 255\n"
            "dest.csv:2: column 'Latitude': '98' is not within -90 to 90\n"
            "flit.csv:2: column 'To': unknown airport 'EGLL'\n"
            "zerbal-pack: 3 problems; nothing was written\n");
  EXPECT_EQ(ReadBytes(folder / "a.mdb"), before);
  EXPECT_EQ(MakeSchedule(Name("b.mdb"), folder.Path()), 1);
  EXPECT_FALSE(fs::exists(folder / "b.mdb"));
}

TEST_F(RunPackTest, KeepsTheOrderOfManyServicesWithoutSort) {
  ASSERT_EQ(MakeSampleSchedule(Name("a.mdb")), 0) << err.str();
  ASSERT_EQ(Run({"export", Name("a.mdb"), Name("plan")}), 0) << err.str();
  std::string services = ReadBytes(kPackFolder / "services.csv");
  for (int i = 4000; i > 0; --i)
    services += "S" + std::to_string(i) + ",,x,0,0,0\n";
  WriteBytes(folder / "plan" / "fsrv.csv", services);
  ASSERT_EQ(MakeSchedule(Name("a.mdb"), folder / "plan"), 0) << err.str();
  jet::Recordset rows = jet::Database::Open(folder / "a.mdb").OpenTable("fsrv");
  rows.SetIndex("sort");
  rows.MoveFirst();
  EXPECT_EQ(rows["FSrv"].AsText(), "HOME");
  std::string last;
  for (; !rows.Eof(); rows.MoveNext())
    last = rows["FSrv"].AsText();
  EXPECT_EQ(last, "S1");
}

TEST_F(RunPackTest, NotesHowASpreadsheetWasRead) {
  ASSERT_EQ(MakeSampleSchedule(Name("a.mdb")), 0);
  ASSERT_EQ(Run({"export", Name("a.mdb"), folder.Path().string()}), 0);
  std::string services = ReadBytes(folder / "fsrv.csv");
  bool quoted = false;
  for (char& c : services) {
    quoted = quoted != (c == '"');
    c = c == ',' && !quoted ? ';' : c;
  }
  WriteBytes(folder / "fsrv.csv", services);
  EXPECT_EQ(MakeSchedule(Name("b.mdb"), folder.Path()), 0);
  EXPECT_EQ(Err(), "fsrv.csv: note: read as UTF-8, with semicolons between the fields\n");
  EXPECT_TRUE(ReadBytes(folder / "b.mdb") == ReadBytes(folder / "a.mdb"));
}

TEST_F(RunPackTest, NamesTheMissingFile) {
  EXPECT_EQ(MakeSchedule(Name("a.mdb"), folder.Path()), 1);
  EXPECT_EQ(Err(),
            "fsrv.csv: cannot be read\ndest.csv: cannot be read\nflit.csv: cannot be read\n"
            "zerbal-pack: 3 problems; nothing was written\n");
  EXPECT_EQ(Run({"export", Name("none.mdb"), Name("x")}), 1);
  EXPECT_NE(err.str().find("none.mdb"), std::string::npos) << err.str();
  EXPECT_EQ(Run({"check", Name("none")}), 1);
  EXPECT_EQ(Err(), "zerbal-pack: none is not a folder\n");
}

}  // namespace
}  // namespace zerbal::pack
