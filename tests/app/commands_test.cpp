#include "app/commands.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QToolButton>
#include <algorithm>
#include <set>

#include "app_test.h"

namespace zerbal::app {
namespace {

/// Every entry of the menu bar that is there in each run.
constexpr const char* kEntries[][2] = {{"mnuFileUserSett", "&User settings..."},
                                       {"mnuFileMapSett", "&Map settings..."},
                                       {"mnuFileColoSett", "&Color settings..."},
                                       {"mnuFileQuit", "&Quit"},
                                       {"mnuZoomIn", "Zoom in"},
                                       {"mnuZoomIn2", "Zoom in (more)"},
                                       {"mnuZoomReset", "Reset zoom"},
                                       {"mnuZoomOut2", "Zoom out (more)"},
                                       {"mnuZoomOut", "Zoom out"},
                                       {"mnuViewCentr", "Centre of map"},
                                       {"mnuViewRiver", "Rivers"},
                                       {"mnuViewIBound", "Int. boundaries"},
                                       {"mnuViewAprt", "All airports"},
                                       {"mnuViewDest", "QAV destinations"},
                                       {"mnuViewAprtDeli", "Delimitation for all airports..."},
                                       {"mnuViewDestDeli", "Delimitation for QAV destinations..."},
                                       {"mnuRegWorld", "World"},
                                       {"mnuFlitAprt", "Show airports"},
                                       {"mnuFlitFlNr", "Show flightnumbers"},
                                       {"mnuFlitLegNr", "Show legnumbers for flights"},
                                       {"mnuFlitSymb", "Show aircraft symbols"},
                                       {"mnuFlitNone", "Clear all flights"},
                                       {"mnuFlitSele", "Show selected flights"},
                                       {"mnuFlitRandFlit", "Random flight(s)..."},
                                       {"mnuFlitSeleFlit", "Select flight(s)..."},
                                       {"mnuFlitSeleDest", "Select destination..."},
                                       {"mnuFlitFSrv(0)", "Show all flights"},
                                       {"mnuHelpRev", "&Revision number..."},
                                       {"mnuHelpMous", "&Using the mouse..."},
                                       {"mnuHelpInfo", "&Info..."}};
constexpr const char* kPopupEntries[] = {
    "mnuPopFlitAprt", "mnuPopFlitFlNr",     "mnuPopFlitLegNr",    "mnuPopFlitSymb",     "mnuPopFlitNone",
    "mnuPopFlitSele", "mnuPopFlitRandFlit", "mnuPopFlitSeleFlit", "mnuPopFlitSeleDest", "mnuPopFlitFSrv(0)"};
/// Button, its text, the entry that does the same.
constexpr const char* kButtons[][3] = {
    {"cmdZoomIn", "Zoom in", "mnuZoomIn"},
    {"cmdZoomIn2", "Zoom in (more)", "mnuZoomIn2"},
    {"cmdZoomReset", "Reset zoom", "mnuZoomReset"},
    {"cmdZoomOut2", "Zoom out (more)", "mnuZoomOut2"},
    {"cmdZoomOut", "Zoom out", "mnuZoomOut"},
    {"cmdRandFlit", "Random flight(s)", "mnuFlitRandFlit"},
    {"cmdSeleFlit", "Select flight(s)", "mnuFlitSeleFlit"},
    {"cmdSeleDest", "Select destination", "mnuFlitSeleDest"},
};

class CommandTest : public test::RunningTest {
 protected:
  bool IsChecked(const char* name) { return Entry(name)->isChecked(); }
  /// Which services are checked, in the menu bar and in the pop-up menu, and flagged in the table.
  std::vector<int> Shown() {
    std::vector<int> shown;
    for (int i = 1; i <= static_cast<int>(State().tables.services.size()); ++i) {
      const bool flag = State().tables.services[static_cast<std::size_t>(i) - 1].displayFlag;
      for (const char* array : {"mnuFlitFSrv(%1)", "mnuPopFlitFSrv(%1)"})
        EXPECT_EQ(IsChecked(QString(array).arg(i).toUtf8().constData()), flag) << i;
      if (flag)
        shown.push_back(i);
    }
    return shown;
  }
  void Confirm(bool confirm) { dialogs.confirm = confirm; }
  void RightClick(QWidget* widget, QPointF at) {
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      const bool press = type == QEvent::MouseButtonPress;
      QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::RightButton,
                        press ? Qt::RightButton : Qt::NoButton, Qt::NoModifier);
      QCoreApplication::sendEvent(widget, &event);
    }
  }
};
using Kinds = std::vector<DialogKind>;
using Services = std::vector<int>;

