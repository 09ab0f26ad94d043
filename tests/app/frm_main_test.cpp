#include "app/frm_main.h"

#include <QLabel>
#include <QMenuBar>
#include <QTest>

#include "app_test.h"
#include "support/captured_log.h"

namespace zerbal::app {
namespace {

struct MenuKey {
  const char* key;
  const char* byDefault;
  const char* entry;
};
constexpr MenuKey kMenuKeys[] = {
    {"ViewCentreOfMap", "0", "mnuViewCentr"},  {"ViewRiver", "0", "mnuViewRiver"},
    {"ViewIntBoundary", "0", "mnuViewIBound"}, {"ViewAllAirport", "0", "mnuViewAprt"},
    {"ViewDestination", "0", "mnuViewDest"},   {"ShowAirport", "1", "mnuFlitAprt"},
    {"ShowFlightnumber", "1", "mnuFlitFlNr"},  {"ShowLegnumber", "0", "mnuFlitLegNr"},
    {"ShowAircraftSymbol", "0", "mnuFlitSymb"}};
constexpr const char* kTwins[][2] = {{"mnuFlitAprt", "mnuPopFlitAprt"},
                                     {"mnuFlitFlNr", "mnuPopFlitFlNr"},
                                     {"mnuFlitLegNr", "mnuPopFlitLegNr"},
                                     {"mnuFlitSymb", "mnuPopFlitSymb"}};

class MainWindow : public test::AppTest {
 protected:
  bool IsChecked(const char* name) { return Entry(name)->isChecked(); }
  void ExpectTwinsEqual() {
    for (const auto& twins : kTwins)
      EXPECT_EQ(IsChecked(twins[0]), IsChecked(twins[1])) << twins[0];
  }
};

TEST_F(MainWindow, HasTheNameOfTheProgram) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(Window().windowTitle(), "Zerbal");
  EXPECT_EQ(Window().objectName(), "frmMain");
}

TEST_F(MainWindow, WritesItsDefaultsWhenNothingIsStored) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(Ini("MainWindow", "Position"), std::to_string(Window().x()) + "," + std::to_string(Window().y()));
  EXPECT_EQ(Ini("MainWindow", "Size"),
            std::to_string(Window().height()) + "," + std::to_string(Window().width()));
}

TEST_F(MainWindow, OpensAtThePositionWhereItWasClosed) {
  ASSERT_TRUE(Start());
  Window().move(31, 17);
  Window().resize(612, 431);
  Window().close();
  EXPECT_EQ(Ini("MainWindow", "State"), "0");
  EXPECT_EQ(Ini("MainWindow", "Position"), "31,17");
  EXPECT_EQ(Ini("MainWindow", "Size"), "431,612");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Window().pos(), QPoint(31, 17));
  EXPECT_EQ(Window().size(), QSize(612, 431));
}

TEST_F(MainWindow, AnUnknownStateMeansNormalAtTheStoredPosition) {
  for (const char* state : {"5", "-1", "x", "3"}) {
    SetIni("MainWindow", "State", state);
    SetIni("MainWindow", "Position", "40,50");
    SetIni("MainWindow", "Size", "500,700");
    ASSERT_TRUE(Start());
    EXPECT_EQ(Window().windowState(), Qt::WindowNoState) << state;
    EXPECT_EQ(Window().pos(), QPoint(40, 50));
    EXPECT_EQ(Window().size(), QSize(700, 500));
    Window().close();
    EXPECT_EQ(Ini("MainWindow", "State"), "0");
  }
}

TEST_F(MainWindow, StatesAreRoundedNumbers) {
  SetIni("MainWindow", "State", "1.6");
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Window().isMaximized());
}

