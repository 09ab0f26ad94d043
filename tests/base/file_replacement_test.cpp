// Files replaced as a whole. tests/settings/profile_file_failures_test.cpp has what concerns ChangeFile.
#include "base/file_replacement.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>

#include "base/error.h"
#include "support/failing_file_steps.h"
#include "support/temp_folder.h"

namespace zerbal::base {
namespace {

namespace fs = std::filesystem;
using test::FailingFileSteps;
using test::Failure;

/// Replaces `file` in three writes.
void Replace(const fs::path& file, FileSteps& steps) {
  FileReplacement replacement(file, steps);
  replacement.Write("ne");
  replacement.Write("w");
  replacement.WriteAt(6, "end");
  replacement.Commit();
}

const std::string kNew("new\0\0\0end", 9);

TEST(FileReplacement, AppendsAndWritesAtPositions) {
  const test::TempFolder folder;
  Replace(folder / "file", SystemFileSteps());
  EXPECT_EQ(test::ReadBytes(folder / "file"), kNew);
  EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"file"});
}

TEST(FileReplacement, LeavesNothingWithoutCommit) {
  const test::TempFolder folder;
  {
    FileReplacement replacement(folder / "file");
    replacement.Write("new");
    EXPECT_FALSE(fs::exists(folder / "file"));
  }
  EXPECT_TRUE(fs::is_empty(folder.Path()));
}

TEST(FileReplacement, ReportsEveryFailedStepAndKeepsTheOldContents) {
  std::vector<std::string> reported;
  for (int at = 1;; ++at) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "file", "old");
    FailingFileSteps steps(Failure::kReturnError, at, ENOSPC);
    bool isNew = true;
    try {
      Replace(folder / "file", steps);
    } catch (const FileError& error) {
      reported.push_back(steps.FailedStep());
      isNew = steps.FailedStep() == "flush folder";  // the only step after the renaming that counts
      EXPECT_EQ(error.File(), (folder / "file").string());
      EXPECT_NE(error.Reason().find(": No space left on device"), std::string::npos) << error.Reason();
    }
    if (steps.Steps() < at)
      break;
    EXPECT_EQ(test::ReadBytes(folder / "file"), isNew ? kNew : "old");
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"file"}) << steps.FailedStep();
  }
  EXPECT_EQ(reported, (std::vector<std::string>{"open folder", "create", "write", "write", "write", "flush",
                                                "close", "rename", "flush folder"}));
}

#ifndef _WIN32  // fork() is missing
TEST(FileReplacement, HoldsTheOldOrTheNewContentsWhenKilled) {
  for (const Failure failure : {Failure::kKillBefore, Failure::kKillAfter, Failure::kKillMidway}) {
    for (int at = 1;; ++at) {
      const test::TempFolder folder;
      test::WriteBytes(folder / "file", "old");
      const int end = test::InChild([&] {
        FailingFileSteps steps(failure, at);
        Replace(folder / "file", steps);
        return 0;
      });
      if (end == 0)
        break;
      ASSERT_EQ(end, -SIGKILL);
      const std::string bytes = test::ReadBytes(folder / "file");
      EXPECT_TRUE(bytes == "old" || bytes == kNew) << "killed at step " << at << ": " << bytes;
    }
  }
}
#endif

/// Steps that say once in a while that the call was interrupted, or answer as unusual file systems do.
class UnusualSteps : public FileSteps {
 public:
  ssize_t WriteAt(int file, const char* bytes, std::size_t size, off_t position) override {
    return Interrupted() ? -1 : FileSteps::WriteAt(file, bytes, std::min<std::size_t>(size, most), position);
  }
  ssize_t Read(int file, char* buffer, std::size_t size) override {
    return Interrupted() ? -1 : FileSteps::Read(file, buffer, std::min<std::size_t>(size, 3));
  }
  int TryLock(int file) override { return Interrupted() ? -1 : FileSteps::TryLock(file); }
  int Rename(const fs::path& from, const fs::path& to) override {
    renamed = true;
    return FileSteps::Rename(from, to);
  }
  int Flush(int file) override {
    errno = flushError;
    return renamed ? -1 : FileSteps::Flush(file);
  }
  int Open(const fs::path& path, int flags, mode_t mode) override {
    if ((flags & O_CREAT) == 0 || existing-- <= 0)
      return FileSteps::Open(path, flags, mode);
    errno = EEXIST;
    return -1;
  }

