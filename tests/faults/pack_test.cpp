// The commands of zerbal-pack while memory runs out: each file is the old or the new one, and no other file
// is left. The command line is read before: its library has functions that allocate and must not throw.
#include <exception>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/file_replacement.h"
#include "faults/failing_allocations.h"
#include "faults/fixed_stream.h"
#include "pack/build_sources.h"
#include "pack/pack_fixture.h"
#include "pack/schedule_files.h"
#include "pack/ssim_lines.h"
#include "pack/tiny_source.h"
#include "support/small_world.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/airports_command.h"
#include "zerbal-pack/check.h"
#include "zerbal-pack/command_line.h"
#include "zerbal-pack/diff_command.h"
#include "zerbal-pack/export.h"
#include "zerbal-pack/import_command.h"
#include "zerbal-pack/map_build.h"
#include "zerbal-pack/problems.h"
#include "zerbal-pack/staged_folders.h"
#include "zerbal-pack/stats_command.h"
#include "zerbal-pack/write_tables.h"

namespace zerbal::pack {
namespace {

using test::FolderContent;
using zerbal::test::FailEachAllocation;
using zerbal::test::FixedStream;
using zerbal::test::WriteBytes;

using Content = std::map<std::string, std::string>;

class PackWithoutMemory : public testing::Test {
 protected:
  /// False when something was refused.
  using Command = std::function<bool()>;

  void SetUp() override {
    WriteBytes(folder / "a.csv",
               "Code,Name,City,Longitude,Latitude,Elevation,Runways,Longest runway,ILS,IATA\n"
               "EAAA,Alpha,Alpha,-9.1,38.7,374,1,12162,1,AAA\n"
               "EBBB,Bravo,Bravo,12.5,-3.25,0,2,8000,0,BBB\n");
    WriteBytes(folder / "s.ssim", test::SsimFile({test::SsimLegRecord("101", 1, "AAA", "BBB")}));
  }

  std::string Name(const std::string& name) const { return (folder / name).string(); }

  bool Succeeds(const Command& command) {
    out.Clear();
    err.Clear();
    try {
      return command();
    } catch (const std::exception&) {
      return false;
    }
  }

  void FailEach(const Command& command, const Content& old, int stride = 23) {
    ASSERT_TRUE(Succeeds(command)) << err.Text();
    const Content fresh = FolderContent(folder.Path());
    const std::string output = out.Text();
    bool good = false;
    const auto writeOld = [&] {
      for (const auto& [name, bytes] : old)
        WriteBytes(folder / name, bytes);
    };
    const auto check = [&] {
      const Content left = FolderContent(folder.Path());
      EXPECT_TRUE(!good || (left == fresh && out.Text() == output));
      for (const auto& [name, bytes] : left) {
        ASSERT_TRUE(fresh.contains(name)) << "left: " << name;
        EXPECT_TRUE(bytes == fresh.at(name) || (old.contains(name) && bytes == old.at(name))) << name;
      }
    };
    EXPECT_GT(FailEachAllocation(
                  writeOld, [&] { good = Succeeds(command); }, check, stride),
              50);
  }

  Command Import() {
    const ImportOptions options =
        ToImportOptions(ParseCommandLine({"import", "--from", "ssim", Name("s.ssim"), "--airports",
                                          Name("a.csv"), "--out", Name("o"), "--schedule", Name("q.mdb")})
                            .import);
    return [this, options] { return ImportSchedule(options, out, err); };
  }

