// Opens every dialog and compares its position with that of the main window.
#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <cmath>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "settings/profile_file.h"
#include "support/drive.h"
#include "support/settings_file.h"
#include "support/small_world.h"
#include "support/temp_folder.h"

namespace zerbal::test {
namespace {

/// The menu entry that opens a dialog, its name, and its key in section "Windows".
constexpr const char* kDialogs[][3] = {{"mnuFileUserSett", "frmUserSett", "UserSettings"},
                                       {"mnuFileMapSett", "frmMapSett", "MapSettings"},
                                       {"mnuFileColoSett", "frmColoSett", "ColorSettings"},
                                       {"mnuViewAprtDeli", "frmDeliAprt", "DelimitAllAirport"},
                                       {"mnuViewDestDeli", "frmDeliDest", "DelimitDestination"},
                                       {"mnuFlitRandFlit", "frmRandFlit", "RandomFlight"},
                                       {"mnuFlitSeleFlit", "frmSeleFlit", "SelectFlight"},
                                       {"mnuFlitSeleDest", "frmSeleDest", "SelectDestination"},
                                       {"mnuHelpRev", "frmHelpRev", "HelpRevision"},
                                       {"mnuHelpMous", "frmHelpMous", "HelpUseOfMouse"},
                                       {"mnuHelpInfo", "frmHelpInfo", "HelpInfo"}};

class DialogPlaces : public testing::Test {
 protected:
  DialogPlaces() {
    SmallWorld().Write(folder.Path());
    DisableSplashWait(folder.Path());
    SetIni("MainWindow", "Position", "40,20");
    SetIni("MainWindow", "Size", "501,701");
  }

  void SetIni(const char* section, const char* key, const char* value) {
    settings::WriteProfileString(folder / "zerbal.ini", section, key, value);
  }

  /// Plays a script that asks for the main window first and then for dialogs; each must be in the middle.
  void ExpectCentred(const std::string& script, qsizetype dialogs) {
    const Played played = Play(script, folder.Path());
    ASSERT_EQ(played.status, 0) << played.reasons;
    QList<QJsonObject> windows;
    for (const QByteArray& line : QByteArray::fromStdString(played.answers).split('\n')) {
      const QJsonObject answer = QJsonDocument::fromJson(line).object();
      if (answer.contains("left"))
        windows.append(answer);
    }
    ASSERT_EQ(windows.size(), 1 + dialogs);
    const QJsonObject main = windows.takeFirst();
    EXPECT_EQ(main["left"].toInt(), 40);
    EXPECT_EQ(main["width"].toInt(), 701);
    for (const QJsonObject& dialog : windows) {
      EXPECT_EQ(dialog["left"].toInt(), Middle(main, dialog, "left", "width")) << NameOf(dialog);
      EXPECT_EQ(dialog["top"].toInt(), Middle(main, dialog, "top", "height")) << NameOf(dialog);
    }
  }

  TempFolder folder;

 private:
  static std::string NameOf(const QJsonObject& window) { return window["name"].toString().toStdString(); }
  /// The offscreen platform gives each window the same frame, so the sizes without frames have the same
  /// middle.
  static int Middle(const QJsonObject& main, const QJsonObject& dialog, const char* begin,
                    const char* length) {
    return static_cast<int>(std::floor((main[length].toInt() - dialog[length].toInt()) / 2.0)) +
           main[begin].toInt();
  }
};

TEST_F(DialogPlaces, TheFirstTimeADialogOpensInTheMiddle) {
  std::ostringstream script;
  script << "start\nget frmMain\n";
  for (const auto& [entry, name, key] : kDialogs)
    script << "menu " << entry << "\nget " << name << "\nclose " << name << '\n';
  ExpectCentred(script.str(), std::size(kDialogs));
}

TEST_F(DialogPlaces, WithoutSavedPositionsADialogAlwaysOpensInTheMiddleAndWritesNothing) {
  SetIni("Windows", "Save", "0");
  SetIni("Windows", "SelectFlight", "300,300");
  std::ostringstream script;
  script << "start\nget frmMain\n";
  for (const auto& [entry, name, key] : kDialogs) {
    script << "menu " << entry << "\nget " << name << "\nplace " << name << " 10 10\nclose " << name << '\n'
           << "menu " << entry << "\nget " << name << "\nclose " << name << '\n'
           << "ini Windows " << key
           << "\nexpect {\"ini\": " << (key == std::string("SelectFlight") ? "\"300,300\"" : "null") << "}\n";
  }
  ExpectCentred(script.str(), 2 * std::size(kDialogs));
}

}  // namespace
}  // namespace zerbal::test