  std::size_t most = 3;  ///< bytes per write
  int flushError = EINVAL;
  int existing = 2;  ///< temporary names that are there already

 private:
  bool Interrupted() {
    errno = EINTR;
    return ++calls % 2 == 1;
  }
  int calls = 0;
  bool renamed = false;
};

TEST(FileReplacement, GoesOnAfterInterruptedCalls) {
  for (const int error : {EINVAL, ENOTSUP}) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "f", "old content");
    UnusualSteps steps;
    steps.flushError = error;
    EXPECT_TRUE(ChangeFile(
        folder / "f", [](const std::string& old) { return old + " and new"; }, steps));
    EXPECT_EQ(ReadFile(folder / "f", steps), "old content and new");
    EXPECT_EQ(test::NamesIn(folder.Path()).size(), 1U);
  }
}

TEST(FileReplacement, GivesUpWhenNothingIsWrittenOrEveryNameIsTaken) {
  const test::TempFolder folder;
  UnusualSteps full;
  full.most = 0;
  FileReplacement replacement(folder / "f", full);
  EXPECT_THROW(replacement.Write("x"), FileError);
  UnusualSteps taken;
  taken.existing = 1000;
  EXPECT_THROW(FileReplacement(folder / "f", taken), FileError);
}

TEST(FileReplacement, ReportsAFolderThatCannotBeFlushed) {
  const test::TempFolder folder;
  UnusualSteps steps;
  steps.flushError = EIO;
  EXPECT_FALSE(ChangeFile(
      folder / "f", [](const std::string&) { return "new"; }, steps));
  EXPECT_EQ(test::ReadBytes(folder / "f"), "new");
}

TEST(FileReplacement, NamesTheFileThatCannotBeReplaced) {
  const test::TempFolder folder;
  const fs::path missing = folder / "missing" / "file";
  try {
    const FileReplacement replacement(missing);
    ADD_FAILURE() << "there is no such folder";
  } catch (const FileError& error) {
    EXPECT_EQ(error.what(),
              "File '" + missing.string() + "': cannot create the file: No such file or directory");
  }
}

/// Other programs create the first temporary files.
class TakenNames : public FileSteps {
 public:
  explicit TakenNames(int taken) : left_(taken) {}
  int Open(const fs::path& path, int flags, mode_t mode) override {
    if ((flags & O_CREAT) == 0 || left_-- <= 0)
      return FileSteps::Open(path, flags, mode);
    errno = EEXIST;
    return -1;
  }

 private:
  int left_;
};

TEST(FileReplacement, TriesAHundredNames) {
  const test::TempFolder folder;
  TakenNames all(100), allButOne(99);
  EXPECT_THROW(Replace(folder / "file", all), FileError);
  EXPECT_TRUE(fs::is_empty(folder.Path()));
  Replace(folder / "file", allButOne);
  EXPECT_EQ(test::ReadBytes(folder / "file"), kNew);
}

/// Replaces `file` as one that a user names.
void ReplaceUserFile(const fs::path& file, FileSteps& steps = SystemFileSteps()) {
  FileReplacement replacement = FileReplacement::OfUserFile(file, steps);
  replacement.Write("new");
  replacement.Commit();
}

/// Why the file cannot be replaced; empty when it was.
std::string RefusalOf(const fs::path& file) {
  try {
    ReplaceUserFile(file);
  } catch (const FileError& error) {
    return error.Reason();
  }
  return "";
}

