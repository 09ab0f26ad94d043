// The program only reads its databases: a session changes neither their bytes nor their time stamps, and two
// programs can use one folder.
#include <QProcess>
#include <map>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "settings/profile_file.h"
#include "support/drive.h"
#include "support/settings_file.h"
#include "support/small_world.h"
#include "support/temp_folder.h"

namespace zerbal::monkey {
namespace {

namespace fs = std::filesystem;

/// Uses every dialog, every layer, detail mode and both ways to draw flights.
constexpr char kScript[] =
    "start\n"
    "menu mnuViewAprt\nmenu mnuViewDest\nmenu mnuViewRiver\nmenu mnuViewIBound\n"
    "menu mnuRegPart(3)\nmenu mnuRegPart(6)\nmenu mnuRegWorld\n"
    "press left 3000 3000\nmove 6000 6000\nrelease left 6000 6000\n"
    "menu mnuFlitFSrv(1)\nmenu mnuFlitFSrv(2)\n"
    "menu mnuFileUserSett\nclick cmdOK\n"
    "menu mnuFileMapSett\nclick cmdOK\n"
    "menu mnuFileColoSett\nclick cmdOK\n"
    "menu mnuFlitSeleFlit\nchoose cboFSrv 0\npick lstFlit 0,1\nclick cmdDisp\n"
    "menu mnuFlitSeleDest\nclose frmSeleDest\n"
    "menu mnuFlitRandFlit\nclick optAnzFlitOne\nrandom 0 0\nclick cmdRndFlit\nclose frmRandFlit\n"
    "menu mnuHelpInfo\nclose frmHelpInfo\n"
    "quit\nexpect {\"ended\": true}\n";

struct FileState {
  std::string bytes;
  std::int64_t modified = 0;  ///< nanoseconds
  std::int64_t changed = 0;   ///< nanoseconds; the last change of the inode
  mode_t mode = 0;
  ino_t inode = 0;
  bool operator==(const FileState&) const = default;
};

std::int64_t Nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

FileState StateOf(const fs::path& file) {
  struct stat status = {};
  if (stat(file.c_str(), &status) != 0)
    throw std::runtime_error("cannot read the status of " + file.string());
  return {test::ReadBytes(file), Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim), status.st_mode,
          status.st_ino};
}

class UntouchedDatabases : public testing::Test {
 protected:
  UntouchedDatabases() {
    test::SmallWorld().Write(folder.Path());
    test::DisableSplashWait(folder.Path());
    for (const fs::path& file : test::kDatabaseFiles)
      before[file.string()] = StateOf(folder / file);
  }
  void ExpectUnchanged() const {
    for (const auto& [file, state] : before)
      EXPECT_TRUE(StateOf(folder / file) == state) << file;
    for (const char* inside : {"app_data", "app_map"}) {
      const auto entries = fs::directory_iterator(folder / inside);
      EXPECT_EQ(std::distance(begin(entries), end(entries)), 3) << "a new file in " << inside;
    }
  }

  test::TempFolder folder;
  std::map<std::string, FileState> before;
};

TEST_F(UntouchedDatabases, ASessionChangesNothing) {
  const test::Played played = test::Play(kScript, folder.Path());
  EXPECT_EQ(played.status, 0) << played.reasons;
  ExpectUnchanged();
}

TEST_F(UntouchedDatabases, ASessionNeedsNoWritePermission) {
  for (const fs::path& file : test::kDatabaseFiles) {
    fs::permissions(folder / file, fs::perms::owner_read);
    before[file.string()] = StateOf(folder / file);
  }
  const test::Played played = test::Play(kScript, folder.Path());
  EXPECT_EQ(played.status, 0) << played.reasons;
  ExpectUnchanged();
}

/// A driver process that receives its script in parts.
class OpenProgram {
 public:
  explicit OpenProgram(const fs::path& folder) {
    process_.setWorkingDirectory(QFile::decodeName(folder.c_str()));
    process_.start(ZERBAL_DRIVE, QStringList());
  }
  /// Carries out `lines`; returns false when the program does not reach their end.
  bool Run(const QByteArray& lines) {
    process_.write(lines + "echo here\n");
    QByteArray output;
    while (!output.contains("here")) {
      if (!process_.waitForReadyRead(60000))
        return false;
      output += process_.readAllStandardOutput();
    }
    return true;
  }
  /// The exit status; -1 when the program crashes or does not end.
  int ExitStatus() {
    process_.closeWriteChannel();
    return process_.waitForFinished(60000) && process_.exitStatus() == QProcess::NormalExit
               ? process_.exitCode()
               : -1;
  }

 private:
  QProcess process_;
};

TEST_F(UntouchedDatabases, TwoProgramsShareAFolder) {
  OpenProgram first(folder.Path());
  ASSERT_TRUE(first.Run("start\nexpect {\"started\": true}\n"));
  OpenProgram second(folder.Path());
  ASSERT_TRUE(second.Run("start\nexpect {\"started\": true}\n"));
  // Both programs read the same tables in a dialog and write settings.
  ASSERT_TRUE(first.Run("menu mnuFlitSeleFlit\nchoose cboFSrv 0\n"));
  ASSERT_TRUE(second.Run("menu mnuFlitSeleFlit\nchoose cboFSrv 0\npick lstFlit 0\nclick cmdDisp\n"));
  ASSERT_TRUE(first.Run("pick lstFlit 1\nclick cmdDisp\n"));
  ASSERT_TRUE(second.Run("selection\nexpect {\"mode\": \"selection\"}\nquit\n"));
  ASSERT_TRUE(first.Run("selection\nexpect {\"mode\": \"selection\"}\nmenu mnuRegPart(3)\nquit\n"));
  EXPECT_EQ(first.ExitStatus(), 0);
  EXPECT_EQ(second.ExitStatus(), 0);
  ExpectUnchanged();
  EXPECT_EQ(
      settings::ReadProfileString(folder / test::kSettingsFile, "SplashWindow", "SecondsToShow", "none", 20),
      "0");
}

}  // namespace
}  // namespace zerbal::monkey
