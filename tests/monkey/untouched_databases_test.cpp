// The program only reads its databases: after a whole session their bytes and time stamps are what they were,
// and two programs can work on one folder.
#include <QProcess>
#include <map>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "settings/profile_file.h"
#include "support/drive.h"
#include "support/small_world.h"
#include "support/temp_folder.h"
#include "world_files.h"

namespace zerbal::monkey {
namespace {

namespace fs = std::filesystem;

/// Every dialog, every layer, detail mode, both ways to draw flights, and the end.
constexpr char kSession[] =
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

struct State {
  std::string bytes;
  std::int64_t modified = 0;  ///< nanoseconds
  std::int64_t changed = 0;   ///< the inode, by whatever
  mode_t mode = 0;
  ino_t inode = 0;
  bool operator==(const State&) const = default;
};

std::int64_t Nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

State StateOf(const fs::path& file) {
  struct stat status = {};
  if (stat(file.c_str(), &status) != 0)
    throw std::runtime_error("no " + file.string());
  return {test::ReadBytes(file), Nanoseconds(status.st_mtim), Nanoseconds(status.st_ctim), status.st_mode,
          status.st_ino};
}

class UntouchedDatabases : public testing::Test {
 protected:
  UntouchedDatabases() {
    test::SmallWorld().Write(folder.Path());
    settings::WriteProfileString(folder / kSettingsFile, "SplashWindow", "SecondsToShow", "0");
    for (const fs::path& file : kDatabaseFiles)
      before[file.string()] = StateOf(folder / file);
  }
  void ExpectUntouched() const {
    for (const auto& [file, state] : before)
      EXPECT_TRUE(StateOf(folder / file) == state) << file;
    for (const char* inside : {"app_data", "app_map"}) {
      const auto entries = fs::directory_iterator(folder / inside);
      EXPECT_EQ(std::distance(begin(entries), end(entries)), 3) << "a new file in " << inside;
    }
  }

  test::TempFolder folder;
  std::map<std::string, State> before;
};

TEST_F(UntouchedDatabases, AfterAWholeSession) {
  const test::Played played = test::Play(kSession, folder.Path());
  EXPECT_EQ(played.status, 0) << played.reasons;
  ExpectUntouched();
}

TEST_F(UntouchedDatabases, WithoutThePermissionToWriteThem) {
  for (const fs::path& file : kDatabaseFiles) {
    fs::permissions(folder / file, fs::perms::owner_read);
    before[file.string()] = StateOf(folder / file);
  }
  const test::Played played = test::Play(kSession, folder.Path());
  EXPECT_EQ(played.status, 0) << played.reasons;
  ExpectUntouched();
}

/// A program that is sent its lines one by one and waits for more.
class Open {
 public:
  explicit Open(const fs::path& folder) {
    process_.setWorkingDirectory(QFile::decodeName(folder.c_str()));
    process_.start(ZERBAL_DRIVE, QStringList());
  }
  /// Carries out `lines`; false when the program did not come to their end.
  bool Do(const QByteArray& lines) {
    process_.write(lines + "echo here\n");
    QByteArray output;
    while (!output.contains("here")) {
      if (!process_.waitForReadyRead(60000))
        return false;
      output += process_.readAllStandardOutput();
    }
    return true;
  }
  int End() {
    process_.closeWriteChannel();
    return process_.waitForFinished(60000) && process_.exitStatus() == QProcess::NormalExit
               ? process_.exitCode()
               : -1;
  }

 private:
  QProcess process_;
};

TEST_F(UntouchedDatabases, ByTwoProgramsAtOnce) {
  Open first(folder.Path());
  ASSERT_TRUE(first.Do("start\nexpect {\"started\": true}\n"));
  Open second(folder.Path());
  ASSERT_TRUE(second.Do("start\nexpect {\"started\": true}\n"));
  // Both have a dialog open on the same tables, and both write settings.
  ASSERT_TRUE(first.Do("menu mnuFlitSeleFlit\nchoose cboFSrv 0\n"));
  ASSERT_TRUE(second.Do("menu mnuFlitSeleFlit\nchoose cboFSrv 0\npick lstFlit 0\nclick cmdDisp\n"));
  ASSERT_TRUE(first.Do("pick lstFlit 1\nclick cmdDisp\n"));
  ASSERT_TRUE(second.Do("selection\nexpect {\"mode\": \"selection\"}\nquit\n"));
  ASSERT_TRUE(first.Do("selection\nexpect {\"mode\": \"selection\"}\nmenu mnuRegPart(3)\nquit\n"));
  EXPECT_EQ(first.End(), 0);
  EXPECT_EQ(second.End(), 0);
  ExpectUntouched();
  EXPECT_EQ(settings::ReadProfileString(folder / kSettingsFile, "SplashWindow", "SecondsToShow", "none", 20),
            "0");
}

}  // namespace
}  // namespace zerbal::monkey
