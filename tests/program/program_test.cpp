// The program as a process in a folder of its own: its exit status and the boxes that it shows.
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "settings/profile_file.h"
#include "support/settings_file.h"
#include "support/small_world.h"
#include "support/temp_folder.h"

namespace zerbal::test {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

struct Ran {
  int status = -1;  ///< exit status; -1 when the process crashed or did not end in time
  std::vector<QJsonObject> seen;
  std::string errors;
};

class ProgramTest : public testing::Test {
 protected:
  ProgramTest() { test::DisableSplashWait(folder.Path()); }

  void SetIni(const char* section, const char* key, std::string_view value) {
    settings::WriteProfileString(folder / "zerbal.ini", section, key, value);
  }
  std::string Ini(const char* section, const char* key) const {
    return settings::ReadProfileString(folder / "zerbal.ini", section, key, "(missing)", 2000);
  }
  void ProtectIni() { fs::permissions(folder / "zerbal.ini", fs::perms::owner_read); }

  /// Runs the program in the folder. The simulated user chooses these menu entries, answers all boxes and
  /// closes the main window.
  Ran Run(const QString& entries = {}) const {
    constexpr int kTimeoutMs = 120000;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_PLUGIN_PATH", ZERBAL_PLUGINS);
    environment.insert("QT_QPA_GENERIC_PLUGINS", "user:" + entries);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(QFile::decodeName(folder.Path().c_str()));
    process.start(ZERBAL_PROGRAM, QStringList());
    Ran ran;
    if (!process.waitForFinished(kTimeoutMs)) {
      process.kill();
      process.waitForFinished();
    } else if (process.exitStatus() == QProcess::NormalExit) {
      ran.status = process.exitCode();
    }
    for (const QByteArray& line : process.readAllStandardOutput().split('\n')) {
      if (!line.isEmpty())
        ran.seen.push_back(QJsonDocument::fromJson(line).object());
    }
    ran.errors = process.readAllStandardError().toStdString();
    return ran;
  }

  /// The windows that opened, as texts: "critical: TEXT" for a box, else "window NAME" or "dialog NAME".
  static Texts TextsOf(const Ran& ran) {
    Texts texts;
    for (const QJsonObject& object : ran.seen) {
      const QJsonObject box = object["box"].toObject();
      if (!box.isEmpty()) {
        EXPECT_EQ(box["title"].toString(), "Zerbal");
        texts.push_back((box["icon"].toString() + ": " + box["text"].toString()).toStdString());
        continue;
      }
      for (const char* kind : {"window", "dialog"}) {
        if (object.contains(kind))
          texts.push_back(kind + (" " + object[kind].toString()).toStdString());
      }
    }
    return texts;
  }
  std::string FileText(const char* file) const { return (fs::canonical(folder.Path()) / file).string(); }
  std::string WriteError(const char* section, const char* key, const std::string& value) const {
    return "exclamation: Error during the writing in the file '" + FileText("zerbal.ini") +
           "'.\r\nSection = '" + section + "', Entry = '" + key + "', Value = '" + value + "'";
  }