TEST_F(CommandTest, EveryEntryHasItsCaption) {
  for (const auto& entry : kEntries)
    EXPECT_EQ(Entry(entry[0])->text(), entry[1]);
  std::vector<QString> titles;
  for (const QAction* menu : Window().menuBar()->actions())
    titles.push_back(menu->text());
  EXPECT_EQ(titles, (std::vector<QString>{"&File", "&Zoom", "&Views", "&Region", "&Flights", "&?"}));
}

TEST_F(CommandTest, TheMenusHoldNothingElse) {
  std::set<QString> known;
  for (const auto& entry : kEntries)
    known.insert(entry[0]);
  int found = 0;
  for (const QAction* menu : Window().menuBar()->actions()) {
    for (const QAction* entry : menu->menu()->actions()) {
      if (entry->isSeparator() || entry->objectName().startsWith("mnuRegPart") ||
          (entry->objectName().startsWith("mnuFlitFSrv") && entry->objectName() != "mnuFlitFSrv(0)"))
        continue;
      EXPECT_TRUE(known.contains(entry->objectName())) << entry->objectName().toStdString();
      ++found;
    }
  }
  EXPECT_EQ(found, static_cast<int>(std::size(kEntries)));
}

TEST_F(CommandTest, AccessKeysOfAMenuDiffer) {
  for (const QAction* menu : Window().menuBar()->actions()) {
    std::set<QChar> keys;
    for (const QAction* entry : menu->menu()->actions()) {
      const qsizetype mark = entry->text().indexOf('&');
      const bool isNew = mark < 0 || keys.insert(entry->text().at(mark + 1).toLower()).second;
      EXPECT_TRUE(isNew) << entry->text().toStdString();
    }
  }
}

TEST_F(CommandTest, PopupEntriesHaveTheirTwinsCaptions) {
  const auto* popup = Find<QMenu>("mnuPop");
  EXPECT_EQ(popup->title(), "Popup");
  for (const char* name : kPopupEntries) {
    const QAction* entry = Entry(name);
    EXPECT_TRUE(popup->actions().contains(entry));
    const QString twin = "mnu" + QString(name).mid(6);
    EXPECT_EQ(entry->text(), Entry(twin.toUtf8().constData())->text());
    EXPECT_EQ(entry->isCheckable(), Entry(twin.toUtf8().constData())->isCheckable());
  }
}

TEST_F(CommandTest, ButtonsHaveTheirTextsAndPictures) {
  for (const auto& row : kButtons) {
    const auto* button = Find<QToolButton>(row[0]);
    EXPECT_EQ(button->text(), row[1]);
    EXPECT_EQ(button->toolTip(), row[1]);
    EXPECT_EQ(button->accessibleName(), row[1]);
    EXPECT_FALSE(button->icon().isNull()) << row[0];
  }
  EXPECT_EQ(Find<QCheckBox>("chkAprt")->text(), "All airports");
  EXPECT_EQ(Find<QCheckBox>("chkDest")->text(), "QAV destinations");
}