  zerbal::test::TempFolder folder;
  FixedStream out, err;
};

TEST_F(PackWithoutMemory, ImportsAScheduleOrNothing) {
  FailEach(Import(), {{"o/services.csv", "old"}, {"o/flights.csv", "old"}, {"q.mdb", "old"}});
}

TEST_F(PackWithoutMemory, MakesAScheduleOrNothing) {
  ASSERT_TRUE(Succeeds(Import()));
  const auto makeSchedule = [this] {
    Problems problems;
    const Schedule schedule = ReadSchedule(
        {folder / "o/services.csv", folder / "o/destinations.csv", folder / "o/flights.csv"}, problems);
    if (!problems.Empty())
      return false;
    WriteSchedule(folder / "q2.mdb", schedule);
    return true;
  };
  FailEach(makeSchedule, {{"q2.mdb", "old"}});
}

TEST_F(PackWithoutMemory, ExportsTablesAsAWhole) {
  ASSERT_TRUE(Succeeds(Import()));
  ExportOptions options;
  options.file = folder / "q.mdb";
  options.folder = folder / "e";
  options.schema = true;
  FailEach([&] { return ExportTables(options, err); }, {});
}

TEST_F(PackWithoutMemory, MakesAirportsOrNothing) {
  const AirportsOptions options =
      ToAirportsOptions(ParseCommandLine({"airports", "--out", Name("all.mdb"), Name("a.csv")}).airports);
  FailEach([&] { return MakeAirports(options, out, err); }, {{"all.mdb", "old"}});
}

TEST_F(PackWithoutMemory, ReadsAllRowsOfAFileOrNone) {
  std::string rows = "Code,Longitude,Latitude,Elevation,Runways,Longest runway,ILS,City,Name\n";
  for (int i = 100; i < 160; ++i)
    rows += std::to_string(i) + ",10,20,0,1,8000,1,City,A name that may end earlier\n";
  WriteBytes(folder / "many.csv", rows);
  const auto read = [this] {
    Problems problems;
    out << ReadAirports(folder / "many.csv", problems).rows.size();
    return problems.Empty();
  };
  FailEach(read, {}, 1);
}

TEST_F(PackWithoutMemory, ComparesSchedules) {
  test::WriteDifferentSchedules(folder / "old", folder / "new");
  const DiffOptions options{folder / "old", folder / "new", folder / "d"};
  FailEach([&] { return DiffSchedules(options, out, err) != kExitNotCompared; },
           {{"d/new-flights.csv", "old"}, {"d/new-destinations.csv", "old"}});
}

TEST_F(PackWithoutMemory, CountsSchedules) {
  test::WriteDifferentSchedules(folder / "old", folder / "new");
  for (const StatsFormat format : {StatsFormat::kText, StatsFormat::kCsv, StatsFormat::kJson})
    FailEach([&] { return PrintStats({folder / "new", format}, out, err); }, {});
}

TEST_F(PackWithoutMemory, ChecksAFolder) {
  zerbal::test::SmallWorld world;
  world.flit.rows.resize(8);
  world.allaprt.rows.resize(5);
  world.Write(folder.Path());
  const auto check = [this] {
    CheckFolder(folder.Path()).Print(out);
    return true;
  };
  FailEach(check, {});
}

TEST_F(PackWithoutMemory, BuildsAFolderOrNothing) {
  ASSERT_TRUE(Succeeds(Import()));
  test::CopySmallSources(folder / "o", folder / "sources");
  const auto build = [&](const std::filesystem::path& target) {
    Problems problems;
    BuildFolder(
        {target, folder / "sources"}, test::OneTableMap, [](double, const std::string&) {}, problems);
    return problems.Empty();
  };
  ASSERT_TRUE(Succeeds([&] { return build(folder / "fresh"); }));
  const Content fresh = FolderContent(folder / "fresh");
  const std::filesystem::path target = folder / "out" / "data";
  for (const Content& old : {Content(), Content{{"app_data/zblrev.ini", "MadeBy=zerbal-pack"}}}) {
    bool good = false;
    const auto prepare = [&] {
      std::filesystem::remove_all(folder / "out");
      std::filesystem::create_directories(old.empty() ? folder / "out" : target / "app_data");
      for (const auto& [name, bytes] : old)
        WriteBytes(target / name, bytes);
    };
    const auto check = [&] {
      const Content& expected = good ? fresh : old;
      EXPECT_TRUE((std::filesystem::exists(target) ? FolderContent(target) : Content()) == expected);
      EXPECT_EQ(zerbal::test::NamesIn(folder / "out").size(), expected.empty() ? 0U : 1U);
      if (!expected.empty()) {
        EXPECT_EQ(zerbal::test::NamesIn(target).size(), good ? 2U : 1U);
      }
    };
    const auto work = [&] { good = Succeeds([&] { return build(target); }); };
    EXPECT_GT(FailEachAllocation(prepare, work, check, 211), 50);
    EXPECT_TRUE(FolderContent(target) == fresh);
  }
}

/// The folders of a build: all allocations of the steps themselves.
TEST_F(PackWithoutMemory, ReplacesFoldersOrLeavesThem) {
  const std::filesystem::path target = folder / "data";
  for (const bool there : {false, true}) {
    bool good = false;
    const auto prepare = [&] {
      std::filesystem::remove_all(target);
      if (there) {
        std::filesystem::create_directories(target / "a");
        WriteBytes(target / "a" / "x", "old");
      }
    };
    const auto work = [&] {
      good = Succeeds([&] {
        StagedFolders staged(target, {"a", "b"});
        for (const char* name : {"a", "b"})
          base::FileReplacement(staged.WorkFolder() / name / "x").Commit();
        staged.Commit();
        return true;
      });
    };
    const auto check = [&] {
      const std::size_t folders = good ? 2 : there ? 1 : 0;
      EXPECT_EQ(std::filesystem::exists(target) ? zerbal::test::NamesIn(target).size() : 0U, folders);
      EXPECT_EQ(FolderContent(folder.Path()).size(), 2 + folders);
      if (folders > 0) {
        EXPECT_EQ(zerbal::test::ReadBytes(target / "a" / "x"), good ? "" : "old");
      }
      EXPECT_EQ(zerbal::test::NamesIn(folder.Path()).size(), folders > 0 ? 3U : 2U);
    };
    EXPECT_GT(FailEachAllocation(prepare, work, check), 20);
  }
}

TEST_F(PackWithoutMemory, BuildsWholeMapFiles) {
  const std::filesystem::path sources = folder / "sources";
  std::filesystem::create_directory(sources);
  zerbal::test::Shores().WriteTo(MapSourceFile(sources, MapTheme::kCoast, MapDetail::kLow));
  for (const MapTheme theme : {MapTheme::kRiver, MapTheme::kBoundary})
    zerbal::test::TwoLines().WriteTo(MapSourceFile(sources, theme, MapDetail::kLow));
  const auto build = [&] {
    BuildMapDatabases({MapDetail::kLow, folder.Path(), sources}, {});
    return true;
  };
  FailEach(build, {{"app_map/coast.mdb", "old"}});
}

}  // namespace
}  // namespace zerbal::pack
