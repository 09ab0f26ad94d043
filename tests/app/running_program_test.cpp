#include "app/running_program.h"

#include <QApplication>
#include <QLabel>
#include <QThread>
#include <algorithm>
#include <csignal>
#include <ctime>

#include <sys/resource.h>

#include "app/frm_splash.h"
#include "app_test.h"
#include "jet/error.h"

namespace zerbal::app {
namespace {

using settings::BoxIcon;
using test::RecordedBox;
using Boxes = std::vector<RecordedBox>;

class StartUp : public test::AppTest {
 protected:
  RecordedBox NotFound(const char* folderName, const char* file) const {
    const std::string path = (folder / folderName / file).string();
    return {BoxIcon::kExclamation, "File '" + path + "' could not be found."};
  }
  const RecordedBox kAbort{BoxIcon::kCritical, "Not all files found. The program aborts."};

  /// Seconds between the first and the last reading of the clock, during the splash.
  float SecondsWaited() const {
    const float span = clock.seenTimes.back() - clock.seenTimes.front();
    return span < 0 ? span + kSecondsADay : span;
  }
};

TEST_F(StartUp, ShowsTheMapInTheMainWindow) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Window().isVisible());
  EXPECT_TRUE(Window().MapWindow().isVisible());
  EXPECT_EQ(Draws(), 1);
  EXPECT_FALSE(drawn.Operations().empty());
  EXPECT_EQ(Window().findChild<QLabel*>("lblMapSize")->text().right(11), "° Longitude");
  EXPECT_TRUE(boxes.shown.empty());
  for (const QWidget* widget : QApplication::topLevelWidgets())
    EXPECT_NE(widget->objectName(), "frmSplash");
}

TEST_F(StartUp, ReportsEachMissingRequiredFile) {
  EXPECT_FALSE(StartHere());
  EXPECT_EQ(boxes.shown,
            (Boxes{NotFound("app_data", "zbldata.mdb"), NotFound("app_data", "qavdata.mdb"),
                   NotFound("app_data", "allaprt.mdb"), NotFound("app_map", "coast.mdb"), kAbort}));
  EXPECT_FALSE(program->Running());
}

TEST_F(StartUp, EachOfTwoMissingFilesHasABox) {
  world.LeaveOut("qavdata.mdb");
  world.LeaveOut("coast.mdb");
  EXPECT_FALSE(Start());
  EXPECT_EQ(boxes.shown,
            (Boxes{NotFound("app_data", "qavdata.mdb"), NotFound("app_map", "coast.mdb"), kAbort}));
}

TEST_F(StartUp, RunsWithoutRiversAndBoundaries) {
  world.LeaveOut("river.mdb");
  world.LeaveOut("ibound.mdb");
  ASSERT_TRUE(Start());
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_FALSE(State().files.river);
  EXPECT_FALSE(State().files.ibound);
}

TEST_F(StartUp, FindsFilesInAnyLetterCase) {
  world.Write(folder.Path());
  std::filesystem::rename(folder / "app_data" / "zbldata.mdb", folder / "app_data" / "ZblData.MDB");
  std::filesystem::rename(folder / "app_map", folder / "App_Map");
  ASSERT_TRUE(StartHere());
  EXPECT_TRUE(State().files.river);
  EXPECT_TRUE(State().files.ibound);
}

TEST_F(StartUp, AFolderIsNotAFile) {
  world.LeaveOut("allaprt.mdb");
  world.Write(folder.Path());
  std::filesystem::create_directory(folder / "app_data" / "allaprt.mdb");
  EXPECT_FALSE(StartHere());
  EXPECT_EQ(boxes.shown, (Boxes{NotFound("app_data", "allaprt.mdb"), kAbort}));
}

TEST_F(StartUp, UsesTheExistingSettingsFile) {
  std::filesystem::rename(IniFile(), folder / "ZERBAL.INI");
  ASSERT_TRUE(Start());
  EXPECT_FALSE(std::filesystem::exists(IniFile()));
}

