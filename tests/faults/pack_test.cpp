// The commands of zerbal-pack while memory runs out: each file is the old or the new one, and no other file
// is left. The command line is read before: its library has functions that allocate and must not throw.
#include <exception>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "faults/failing_allocations.h"
#include "pack/pack_fixture.h"
#include "pack/ssim_lines.h"
#include "zerbal-pack/airline.h"
#include "zerbal-pack/airports_command.h"
#include "zerbal-pack/command_line.h"
#include "zerbal-pack/export.h"
#include "zerbal-pack/import_command.h"
#include "zerbal-pack/problems.h"
#include "zerbal-pack/write_tables.h"

namespace zerbal::pack {
namespace {

using test::FolderContent;
using zerbal::test::FailEachAllocation;
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
    out.str("");
    err.str("");
    try {
      return command();
    } catch (const std::exception&) {
      return false;
    }
  }

  void FailEach(const Command& command, const Content& old) {
    ASSERT_TRUE(Succeeds(command)) << err.str();
    const Content fresh = FolderContent(folder.Path());
    const std::string output = out.str();
    bool good = false;
    const auto writeOld = [&] {
      for (const auto& [name, bytes] : old)
        WriteBytes(folder / name, bytes);
    };
    const auto check = [&] {
      const Content left = FolderContent(folder.Path());
      EXPECT_TRUE(!good || (left == fresh && out.str() == output));
      for (const auto& [name, bytes] : left) {
        ASSERT_TRUE(fresh.contains(name)) << "left: " << name;
        EXPECT_TRUE(bytes == fresh.at(name) || (old.contains(name) && bytes == old.at(name))) << name;
      }
    };
    EXPECT_GT(FailEachAllocation(
                  writeOld, [&] { good = Succeeds(command); }, check, 23),
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
  std::ostringstream out, err;
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

}  // namespace
}  // namespace zerbal::pack
