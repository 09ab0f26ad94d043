#include "dialogs/frm_colo_sett.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include "dialogs/dialog_fixture.h"

namespace zerbal::test {
namespace {

class FrmColoSettTest : public DialogTest {
 protected:
  FrmColoSettTest() {
    const char* entries[] = {"MapBack", "Zoom", "Centre", "Coast", "River",
                             "IBound",  "All",  "Dest",   "Symbol"};
    for (std::size_t i = 0; i < colours.rows.size(); ++i) {
      const auto part = static_cast<std::uint8_t>(10 * i);
      colours.rows[i] = {{part, static_cast<std::uint8_t>(part + 1), static_cast<std::uint8_t>(part + 2)},
                         entries[i]};
    }
    AddServices(2);
  }
  void AddServices(int count) {
    for (int i = 1; i <= count; ++i) {
      data::FlightService service;
      service.key = "S" + std::to_string(services.size() + 1);
      service.displayText = "1 - Service " + service.key;
      service.rgb = {200, 100, static_cast<std::uint8_t>(i)};
      services.push_back(service);
    }
  }
  std::unique_ptr<dialogs::frmColoSett> NewDialog() {
    return std::make_unique<dialogs::frmColoSett>(placement, colours, services);
  }
  static QColor ColourOf(QWidget& dialog, const char* name) {
    return Child<QWidget>(dialog, name)->property("colour").value<QColor>();
  }
  static QColor TextColourOf(QWidget& dialog, const char* name) {
    return Child<QLabel>(dialog, name)->palette().color(QPalette::WindowText);
  }