TEST_F(MainWindow, ClosedMaximisedItKeepsTheEarlierPosition) {
  SetIni("MainWindow", "Position", "40,50");
  SetIni("MainWindow", "Size", "500,700");
  ASSERT_TRUE(Start());
  Window().showMaximized();
  Window().close();
  EXPECT_EQ(Ini("MainWindow", "State"), "2");
  EXPECT_EQ(Ini("MainWindow", "Position"), "40,50");
  EXPECT_EQ(Ini("MainWindow", "Size"), "500,700");
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Window().isMaximized());
}

TEST_F(MainWindow, ClosedMinimisedItOpensMinimised) {
  SetIni("MainWindow", "Position", "40,50");
  ASSERT_TRUE(Start());
  Window().showMinimized();
  Window().close();
  EXPECT_EQ(Ini("MainWindow", "State"), "1");
  EXPECT_EQ(Ini("MainWindow", "Position"), "40,50");
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Window().isMinimized());
}

TEST_F(MainWindow, KeepsItsDefaultsWhenNothingIsSaved) {
  for (const char* save : {"0", "2", "yes", ""}) {
    SetIni("MainWindow", "Save", save);
    SetIni("MainWindow", "State", "2");
    SetIni("MainWindow", "Position", "40,50");
    SetIni("MainWindow", "Size", "500,700");
    ASSERT_TRUE(Start());
    EXPECT_FALSE(State().settingsFile.saveFlags.mainWindow) << save;
    EXPECT_FALSE(Window().isMaximized());
    EXPECT_NE(Window().pos(), QPoint(40, 50));
    Window().close();
    EXPECT_EQ(Ini("MainWindow", "State"), "2");
    EXPECT_EQ(Ini("MainWindow", "Position"), "40,50");
  }
}

TEST_F(MainWindow, ReadsAnyTextAsAPosition) {
  SetIni("MainWindow", "Position", "12.5,nowhere");
  SetIni("MainWindow", "Size", "99999999999,-7");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Window().pos(), QPoint(12, 0));
  EXPECT_EQ(Window().height(), 32767) << "a side has 16 bits";
  EXPECT_EQ(Window().width(), Window().minimumSizeHint().width());
}

TEST_F(MainWindow, ALongSideComesBack) {
  for (const char* size : {"300,15000", "15000,300"}) {
    SetIni("MainWindow", "Size", size);
    ASSERT_TRUE(Start());
    EXPECT_EQ(std::to_string(Window().height()) + "," + std::to_string(Window().width()), size);
    Window().close();
    EXPECT_EQ(Ini("MainWindow", "Size"), size);
  }
}

TEST_F(MainWindow, ASizeThatCannotBeShownStaysStoredUntilTheUserChangesIt) {
  SetIni("MainWindow", "Size", "300,40000");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Window().size(), QSize(32767, 300));
  Window().close();
  EXPECT_EQ(Ini("MainWindow", "Size"), "300,40000");
  ASSERT_TRUE(Start());
  Window().resize(800, 300);
  Window().close();
  EXPECT_EQ(Ini("MainWindow", "Size"), "300,800");
}

TEST_F(MainWindow, TheCurrentSwitchDecidesWhatIsSaved) {
  ASSERT_TRUE(Start());
  const std::string position = Ini("MainWindow", "Position");
  State().settingsFile.saveFlags.mainWindow = false;
  State().settingsFile.saveFlags.menuEntries = true;
  Window().move(1, 2);
  Window().close();
  EXPECT_EQ(Ini("MainWindow", "Position"), position);
  EXPECT_EQ(Ini("MenuEntryChecked", "ShowAirport"), "1");
}

TEST_F(MainWindow, WithoutSavingItsMissingKeysAreWrittenAtTheStartAndNothingAtTheEnd) {
  SetIni("MainWindow", "Save", "0");
  ASSERT_TRUE(Start());
  const std::string position = std::to_string(Window().x()) + "," + std::to_string(Window().y());
  const std::string size = std::to_string(Window().height()) + "," + std::to_string(Window().width());
  EXPECT_EQ(Ini("MainWindow", "State"), "0");
  EXPECT_EQ(Ini("MainWindow", "Position"), position);
  EXPECT_EQ(Ini("MainWindow", "Size"), size);
  Window().move(Window().x() + 3, Window().y() + 4);
  Window().resize(611, 433);
  Window().showMaximized();
  Window().close();
  EXPECT_EQ(Ini("MainWindow", "Save"), "0");
  EXPECT_EQ(Ini("MainWindow", "State"), "0");
  EXPECT_EQ(Ini("MainWindow", "Position"), position);
  EXPECT_EQ(Ini("MainWindow", "Size"), size);
}