TEST_F(CommandTest, ButtonsDoWhatTheirEntriesDo) {
  const auto spans = [&] { return std::pair(State().viewport.MapLonSpan(), State().viewport.MapLatSpan()); };
  for (const auto& row : kButtons) {
    Entry("mnuRegPart(2)")->trigger();
    const int before = Draws();
    Find<QToolButton>(row[0])->click();
    const auto byButton = spans();
    const int draws = Draws() - before;
    const Kinds shown = dialogs.shown;
    Entry("mnuRegPart(2)")->trigger();
    dialogs.shown.clear();
    EXPECT_EQ(DrawsOf(row[2]), draws) << row[0];
    EXPECT_EQ(spans(), byButton) << row[0];
    EXPECT_EQ(dialogs.shown, shown) << row[0];
    dialogs.shown.clear();
  }
}

TEST_F(CommandTest, ZoomStepsAreOfTwentyAndFiftyPercent) {
  Entry("mnuRegPart(2)")->trigger();
  const float span = State().viewport.MapLonSpan();
  EXPECT_EQ(DrawsOf("mnuZoomIn"), 1);
  EXPECT_NEAR(State().viewport.MapLonSpan(), span * 0.8F, 1e-3);
  EXPECT_EQ(DrawsOf("mnuZoomOut"), 1);
  EXPECT_NEAR(State().viewport.MapLonSpan(), span * 0.96F, 1e-3);
  EXPECT_EQ(DrawsOf("mnuZoomIn2"), 1);
  EXPECT_NEAR(State().viewport.MapLonSpan(), span * 0.48F, 1e-3);
  EXPECT_EQ(DrawsOf("mnuZoomOut2"), 1);
  EXPECT_NEAR(State().viewport.MapLonSpan(), span * 0.72F, 1e-3);
  EXPECT_EQ(DrawsOf("mnuZoomReset"), 1);
  EXPECT_EQ(State().viewport.MapLonSpan(), 350);
}

TEST_F(CommandTest, ARefusedZoomDoesNotRedraw) {
  EXPECT_EQ(DrawsOf("mnuZoomOut"), 0);
  EXPECT_EQ(DrawsOf("mnuZoomOut2"), 0);
  int steps = 0;
  while (DrawsOf("mnuZoomIn2") == 1)
    ASSERT_LT(++steps, 20);
  EXPECT_EQ(DrawsOf("mnuZoomIn"), 0);
}

TEST_F(CommandTest, RegionsAreShown) {
  EXPECT_EQ(DrawsOf("mnuRegPart(2)"), 1);
  EXPECT_EQ(State().viewport.ReqLonMin(), 182);
  EXPECT_EQ(State().viewport.ReqLatMax(), 37);
  EXPECT_EQ(DrawsOf("mnuRegWorld"), 1);
  EXPECT_EQ(State().viewport.ReqLonMin(), 290);
  EXPECT_EQ(DrawsOf("mnuRegWorld"), 1) << "the same region again";
}

TEST_F(CommandTest, RegionsWithoutExtentAreAskedForButNotShown) {
  for (const char* name : {"mnuRegPart(8)", "mnuRegPart(9)"})
    EXPECT_EQ(DrawsOf(name), 0) << name;
  EXPECT_EQ(State().viewport.ReqLonMin(), 185);
  EXPECT_EQ(State().viewport.MapLonSpan(), 350);
}

TEST_F(CommandTest, TogglesRedrawOnce) {
  for (const char* name : {"mnuViewCentr", "mnuViewRiver", "mnuViewIBound", "mnuViewAprt", "mnuViewDest",
                           "mnuFlitAprt", "mnuFlitFlNr", "mnuFlitLegNr", "mnuFlitSymb"}) {
    const bool before = IsChecked(name);
    EXPECT_EQ(DrawsOf(name), 1) << name;
    EXPECT_EQ(IsChecked(name), !before) << name;
    EXPECT_EQ(DrawsOf(name), 1) << name;
    EXPECT_EQ(IsChecked(name), before) << name;
  }
}

