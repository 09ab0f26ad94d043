// Failures while a settings file is written: the process is killed, the disk is full, permissions are
// missing, another program writes. After each of them the file holds its old or its new contents, complete.
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "settings/profile_file.h"
#include "support/failing_file_steps.h"
#include "support/temp_folder.h"

namespace zerbal::settings {
namespace {

namespace fs = std::filesystem;
using test::FailingFileSteps;
using test::Failure;
using test::InChild;
using test::NamesIn;

const std::string kOld = "; mine\r\n[s]\r\nk=old\r\n[t]\r\nlast=1";
const std::string kNew = "; mine\r\n[s]\r\nk=new\r\n[t]\r\nlast=1";
constexpr mode_t kMode = 0640;
constexpr uid_t kNobody = 65534;

template <typename Action>
int AsNobody(Action action) {
  return InChild([&]() -> int {
    if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0))
      return 99;
    return action();
  });
}

mode_t ModeOf(const fs::path& file) {
  struct stat status {};
  EXPECT_EQ(::stat(file.c_str(), &status), 0);
  return status.st_mode & 07777;
}

/// A settings file that is reached through a symbolic link from another folder.
struct LinkedFile {
  LinkedFile() {
    fs::create_directory(folder / "home");
    fs::create_directory(folder / "work");
    test::WriteBytes(file, kOld);
    ::chmod(file.c_str(), kMode);
    fs::create_symlink("../home/zerbal.ini", link);
  }
  test::TempFolder folder;
  fs::path file = folder / "home" / "zerbal.ini";
  fs::path link = folder / "work" / "zerbal.ini";
};

TEST(SettingsUnderFaults, AKilledWriteLeavesTheOldOrTheNewContents) {
  int trials = 0;
  int oldKept = 0;
  int newInPlace = 0;
  for (const Failure failure : {Failure::kKillBefore, Failure::kKillAfter, Failure::kKillMidway}) {
    for (int at = 1;; ++at) {
      const LinkedFile world;
      const int end = InChild([&] {
        FailingFileSteps steps(failure, at);
        return WriteProfileString(world.link, "s", "k", "new", steps) ? 0 : 1;
      });
      if (end == 0)
        break;  // the write has fewer steps
      ASSERT_EQ(end, -SIGKILL);
      ++trials;
      const std::string bytes = test::ReadBytes(world.file);
      EXPECT_TRUE(bytes == kOld || bytes == kNew) << "killed at step " << at << ": " << bytes;
      (bytes == kOld ? oldKept : newInPlace)++;
      EXPECT_EQ(ModeOf(world.file), kMode);
      EXPECT_TRUE(fs::is_symlink(world.link));
      // Files that the killed process left do not prevent the next write.
      EXPECT_TRUE(WriteProfileString(world.link, "s", "k", "new"));
      EXPECT_EQ(ReadProfileString(world.link, "s", "k", "", 100), "new");
      EXPECT_EQ(test::ReadBytes(world.file), kNew);
    }
  }
  std::cout << trials << " kills: " << oldKept << " times the old contents, " << newInPlace
            << " times the new\n";
  RecordProperty("trials", trials);
  EXPECT_GE(trials, 3 * 12);
  EXPECT_GT(oldKept, 0);
  EXPECT_GT(newInPlace, 0);
}

TEST(SettingsUnderFaults, AKilledCreationLeavesNoFileOrTheCompleteFile) {
  int trials = 0;
  for (int at = 1;; ++at) {
    const test::TempFolder folder;
    const int end = InChild([&] {
      FailingFileSteps steps(Failure::kKillMidway, at);
      return WriteProfileString(folder / "zerbal.ini", "s", "k", "v", steps) ? 0 : 1;
    });
    if (end == 0)
      break;
    ASSERT_EQ(end, -SIGKILL);
    ++trials;
    if (fs::exists(folder / "zerbal.ini")) {
      EXPECT_EQ(test::ReadBytes(folder / "zerbal.ini"), "[s]\r\nk=v\r\n");
    }
    EXPECT_TRUE(WriteProfileString(folder / "zerbal.ini", "s", "k", "v"));
    EXPECT_EQ(test::ReadBytes(folder / "zerbal.ini"), "[s]\r\nk=v\r\n");
  }
  RecordProperty("trials", trials);
  EXPECT_GE(trials, 8);
}