  TempFolder folder;
  SmallWorld world;
};

TEST_F(ProgramTest, ClosingTheMainWindowSavesTheSettingsAndEndsWith0) {
  SetIni("MainWindow", "State", "5");
  SetIni("MainWindow", "Position", "31.4,17.2");
  SetIni("MainWindow", "Size", "431.2,1012.7");
  SetIni("MenuEntryChecked", "Save", "1");
  world.Write(folder.Path());
  const Ran ran = Run("mnuViewCentr mnuFlitAprt");
  EXPECT_EQ(ran.status, 0) << ran.errors;
  EXPECT_EQ(TextsOf(ran), Texts{"window frmMain"});
  EXPECT_EQ(Ini("MainWindow", "State"), "0");
  EXPECT_EQ(Ini("MainWindow", "Position"), "31,17");
  EXPECT_EQ(Ini("MainWindow", "Size"), "431,1013");
  EXPECT_EQ(Ini("MenuEntryChecked", "ViewCentreOfMap"), "1");
  EXPECT_EQ(Ini("MenuEntryChecked", "ShowAirport"), "0");
  EXPECT_EQ(Ini("Region", "CentreWorld"), "1");
}

TEST_F(ProgramTest, TheFirstMapNeedsNoPluginsOfImageFormats) {
  world.Write(folder.Path());
  const Ran ran = Run();
  EXPECT_EQ(ran.status, 0) << ran.errors;
  ASSERT_EQ(ran.seen.size(), 1U);
  EXPECT_EQ(ran.seen.front()["imageFormats"], 0);
}

TEST_F(ProgramTest, QuitInTheMenuEndsWith0Too) {
  world.Write(folder.Path());
  const Ran ran = Run("mnuHelpInfo mnuFileQuit");
  EXPECT_EQ(ran.status, 0) << ran.errors;
  EXPECT_EQ(TextsOf(ran), (Texts{"window frmMain", "dialog frmHelpInfo"}));
  EXPECT_NE(Ini("Windows", "HelpInfo"), "(missing)");
}

TEST_F(ProgramTest, EachMissingFileIsShownAndTheProgramEndsWith1) {
  for (const char* file : {"zbldata.mdb", "allaprt.mdb", "coast.mdb", "river.mdb"})
    world.LeaveOut(file);
  world.Write(folder.Path());
  const Ran ran = Run();
  EXPECT_EQ(ran.status, 1) << ran.errors;
  EXPECT_EQ(TextsOf(ran),
            (Texts{"exclamation: File '" + FileText("app_data/zbldata.mdb") + "' could not be found.",
                   "exclamation: File '" + FileText("app_data/allaprt.mdb") + "' could not be found.",
                   "exclamation: File '" + FileText("app_map/coast.mdb") + "' could not be found.",
                   "critical: Not all files found. The program aborts."}));
  EXPECT_EQ(Ini("MainWindow", "Save"), "(missing)") << "the main window was never loaded";
}

TEST_F(ProgramTest, AnUnreadableDatabaseIsShownAndTheProgramEndsWith1) {
  world.Write(folder.Path());
  WriteBytes(folder / "app_data" / "qavdata.mdb", "no database");
  const Ran ran = Run();
  EXPECT_EQ(ran.status, 1) << ran.errors;
  ASSERT_EQ(ran.seen.size(), 1U);
  EXPECT_EQ(TextsOf(ran)[0].find("critical: "), 0U);
  EXPECT_NE(TextsOf(ran)[0].find("qavdata.mdb"), std::string::npos) << TextsOf(ran)[0];
}

TEST_F(ProgramTest, AnErrorInADialogIsShownOnceAndEndsTheProgramWith1) {
  // The cities of airports are read for the first time when flights are listed.
  std::erase_if(world.dest.columns, [](const jet::ColumnInfo& column) { return column.name == "AP_City"; });
  for (Row& row : world.dest.rows)
    row.erase(row.begin() + 2);
  world.Write(folder.Path());
  const Ran ran = Run("mnuHelpInfo mnuFlitSeleFlit mnuViewCentr");
  EXPECT_EQ(ran.status, 1) << ran.errors;
  ASSERT_EQ(ran.seen.size(), 3U);
  EXPECT_EQ(TextsOf(ran)[1], "dialog frmHelpInfo");
  EXPECT_EQ(TextsOf(ran)[2].find("critical: "), 0U);
}

TEST_F(ProgramTest, EachFailedWriteAtTheStartIsShownInTheOrderOfTheKeys) {
  SetIni("MainWindow", "State", "0");
  SetIni("MainWindow", "Position", "0,0");
  SetIni("MainWindow", "Size", "300,400");
  ProtectIni();
  world.Write(folder.Path());
  const Ran ran = Run();
  EXPECT_EQ(ran.status, 1) << ran.errors;
  EXPECT_EQ(TextsOf(ran),
            (Texts{WriteError("MainWindow", "Save", "1"), WriteError("Windows", "Save", "1"),
                   WriteError("MenuEntryChecked", "Save", "0"), WriteError("Fonts", "Far", "Arial,7")}));
}

TEST_F(ProgramTest, EachFailedWriteAtTheEndIsShownAndTheProgramEndsWith0) {
  SetIni("MainWindow", "Position", "31,17");
  SetIni("MainWindow", "Size", "431,1012");
  world.Write(folder.Path());
  EXPECT_EQ(Run().status, 0);
  ProtectIni();
  const Ran ran = Run();
  EXPECT_EQ(ran.status, 0) << ran.errors;
  EXPECT_EQ(TextsOf(ran), (Texts{"window frmMain", WriteError("MainWindow", "State", "0"),
                                 WriteError("MainWindow", "Position", "31,17"),
                                 WriteError("MainWindow", "Size", "431,1012")}));
  for (std::size_t i = 1; i < ran.seen.size(); ++i)
    EXPECT_EQ(ran.seen[i]["box"]["parent"].toString(), "frmMain") << i;
}

}  // namespace
}  // namespace zerbal::test
