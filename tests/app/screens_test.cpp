// The map window on two screens, of which the second has twice the resolution.
#include <QApplication>
#include <QFile>
#include <QScreen>
#include <QTemporaryFile>
#include <QToolButton>
#include <QWindow>

#include "app_test.h"
#include "support/offscreen.h"

namespace zerbal::app {
namespace {

class Screens : public test::RunningTest {
 protected:
  void SetUp() override {
    ASSERT_EQ(QGuiApplication::screens().size(), 2);
    ASSERT_EQ(QGuiApplication::screens()[0]->devicePixelRatio(), 1);
    ASSERT_EQ(QGuiApplication::screens()[1]->devicePixelRatio(), 2);
    RunningTest::SetUp();
    QCoreApplication::processEvents();
  }
  /// The window system's way to say that the window is on another screen now.
  void MoveTo(int screen) { Window().windowHandle()->setScreen(QGuiApplication::screens()[screen]); }
  const QImage& Picture() { return Window().MapWindow().Picture(); }
  QSize MapSize() { return Window().MapWindow().size(); }
};

TEST_F(Screens, AnotherScreenRedrawsTheMapSharplyAtOnce) {
  ASSERT_EQ(Picture().devicePixelRatio(), 1);
  for (const int screen : {1, 0, 1}) {
    const int before = Draws();
    MoveTo(screen);
    EXPECT_EQ(Draws(), before + 1);
    EXPECT_EQ(Picture().devicePixelRatio(), screen + 1);
    EXPECT_EQ(Picture().size(), MapSize() * (screen + 1));
    QCoreApplication::processEvents();
    EXPECT_EQ(Draws(), before + 1) << "and once";
  }
}

TEST_F(Screens, TheEventRedrawsBeforeAnythingIsPainted) {
  Window().MapWindow().setUpdatesEnabled(false);
  const int before = Draws();
  MoveTo(1);
  EXPECT_EQ(Draws(), before + 1);
  EXPECT_EQ(Picture().devicePixelRatio(), 2);
}

TEST_F(Screens, LinesAreFineOnTheFinerScreen) {
  MoveTo(1);
  // Half a logical pixel is visible: a picture that was only enlarged would consist of equal pairs.
  int unequal = 0;
  for (int y = 0; y < Picture().height(); y += 2)
    for (int x = 0; x + 1 < Picture().width(); x += 2)
      unequal += Picture().pixel(x, y) != Picture().pixel(x + 1, y) ? 1 : 0;
  EXPECT_GT(unequal, 10);
}

TEST_F(Screens, TheSavedPictureHasTheResolutionOfTheScreen) {
  dialogs.mapFile = folder / "map.png";
  for (const int screen : {1, 0}) {
    MoveTo(screen);
    Find<QToolButton>("cmdSaveMap")->click();
    QImage shown = Picture();
    shown.setDevicePixelRatio(1);
    const QImage saved(QFile::decodeName((folder / "map.png").c_str()));
    EXPECT_EQ(saved.size(), MapSize() * (screen + 1));
    EXPECT_TRUE(saved.convertToFormat(QImage::Format_RGB32) == shown);
  }
}

TEST_F(Screens, TheSameScreenRedrawsNothing) {
  const int before = Draws();
  MoveTo(0);
  EXPECT_EQ(Draws(), before);
}

TEST_F(Screens, AHiddenMapIsSharpOnceItIsShown) {
  Window().hide();
  MoveTo(1);
  Window().show();
  Window().MapWindow().grab();
  EXPECT_EQ(Picture().devicePixelRatio(), 2);
}

}  // namespace
}  // namespace zerbal::app

int main(int argc, char** argv) {
  QTemporaryFile screens;
  if (!screens.open())
    return 1;
  screens.write(R"({"screens": [
    {"name": "coarse", "x": 0, "y": 0, "width": 1600, "height": 1000, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
    {"name": "fine", "x": 1600, "y": 0, "width": 1600, "height": 1000, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 2}
  ]})");
  screens.close();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
  zerbal::test::UseOffscreenPlatform();
  QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