TEST(SettingsUnderFaults, AFailedStepKeepsTheOldContents) {
  int trials = 0;
  std::vector<std::string> fatal;
  for (const int error : {EIO, ENOSPC, EDQUOT, EACCES}) {
    for (int at = 1;; ++at) {
      const LinkedFile world;
      FailingFileSteps steps(Failure::kReturnError, at, error);
      const bool written = WriteProfileString(world.link, "s", "k", "new", steps);
      if (steps.Steps() < at)
        break;
      ++trials;
      // After the rename only the flush of the folder can fail.
      const bool isNew = written || steps.FailedStep() == "flush folder";
      EXPECT_EQ(test::ReadBytes(world.file), isNew ? kNew : kOld) << steps.FailedStep() << " " << error;
      EXPECT_EQ(ModeOf(world.file), kMode);
      EXPECT_TRUE(fs::is_symlink(world.link));
      EXPECT_EQ(NamesIn(world.file.parent_path()), std::vector<std::string>{"zerbal.ini"});
      EXPECT_EQ(NamesIn(world.link.parent_path()), std::vector<std::string>{"zerbal.ini"});
      if (!written && error == EIO)
        fatal.push_back(steps.FailedStep());
    }
  }
  std::cout << trials << " failed steps\n";
  RecordProperty("trials", trials);
  EXPECT_GE(trials, 4 * 12);
  for (const char* step :
       {"open folder", "open", "read", "create", "mode", "write", "flush", "close", "rename", "flush folder"})
    EXPECT_NE(std::find(fatal.begin(), fatal.end(), step), fatal.end()) << step << " was not noticed";
}

TEST(SettingsUnderFaults, AFullDiskKeepsTheOldContents) {
  int trials = 0;
  for (rlim_t room = 0; room < kNew.size(); ++room, ++trials) {
    const LinkedFile world;
    const int end = InChild([&] {
      ::signal(SIGXFSZ, SIG_IGN);
      const struct rlimit limit { room, room };
      if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
        return 99;
      return WriteProfileString(world.link, "s", "k", "new") ? 0 : 1;
    });
    ASSERT_EQ(end, 1) << "with room for " << room << " bytes";
    EXPECT_EQ(test::ReadBytes(world.file), kOld);
    EXPECT_EQ(NamesIn(world.file.parent_path()), std::vector<std::string>{"zerbal.ini"});
  }
  RecordProperty("trials", trials);
}

TEST(SettingsUnderFaults, SlowAndInterruptedCallsAreRepeated) {
  class SlowSteps : public base::FileSteps {
   public:
    ssize_t Read(int file, char* buffer, std::size_t) override {
      return Interrupted() ? -1 : FileSteps::Read(file, buffer, 3);
    }
    ssize_t WriteAt(int file, const char* bytes, std::size_t, off_t position) override {
      return Interrupted() ? -1 : FileSteps::WriteAt(file, bytes, 1, position);
    }

   private:
    bool Interrupted() {
      errno = EINTR;
      return ++calls_ % 2 == 0;
    }
    int calls_ = 0;
  };
  const LinkedFile world;
  SlowSteps steps;
  EXPECT_TRUE(WriteProfileString(world.link, "s", "k", "new", steps));
  EXPECT_EQ(test::ReadBytes(world.file), kNew);
}

TEST(SettingsUnderFaults, AWriteProtectedFileOrFolderStaysUnchangedForRootToo) {
  const LinkedFile world;
  ::chmod(world.file.c_str(), 0444);
  EXPECT_FALSE(WriteProfileString(world.link, "s", "k", "new"));
  EXPECT_EQ(test::ReadBytes(world.file), kOld);
  EXPECT_EQ(ModeOf(world.file), mode_t{0444});
  ::chmod(world.file.c_str(), kMode);
  ::chmod(world.file.parent_path().c_str(), 0555);
  EXPECT_FALSE(WriteProfileString(world.link, "s", "k", "new"));
  EXPECT_FALSE(WriteProfileString(world.file.parent_path() / "other.ini", "s", "k", "new"));
  EXPECT_EQ(test::ReadBytes(world.file), kOld);
  EXPECT_EQ(NamesIn(world.file.parent_path()), std::vector<std::string>{"zerbal.ini"});
  ::chmod(world.file.parent_path().c_str(), 0755);
  EXPECT_TRUE(WriteProfileString(world.link, "s", "k", "new"));
}

