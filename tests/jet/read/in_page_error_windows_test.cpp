// The handling of in-page errors, which reading a file that the disk or the network does not give raises.
// They are raised by hand: Windows does not let a file be cut that is mapped.
#include <filesystem>

#include <gtest/gtest.h>

#include "base/windows_calls.h"
#include "jet/database.h"
#include "jet/mapped_file_guard.h"
#include "jet/read/file_image.h"
#include "jet/recordset.h"
#include "support/database_builder.h"
#include "support/engine_error.h"
#include "support/temp_folder.h"

namespace zerbal::jet::test {
namespace {

namespace fs = std::filesystem;
using namespace zerbal::test;

class InPageError : public testing::Test {
 protected:
  InPageError() {
    InstallMappedFileGuard();
    WriteDatabase(file_, {{"t", {Long("a")}, {}, {{1}, {2}}}});
  }
  /// As the system does when a page cannot be read.
  static void RaiseAt(const std::uint8_t* address) {
    const ULONG_PTR arguments[] = {0, reinterpret_cast<ULONG_PTR>(address), 0};
    RaiseException(static_cast<DWORD>(EXCEPTION_IN_PAGE_ERROR), 0, 3, arguments);
  }
  zerbal::test::TempFolder folder_;
  fs::path file_ = folder_ / "one.mdb";
};

TEST_F(InPageError, MakesTheWholeMappingZerosAndSetsItsFlag) {
  const FileImage image = MapFile(file_);
  const FileImage other = MapFile(file_);
  ASSERT_NE(image.bytes.U8(4), 0);
  EXPECT_FALSE(*image.shrunk);
  RaiseAt(image.bytes.Data() + 5000);
  EXPECT_TRUE(*image.shrunk);
  EXPECT_EQ(image.bytes.U8(4), 0);
  EXPECT_EQ(image.bytes.U8(image.bytes.Size() - 1), 0);
  EXPECT_FALSE(*other.shrunk);
  EXPECT_NE(other.bytes.U8(4), 0);
}

TEST_F(InPageError, AMappedFileCanBeClosedAndOpenedAgain) {
  for (int i = 0; i < 3; ++i) {
    const FileImage image = MapFile(file_);
    EXPECT_FALSE(*image.shrunk);
    RaiseAt(image.bytes.Data());
    EXPECT_TRUE(*image.shrunk);
  }
  EXPECT_EQ(ReasonOf([&] { Database::Open(file_).OpenTable("t"); }), "none");
}

TEST_F(InPageError, AnOpenDatabaseCannotBeCut) {
  const Database database = Database::Open(file_);
  std::error_code refused;
  fs::resize_file(file_, 0, refused);
  EXPECT_TRUE(refused);
  EXPECT_EQ(database.TableNames(), std::vector<std::string>{"t"});
}

TEST_F(InPageError, OthersMayReadAndChangeAnOpenDatabase) {
  const Database database = Database::Open(file_);
  const HANDLE other = CreateFileW(file_.c_str(), GENERIC_READ | GENERIC_WRITE,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(other, INVALID_HANDLE_VALUE);
  EXPECT_EQ(ReasonOf([&] { Database::Open(file_); }), "none") << "while another program has it open";
  CloseHandle(other);
}

TEST_F(InPageError, AFileThatAnotherProgramKeepsToItselfCannotBeOpened) {
  const HANDLE other =
      CreateFileW(file_.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  EXPECT_EQ(ReasonOf([&] { Database::Open(file_); }), "the file cannot be opened (Permission denied)");
  CloseHandle(other);
}

TEST_F(InPageError, FoldersAndDevicesAreNoDatabases) {
  EXPECT_EQ(ReasonOf([&] { Database::Open(folder_.Path()); }), "this is not an ordinary file");
  EXPECT_EQ(ReasonOf([&] { Database::Open("NUL"); }), "this is not an ordinary file");
}

}  // namespace
}  // namespace zerbal::jet::test