TEST_F(StartUp, AMissingColourEndsTheStart) {
  world.col.RemoveRow("Col", "RIVER");
  EXPECT_FALSE(Start());
  EXPECT_EQ(boxes.shown,
            (Boxes{{BoxIcon::kCritical,
                    "Colors are missing in the table for:\r\nCode = RIVER\r\n\r\nThe program aborts."}}));
  EXPECT_FALSE(State().databases.has_value());
  // The main window was not loaded, so its settings were not written.
  EXPECT_EQ(Ini("MainWindow", "Save"), "(missing)");
}

TEST_F(StartUp, MissingFontsAreReportedAfterTheColours) {
  world.fon.RemoveRow("Fon", "LORES");
  world.fon.RemoveRow("Fon", "HIRES");
  EXPECT_FALSE(Start());
  EXPECT_EQ(boxes.shown, (Boxes{{BoxIcon::kCritical,
                                 "Fonts are missing in the table for:\r\nCode = LORES\r\nCode = "
                                 "HIRES\r\n\r\nThe program aborts."}}));
}

TEST_F(StartUp, MissingColoursHideMissingFonts) {
  world.col.RemoveRow("Col", "RIVER");
  world.fon.RemoveRow("Fon", "LORES");
  EXPECT_FALSE(Start());
  EXPECT_EQ(boxes.shown.size(), 1U);
}

TEST_F(StartUp, MissingFlightServicesEndTheStart) {
  world.fsrv.rows.clear();
  EXPECT_FALSE(Start());
  EXPECT_EQ(boxes.shown, (Boxes{{BoxIcon::kCritical, "No flightservices found. The program aborts."}}));
  EXPECT_FALSE(State().databases.has_value());
}

TEST_F(StartUp, OneFlightServiceIsEnough) {
  world.fsrv.rows = {{"NOR", "Nordic", "1", 0, 0, 250, 10}};
  ASSERT_TRUE(Start());
  EXPECT_NE(Window().findChild<QAction*>("mnuFlitFSrv(1)"), nullptr);
  EXPECT_EQ(Window().findChild<QAction*>("mnuFlitFSrv(2)"), nullptr);
}

TEST_F(StartUp, AnUnreadableDatabaseIsAnEngineError) {
  world.Write(folder.Path());
  test::WriteBytes(folder / "app_map" / "coast.mdb", "this is no database");
  EXPECT_THROW(StartHere(), jet::EngineError);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(StartUp, MissingRegionsAreAnError) {
  world.reg.rows.clear();
  EXPECT_THROW(Start(), jet::EngineError);
}

TEST_F(StartUp, ASettingsFileThatCannotBeWrittenEndsTheStart) {
  std::filesystem::remove(IniFile());
  MakeIniUnwritable();
  EXPECT_FALSE(Start());
  // Each key of the main window, then the first key that the start needs.
  std::vector<std::string> keys;
  for (const RecordedBox& box : boxes.shown) {
    EXPECT_EQ(box.icon, BoxIcon::kExclamation);
    const auto from = box.text.find("Section");
    keys.push_back(box.text.substr(from, box.text.find(", Value") - from));
  }
  EXPECT_EQ(keys,
            (std::vector<std::string>{
                "Section = 'SplashWindow', Entry = 'SecondsToShow'", "Section = 'MainWindow', Entry = 'Save'",
                "Section = 'MainWindow', Entry = 'State'", "Section = 'MainWindow', Entry = 'Position'",
                "Section = 'MainWindow', Entry = 'Size'", "Section = 'Windows', Entry = 'Save'",
                "Section = 'MenuEntryChecked', Entry = 'Save'", "Section = 'Fonts', Entry = 'Far'"}));
  EXPECT_FALSE(State().databases.has_value());
  EXPECT_FALSE(program->Running());
}

/// During its lifetime no file can be written, even by root. Files can be read.
class NoRoomOnDisk {
 public:
  NoRoomOnDisk() {
    ::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit none{0, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &none);
  }
  ~NoRoomOnDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }

 private:
  rlimit before_{};
};

