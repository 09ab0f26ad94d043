#include "zerbal-pack/build.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "pack/pack_fixture.h"
#include "support/temp_folder.h"
#include "zerbal-pack/check.h"
#include "zerbal-pack/export.h"

namespace zerbal::pack {
namespace {

namespace fs = std::filesystem;
using test::FolderContent;
using test::kPackFolder;
using test::WritePoints;
using zerbal::test::ReadBytes;
using zerbal::test::TempFolder;
using zerbal::test::WriteBytes;

/// A map of one tile, which is built quickly.
std::vector<TableSize> SmallMap(const fs::path& parent, const std::function<void(double)>& progress) {
  WritePoints(parent / "app_map" / "coast.mdb", {"wcl", "IEwdb2"});
  progress(0.5);
  WritePoints(parent / "app_map" / "river.mdb", {"IEwdb2"});
  WritePoints(parent / "app_map" / "ibound.mdb", {"IEwdb2"});
  progress(1);
  return {{"app_map/coast.mdb", "wcl", 3}};
}

void NoProgress(double, const std::string&) {}

/// A copy of the sources of the sample data with few airports, which is built quickly.
fs::path SmallSources(const TempFolder& folder) {
  fs::path sources = folder / "pack";
  fs::create_directory(sources);
  for (const char* file : {"colours.csv", "fonts.csv", "regions.csv", "services.csv", "destinations.csv",
                           "flights.csv", "zblrev.ini"})
    fs::copy_file(kPackFolder / file, sources / file);
  fs::copy_file(kPackFolder / "destinations.csv", sources / "airports.csv");
  return sources;
}

TEST(BuildFolder, WritesFilesThatPassTheCheck) {
  const TempFolder folder;
  Problems problems;
  const std::vector<TableSize> sizes =
      BuildFolder({folder / "out", kPackFolder}, SmallMap, NoProgress, problems);
  EXPECT_TRUE(problems.Empty());
  std::vector<std::string> files;
  for (const auto& [name, content] : FolderContent(folder / "out"))
    files.push_back(name);
  EXPECT_EQ(files,
            (std::vector<std::string>{"app_data/allaprt.mdb", "app_data/qavdata.mdb", "app_data/zbldata.mdb",
                                      "app_data/zblrev.ini", "app_map/coast.mdb", "app_map/ibound.mdb",
                                      "app_map/river.mdb"}));
  ASSERT_EQ(sizes.size(), 8U);
  EXPECT_EQ(sizes[0].file + " " + sizes[0].table, "app_data/zbldata.mdb col");
  EXPECT_EQ(sizes[6].table, "allaprt");
  EXPECT_EQ(sizes[6].rows, 14705U);
  EXPECT_EQ(sizes[7].table, "wcl");
  std::ostringstream report;
  const CheckReport check = CheckFolder(folder / "out");
  check.Print(report);
  EXPECT_TRUE(check.AllIsWell()) << report.str();
}

TEST(BuildFolder, WritesTheSameBytesAgain) {
  const TempFolder folder;
  const fs::path sources = SmallSources(folder);
  Problems problems;
  BuildFolder({folder / "one", sources}, SmallMap, NoProgress, problems);
  BuildFolder({folder / "two", sources}, SmallMap, NoProgress, problems);
  EXPECT_TRUE(FolderContent(folder / "one") == FolderContent(folder / "two"));
}

TEST(BuildFolder, WritesTheSameBytesFromItsExport) {
  const TempFolder folder;
  const fs::path sources = SmallSources(folder);
  Problems problems;
  BuildFolder({folder / "one", sources}, SmallMap, NoProgress, problems);
  const fs::path again = folder / "again";
  std::ostringstream err;
  for (const char* file : {"zbldata.mdb", "qavdata.mdb", "allaprt.mdb"})
    EXPECT_TRUE(ExportTables({folder / "one" / "app_data" / file, again, "", "", false}, err));
  for (const auto& [table, name] : std::map<std::string, std::string>{{"col", "colours"},
                                                                      {"fon", "fonts"},
                                                                      {"reg", "regions"},
                                                                      {"fsrv", "services"},
                                                                      {"dest", "destinations"},
                                                                      {"flit", "flights"},
                                                                      {"allaprt", "airports"}})
    fs::rename(again / (table + ".csv"), again / (name + ".csv"));
  fs::copy_file(sources / "zblrev.ini", again / "zblrev.ini");
  BuildFolder({folder / "two", again}, SmallMap, NoProgress, problems);
  EXPECT_TRUE(problems.Empty());
  EXPECT_TRUE(FolderContent(folder / "one") == FolderContent(folder / "two"));
  EXPECT_NE(ReadBytes(again / "regions.csv").find("\"NOR\",60,\"Norwegian coast\",183,18.2,213,32.5"),
            std::string::npos);
}

TEST(BuildFolder, WritesNothingWhenASourceHasAnError) {
  const TempFolder folder;
  const fs::path sources = SmallSources(folder);
  WriteBytes(sources / "fonts.csv", "Code,Font,Size,Entry\nLORES,x,99,e\n");
  Problems problems;
  BuildFolder({folder / "out", sources}, SmallMap, NoProgress, problems);
  ASSERT_EQ(problems.List().size(), 2U);
  EXPECT_EQ(problems.List()[0].reason, "'99' is not within 6 to 14");
  EXPECT_FALSE(fs::exists(folder / "out"));
  fs::remove(sources / "zblrev.ini");
  fs::remove(sources / "airports.csv");
  Problems more;
  BuildFolder({folder / "out", sources}, SmallMap, NoProgress, more);
  ASSERT_EQ(more.List().size(), 4U);
  EXPECT_EQ(more.List()[2].reason, "cannot be read");
  EXPECT_EQ(more.List()[3].reason, "cannot be read or has no section [RevZBL]");
}

TEST(BuildFolder, ChangesNothingWhenTheMapFails) {
  const TempFolder folder;
  const fs::path sources = SmallSources(folder);
  Problems problems;
  BuildFolder({folder / "out", sources}, SmallMap, NoProgress, problems);
  const auto before = FolderContent(folder / "out");
  const MapBuilder failing = [](const fs::path& parent,
                                const std::function<void(double)>&) -> std::vector<TableSize> {
    WriteBytes(parent / "app_map" / "coast.mdb", "half");
    throw std::runtime_error("no map");
  };
  EXPECT_THROW(BuildFolder({folder / "out", sources}, failing, NoProgress, problems), std::runtime_error);
  EXPECT_TRUE(FolderContent(folder / "out") == before);
  EXPECT_THROW(BuildFolder({folder / "new", sources}, failing, NoProgress, problems), std::runtime_error);
  EXPECT_FALSE(fs::exists(folder / "new"));
}

TEST(BuildFolder, ReplacesItsOwnFoldersAndKeepsOtherFiles) {
  const TempFolder folder;
  const fs::path sources = SmallSources(folder);
  Problems problems;
  BuildFolder({folder / "out", sources}, SmallMap, NoProgress, problems);
  WriteBytes(folder / "out" / "zerbal.ini", "settings");
  WriteBytes(folder / "out" / "app_data" / "qavdata.mdb", "old");
  BuildFolder({folder / "out", sources}, SmallMap, NoProgress, problems);
  const auto content = FolderContent(folder / "out");
  EXPECT_EQ(content.size(), 8U);
  EXPECT_EQ(content.at("zerbal.ini"), "settings");
  EXPECT_NE(content.at("app_data/qavdata.mdb"), "old");
}

TEST(BuildFolder, NeverReplacesOtherData) {
  const TempFolder folder;
  const fs::path sources = SmallSources(folder);
  Problems problems;
  for (const char* name : {"app_data", "app_map"}) {
    const fs::path out = folder / (std::string("out ") + name);
    fs::create_directories(out / "app_data");
    fs::create_directories(out / "app_map");
    WriteBytes(out / name / "own.mdb", "own");
    EXPECT_THROW(BuildFolder({out, sources}, SmallMap, NoProgress, problems), BuildRefused);
    EXPECT_EQ(ReadBytes(out / name / "own.mdb"), "own");
    fs::remove(out / name / "own.mdb");
    BuildFolder({out, sources}, SmallMap, NoProgress, problems);  // replaces empty folders
    EXPECT_EQ(FolderContent(out).size(), 7U);
  }
  WriteBytes(folder / "file", "own");
  EXPECT_THROW(BuildFolder({folder / "file", sources}, SmallMap, NoProgress, problems), BuildRefused);
}

TEST(BuildFolder, ReportsItsProgress) {
  const TempFolder folder;
  const fs::path sources = SmallSources(folder);
  Problems problems;
  std::vector<double> steps;
  BuildFolder(
      {folder / "out", sources}, SmallMap,
      [&](double done, const std::string& what) {
        EXPECT_FALSE(what.empty());
        steps.push_back(done);
      },
      problems);
  EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
  EXPECT_EQ(steps.front(), 0);
  EXPECT_EQ(steps.back(), 1);
}

TEST(BuildFolder, WritesTheRevisionFileWithCrLf) {
  const TempFolder folder;
  const fs::path sources = SmallSources(folder);
  WriteBytes(sources / "zblrev.ini", "[RevZBL]\nRevZBLAll=7\r\n");
  Problems problems;
  BuildFolder({folder / "out", sources}, SmallMap, NoProgress, problems);
  EXPECT_EQ(ReadBytes(folder / "out" / "app_data" / "zblrev.ini"),
            "[RevZBL]\r\nRevZBLAll=7\r\n\r\n[Pack]\r\nMadeBy=zerbal-pack\r\n");
}

TEST(SampleRevisions, AreComplete) {
  const std::string text = ReadBytes(kPackFolder / "zblrev.ini");
  for (const char* key : {"RevZBLAll=", "RevSchdMain=", "RevSchdFSrv=", "RevStemAprt=", "RevZBLData="})
    EXPECT_NE(text.find(std::string("\n") + key), std::string::npos) << key;
}

}  // namespace
}  // namespace zerbal::pack