TEST_F(CommandTest, TogglesOfThePopupMenuAreTheSame) {
  for (const char* twin : {"FlitAprt", "FlitFlNr", "FlitLegNr", "FlitSymb"}) {
    const std::string bar = std::string("mnu") + twin;
    const std::string pop = std::string("mnuPop") + twin;
    for (const std::string& name : {bar, pop, pop, bar}) {
      const bool before = IsChecked(bar.c_str());
      EXPECT_EQ(DrawsOf(name.c_str()), 1);
      EXPECT_EQ(IsChecked(bar.c_str()), !before);
      EXPECT_EQ(IsChecked(pop.c_str()), !before);
    }
  }
}

TEST_F(CommandTest, TheMarkIsDrawnWithTheNewState) {
  Entry("mnuViewCentr")->trigger();
  const auto isCentre = [](const map::Operation& op) { return op.layer == map::Layer::kCentre; };
  const auto& operations = drawn.Operations();
  EXPECT_TRUE(std::any_of(operations.begin(), operations.end(), isCentre));
}

TEST_F(CommandTest, LayerBoxesAndEntriesAreEqual) {
  for (const auto& [box, entry] : {std::pair("chkAprt", "mnuViewAprt"), {"chkDest", "mnuViewDest"}}) {
    auto* check = Find<QCheckBox>(box);
    int before = Draws();
    check->click();
    EXPECT_TRUE(IsChecked(entry));
    EXPECT_EQ(Draws() - before, 1);
    before = Draws();
    check->click();
    EXPECT_FALSE(IsChecked(entry));
    EXPECT_EQ(Draws() - before, 1);
    EXPECT_EQ(DrawsOf(entry), 1);
    EXPECT_TRUE(check->isChecked());
  }
}

TEST_F(CommandTest, TheRightButtonOnALayerBoxOpensItsDelimitation) {
  auto* aprt = Find<QCheckBox>("chkAprt");
  auto* dest = Find<QCheckBox>("chkDest");
  RightClick(aprt, aprt->rect().center());
  EXPECT_EQ(dialogs.shown, Kinds{DialogKind::kDelimitAllAirports});
  RightClick(dest, dest->rect().center());
  EXPECT_EQ(dialogs.shown, (Kinds{DialogKind::kDelimitAllAirports, DialogKind::kDelimitDestinations}));
  EXPECT_FALSE(aprt->isChecked());
  EXPECT_FALSE(dest->isChecked());
  RightClick(dest, {-5, -5});
  EXPECT_EQ(dialogs.shown.size(), 2U) << "let go beside the box";
  EXPECT_EQ(Draws(), 1);
}

TEST_F(CommandTest, AConfirmedDelimitationIsDescribedAndDrawnWhereShown) {
  dialogs.whileOpen = [&] { State().allAirportCriteria.ilsActive = true; };
  EXPECT_EQ(DrawsOf("mnuViewAprtDeli"), 0);
  EXPECT_EQ(Find<QCheckBox>("chkAprt")->toolTip(), "No delimitations set") << "aborted";
  Confirm(true);
  EXPECT_EQ(DrawsOf("mnuViewAprtDeli"), 0) << "the layer is not shown";
  EXPECT_EQ(Find<QCheckBox>("chkAprt")->toolTip(), "With ILS");
  EXPECT_EQ(Find<QCheckBox>("chkDest")->toolTip(), "No delimitations set");
  Entry("mnuViewAprt")->trigger();
  EXPECT_EQ(DrawsOf("mnuViewAprtDeli"), 1);
  EXPECT_EQ(DrawsOf("mnuViewDestDeli"), 0) << "the other layer is not shown";
  Entry("mnuViewDest")->trigger();
  EXPECT_EQ(DrawsOf("mnuViewDestDeli"), 1);
  Confirm(false);
  EXPECT_EQ(DrawsOf("mnuViewDestDeli"), 0);
}