/// A folder with permissions for all users, and a file in it.
class OrdinaryUser : public testing::Test {
 protected:
  void SetUp() override {
    ::chmod(folder_.Path().c_str(), 0777);
    test::WriteBytes(file_, kOld);
    if (AsNobody([&] { return ::access(folder_.Path().c_str(), W_OK) == 0 ? 0 : 1; }) != 0)
      GTEST_SKIP() << "the folder for temporary files is closed to other users";
  }
  int WriteAsNobody() {
    return AsNobody([&] { return WriteProfileString(file_, "s", "k", "new") ? 0 : 1; });
  }
  test::TempFolder folder_;
  fs::path file_ = folder_ / "zerbal.ini";
};

TEST_F(OrdinaryUser, CannotChangeAFileWithoutWritePermission) {
  ::chmod(file_.c_str(), ::geteuid() == 0 ? 0644 : 0444);  // a file of root, or a protected file of this user
  EXPECT_EQ(WriteAsNobody(), 1);
  EXPECT_EQ(test::ReadBytes(file_), kOld);
  EXPECT_EQ(NamesIn(folder_.Path()), std::vector<std::string>{"zerbal.ini"});
}

TEST_F(OrdinaryUser, CannotChangeAFileWithoutReadPermission) {
  ::chmod(file_.c_str(), 0222);
  EXPECT_EQ(WriteAsNobody(), 1) << "a file that cannot be read is not empty";
  ::chmod(file_.c_str(), 0644);
  EXPECT_EQ(test::ReadBytes(file_), kOld);
}

TEST_F(OrdinaryUser, CannotChangeAFileInAFolderWithoutWritePermission) {
  ::chmod(file_.c_str(), 0666);
  ::chmod(folder_.Path().c_str(), ::geteuid() == 0 ? 0755 : 0555);
  EXPECT_EQ(WriteAsNobody(), 1);
  EXPECT_EQ(test::ReadBytes(file_), kOld);
}

TEST_F(OrdinaryUser, ChangesAFileInAFolderThatCannotBeListed) {
  ::chmod(file_.c_str(), 0666);
  ::chmod(folder_.Path().c_str(), 0333);
  EXPECT_EQ(WriteAsNobody(), 0);
  ::chmod(folder_.Path().c_str(), 0777);
  EXPECT_EQ(test::ReadBytes(file_), kNew);
}

TEST_F(OrdinaryUser, KeepsThePermissionsOfAnotherUsersFile) {
  ::chmod(file_.c_str(), 0666);
  EXPECT_EQ(WriteAsNobody(), 0);
  EXPECT_EQ(test::ReadBytes(file_), kNew);
  EXPECT_EQ(ModeOf(file_), mode_t{0666});
}