TEST_F(MainWindow, ReadsTheSwitches) {
  SetIni("Windows", "Save", "0");
  SetIni("MenuEntryChecked", "Save", "1");
  ASSERT_TRUE(Start());
  EXPECT_TRUE(State().settingsFile.saveFlags.mainWindow);
  EXPECT_FALSE(State().settingsFile.saveFlags.windows);
  EXPECT_TRUE(State().settingsFile.saveFlags.menuEntries);
}

TEST_F(MainWindow, WithoutSavedCheckMarksTheDefaultsApply) {
  SetIni("MenuEntryChecked", "ViewCentreOfMap", "1");
  ASSERT_TRUE(Start());
  EXPECT_EQ(Ini("MenuEntryChecked", "Save"), "0");
  for (const MenuKey& key : kMenuKeys)
    EXPECT_EQ(IsChecked(key.entry), std::string(key.byDefault) == "1") << key.entry;
  Entry("mnuFlitLegNr")->trigger();
  Window().close();
  for (const MenuKey& key : kMenuKeys) {
    const bool wasThere = std::string(key.key) == "ViewCentreOfMap";
    EXPECT_EQ(Ini("MenuEntryChecked", key.key), wasThere ? "1" : "(missing)") << key.key;
  }
}

TEST_F(MainWindow, MissingCheckMarksAreWrittenWithTheirDefaults) {
  SetIni("MenuEntryChecked", "Save", "1");
  ASSERT_TRUE(Start());
  for (const MenuKey& key : kMenuKeys)
    EXPECT_EQ(Ini("MenuEntryChecked", key.key), key.byDefault) << key.key;
}

TEST_F(MainWindow, CheckMarksAreRestored) {
  SetIni("MenuEntryChecked", "Save", "1");
  ASSERT_TRUE(Start());
  for (const MenuKey& key : kMenuKeys)
    Entry(key.entry)->trigger();
  Window().close();
  for (const MenuKey& key : kMenuKeys)
    EXPECT_NE(Ini("MenuEntryChecked", key.key), key.byDefault) << key.key;
  ASSERT_TRUE(Start());
  for (const MenuKey& key : kMenuKeys)
    EXPECT_EQ(IsChecked(key.entry), std::string(key.byDefault) == "0") << key.entry;
  EXPECT_TRUE(Find<QCheckBox>("chkAprt")->isChecked());
  EXPECT_TRUE(Find<QCheckBox>("chkDest")->isChecked());
  ExpectTwinsEqual();
  EXPECT_EQ(Draws(), 1) << "setting the boxes is no click";
}

TEST_F(MainWindow, AnInvalidCheckMarkMeansUnchecked) {
  SetIni("MenuEntryChecked", "Save", "1");
  for (const MenuKey& key : kMenuKeys)
    SetIni("MenuEntryChecked", key.key, "yes");
  ASSERT_TRUE(Start());
  for (const MenuKey& key : kMenuKeys)
    EXPECT_FALSE(IsChecked(key.entry)) << key.entry;
}