TEST_F(CommandTest, ShowAllFlightsTwiceRedrawsOnce) {
  EXPECT_EQ(DrawsOf("mnuFlitFSrv(0)"), 1);
  EXPECT_EQ(Shown(), (Services{1, 2, 3, 4, 5}));
  EXPECT_EQ(DrawsOf("mnuFlitFSrv(0)"), 0);
  EXPECT_EQ(DrawsOf("mnuPopFlitFSrv(0)"), 0);
  EXPECT_FALSE(IsChecked("mnuFlitFSrv(0)"));
}

TEST_F(CommandTest, ClearAllFlightsRedrawsOnlyWhenSomethingWasShown) {
  EXPECT_EQ(DrawsOf("mnuFlitNone"), 0);
  Entry("mnuFlitFSrv(3)")->trigger();
  EXPECT_EQ(DrawsOf("mnuFlitNone"), 1);
  EXPECT_EQ(Shown(), Services{});
  EXPECT_EQ(DrawsOf("mnuPopFlitNone"), 0);
}

TEST_F(CommandTest, ServicesAreToggled) {
  EXPECT_EQ(DrawsOf("mnuFlitFSrv(3)"), 1);
  EXPECT_EQ(Shown(), Services{3});
  EXPECT_EQ(DrawsOf("mnuPopFlitFSrv(1)"), 1);
  EXPECT_EQ(Shown(), (Services{1, 3}));
  EXPECT_EQ(DrawsOf("mnuPopFlitFSrv(3)"), 1);
  EXPECT_EQ(Shown(), Services{1});
  EXPECT_EQ(DrawsOf("mnuFlitFSrv(0)"), 1) << "some were not shown yet";
}

TEST_F(CommandTest, NothingIsSelectedBeforeAFlightDialogWasConfirmed) {
  for (const char* name : {"mnuFlitSele", "mnuPopFlitSele"})
    EXPECT_FALSE(Entry(name)->isEnabled());
  Entry("mnuFlitFSrv(1)")->trigger();
  for (const char* name : {"mnuFlitRandFlit", "mnuFlitSeleFlit", "mnuFlitSeleDest"})
    EXPECT_EQ(DrawsOf(name), 0) << "aborted";
  EXPECT_FALSE(Entry("mnuFlitSele")->isEnabled());
  EXPECT_EQ(Shown(), Services{1});
  EXPECT_EQ(DrawsOf("mnuFlitSele"), 0) << "a disabled entry does nothing";
}

TEST_F(CommandTest, ConfirmedFlightDialogsShowTheSelection) {
  Confirm(true);
  const struct {
    const char* entry;
    DialogKind kind;
  } finders[] = {{"mnuFlitRandFlit", DialogKind::kRandomFlights},
                 {"mnuPopFlitRandFlit", DialogKind::kRandomFlights},
                 {"mnuFlitSeleFlit", DialogKind::kSelectFlights},
                 {"mnuPopFlitSeleFlit", DialogKind::kSelectFlights},
                 {"mnuFlitSeleDest", DialogKind::kSelectDestination},
                 {"mnuPopFlitSeleDest", DialogKind::kSelectDestination}};
  for (const auto& finder : finders) {
    Entry("mnuFlitFSrv(0)")->trigger();
    dialogs.shown.clear();
    EXPECT_EQ(DrawsOf(finder.entry), 1);
    EXPECT_EQ(dialogs.shown, Kinds{finder.kind});
    EXPECT_EQ(Shown(), Services{});
    EXPECT_FALSE(State().flights.serviceMode);
    EXPECT_TRUE(Entry("mnuFlitSele")->isEnabled());
    EXPECT_TRUE(Entry("mnuPopFlitSele")->isEnabled());
  }
}