TEST_F(StartUp, ShutDownUnloadsTheMainWindow) {
  // Only the keys of one section are missing, so that the first write fails there.
  ASSERT_TRUE(Start());
  Window().close();
  std::string text = test::ReadBytes(IniFile());
  const auto section = text.find("[Region]");
  ASSERT_NE(section, std::string::npos);
  text.resize(section);
  test::WriteBytes(IniFile(), text);
  boxes.shown.clear();
  const NoRoomOnDisk noRoom;
  EXPECT_FALSE(StartHere());
  ASSERT_EQ(boxes.shown.size(), 4U) << "what failed, and the place of the window";
  EXPECT_NE(boxes.shown[0].text.find("Entry = 'CentreWorld'"), std::string::npos);
  EXPECT_NE(boxes.shown[1].text.find("Entry = 'State'"), std::string::npos);
  EXPECT_NE(boxes.shown[3].text.find("Entry = 'Size'"), std::string::npos);
  EXPECT_FALSE(State().databases.has_value());
  EXPECT_EQ(test::ReadBytes(IniFile()), text);
}

TEST_F(StartUp, FillsAMissingSettingsFileWithTheDefaults) {
  std::filesystem::remove(IniFile());
  ASSERT_TRUE(Start());
  const std::string position = Ini("MainWindow", "Position");
  const std::string size = Ini("MainWindow", "Size");
  EXPECT_EQ(test::ReadBytes(IniFile()),
            "[SplashWindow]\r\nSecondsToShow=2\r\n"
            "[MainWindow]\r\nSave=1\r\nState=0\r\nPosition=" +
                position + "\r\nSize=" + size +
                "\r\n[Windows]\r\nSave=1\r\n"
                "[MenuEntryChecked]\r\nSave=0\r\n"
                "[Fonts]\r\nFar=Arial,7\r\nNear=Arial,8\r\n"
                "[Colors]\r\nBackground=230,240,250\r\nZoom=250,0,0\r\nCentre=120,0,120\r\n"
                "Coast=10,10,10\r\nRivers=0,60,220\r\nBoundaries=150,75,0\r\n"
                "OtherAirports=100,100,100\r\nDestAirports=0,120,0\r\nAircraft=255,255,255\r\n"
                "[FlightColors]\r\nNOR=0,0,250\r\nNORX=0,0,190\r\nOCE=250,130,0\r\nNEW=8,8,8\r\n"
                "[Region]\r\nCentreWorld=1\r\nCentreWorldAtLON=0\r\n"
                "[Program]\r\nRandomFlitHowMany=2\r\nSeleDestCheckDest=1\r\n"
                "SeleDestCheckStop=1\r\nSeleDestCheckArr=1\r\n");
}

TEST_F(StartUp, FillsMissingCheckMarksWithTheDefaults) {
  SetIni("MenuEntryChecked", "Save", "1");
  ASSERT_TRUE(Start());
  EXPECT_NE(test::ReadBytes(IniFile()).find(
                "[MenuEntryChecked]\r\nSave=1\r\nViewCentreOfMap=0\r\nViewRiver=0\r\n"
                "ViewIntBoundary=0\r\nViewAllAirport=0\r\nViewDestination=0\r\nShowAirport=1\r\n"
                "ShowFlightnumber=1\r\nShowLegnumber=0\r\nShowAircraftSymbol=0\r\n"),
            std::string::npos);
}

TEST_F(StartUp, TheSplashStaysForTheTimeInTheSettings) {
  struct Case {
    const char* value;
    float seconds;
  };
  for (const Case& c : {Case{"-3", 0}, Case{"1.6", 2}, Case{"0", 0}, Case{"1", 1}, Case{"word", 0}}) {
    SetIni("SplashWindow", "SecondsToShow", c.value);
    clock.seenTimes.clear();
    ASSERT_TRUE(Start());
    EXPECT_GE(SecondsWaited(), c.seconds) << c.value;
    EXPECT_LE(SecondsWaited(), c.seconds + 3 * clock.step) << c.value;
    Window().close();
  }
}