TEST(WriteProfileString, KeepsOwnerGroupAndPermissions) {
  if (::geteuid() != 0)
    GTEST_SKIP() << "only root can give files away";
  const LinkedFile world;
  ASSERT_EQ(::chown(world.file.c_str(), 12345, 23456), 0);
  ::chmod(world.file.c_str(), 04750);
  EXPECT_TRUE(WriteProfileString(world.link, "s", "k", "new"));
  struct stat status {};
  ASSERT_EQ(::stat(world.file.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 12345u);
  EXPECT_EQ(status.st_gid, 23456u);
  EXPECT_EQ(status.st_mode & 07777, mode_t{04750});
}

TEST(WriteProfileString, GivesANewFileThePermissionsOfTheUmask) {
  const test::TempFolder folder;
  const mode_t before = ::umask(027);
  EXPECT_TRUE(WriteProfileString(folder / "zerbal.ini", "s", "k", "v"));
  ::umask(before);
  EXPECT_EQ(ModeOf(folder / "zerbal.ini"), mode_t{0640});
}

TEST(WriteProfileString, FollowsChainsOfLinksAndLinksToMissingFiles) {
  const LinkedFile world;
  fs::create_symlink("zerbal.ini", world.link.parent_path() / "second.ini");
  EXPECT_TRUE(WriteProfileString(world.link.parent_path() / "second.ini", "s", "k", "new"));
  EXPECT_EQ(test::ReadBytes(world.file), kNew);
  fs::remove(world.file);
  EXPECT_TRUE(WriteProfileString(world.link, "s", "k", "v"));
  EXPECT_EQ(test::ReadBytes(world.file), "[s]\r\nk=v\r\n");
  EXPECT_TRUE(fs::is_symlink(world.link));
  fs::create_symlink("loop.ini", world.folder / "loop.ini");
  EXPECT_FALSE(WriteProfileString(world.folder / "loop.ini", "s", "k", "v"));
}

TEST(WriteProfileString, ReplacesOnlyRegularFiles) {
  const test::TempFolder folder;
  fs::create_directory(folder / "folder.ini");
  EXPECT_FALSE(WriteProfileString(folder / "folder.ini", "s", "k", "v"));
  EXPECT_FALSE(WriteProfileString(folder.Path() / "", "s", "k", "v"));
  ASSERT_EQ(::mkfifo((folder / "pipe.ini").c_str(), 0600), 0);
  EXPECT_FALSE(WriteProfileString(folder / "pipe.ini", "s", "k", "v"));
  EXPECT_EQ(ReadProfileString(folder / "pipe.ini", "s", "k", "d", 10), "d");
  fs::create_symlink("/dev/null", folder / "device.ini");
  EXPECT_FALSE(WriteProfileString(folder / "device.ini", "s", "k", "v"));
  EXPECT_FALSE(WriteProfileString(folder / "none" / "zerbal.ini", "s", "k", "v"));
  EXPECT_FALSE(WriteProfileString("", "s", "k", "v"));
  EXPECT_EQ(NamesIn(folder.Path()), (std::vector<std::string>{"device.ini", "folder.ini", "pipe.ini"}));
}

TEST(WriteProfileString, WorksForTheLongestNameAndInTheCurrentFolder) {
  const test::TempFolder folder;
  const std::string name(255, 'n');
  EXPECT_TRUE(WriteProfileString(folder / name, "s", "k", "v"));
  EXPECT_EQ(ReadProfileString(folder / name, "s", "k", "", 10), "v");
  const fs::path before = fs::current_path();
  fs::current_path(folder.Path());
  EXPECT_TRUE(WriteProfileString("zerbal.ini", "s", "k", "v"));
  fs::current_path(before);
  EXPECT_EQ(ReadProfileString(folder / "zerbal.ini", "s", "k", "", 10), "v");
}

std::string KeyName(int i) {
  return std::string("k").append(std::to_string(i));
}

TEST(WriteProfileString, TwoWritersLoseNothingAndReadersSeeCompleteFiles) {
  constexpr int kKeys = 60;
  const test::TempFolder folder;
  const fs::path file = folder / "zerbal.ini";
  const std::string last = "[z]\r\nlast=" + std::string(1000, 'z') + "\r\n";
  test::WriteBytes(file, "[first]\r\n[second]\r\n" + last);
  std::vector<pid_t> writers;
  for (const char* section : {"first", "second"}) {
    const pid_t child = ::fork();
    if (child == 0) {
      bool good = true;
      for (int i = 0; i < kKeys; ++i)
        good = WriteProfileString(file, section, KeyName(i), "v") && good;
      ::_exit(good ? 0 : 1);
    }
    writers.push_back(child);
  }
  int looks = 0;
  while (!writers.empty()) {
    const std::string bytes = test::ReadBytes(file);
    ASSERT_TRUE(bytes.starts_with("[first]\r\n") && bytes.ends_with(last)) << bytes;
    ++looks;
    int status = 0;
    const pid_t ended = ::waitpid(writers.back(), &status, WNOHANG);
    if (ended == writers.back()) {
      EXPECT_EQ(status, 0);
      writers.pop_back();
    }
  }
  for (const char* section : {"first", "second"}) {
    for (int i = 0; i < kKeys; ++i)
      EXPECT_EQ(ReadProfileString(file, section, KeyName(i), "lost", 10), "v") << section << i;
  }
  std::cout << 2 * kKeys << " writes, " << looks << " looks\n";
  EXPECT_EQ(NamesIn(folder.Path()), std::vector<std::string>{"zerbal.ini"});
}

TEST(WriteProfileString, DoesNotWaitForeverForTheLock) {
  const test::TempFolder folder;
  const int held = ::open(folder.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  ASSERT_GE(held, 0);
  ASSERT_EQ(base::SystemFileSteps().TryLock(held), 0);
  EXPECT_TRUE(WriteProfileString(folder / "zerbal.ini", "s", "k", "v"));
  ::close(held);
}

}  // namespace
}  // namespace zerbal::settings