TEST_F(CommandTest, TheSelectionIsKeptWhileOthersAreShown) {
  Confirm(true);
  dialogs.whileOpen = [&] { State().flights.selectedFlights = {"K1012"}; };
  Entry("mnuFlitSeleFlit")->trigger();
  EXPECT_EQ(DrawsOf("mnuFlitNone"), 1) << "no flag was set, but the selection was shown";
  EXPECT_TRUE(State().flights.serviceMode);
  EXPECT_EQ(DrawsOf("mnuFlitSele"), 1);
  EXPECT_FALSE(State().flights.serviceMode);
  EXPECT_EQ(State().flights.selectedFlights, std::vector<std::string>{"K1012"});
  EXPECT_EQ(DrawsOf("mnuPopFlitSele"), 1) << "always drawn anew";
  EXPECT_EQ(DrawsOf("mnuFlitFSrv(2)"), 1);
  EXPECT_TRUE(State().flights.serviceMode);
  EXPECT_EQ(Shown(), Services{2});
}

TEST_F(CommandTest, ShowAllFlightsLeavesTheSelection) {
  Entry("mnuFlitFSrv(0)")->trigger();
  State().flights.serviceMode = false;
  EXPECT_EQ(DrawsOf("mnuFlitFSrv(0)"), 1) << "no flag changes, but the mode does";
  EXPECT_TRUE(State().flights.serviceMode);
}

TEST_F(CommandTest, OtherDialogsAreOpened) {
  const struct {
    const char* entry;
    DialogKind kind;
  } openers[] = {{"mnuFileUserSett", DialogKind::kUserSettings},
                 {"mnuFileMapSett", DialogKind::kMapSettings},
                 {"mnuHelpRev", DialogKind::kHelpRevision},
                 {"mnuHelpMous", DialogKind::kHelpMouse},
                 {"mnuHelpInfo", DialogKind::kHelpInfo}};
  Confirm(true);
  for (const auto& opener : openers) {
    dialogs.shown.clear();
    EXPECT_EQ(DrawsOf(opener.entry), 0) << opener.entry;
    EXPECT_EQ(dialogs.shown, Kinds{opener.kind});
  }
}

TEST_F(CommandTest, ColoursAreDrawnWhenConfirmed) {
  EXPECT_EQ(DrawsOf("mnuFileColoSett"), 0);
  Confirm(true);
  EXPECT_EQ(DrawsOf("mnuFileColoSett"), 1);
}

TEST_F(CommandTest, OnlyAnotherFontOfTheCurrentModeIsDrawn) {
  data::FontTable& fonts = State().tables.fonts;
  dialogs.whileOpen = [&] { fonts[data::FontCode::kHiRes].size = 12; };
  EXPECT_EQ(DrawsOf("mnuFileMapSett"), 0) << "the overview does not use it";
  dialogs.whileOpen = [&] { fonts[data::FontCode::kLoRes].size = 13; };
  EXPECT_EQ(DrawsOf("mnuFileMapSett"), 1);
  EXPECT_EQ(DrawsOf("mnuFileMapSett"), 0) << "it stays as it is";
  dialogs.whileOpen = [&] { fonts[data::FontCode::kLoRes].name = "Courier"; };
  EXPECT_EQ(DrawsOf("mnuFileMapSett"), 1);
  Entry("mnuRegPart(6)")->trigger();
  Entry("mnuZoomIn2")->trigger();
  ASSERT_TRUE(State().viewport.DetailMode());
  dialogs.whileOpen = [&] { fonts[data::FontCode::kLoRes].size = 6; };
  EXPECT_EQ(DrawsOf("mnuFileMapSett"), 0) << "the detail mode does not use it";
}

TEST_F(CommandTest, QuitClosesTheProgram) {
  Entry("mnuFileQuit")->trigger();
  EXPECT_FALSE(main->Running());
  EXPECT_FALSE(Window().isVisible());
  Entry("mnuZoomIn")->trigger();  // nothing is left to do it on
}

}  // namespace
}  // namespace zerbal::app