TEST_F(MainWindow, WithoutRiversTheirEntryKeepsItsDefault) {
  world.LeaveOut("river.mdb");
  world.LeaveOut("ibound.mdb");
  SetIni("MenuEntryChecked", "Save", "1");
  SetIni("MenuEntryChecked", "ViewRiver", "1");
  SetIni("MenuEntryChecked", "ViewIntBoundary", "1");
  ASSERT_TRUE(Start());
  for (const char* name : {"mnuViewRiver", "mnuViewIBound"}) {
    EXPECT_FALSE(Entry(name)->isEnabled());
    EXPECT_FALSE(IsChecked(name));
  }
  Entry("mnuViewCentr")->trigger();
  EXPECT_FALSE(Entry("mnuViewRiver")->isEnabled()) << "other commands leave it alone";
  Window().close();
  EXPECT_EQ(Ini("MenuEntryChecked", "ViewRiver"), "0");
}

TEST_F(MainWindow, AFailedWriteAtTheEndContinuesWithTheNextKey) {
  SetIni("MenuEntryChecked", "Save", "1");
  ASSERT_TRUE(Start());
  std::filesystem::remove(IniFile());
  MakeIniUnwritable();
  Window().close();
  EXPECT_EQ(boxes.shown.size(), 3 + std::size(kMenuKeys));
  EXPECT_FALSE(State().databases.has_value());
}

TEST_F(MainWindow, ClosingItEndsTheProgram) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(program->Running());
  Window().close();
  EXPECT_FALSE(program->Running());
  EXPECT_FALSE(Window().isVisible());
  EXPECT_FALSE(State().databases.has_value());
}

TEST_F(MainWindow, TheMapWindowCannotBeClosed) {
  ASSERT_TRUE(Start());
  Window().MapWindow().close();
  EXPECT_TRUE(Window().MapWindow().isVisible());
}

TEST_F(MainWindow, HasAnEntryForEachRegion) {
  world.reg.RowWhere("Reg", "NOR")[2] = "Here & there";
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Entry("mnuRegPart(0)")->isVisible());
  EXPECT_TRUE(Entry("mnuRegPart(0)")->isSeparator());
  EXPECT_EQ(Entry("mnuRegPart(1)")->text(), "Mediterranean");
  EXPECT_EQ(Entry("mnuRegPart(2)")->text(), "Here && there") << "no access key in a name";
  EXPECT_EQ(Entry("mnuRegPart(9)")->text(), "No height");
  EXPECT_EQ(Window().findChild<QAction*>("mnuRegPart(10)"), nullptr);
}

TEST_F(MainWindow, HasTwoEntriesForEachService) {
  ASSERT_TRUE(Start());
  const char* captions[] = {"Show all flights", "1 - Nordic",          "2 - Nordic Extra",
                            "3 - Oceans",       "3a - Oceans Charter", "0 - Not yet begun"};
  for (int i = 0; i < 6; ++i) {
    for (const char* array : {"mnuFlitFSrv", "mnuPopFlitFSrv"}) {
      const QString name = QString("%1(%2)").arg(array).arg(i);
      const auto* entry = Window().findChild<QAction*>(name);
      ASSERT_NE(entry, nullptr) << name.toStdString();
      EXPECT_EQ(entry->text(), captions[i]);
      EXPECT_TRUE(entry->isVisible());
      EXPECT_FALSE(entry->isChecked());
    }
  }
}

TEST_F(MainWindow, TheMapFillsTheFrame) {
  ASSERT_TRUE(Start());
  const QWidget* inside = Window().MapWindow().parentWidget();
  for (const QSize size : {QSize(900, 700), QSize(260, 200), QSize(1500, 400)}) {
    Window().resize(size);
    EXPECT_EQ(Window().size(), size);
    EXPECT_EQ(Window().MapWindow().size(), inside->size());
    EXPECT_EQ(State().map.viewport.MapWidth(), inside->width() * kTwipsPerPixel);
  }
}

TEST_F(MainWindow, ANarrowWindowShowsEveryControlOfTheToolBar) {
  ASSERT_TRUE(Start());
  const auto* bar = Find<QWidget>("picTool");
  const int oneRow = bar->height();
  Window().resize(220, 500);
  EXPECT_GT(bar->height(), oneRow);
  for (const QWidget* control : bar->findChildren<QWidget*>()) {
    EXPECT_TRUE(control->isVisible());
    EXPECT_TRUE(bar->rect().contains(control->geometry())) << control->objectName().toStdString();
  }
}

