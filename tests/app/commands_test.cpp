#include "app/commands.h"

#include <algorithm>

#include "app_test.h"

namespace zerbal::app {
namespace {

class CommandTest : public test::RunningTest {
 protected:
  bool IsChecked(const char* name) { return Entry(name)->isChecked(); }
  /// The services that are checked in the menu bar and in the pop-up menu, and flagged in the table.
  std::vector<int> Shown() {
    std::vector<int> shown;
    for (int i = 1; i <= static_cast<int>(State().map.services.size()); ++i) {
      const bool flag = State().map.services[static_cast<std::size_t>(i) - 1].displayFlag;
      for (const char* array : {"mnuFlitFSrv(%1)", "mnuPopFlitFSrv(%1)"})
        EXPECT_EQ(IsChecked(QString(array).arg(i).toUtf8().constData()), flag) << i;
      if (flag)
        shown.push_back(i);
    }
    return shown;
  }
  void Confirm(bool confirm) { dialogs.confirm = confirm; }
};
using Kinds = std::vector<DialogKind>;
using Services = std::vector<int>;

TEST_F(CommandTest, ZoomStepsAre20And50Percent) {
  Entry("mnuRegPart(2)")->trigger();
  const float span = State().map.viewport.MapLonSpan();
  EXPECT_EQ(DrawsOf("mnuZoomIn"), 1);
  EXPECT_NEAR(State().map.viewport.MapLonSpan(), span * 0.8F, 1e-3);
  EXPECT_EQ(DrawsOf("mnuZoomOut"), 1);
  EXPECT_NEAR(State().map.viewport.MapLonSpan(), span * 0.96F, 1e-3);
  EXPECT_EQ(DrawsOf("mnuZoomIn2"), 1);
  EXPECT_NEAR(State().map.viewport.MapLonSpan(), span * 0.48F, 1e-3);
  EXPECT_EQ(DrawsOf("mnuZoomOut2"), 1);
  EXPECT_NEAR(State().map.viewport.MapLonSpan(), span * 0.72F, 1e-3);
  EXPECT_EQ(DrawsOf("mnuZoomReset"), 1);
  EXPECT_EQ(State().map.viewport.MapLonSpan(), 350);
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
  EXPECT_EQ(State().map.viewport.ReqLonMin(), 182);
  EXPECT_EQ(State().map.viewport.ReqLatMax(), 37);
  EXPECT_EQ(DrawsOf("mnuRegWorld"), 1);
  EXPECT_EQ(State().map.viewport.ReqLonMin(), 290);
  EXPECT_EQ(DrawsOf("mnuRegWorld"), 1) << "the same region again";
}

TEST_F(CommandTest, RegionsWithoutExtentAreRequestedButNotShown) {
  for (const char* name : {"mnuRegPart(8)", "mnuRegPart(9)"})
    EXPECT_EQ(DrawsOf(name), 0) << name;
  EXPECT_EQ(State().map.viewport.ReqLonMin(), 185);
  EXPECT_EQ(State().map.viewport.MapLonSpan(), 350);
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

TEST_F(CommandTest, TogglesOfThePopupMenuHaveTheSameEffect) {
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

TEST_F(CommandTest, AConfirmedDelimitationIsDescribedAndDrawnIfItsLayerIsShown) {
  dialogs.whileOpen = [&] { State().delimitations.allAirports.ilsActive = true; };
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

TEST_F(CommandTest, NothingIsSelectedBeforeAFlightDialogIsConfirmed) {
  for (const char* name : {"mnuFlitSele", "mnuPopFlitSele"})
    EXPECT_FALSE(Entry(name)->isEnabled());
  Entry("mnuFlitFSrv(1)")->trigger();
  for (const char* name : {"mnuFlitRandFlit", "mnuFlitSeleFlit", "mnuFlitSeleDest"})
    EXPECT_EQ(DrawsOf(name), 0) << "aborted";
  EXPECT_FALSE(Entry("mnuFlitSele")->isEnabled());
  EXPECT_EQ(Shown(), Services{1});
  EXPECT_EQ(DrawsOf("mnuFlitSele"), 0) << "a disabled entry does nothing";
}

TEST_F(CommandTest, AConfirmedFlightDialogShowsTheSelection) {
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
    EXPECT_FALSE(State().map.flights.serviceMode);
    EXPECT_TRUE(Entry("mnuFlitSele")->isEnabled());
    EXPECT_TRUE(Entry("mnuPopFlitSele")->isEnabled());
  }
}

TEST_F(CommandTest, TheSelectionIsKeptWhileOtherFlightsAreShown) {
  Confirm(true);
  dialogs.whileOpen = [&] { State().map.flights.selectedFlights = {"K1012"}; };
  Entry("mnuFlitSeleFlit")->trigger();
  EXPECT_EQ(DrawsOf("mnuFlitNone"), 1) << "no flag was set, but the selection was shown";
  EXPECT_TRUE(State().map.flights.serviceMode);
  EXPECT_EQ(DrawsOf("mnuFlitSele"), 1);
  EXPECT_FALSE(State().map.flights.serviceMode);
  EXPECT_EQ(State().map.flights.selectedFlights, std::vector<std::string>{"K1012"});
  EXPECT_EQ(DrawsOf("mnuPopFlitSele"), 1) << "always drawn anew";
  EXPECT_EQ(DrawsOf("mnuFlitFSrv(2)"), 1);
  EXPECT_TRUE(State().map.flights.serviceMode);
  EXPECT_EQ(Shown(), Services{2});
}

TEST_F(CommandTest, ShowAllFlightsLeavesTheSelection) {
  Entry("mnuFlitFSrv(0)")->trigger();
  State().map.flights.serviceMode = false;
  EXPECT_EQ(DrawsOf("mnuFlitFSrv(0)"), 1) << "no flag changes, but the mode does";
  EXPECT_TRUE(State().map.flights.serviceMode);
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

TEST_F(CommandTest, ConfirmedColoursRedraw) {
  EXPECT_EQ(DrawsOf("mnuFileColoSett"), 0);
  Confirm(true);
  EXPECT_EQ(DrawsOf("mnuFileColoSett"), 1);
}

TEST_F(CommandTest, OnlyANewFontOfTheCurrentModeRedraws) {
  data::FontTable& fonts = State().map.style.fonts;
  dialogs.whileOpen = [&] { fonts[data::FontCode::kHiRes].size = 12; };
  EXPECT_EQ(DrawsOf("mnuFileMapSett"), 0) << "the overview does not use it";
  dialogs.whileOpen = [&] { fonts[data::FontCode::kLoRes].size = 13; };
  EXPECT_EQ(DrawsOf("mnuFileMapSett"), 1);
  EXPECT_EQ(DrawsOf("mnuFileMapSett"), 0) << "it stays as it is";
  dialogs.whileOpen = [&] { fonts[data::FontCode::kLoRes].name = "Courier"; };
  EXPECT_EQ(DrawsOf("mnuFileMapSett"), 1);
  Entry("mnuRegPart(6)")->trigger();
  Entry("mnuZoomIn2")->trigger();
  ASSERT_TRUE(State().map.viewport.DetailMode());
  dialogs.whileOpen = [&] { fonts[data::FontCode::kLoRes].size = 6; };
  EXPECT_EQ(DrawsOf("mnuFileMapSett"), 0) << "the detail mode does not use it";
}

TEST_F(CommandTest, QuitClosesTheProgram) {
  Entry("mnuFileQuit")->trigger();
  EXPECT_FALSE(program->Running());
  EXPECT_FALSE(Window().isVisible());
  Entry("mnuZoomIn")->trigger();  // the program has ended
}

}  // namespace
}  // namespace zerbal::app