TEST(UserFile, IsCreatedOrReplacedWithItsPermissions) {
  const test::TempFolder folder;
  ReplaceUserFile(folder / "file");
  EXPECT_EQ(test::ReadBytes(folder / "file"), "new");
  test::WriteBytes(folder / "private", "old");
  fs::permissions(folder / "private", fs::perms::owner_read | fs::perms::owner_write);
  ReplaceUserFile(folder / "private");
  EXPECT_EQ(test::ReadBytes(folder / "private"), "new");
  EXPECT_EQ(fs::status(folder / "private").permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(test::NamesIn(folder.Path()), (std::vector<std::string>{"file", "private"}));
}

TEST(UserFile, ALinkStaysAndItsTargetIsReplaced) {
  const test::TempFolder folder;
  test::WriteBytes(folder / "file", "old");
  fs::create_symlink("file", folder / "link");
  ReplaceUserFile(folder / "link");
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(test::ReadBytes(folder / "file"), "new");
  fs::create_symlink("circle", folder / "circle");
  EXPECT_EQ(RefusalOf(folder / "circle"), "cannot write the file: Too many levels of symbolic links");
}

TEST(UserFile, WhatIsProtectedOrNoFileIsRefused) {
  const test::TempFolder folder;
  test::WriteBytes(folder / "file", "old");
  fs::permissions(folder / "file", fs::perms::owner_read);
  EXPECT_EQ(RefusalOf(folder / "file"), "cannot write the file: Permission denied");
  EXPECT_EQ(RefusalOf(folder.Path()), "cannot write the file: Is a directory");
  EXPECT_EQ(RefusalOf("/dev/null"), "cannot write the file: Invalid argument");
  EXPECT_EQ(RefusalOf(folder / "none" / "file"), "cannot create the file: No such file or directory");
  EXPECT_EQ(RefusalOf(folder / "file" / "file"), "cannot write the file: Not a directory");
  fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_EQ(RefusalOf(folder / "new"), "cannot create the file: Permission denied");
  fs::permissions(folder.Path(), fs::perms::owner_all);
  EXPECT_EQ(test::ReadBytes(folder / "file"), "old");
  EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"file"});
}

TEST(UserFile, EveryFailedStepIsReportedAndKeepsTheOldContents) {
  std::vector<std::string> reported;
  for (int at = 1;; ++at) {
    const test::TempFolder folder;
    test::WriteBytes(folder / "file", "old");
    FailingFileSteps steps(Failure::kReturnError, at, ENOSPC);
    bool isNew = true;
    try {
      ReplaceUserFile(folder / "file", steps);
    } catch (const FileError&) {
      reported.push_back(steps.FailedStep());
      isNew = steps.FailedStep() == "flush folder";
    }
    if (steps.Steps() < at)
      break;
    EXPECT_EQ(test::ReadBytes(folder / "file"), isNew ? "new" : "old") << steps.FailedStep();
    EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"file"}) << steps.FailedStep();
  }
  EXPECT_EQ(reported, (std::vector<std::string>{"open folder", "status", "open", "status", "create", "mode",
                                                "write", "flush", "close", "rename", "flush folder"}));
}

TEST(ReadFile, ReadsRegularFilesAlone) {
  const test::TempFolder folder;
  test::WriteBytes(folder / "file", "bytes");
  EXPECT_EQ(ReadFile(folder / "file"), "bytes");
  EXPECT_EQ(ReadFile(folder / "none"), std::nullopt);
  EXPECT_EQ(ReadFile(folder.Path()), std::nullopt);
}

TEST(ReadFile, GivesNothingAfterAFailedStep) {
  const test::TempFolder folder;
  test::WriteBytes(folder / "file", "bytes");
  for (int at = 1; at <= 3; ++at) {
    FailingFileSteps steps(Failure::kReturnError, at);
    EXPECT_EQ(ReadFile(folder / "file", steps), std::nullopt) << steps.FailedStep();
  }
}

}  // namespace
}  // namespace zerbal::base
