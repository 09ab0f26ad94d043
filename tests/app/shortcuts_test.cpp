#include <QShortcut>
#include <QTest>
#include <QToolButton>
#include <map>

#include "app_test.h"

namespace zerbal::app {
namespace {

/// The shortcuts of each entry that has some, the first of which the menu shows.
const std::map<std::string, std::string> kShortcuts = {
    {"mnuFileQuit", "Ctrl+Q"},   {"mnuZoomIn", "Ctrl++; Ctrl+="},
    {"mnuZoomReset", "Ctrl+0"},  {"mnuZoomOut", "Ctrl+-"},
    {"mnuRegPart(1)", "Ctrl+1"}, {"mnuRegPart(2)", "Ctrl+2"},
    {"mnuRegPart(3)", "Ctrl+3"}, {"mnuRegPart(4)", "Ctrl+4"},
    {"mnuRegPart(5)", "Ctrl+5"}, {"mnuRegPart(6)", "Ctrl+6"},
    {"mnuRegPart(7)", "Ctrl+7"}, {"mnuRegPart(8)", "Ctrl+8"},
    {"mnuRegPart(9)", "Ctrl+9"}, {"mnuHelpMous", "F1"}};

class Shortcuts : public test::AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    world.reg.rows.push_back({"X10", 10, "The tenth", 10.0, 20.0, 30.0, 40.0});
    ASSERT_TRUE(Start());
    QApplication::setActiveWindow(&Window());
    QCoreApplication::processEvents();
  }
  /// The redraws that the keys cause while this control has the focus.
  int DrawsOf(QWidget& control, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    control.setFocus();
    const int before = Draws();
    QTest::keyClick(&control, key, modifiers);
    return Draws() - before;
  }
  float LonSpan() { return State().map.viewport.MapLonSpan(); }
};

TEST_F(Shortcuts, OnlyTheseEntriesHaveSome) {
  std::map<std::string, std::string> found;
  for (const QAction* entry : Window().findChildren<QAction*>()) {
    if (!entry->shortcuts().isEmpty())
      found[entry->objectName().toStdString()] =
          QKeySequence::listToString(entry->shortcuts(), QKeySequence::PortableText).toStdString();
    EXPECT_FALSE(entry->text().contains('\t')) << "a caption stays as it is";
  }
  EXPECT_EQ(found, kShortcuts);
  EXPECT_TRUE(Window().findChild<QAction*>("mnuRegPart(10)"));
}

TEST_F(Shortcuts, NoneIsASingleLetter) {
  QList<QKeySequence> all;
  for (const QAction* entry : Window().findChildren<QAction*>())
    all += entry->shortcuts();
  for (const QShortcut* shortcut : Window().findChildren<QShortcut*>())
    all += shortcut->key();
  EXPECT_EQ(all.size(), 18) << "those of the entries, Ctrl+S, Ctrl+C and F11";
  for (const QKeySequence& keys : all)
    EXPECT_TRUE(keys[0].keyboardModifiers() != Qt::NoModifier || keys[0].key() >= Qt::Key_F1)
        << keys.toString().toStdString();
}

TEST_F(Shortcuts, ZoomFromEveryControl) {
  for (QWidget* control :
       {static_cast<QWidget*>(&Window().MapWindow()), static_cast<QWidget*>(Find<QToolButton>("cmdSeleFlit")),
        static_cast<QWidget*>(Find<QCheckBox>("chkDest"))}) {
    Entry("mnuRegPart(2)")->trigger();
    const float span = LonSpan();
    EXPECT_EQ(DrawsOf(*control, Qt::Key_Plus, Qt::ControlModifier), 1);
    EXPECT_EQ(DrawsOf(*control, Qt::Key_Equal, Qt::ControlModifier), 1);
    EXPECT_NEAR(LonSpan(), span * 0.64F, 1e-3);
    EXPECT_EQ(DrawsOf(*control, Qt::Key_Minus, Qt::ControlModifier), 1);
    EXPECT_NEAR(LonSpan(), span * 0.768F, 1e-3);
    EXPECT_EQ(DrawsOf(*control, Qt::Key_0, Qt::ControlModifier), 1);
    EXPECT_EQ(LonSpan(), 350);
    EXPECT_EQ(DrawsOf(*control, Qt::Key_Minus, Qt::ControlModifier), 0);
  }
}

TEST_F(Shortcuts, DigitsShowTheFirstNineRegions) {
  const data::RegionTable& regions = State().map.style.regions;
  for (int i = 1; i <= 9; ++i) {
    QTest::keyClick(&Window().MapWindow(), static_cast<Qt::Key>(Qt::Key_0 + i), Qt::ControlModifier);
    EXPECT_EQ(State().map.viewport.ReqLonMin(), static_cast<float>(regions.rows[std::size_t(i)].fromLon))
        << i;
  }
}

TEST_F(Shortcuts, F1ShowsTheHelpOnMouseUse) {
  QTest::keyClick(&Window().MapWindow(), Qt::Key_F1);
  EXPECT_EQ(dialogs.shown, std::vector{DialogKind::kHelpMouse});
}

TEST_F(Shortcuts, F11ShowsAFullScreenAndReturns) {
  const QSize before = Window().size();
  QTest::keyClick(&Window().MapWindow(), Qt::Key_F11);
  EXPECT_TRUE(Window().isFullScreen());
  QTest::keyClick(&Window().MapWindow(), Qt::Key_F11);
  EXPECT_FALSE(Window().isFullScreen());
  EXPECT_EQ(Window().size(), before);
}

TEST_F(Shortcuts, AFullScreenIsNotSaved) {
  Window().move(31, 17);
  Window().resize(612, 431);
  QTest::keyClick(&Window().MapWindow(), Qt::Key_F11);
  Window().close();
  EXPECT_EQ(Ini("MainWindow", "State"), "0");
  EXPECT_EQ(Ini("MainWindow", "Position"), "31,17");
  EXPECT_EQ(Ini("MainWindow", "Size"), "431,612");
}

TEST_F(Shortcuts, AFullScreenOfAMaximisedWindowIsSavedAsMaximised) {
  Window().showMaximized();
  QTest::keyClick(&Window().MapWindow(), Qt::Key_F11);
  QTest::keyClick(&Window().MapWindow(), Qt::Key_F11);
  EXPECT_TRUE(Window().isMaximized());
  QTest::keyClick(&Window().MapWindow(), Qt::Key_F11);
  Window().close();
  EXPECT_EQ(Ini("MainWindow", "State"), "2");
}

TEST_F(Shortcuts, CtrlQQuits) {
  QTest::keyPress(&Window().MapWindow(), Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(program->Running());
}

}  // namespace
}  // namespace zerbal::app