TEST_F(StartUp, WithoutASettingTheSplashStaysTwoSeconds) {
  std::filesystem::remove(IniFile());
  ASSERT_TRUE(Start());
  EXPECT_GE(SecondsWaited(), 2);
  EXPECT_LE(SecondsWaited(), 3);
}

TEST_F(StartUp, TheWaitEndsAcrossMidnight) {
  SetIni("SplashWindow", "SecondsToShow", "4");
  clock.now = kSecondsADay - 2;
  ASSERT_TRUE(Start());
  EXPECT_GE(SecondsWaited(), 4);
  EXPECT_LE(SecondsWaited(), 5);
  EXPECT_LT(clock.now, 10);
}

TEST_F(StartUp, TheWaitEndsAtMidnightItself) {
  SetIni("SplashWindow", "SecondsToShow", "2");
  clock.now = kSecondsADay - 2;
  ASSERT_TRUE(Start());
  EXPECT_GE(SecondsWaited(), 2);
  EXPECT_LE(SecondsWaited(), 3);
}

TEST_F(StartUp, SlowLoadingAcrossMidnightEndsTheWait) {
  // Each reading of the clock is eight seconds later: the wait begins after midnight and after its end.
  clock.step = 8;
  for (const float begin : {kSecondsADay - 10, kSecondsADay - 1}) {
    SetIni("SplashWindow", "SecondsToShow", "2");
    clock.now = begin;
    clock.seenTimes.clear();
    ASSERT_TRUE(Start());
    EXPECT_LE(clock.seenTimes.size(), 4U);
    Window().close();
  }
}

/// Closes or clicks the windows that are open when the wait processes events.
class WaitIntruder final : public QObject {
 public:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::User)
      return QObject::event(event);
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == "frmSplash") {
        splashSeen = widget->isVisible();
        widget->close();
        splashStayed = widget->isVisible();
      } else if (widget->objectName() == "frmMain") {
        mainVisible = widget->isVisible();
      }
    }
    return true;
  }
  bool splashSeen = false;
  bool splashStayed = false;
  bool mainVisible = false;
};

TEST_F(StartUp, WindowsProcessEventsWhileTheSplashStays) {
  SetIni("SplashWindow", "SecondsToShow", "1");
  WaitIntruder intruder;
  QCoreApplication::postEvent(&intruder, new QEvent(QEvent::User));
  ASSERT_TRUE(Start());
  EXPECT_TRUE(intruder.splashSeen);
  EXPECT_TRUE(intruder.splashStayed) << "the splash window is not closed by its user";
  EXPECT_FALSE(intruder.mainVisible);
}

TEST_F(StartUp, ShowsTheWorldAroundItsCentre) {
  struct Case {
    const char* centre;
    const char* at;
    float west;
    float east;
  };
  for (const Case& c : {Case{"0", "0", 5, 355}, Case{"1", "0", 290, 280}, Case{"2", "170", 175, 165},
                        Case{"2", "200", 185, 175}, Case{"2", "-200", 185, 175}, Case{"7", "0", 290, 280}}) {
    SetIni("Region", "CentreWorld", c.centre);
    SetIni("Region", "CentreWorldAtLON", c.at);
    ASSERT_TRUE(Start());
    EXPECT_EQ(State().map.viewport.ReqLonMin(), c.west) << c.centre << ' ' << c.at;
    EXPECT_EQ(State().map.viewport.ReqLonMax(), c.east) << c.centre << ' ' << c.at;
    EXPECT_EQ(State().map.viewport.ReqLatMin(), 0);
    EXPECT_EQ(State().map.viewport.ReqLatMax(), 180);
    Window().close();
  }
}