TEST_F(MainWindow, TheWindowIsAlwaysHighEnoughForTheToolBar) {
  ASSERT_TRUE(Start());
  Window().resize(200, 60);
  QCoreApplication::processEvents();
  const auto* bar = Find<QWidget>("picTool");
  EXPECT_EQ(bar->height(), bar->heightForWidth(bar->width()));
  EXPECT_LE(bar->mapTo(&Window(), QPoint(0, bar->height())).y(), Find<QWidget>("picStat")->y());
  const int needed = Window().height();
  Window().resize(900, needed);
  // Each layout notifies its parent by an event.
  for (int layout = 0; layout < 4; ++layout)
    QCoreApplication::processEvents();
  Window().resize(900, 60);
  EXPECT_LT(Window().height(), needed) << "the rows of the narrow window are forgotten";
}

TEST_F(MainWindow, ANarrowWindowShowsTheCompletePosition) {
  ASSERT_TRUE(Start());
  emit Window().MapWindow().PositionChanged("W108° 30.00'", "N47° 15.00'");
  for (const int width : {1000, 420, 300}) {
    Window().resize(width, 300);
    QCoreApplication::sendPostedEvents();
    for (const char* name : {"lblPosX", "lblPosY"}) {
      const auto* label = Find<QLabel>(name);
      EXPECT_GE(label->width(), label->fontMetrics().horizontalAdvance(label->text())) << name << width;
    }
  }
}

TEST_F(MainWindow, TheStatusBarFollowsTheMouse) {
  ASSERT_TRUE(Start());
  emit Window().MapWindow().PositionChanged("W008° 30.00'", "N47° 15.00'");
  EXPECT_EQ(Find<QLabel>("lblPosX")->text(), "W008° 30.00'");
  EXPECT_EQ(Find<QLabel>("lblPosY")->text(), "N47° 15.00'");
  EXPECT_EQ(Find<QLabel>("lblMapSize")->text(), QString::fromStdString(State().map.viewport.ExtentText()));
}

TEST_F(MainWindow, TextsOfTheStatusBarDoNotMoveTheWindow) {
  ASSERT_TRUE(Start());
  Window().resize(230, 300);
  const QSize before = Window().MapWindow().size();
  emit Window().MapWindow().ExtentChanged(QString(300, 'x'));
  QCoreApplication::sendPostedEvents();
  EXPECT_EQ(Window().MapWindow().size(), before);
  EXPECT_EQ(Window().width(), 230);
}

TEST_F(MainWindow, TheRightButtonOpensThePopupMenuAtTheMouse) {
  ASSERT_TRUE(Start());
  Window().move(20, 10);
  auto* popup = Find<QMenu>("mnuPop");
  auto& map = Window().MapWindow();
  for (const QPoint at : {QPoint(1, 0), QPoint(37, 91), QPoint(200, 150)}) {
    QTest::mousePress(&map, Qt::RightButton, Qt::NoModifier, at);
    EXPECT_TRUE(popup->isVisible());
    EXPECT_EQ(popup->pos(), map.mapToGlobal(at));
    popup->close();
  }
}

TEST_F(MainWindow, ATableThatCannotBeDrawnIsLogged) {
  world.Write(folder.Path());
  test::WriteDatabase(folder / "app_map" / "coast.mdb", {test::Table{"wcl", {test::Long("Lon")}, {}, {{1}}}});
  const test::CapturedLog log("zerbal.draw=true");
  ASSERT_TRUE(StartHere());
  ASSERT_EQ(Draws(), 1);
  ASSERT_EQ(test::CapturedLog::Lines().size(), 1U);
  EXPECT_EQ(test::CapturedLog::Lines().front().find("coast: "), 0U);
}

}  // namespace
}  // namespace zerbal::app