  data::ColourTable colours;
  data::FlightServiceTable services;
};

TEST_F(FrmColoSettTest, ListsTheObjectsAndThenTheServices) {
  const auto dialog = NewDialog();
  auto* objects = Child<QComboBox>(*dialog, "cboSelObj");
  const QStringList expected = {"Map backcolor",   "Zoombox (XOR'ed with map backcolor)",
                                "Centre of map",   "Coastlines",
                                "Rivers",          "International boundaries",
                                "All airports",    "QAV destinations",
                                "Aircraft symbol", "1 - Service S1",
                                "1 - Service S2"};
  QStringList listed;
  for (int i = 0; i < objects->count(); ++i)
    listed.append(objects->itemText(i));
  EXPECT_EQ(listed, expected);
  EXPECT_EQ(Child<QLabel>(*dialog, "lblMapZoomB")->text(), expected[1]);
}

TEST_F(FrmColoSettTest, AChosenObjectShowsItsColour) {
  const auto dialog = NewDialog();
  Child<QComboBox>(*dialog, "cboSelObj")->setCurrentIndex(4);
  EXPECT_EQ(Child<QScrollBar>(*dialog, "hsbRed")->value(), 40);
  EXPECT_EQ(Child<QLabel>(*dialog, "lblGreVal")->text(), "41");
  EXPECT_EQ(Child<QScrollBar>(*dialog, "hsbBlu")->value(), 42);
  EXPECT_EQ(ColourOf(*dialog, "shpSelCol"), QColor(40, 41, 42));
}

TEST_F(FrmColoSettTest, EachObjectChangesTheColourOfItsSample) {
  const auto dialog = NewDialog();
  struct Case {
    int entry;
    std::vector<const char*> shapes;
    std::vector<const char*> labels;
  };
  const Case cases[] = {
      {1, {"shpMapZoomB"}, {}},
      {2, {"shpMapCentr"}, {"lblMapCentr"}},
      {3, {"linMapCoast"}, {"lblMapCoast"}},
      {4, {"linMapRiver"}, {"lblMapRiver"}},
      {5, {"linMapIBoun"}, {"lblMapIBoun"}},
      {6, {"shpMapAPAll"}, {"lblMapAPAll", "lblMapAPAllDesc"}},
      {7, {"shpMapAPDst"}, {"lblMapAPDst", "lblMapAPDstDesc"}},
      {8, {"linMapACSym1", "linMapACSym2", "linMapACSym3"}, {"lblMapACSym"}},
      {9, {"linMapFSrv(1)"}, {"lblMapFSrv(1)"}},
      {10, {"linMapFSrv(2)"}, {"lblMapFSrv(2)"}},
  };
  for (const Case& c : cases) {
    Child<QComboBox>(*dialog, "cboSelObj")->setCurrentIndex(c.entry);
    Child<QScrollBar>(*dialog, "hsbRed")->setValue(250 - c.entry);
    const QColor expected(250 - c.entry, Child<QScrollBar>(*dialog, "hsbGre")->value(),
                          Child<QScrollBar>(*dialog, "hsbBlu")->value());
    for (const char* shape : c.shapes)
      EXPECT_EQ(ColourOf(*dialog, shape), expected) << shape;
    for (const char* label : c.labels)
      EXPECT_EQ(TextColourOf(*dialog, label), expected) << label;
  }
}

TEST_F(FrmColoSettTest, TheBackgroundChangesTheColourOfTheSampleMap) {
  const auto dialog = NewDialog();
  Child<QScrollBar>(*dialog, "hsbBlu")->setValue(99);
  EXPECT_EQ(Child<QWidget>(*dialog, "picMap")->palette().color(QPalette::Window), QColor(0, 1, 99));
}

TEST_F(FrmColoSettTest, OkStoresEveryColour) {
  const auto dialog = NewDialog();
  Child<QComboBox>(*dialog, "cboSelObj")->setCurrentIndex(10);
  Child<QScrollBar>(*dialog, "hsbRed")->setValue(7);
  Child<QPushButton>(*dialog, "cmdOK")->click();
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  EXPECT_EQ(services[1].rgb, (data::Rgb{7, 100, 2}));
  for (const data::Colour& colour : colours.rows)
    EXPECT_NE(Stored("Colors", colour.entry.c_str()), "(none)");
  EXPECT_EQ(Stored("Colors", "River"), "40,41,42");
  EXPECT_EQ(Stored("FlightColors", "S1"), "200,100,1");
  EXPECT_EQ(Stored("FlightColors", "S2"), "7,100,2");
}

TEST_F(FrmColoSettTest, TheColoursAreWrittenBeforeTheFlightColoursEachInTheOrderOfItsTable) {
  const auto dialog = NewDialog();
  Child<QPushButton>(*dialog, "cmdOK")->click();
  EXPECT_EQ(ReadBytes(folder / "zerbal.ini").substr(0, ReadBytes(folder / "zerbal.ini").find("[Windows]")),
            "[Colors]\r\nMapBack=0,1,2\r\nZoom=10,11,12\r\nCentre=20,21,22\r\nCoast=30,31,32\r\n"
            "River=40,41,42\r\nIBound=50,51,52\r\nAll=60,61,62\r\nDest=70,71,72\r\nSymbol=80,81,82\r\n"
            "[FlightColors]\r\nS1=200,100,1\r\nS2=200,100,2\r\n");
}

TEST_F(FrmColoSettTest, TheLastOfTwoServicesWithOneKeyWritesItsColour) {
  AddServices(1);
  services[0].key = services[2].key = "SAME";
  services[0].rgb = {1, 2, 3};
  services[2].rgb = {4, 5, 6};
  const auto dialog = NewDialog();
  Child<QPushButton>(*dialog, "cmdOK")->click();
  EXPECT_EQ(Stored("FlightColors", "SAME"), "4,5,6");
  EXPECT_EQ(Stored("FlightColors", "S2"), "200,100,2");
  EXPECT_EQ(services[0].rgb, (data::Rgb{1, 2, 3})) << "in memory each keeps its own";
  EXPECT_EQ(services[2].rgb, (data::Rgb{4, 5, 6}));
}

TEST_F(FrmColoSettTest, TheZoomBoxSampleIsDrawnInvertedAgainstTheBackground) {
  const auto dialog = NewDialog();
  dialog->show();
  const auto colourOfFrame = [&] {
    // The first pixel in the corner of the frame.
    return Child<QWidget>(*dialog, "picMap")
        ->grab()
        .toImage()
        .pixelColor(Child<QWidget>(*dialog, "shpMapZoomB")->pos());
  };
  EXPECT_EQ(colourOfFrame(), QColor(0 ^ 10, 1 ^ 11, 2 ^ 12));
  Child<QScrollBar>(*dialog, "hsbRed")->setValue(255);  // of the background
  EXPECT_EQ(colourOfFrame(), QColor(255 ^ 10, 1 ^ 11, 2 ^ 12));
  Child<QComboBox>(*dialog, "cboSelObj")->setCurrentIndex(1);
  Child<QScrollBar>(*dialog, "hsbGre")->setValue(200);
  EXPECT_EQ(colourOfFrame(), QColor(255 ^ 10, 1 ^ 200, 2 ^ 12));
}

TEST_F(FrmColoSettTest, AbortChangesNothing) {
  const auto dialog = NewDialog();
  Child<QScrollBar>(*dialog, "hsbRed")->setValue(77);
  Child<QPushButton>(*dialog, "cmdESC")->click();
  EXPECT_EQ(colours.rows[0].rgb, (data::Rgb{0, 1, 2}));
  EXPECT_EQ(Stored("Colors", "MapBack"), "(none)");
}

TEST_F(FrmColoSettTest, TheSampleScrollsOnlyWhenItIsTallerThanItsFrame) {
  {
    services.clear();
    const auto few = NewDialog();
    few->resize(900, 900);
    few->show();
    EXPECT_EQ(Child<QScrollBar>(*few, "vsbMap")->maximum(), 0);
  }
  AddServices(60);
  const auto many = NewDialog();
  many->show();
  auto* bar = Child<QScrollBar>(*many, "vsbMap");
  auto* map = Child<QWidget>(*many, "picMap");
  ASSERT_GT(bar->maximum(), 0);
  bar->setValue(bar->maximum());
  EXPECT_EQ(map->y(), -bar->maximum());
  auto* last = Child<QWidget>(*many, "lblMapFSrv(60)");
  EXPECT_LE(last->y() + last->height() + map->y(), Child<QWidget>(*many, "picAll")->height());
}

TEST_F(FrmColoSettTest, TheSampleIsReachedByTabAndScrolledByKeys) {
  AddServices(60);
  const auto dialog = NewDialog();
  dialog->show();
  dialog->activateWindow();
  QApplication::processEvents();
  Child<QWidget>(*dialog, "hsbBlu")->setFocus();
  Press(QApplication::focusWidget(), Qt::Key_Tab, "\t");
  ASSERT_EQ(QApplication::focusWidget()->objectName(), "vsbMap");
  const auto* bar = Child<QScrollBar>(*dialog, "vsbMap");
  const auto* map = Child<QWidget>(*dialog, "picMap");
  struct Case {
    Qt::Key key;
    int value;
  };
  for (const Case& c :
       {Case{Qt::Key_Down, bar->singleStep()}, Case{Qt::Key_PageDown, bar->singleStep() + bar->pageStep()},
        Case{Qt::Key_Up, bar->pageStep()}, Case{Qt::Key_PageUp, 0}, Case{Qt::Key_End, bar->maximum()},
        Case{Qt::Key_Home, 0}}) {
    Press(QApplication::focusWidget(), c.key, {});
    EXPECT_EQ(bar->value(), c.value) << c.key;
    EXPECT_EQ(map->y(), -c.value) << c.key;
  }
}

}  // namespace
}  // namespace zerbal::test
