#include "app/main_menu.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app_test.h"

namespace zerbal::app {
namespace {

/// Names of entries in order. A separator has no name.
using Names = std::vector<std::string>;
const std::string kLine;

struct ExpectedMenu {
  std::string caption;
  std::vector<std::pair<std::string, std::string>> entries;  ///< names and captions
};

/// The menu bar with the nine regions and five services of the small world.
const std::vector<ExpectedMenu>& MenuBar() {
  static const std::vector<ExpectedMenu> menus = {
      {"&File",
       {{"mnuFileUserSett", "&User settings..."},
        {"mnuFileMapSett", "&Map settings..."},
        {"mnuFileColoSett", "&Color settings..."},
        {kLine, ""},
        {"mnuFileQuit", "&Quit"}}},
      {"&Zoom",
       {{"mnuZoomIn", "Zoom in"},
        {"mnuZoomIn2", "Zoom in (more)"},
        {"mnuZoomReset", "Reset zoom"},
        {"mnuZoomOut2", "Zoom out (more)"},
        {"mnuZoomOut", "Zoom out"}}},
      {"&Views",
       {{"mnuViewCentr", "Centre of map"},
        {"mnuViewRiver", "Rivers"},
        {"mnuViewIBound", "Int. boundaries"},
        {kLine, ""},
        {"mnuViewAprt", "All airports"},
        {"mnuViewDest", "QAV destinations"},
        {kLine, ""},
        {"mnuViewAprtDeli", "Delimitation for all airports..."},
        {"mnuViewDestDeli", "Delimitation for QAV destinations..."}}},
      {"&Region",
       {{"mnuRegWorld", "World"},
        {"mnuRegPart(0)", ""},
        {"mnuRegPart(1)", "Mediterranean"},
        {"mnuRegPart(2)", "Nordic countries"},
        {"mnuRegPart(3)", "Iceland and Svalbard"},
        {"mnuRegPart(4)", "Fjords"},
        {"mnuRegPart(5)", "Pacific (wraps)"},
        {"mnuRegPart(6)", "Date line, near (wraps)"},
        {"mnuRegPart(7)", "Four cells"},
        {"mnuRegPart(8)", "No width"},
        {"mnuRegPart(9)", "No height"}}},
      {"&Flights",
       {{"mnuFlitAprt", "Show airports"},
        {"mnuFlitFlNr", "Show flightnumbers"},
        {"mnuFlitLegNr", "Show legnumbers for flights"},
        {"mnuFlitSymb", "Show aircraft symbols"},
        {kLine, ""},
        {"mnuFlitNone", "Clear all flights"},
        {"mnuFlitSele", "Show selected flights"},
        {kLine, ""},
        {"mnuFlitRandFlit", "Random flight(s)..."},
        {"mnuFlitSeleFlit", "Select flight(s)..."},
        {"mnuFlitSeleDest", "Select destination..."},
        {kLine, ""},
        {"mnuFlitFSrv(0)", "Show all flights"},
        {"mnuFlitFSrv(1)", "1 - Nordic"},
        {"mnuFlitFSrv(2)", "2 - Nordic Extra"},
        {"mnuFlitFSrv(3)", "3 - Oceans"},
        {"mnuFlitFSrv(4)", "3a - Oceans Charter"},
        {"mnuFlitFSrv(5)", "0 - Not yet begun"}}},
      {"&?",
       {{"mnuHelpRev", "&Revision number..."},
        {"mnuHelpMous", "&Using the mouse..."},
        {"mnuHelpInfo", "&Info..."}}},
  };
  return menus;
}

class MainMenuTest : public test::RunningTest {
 protected:
  static Names NamesOf(const QMenu& menu) {
    Names names;
    for (const QAction* entry : menu.actions()) {
      const std::string& name = names.emplace_back(entry->objectName().toStdString());
      EXPECT_EQ(entry->isSeparator(), name == kLine || name == "mnuRegPart(0)") << name;
    }
    return names;
  }
};

TEST_F(MainMenuTest, TheMenusAreInOrder) {
  Names expected, captions;
  for (const ExpectedMenu& menu : MenuBar())
    expected.push_back(menu.caption);
  for (const QAction* menu : Window().menuBar()->actions())
    captions.push_back(menu->text().toStdString());
  EXPECT_EQ(captions, expected);
}

TEST_F(MainMenuTest, EachMenuHasItsEntriesInOrder) {
  const auto menus = Window().menuBar()->actions();
  ASSERT_EQ(menus.size(), MenuBar().size());
  for (std::size_t i = 0; i < MenuBar().size(); ++i) {
    const ExpectedMenu& expected = MenuBar()[i];
    Names names;
    for (const auto& entry : expected.entries)
      names.push_back(entry.first);
    const QMenu& menu = *menus[static_cast<qsizetype>(i)]->menu();
    ASSERT_EQ(NamesOf(menu), names) << expected.caption;
    for (std::size_t k = 0; k < names.size(); ++k)
      EXPECT_EQ(menu.actions()[static_cast<qsizetype>(k)]->text().toStdString(), expected.entries[k].second);
  }
}

TEST_F(MainMenuTest, ThePopupMenuHasTheFlightEntriesInOrder) {
  const auto* popup = Find<QMenu>("mnuPop");
  EXPECT_EQ(popup->title(), "Popup");
  EXPECT_EQ(NamesOf(*popup),
            (Names{"mnuPopFlitAprt", "mnuPopFlitFlNr", "mnuPopFlitLegNr", "mnuPopFlitSymb", kLine,
                   "mnuPopFlitNone", "mnuPopFlitSele", kLine, "mnuPopFlitRandFlit", "mnuPopFlitSeleFlit",
                   "mnuPopFlitSeleDest", kLine, "mnuPopFlitFSrv(0)", "mnuPopFlitFSrv(1)", "mnuPopFlitFSrv(2)",
                   "mnuPopFlitFSrv(3)", "mnuPopFlitFSrv(4)", "mnuPopFlitFSrv(5)"}));
}

TEST_F(MainMenuTest, PopupEntriesHaveTheCaptionsOfTheMenuBar) {
  for (const QAction* entry : Find<QMenu>("mnuPop")->actions()) {
    if (entry->isSeparator())
      continue;
    const QAction* twin = Entry(("mnu" + entry->objectName().mid(6)).toUtf8().constData());
    EXPECT_EQ(entry->text(), twin->text());
    EXPECT_EQ(entry->isCheckable(), twin->isCheckable()) << entry->text().toStdString();
  }
}

TEST_F(MainMenuTest, TheLineBetweenTheRegionsDoesNothing) {
  Entry("mnuRegPart(1)")->trigger();
  const float west = State().map.viewport.MapLonMin();
  Entry("mnuRegPart(0)")->trigger();
  EXPECT_EQ(State().map.viewport.MapLonMin(), west);
  Entry("mnuRegWorld")->trigger();
  EXPECT_NE(State().map.viewport.MapLonMin(), west);
}

TEST_F(MainMenuTest, AccessKeysOfAMenuDiffer) {
  for (const QAction* menu : Window().menuBar()->actions()) {
    std::set<QChar> keys;
    for (const QAction* entry : menu->menu()->actions()) {
      const qsizetype mark = entry->text().indexOf('&');
      const bool isNew = mark < 0 || keys.insert(entry->text().at(mark + 1).toLower()).second;
      EXPECT_TRUE(isNew) << entry->text().toStdString();
    }
  }
}

}  // namespace
}  // namespace zerbal::app
