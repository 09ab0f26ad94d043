// Commands of zerbal-pack whose system calls fail: the files are the old or the new ones, and nothing else is
// left.
#include <cerrno>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "pack/build_sources.h"
#include "pack/command_test.h"
#include "pack/pack_fixture.h"
#include "pack/ssim_lines.h"
#include "support/failing_calls.h"

namespace zerbal::pack {
namespace {

namespace fs = std::filesystem;
using test::FolderContent;
using zerbal::test::FailEachCall;
using zerbal::test::WriteBytes;

using FolderFiles = std::map<std::string, std::string>;

class FailedCalls : public test::CommandTest {
 protected:
  void SetUp() override {
    WriteBytes(folder / "a.csv",
               "Code,Name,City,Longitude,Latitude,Elevation,Runways,Longest runway,ILS,IATA\n"
               "EAAA,Alpha,Alpha,-9.1,38.7,374,1,12162,1,AAA\n"
               "EBBB,Bravo,Bravo,12.5,-3.25,0,2,8000,0,BBB\n");
    WriteBytes(folder / "s.ssim", test::SsimFile({test::SsimLegRecord("101", 1, "AAA", "BBB"),
                                                  test::SsimLegRecord("7", 1, "BBB", "QQQ")}));
    import = {"import", "--from", "ssim", Name("s.ssim"), "--airports", Name("a.csv"), "--out", Name("o")};
    import.insert(import.end(), {"--schedule", Name("q.mdb")});
  }

  /// Runs a command over and over, each time with another failed call, on what `old` has; it writes into `o`
  /// and q.mdb. Returns the number of calls.
  int FailEach(const std::vector<std::string>& words, const FolderFiles& old) {
    Run(words);
    const FolderFiles fresh = FolderContent(folder.Path());
    int status = 0;
    const auto writeOld = [&] {
      for (const auto& [name, bytes] : old)
        WriteBytes(folder / name, bytes);
    };
    return FailEachCall(
        ENOSPC, writeOld, [&] { status = Run(words); },
        [&](const std::string& failed) {
          EXPECT_NE(status, 0) << failed;
          EXPECT_NE(Err().find("No space left on device"), std::string::npos) << failed << ": " << Err();
          for (const auto& [name, bytes] : FolderContent(folder.Path())) {
            ASSERT_TRUE(fresh.contains(name)) << "left by a failed " << failed << ": " << name;
            EXPECT_TRUE(bytes == fresh.at(name) || (old.contains(name) && bytes == old.at(name)))
                << failed << ": " << name;
          }
        });
  }

  std::vector<std::string> import;
};

TEST_F(FailedCalls, OfImportLeaveOldOrNewFiles) {
  const FolderFiles old = {
      {"o/services.csv", "old"}, {"o/flights.csv", "old"}, {"o/rejected.csv", "old"}, {"q.mdb", "old"}};
  EXPECT_GT(FailEach(import, old), 25);
}

TEST_F(FailedCalls, OfScheduleExportAndAirportsLeaveOldOrNewFiles) {
  Run(import);
  EXPECT_GT(FailEach({"schedule", "--out", Name("q2.mdb"), "--services", Name("o/services.csv"),
                      "--destinations", Name("o/destinations.csv"), "--flights", Name("o/flights.csv")},
                     {{"q2.mdb", "old"}}),
            5);
  EXPECT_GT(FailEach({"export", Name("q.mdb"), Name("e"), "--schema"}, {}), 5);
  EXPECT_GT(FailEach({"airports", "--out", Name("all.mdb"), Name("a.csv")}, {{"all.mdb", "old"}}), 5);
}

TEST_F(FailedCalls, OfBuildChangeAllOrNothing) {
  Run(import);
  const fs::path sources = folder / "sources";
  test::CopySmallSources(folder / "o", sources);
  std::string error;
  const auto build = [&](const fs::path& target) {
    error.clear();
    try {
      Problems problems;
      BuildFolder(
          {target, sources}, test::OneTableMap, [](double, const std::string&) {}, problems);
      EXPECT_TRUE(problems.Empty());
    } catch (const std::exception& e) {
      error = e.what();
    }
  };
  build(folder / "fresh");
  const FolderFiles fresh = FolderContent(folder / "fresh");
  ASSERT_GT(fresh.size(), 4U) << error;
  const fs::path target = folder / "out" / "data";
  const auto failEach = [&](int reason, const FolderFiles& old) {
    const auto prepare = [&] {
      fs::remove_all(folder / "out");
      fs::create_directories(old.empty() ? folder / "out" : target / "app_data");
      for (const auto& [name, bytes] : old)
        WriteBytes(target / name, bytes);
    };
    const auto check = [&](const std::string& failed) {
      EXPECT_TRUE(!error.empty() || reason != ENOSPC) << failed;
      const FolderFiles& expected = error.empty() ? fresh : old;
      EXPECT_EQ(fs::exists(target) ? FolderContent(target) : FolderFiles(), expected)
          << failed << ": " << error;
      EXPECT_EQ(zerbal::test::NamesIn(folder / "out").size(), expected.empty() ? 0U : 1U) << failed;
    };
    EXPECT_GT(FailEachCall(
                  reason, prepare, [&] { build(target); }, check),
              40);
    EXPECT_EQ(FolderContent(target), fresh);
  };
  failEach(ENOSPC, {});
  failEach(ENOSPC, {{"app_data/zblrev.ini", "MadeBy=zerbal-pack"}});
  // File systems that cannot exchange two folders answer so.
  failEach(EINVAL, {{"app_data/zblrev.ini", "MadeBy=zerbal-pack"}});
}

}  // namespace
}  // namespace zerbal::pack
