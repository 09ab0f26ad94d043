// The handling of bus errors, which reading a file that was cut raises.
#include <csignal>
#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/mapped_file_guard.h"
#include "jet/read/file_image.h"
#include "support/jet_file.h"
#include "support/temp_folder.h"

namespace zerbal::jet::test {
namespace {

/// Each test is run in a process of its own, which the others have not prepared.
class BusErrorDeathTest : public testing::Test {
 protected:
  BusErrorDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

/// Ends with status 0 when opening a database leaves the handling of bus errors alone.
void ExitByHandler(const std::filesystem::path& file) {
  struct sigaction before = {}, after = {};
  sigaction(SIGBUS, nullptr, &before);
  const Database database = Database::Open(file);
  sigaction(SIGBUS, nullptr, &after);
  std::_Exit(before.sa_sigaction == after.sa_sigaction ? 0 : 1);
}

TEST_F(BusErrorDeathTest, OpeningADatabaseInstallsNoHandler) {
  const zerbal::test::TempFolder folder;
  zerbal::test::WriteBytes(folder / "x.mdb", Chars(JetFile(Format::kJet4).Build()));
  EXPECT_EXIT(ExitByHandler(folder / "x.mdb"), testing::ExitedWithCode(0), "");
}

TEST_F(BusErrorDeathTest, ACutFileEndsAProgramWithoutTheGuard) {
  const zerbal::test::TempFolder folder;
  zerbal::test::WriteBytes(folder / "x.mdb", Chars(JetFile(Format::kJet4).Build()));
  EXPECT_DEATH(
      {
        const FileImage image = MapFile(folder / "x.mdb");
        std::filesystem::resize_file(folder / "x.mdb", 0);
        std::_Exit(image.bytes.U8(0));
      },
      "");
}

// A bus error that has nothing to do with a database still ends the program as it always did.
TEST_F(BusErrorDeathTest, ForeignFaultsArePassedOn) {
  const zerbal::test::TempFolder folder;
  zerbal::test::WriteBytes(folder / "x.mdb", Chars(JetFile(Format::kJet4).Build()));
  EXPECT_DEATH(
      {
        InstallMappedFileGuard();
        const Database database = Database::Open(folder / "x.mdb");
        std::raise(SIGBUS);
      },
      "");
}

}  // namespace
}  // namespace zerbal::jet::test
