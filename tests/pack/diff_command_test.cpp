// `zerbal-pack diff` from the words of its command line to its files.
#include <array>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "pack/command_test.h"
#include "pack/pack_fixture.h"
#include "pack/schedule_files.h"
#include "zerbal-pack/plain_schedule.h"

namespace zerbal::pack {
namespace {

namespace fs = std::filesystem;
using test::kPackFolder;
using test::WriteScheduleFiles;
using zerbal::test::ReadBytes;
using zerbal::test::WriteBytes;

class DiffCommand : public test::CommandTest {
 protected:
  int Diff(const std::string& before, const std::string& after) {
    return Run({"diff", Name(before), Name(after)});
  }

  /// The CSV files of `from` as a database.
  void MakeDatabase(const fs::path& from, const std::string& file) {
    ASSERT_EQ(Run({"schedule", "--out", Name(file), "--services", (from / "services.csv").string(),
                   "--destinations", (from / "destinations.csv").string(), "--flights",
                   (from / "flights.csv").string()}),
              0)
        << err.str();
  }

  void WriteBoth() { test::WriteDifferentSchedules(folder / "old", folder / "new"); }
};

TEST_F(DiffCommand, PrintsEveryKindOfDifference) {
  WriteBoth();
  EXPECT_EQ(Diff("old", "new"), 1);
  EXPECT_EQ(out.str(),
            "New flights: 2\n"
            "  N20  A-C-E  X (1 2 3)\n"
            "  N100  A-E  X (1 2 3)\n"
            "Dropped flights: 2\n"
            "  N9  A-B  X (1 2 3)\n"
            "  N13 (key K13)  D-A  X (1 2 3)\n"
            "Rerouted flights: 2\n"
            "  N10  A-C-B -> A-D-B\n"
            "  N14 (key K14)  D-B -> N15 (key K14)  D-E\n"
            "Renumbered flights: 1\n"
            "  N11 -> N21  B-A\n"
            "Recoloured flights: 1\n"
            "  N12  C-A  Y (4 5 6) -> X (1 2 3)\n"
            "New destinations: 1\n"
            "  E  Field E\n");
  EXPECT_EQ(err.str(), "");
  EXPECT_EQ(Diff("new", "old"), 1);
  EXPECT_TRUE(out.str().ends_with("Dropped destinations: 1\n  E  Field E\n")) << out.str();
}

TEST_F(DiffCommand, WritesOneFilePerKind) {
  WriteBoth();
  EXPECT_EQ(Run({"diff", Name("old"), "--csv", Name("d/e"), Name("new")}), 1);
  const std::string flightTitles =
      "\"Service\",\"Flight\",\"Key\",\"From\",\"Stop 1\",\"Stop 2\",\"Stop 3\",\"Stop 4\",\"Stop 5\","
      "\"Stop 6\",\"Stop 7\",\"Stop 8\",\"Stop 9\",\"Stop 10\",\"To\"\r\n";
  const std::map<std::string, std::string> expected = {
      {"new-flights.csv", flightTitles + "\"X\",\"N20\",\"N20\",\"A\",\"C\",,,,,,,,,,\"E\"\r\n"
                                         "\"X\",\"N100\",\"N100\",\"A\",,,,,,,,,,,\"E\"\r\n"},
      {"dropped-flights.csv", flightTitles + "\"X\",\"N9\",\"N9\",\"A\",,,,,,,,,,,\"B\"\r\n"
                                             "\"X\",\"N13\",\"K13\",\"D\",,,,,,,,,,,\"A\"\r\n"},
      {"rerouted-flights.csv",
       "\"Old flight\",\"Old key\",\"Old route\",\"Flight\",\"Key\",\"Route\"\r\n"
       "\"N10\",\"N10\",\"A-C-B\",\"N10\",\"N10\",\"A-D-B\"\r\n"
       "\"N14\",\"K14\",\"D-B\",\"N15\",\"K14\",\"D-E\"\r\n"},
      {"renumbered-flights.csv",
       "\"Old flight\",\"Old key\",\"Flight\",\"Key\",\"Route\"\r\n"
       "\"N11\",\"N11\",\"N21\",\"N21\",\"B-A\"\r\n"},
      {"recoloured-flights.csv",
       "\"Flight\",\"Key\",\"Route\",\"Old service\",\"Old colour\",\"Service\",\"Colour\"\r\n"
       "\"N12\",\"N12\",\"C-A\",\"Y\",\"4 5 6\",\"X\",\"1 2 3\"\r\n"},
      {"new-destinations.csv", "\"Code\",\"Name\",\"City\"\r\n\"E\",\"Field E\",\"\"\r\n"},
      {"dropped-destinations.csv", "\"Code\",\"Name\",\"City\"\r\n"}};
  EXPECT_EQ(test::FolderContent(folder / "d" / "e"), expected);
}

TEST_F(DiffCommand, DoesNotDependOnTheOrderOfRows) {
  const std::string three = "X,N1,N1,A,B,\nX,N2,N2,A,B,\nX,N3,N3,A,B,\n";
  WriteScheduleFiles(folder / "old", three);
  WriteScheduleFiles(folder / "a", "X,N5,N5,A,B,\nX,N4,N4,A,B,\n");
  WriteScheduleFiles(folder / "b", "X,N4,N4,A,B,\nX,N5,N5,A,B,\n");
  EXPECT_EQ(Diff("old", "a"), 1);
  const std::string text = out.str();
  EXPECT_EQ(text,
            "Dropped flights: 1\n  N3  A-B  X (1 2 3)\n"
            "Renumbered flights: 2\n  N1 -> N4  A-B\n  N2 -> N5  A-B\n");
  EXPECT_EQ(Diff("old", "b"), 1);
  EXPECT_EQ(out.str(), text);
  EXPECT_EQ(Diff("a", "b"), 0);
}

TEST_F(DiffCommand, ReadsDatabasesDataFoldersAndFiles) {
  fs::create_directories(folder / "data" / "APP_DATA");
  MakeDatabase(kPackFolder, "data/APP_DATA/QavData.mdb");
  fs::create_directory_symlink(kPackFolder, folder / "csv");
  for (const char* before : {"data", "data/APP_DATA/QavData.mdb", "csv"}) {
    for (const char* after : {"data", "data/APP_DATA/QavData.mdb", "csv"}) {
      EXPECT_EQ(Diff(before, after), 0) << before << " " << after << "\n" << out.str() << err.str();
      EXPECT_EQ(out.str(), "The schedules are equal.\n");
    }
  }
}

TEST_F(DiffCommand, ReadsTheSameFromDatabaseAndFiles) {
  WriteScheduleFiles(folder / "csv", "X,N10,K,A,B,C\nY,N9,L,B,A,\n", "BAC",
                     "Service,Sort,Line,Name,Red,Green,Blue\nX,20,1,Ex,1,2,3\nY,10,2,Why,4,5,6\n");
  MakeDatabase(folder / "csv", "s.mdb");
  for (const char* source : {"csv", "s.mdb"}) {
    Problems problems;
    const PlainSchedule schedule = ReadPlainSchedule(folder / source, problems);
    EXPECT_TRUE(problems.Empty());
    ASSERT_EQ(schedule.services.size(), 2U);
    EXPECT_EQ(schedule.services[0].key, "Y");
    EXPECT_EQ(schedule.services[1].name, "Ex");
    EXPECT_EQ(schedule.services[1].rgb, (std::array<int, 3>{1, 2, 3}));
    ASSERT_EQ(schedule.destinations.size(), 3U);
    EXPECT_EQ(schedule.destinations[1].code, "B");
    EXPECT_EQ(schedule.destinations[1].name, "Field B");
    EXPECT_EQ(schedule.destinations[1].position->lon, 10);
    EXPECT_EQ(schedule.destinations[1].position->lat, 0);
    ASSERT_EQ(schedule.flights.size(), 2U);
    EXPECT_EQ(schedule.flights[0].number, "N9");
    EXPECT_EQ(schedule.flights[1].key, "K");
    EXPECT_EQ(schedule.flights[1].service, "X");
    EXPECT_EQ(RouteText(schedule.flights[1]), "A-C-B");
  }
}

TEST_F(DiffCommand, PrefersTheDatabaseOfADataFolder) {
  WriteScheduleFiles(folder / "data", "X,N1,N1,A,B,\n");
  fs::create_directories(folder / "data" / "app_data");
  MakeDatabase(folder / "data", "data/app_data/qavdata.mdb");
  WriteScheduleFiles(folder / "data", "X,N2,N2,A,B,\n");
  EXPECT_EQ(Diff("data", "data/app_data/qavdata.mdb"), 0);
}

TEST_F(DiffCommand, EndsWithTwoWhenItCannotCompare) {
  WriteScheduleFiles(folder / "good", "X,N1,N1,A,B,\n");
  WriteScheduleFiles(folder / "bad", "X,N1,N1,A,Q,\nZ,N2,N2,A,B,\n");
  EXPECT_EQ(Run({"diff", Name("good"), Name("bad"), "--csv", Name("d")}), 2);
  EXPECT_EQ(Err(),
            "bad/flights.csv:2: column 'To': unknown airport 'Q'\n"
            "bad/flights.csv:3: column 'Service': unknown flight service 'Z'\n"
            "zerbal-pack: 2 problems; nothing was compared\n");
  EXPECT_EQ(out.str(), "");
  EXPECT_FALSE(fs::exists(folder / "d"));
  fs::create_directory(folder / "empty");
  EXPECT_EQ(Diff("good", "empty"), 2);
  EXPECT_EQ(Err(),
            "zerbal-pack: empty has neither app_data/qavdata.mdb nor services.csv, destinations.csv and "
            "flights.csv\n");
  EXPECT_EQ(Diff("none", "good"), 2);
  EXPECT_TRUE(err.str().starts_with("zerbal-pack: ")) << err.str();
  EXPECT_NE(err.str().find("none"), std::string::npos) << err.str();
  WriteBytes(folder / "x.mdb", "no database");
  EXPECT_EQ(Diff("good", "x.mdb"), 2);
  EXPECT_NE(err.str().find("x.mdb"), std::string::npos) << err.str();
  WriteScheduleFiles(folder / "other", "X,N2,N2,A,B,\n");
  WriteBytes(folder / "file", "");
  EXPECT_EQ(Run({"diff", Name("good"), Name("other"), "--csv", Name("file")}), 2);
  EXPECT_EQ(ReadBytes(folder / "file"), "");
}

TEST_F(DiffCommand, ReportsMissingFilesOfASet) {
  WriteScheduleFiles(folder / "good", "X,N1,N1,A,B,\n");
  fs::create_directory(folder / "part");
  fs::copy_file(folder / "good" / "flights.csv", folder / "part" / "flights.csv");
  EXPECT_EQ(Diff("good", "part"), 2);
  EXPECT_EQ(Err(),
            "part/services.csv: cannot be read\npart/destinations.csv: cannot be read\n"
            "zerbal-pack: 2 problems; nothing was compared\n");
}

TEST_F(DiffCommand, PrintsNotesAboutFilesAndCompares) {
  WriteScheduleFiles(folder / "a", "X,N1,N1,A,B,\n");
  WriteScheduleFiles(folder / "b", "X,N1,N1,A,B,\n", "ABCDE",
                     "Service;Line;Name;Red;Green;Blue\nX;1;Ex;1;2;3\nY;2;Why;4;5;6\n");
  EXPECT_EQ(Diff("a", "b"), 0);
  EXPECT_EQ(Err(), "b/services.csv: note: read as UTF-8, with semicolons between the fields\n");
}

TEST_F(DiffCommand, RefusesInvalidCommandLines) {
  EXPECT_EQ(Run({"diff", Name("a")}), 2);
  EXPECT_TRUE(err.str().starts_with("zerbal-pack: NEW is missing\n")) << err.str();
  EXPECT_EQ(Run({"diff", "a", "b", "c"}), 2);
  EXPECT_EQ(Run({"diff", "a", "b", "--csv"}), 2);
  EXPECT_TRUE(err.str().starts_with("zerbal-pack: option '--csv' needs a value\n")) << err.str();
}

}  // namespace
}  // namespace zerbal::pack
