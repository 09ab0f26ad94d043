// Failures while a settings file is written on Windows. After each of them the file holds its old or its new
// contents, complete.
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>

#include "base/windows_calls.h"
#include "settings/profile_file.h"
#include "support/failing_file_steps.h"
#include "support/temp_folder.h"

namespace zerbal::settings {
namespace {

namespace fs = std::filesystem;
using test::FailingFileSteps;
using test::Failure;
using test::NamesIn;

const std::string kOld = "; mine\r\n[s]\r\nk=old\r\n[t]\r\nlast=1";
const std::string kNew = "; mine\r\n[s]\r\nk=new\r\n[t]\r\nlast=1";

class SettingsOnWindows : public testing::Test {
 protected:
  void SetUp() override { test::WriteBytes(file_, kOld); }
  bool Write(base::FileSteps& steps = base::SystemFileSteps()) {
    return WriteProfileString(file_, "s", "k", "new", steps);
  }
  /// Opens the file as another program does.
  HANDLE OpenElsewhere(DWORD access, DWORD sharing) {
    return CreateFileW(file_.c_str(), access, sharing, nullptr, OPEN_EXISTING, 0, nullptr);
  }
  void ExpectOldContents() {
    EXPECT_EQ(test::ReadBytes(file_), kOld);
    EXPECT_EQ(NamesIn(folder_.Path()), std::vector<std::string>{"zerbal.ini"});
  }
  test::TempFolder folder_;
  fs::path file_ = folder_ / "zerbal.ini";
};

TEST_F(SettingsOnWindows, AFailedStepKeepsTheOldContents) {
  std::vector<std::string> fatal;
  for (int at = 1;; ++at) {
    test::WriteBytes(file_, kOld);
    FailingFileSteps steps(Failure::kReturnError, at, EIO);
    const bool written = Write(steps);
    if (steps.Steps() < at)
      break;
    // After the renaming only the flush of the folder can fail.
    const bool isNew = written || steps.FailedStep() == "flush folder";
    EXPECT_EQ(test::ReadBytes(file_), isNew ? kNew : kOld) << steps.FailedStep();
    EXPECT_EQ(NamesIn(folder_.Path()), std::vector<std::string>{"zerbal.ini"});
    if (!written)
      fatal.push_back(steps.FailedStep());
  }
  for (const char* step :
       {"open folder", "open", "read", "create", "mode", "write", "flush", "close", "rename", "flush folder"})
    EXPECT_NE(std::find(fatal.begin(), fatal.end(), step), fatal.end()) << step << " was not noticed";
}

TEST_F(SettingsOnWindows, AReadOnlyFileStaysUnchanged) {
  SetFileAttributesW(file_.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_FALSE(Write());
  ExpectOldContents();
  SetFileAttributesW(file_.c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_TRUE(Write());
  EXPECT_EQ(test::ReadBytes(file_), kNew);
}

TEST_F(SettingsOnWindows, TheReadOnlyAttributeOfAFolderMeansNothing) {
  SetFileAttributesW(folder_.Path().c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_TRUE(Write());
  SetFileAttributesW(folder_.Path().c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(test::ReadBytes(file_), kNew);
}

TEST_F(SettingsOnWindows, AFileThatAnotherProgramKeepsToItselfStaysUnchanged) {
  const HANDLE other = OpenElsewhere(GENERIC_READ | GENERIC_WRITE, 0);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(Write());
  EXPECT_EQ(ReadProfileString(file_, "s", "k", "fallback", 10), "fallback");
  CloseHandle(other);
  ExpectOldContents();
}

TEST_F(SettingsOnWindows, AFileThatAnotherProgramReadsForAMomentIsReplaced) {
  const HANDLE other = OpenElsewhere(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  std::thread reader([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    CloseHandle(other);
  });
  EXPECT_TRUE(Write());
  reader.join();
  EXPECT_EQ(test::ReadBytes(file_), kNew);
}

TEST_F(SettingsOnWindows, AFileThatAnotherProgramGoesOnReadingStaysUnchanged) {
  const HANDLE other = OpenElsewhere(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
  ASSERT_NE(other, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(Write());
  CloseHandle(other);
  ExpectOldContents();
}

TEST_F(SettingsOnWindows, OnlyRegularFilesAreReplaced) {
  fs::create_directory(folder_ / "folder.ini");
  EXPECT_FALSE(WriteProfileString(folder_ / "folder.ini", "s", "k", "v"));
  EXPECT_FALSE(WriteProfileString(folder_ / "", "s", "k", "v"));
  EXPECT_FALSE(WriteProfileString("NUL", "s", "k", "v"));
  EXPECT_FALSE(WriteProfileString("", "s", "k", "v"));
  EXPECT_FALSE(WriteProfileString(folder_ / "none" / "zerbal.ini", "s", "k", "v"));
}

TEST_F(SettingsOnWindows, WritersInSeveralThreadsLoseNothing) {
  constexpr int kKeys = 40;
  test::WriteBytes(file_, "[first]\r\n[second]\r\n");
  std::vector<std::thread> writers;
  for (const char* section : {"first", "second"}) {
    writers.emplace_back([&, section] {
      for (int i = 0; i < kKeys; ++i)
        EXPECT_TRUE(WriteProfileString(file_, section, "k" + std::to_string(i), "v"));
    });
  }
  for (std::thread& writer : writers)
    writer.join();
  for (const char* section : {"first", "second"}) {
    for (int i = 0; i < kKeys; ++i)
      EXPECT_EQ(ReadProfileString(file_, section, "k" + std::to_string(i), "lost", 10), "v") << section << i;
  }
}

TEST_F(SettingsOnWindows, TheLockOfAFolderExcludesOthersUntilItIsClosed) {
  base::FileSteps& steps = base::SystemFileSteps();
  const int first = steps.Open(folder_.Path(), O_RDONLY | O_DIRECTORY, 0);
  const int second = steps.Open(folder_.Path(), O_RDONLY | O_DIRECTORY, 0);
  ASSERT_GE(first, 0);
  ASSERT_GE(second, 0);
  EXPECT_EQ(steps.TryLock(first), 0);
  EXPECT_EQ(steps.TryLock(second), -1);
  EXPECT_EQ(errno, EWOULDBLOCK);
  EXPECT_TRUE(Write()) << "a lock that is held for ever does not stop others for ever";
  steps.Close(first);
  EXPECT_EQ(steps.TryLock(second), 0);
  steps.Close(second);
}

}  // namespace
}  // namespace zerbal::settings