TEST_F(StartUp, ReadsTheFlightFindersSettings) {
  SetIni("Program", "RandomFlitHowMany", "1");
  SetIni("Program", "SeleDestCheckStop", "0");
  SetIni("Program", "SeleDestCheckArr", "yes");
  ASSERT_TRUE(Start());
  EXPECT_EQ(State().finder.howMany, data::HowMany::kOneFlight);
  EXPECT_TRUE(State().finder.searchOrigin);
  EXPECT_FALSE(State().finder.searchStopovers);
  EXPECT_TRUE(State().finder.searchDestination);
}

TEST_F(StartUp, StartsWithoutASelection) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(State().map.flights.serviceMode);
  EXPECT_TRUE(State().map.flights.selectedFlights.empty());
  EXPECT_EQ(State().delimitations.allAirports, data::AirportCriteria{});
  EXPECT_EQ(State().delimitations.destinations, data::AirportCriteria{});
  EXPECT_EQ(Find<QCheckBox>("chkAprt")->toolTip(), "No delimitations set");
  EXPECT_EQ(Find<QCheckBox>("chkDest")->toolTip(), "No delimitations set");
}

TEST_F(StartUp, TheBackgroundHasTheColourInTheSettings) {
  SetIni("Colors", "Background", "300,-5,12");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Window().property("colour").value<QColor>(), QColor(255, 0, 12));
}

TEST_F(StartUp, TheClockSeedsTheGenerator) {
  const auto firstValue = [&](float time) {
    clock.now = time;
    EXPECT_TRUE(Start());
    Window().close();
    return random.Next();
  };
  const float atNoon = firstValue(43200);
  EXPECT_EQ(firstValue(43200), atNoon);
  EXPECT_NE(firstValue(43200.5F), atNoon);
}

TEST(MersenneRandom, StaysBelowOne) {
  MersenneRandom random;
  random.Seed(7);
  float least = 1;
  float most = 0;
  for (int i = 0; i < 200000; ++i) {
    const float value = random.Next();
    least = std::min(least, value);
    most = std::max(most, value);
  }
  EXPECT_GE(least, 0.0F);
  EXPECT_LT(least, 0.001F);
  EXPECT_LT(most, 1.0F);
  EXPECT_GT(most, 0.999F);
}

TEST(SystemClock, ReturnsTheLocalTimeOfTheDay) {
  // A time zone that differs from UTC by hours during the whole year.
  const QByteArray zone = qgetenv("TZ");
  qputenv("TZ", "XYZ-7:30");
  ::tzset();
  SystemClock clock;
  const auto seconds = [] {
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    return local->tm_hour * 3600 + local->tm_min * 60 + local->tm_sec;
  };
  float now = 0;
  int before = 0;
  int after = 0;
  do {
    before = seconds();
    now = clock.SecondsSinceMidnight();
    after = seconds();
  } while (after < before);  // across midnight
  EXPECT_GE(now, static_cast<float>(before));
  // The end of a second rounds up in single precision, and std::time() may be some milliseconds late.
  EXPECT_LE(now, static_cast<float>(after) + 1.01F);
  zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
  ::tzset();
}

TEST(SystemClock, AdvancesWithinASecond) {
  SystemClock clock;
  const float first = clock.SecondsSinceMidnight();
  QThread::msleep(50);
  const float second = clock.SecondsSinceMidnight();
  const float passed = second - first + (second < first ? kSecondsADay : 0);
  EXPECT_GE(passed, 0.03F);  // singles of 86400 are 0.008 apart
}

TEST(AppPath, EndsWithOneSeparator) {
  EXPECT_EQ(WithSeparator("/some/folder"), std::filesystem::path("/some/folder/"));
  EXPECT_EQ(WithSeparator("/some/folder/"), std::filesystem::path("/some/folder/"));
  EXPECT_EQ(WithSeparator("/"), std::filesystem::path("/"));
}

}  // namespace
}  // namespace zerbal::app
