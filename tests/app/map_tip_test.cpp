#include "app/map_tip.h"

#include <QElapsedTimer>
#include <QTest>

#include "app_test.h"

namespace zerbal::app {
namespace {

constexpr MapPosition kOslo{191.1F, 29.81F};
constexpr char kOsloText[] = "OSL - Gardermoen (Oslo), elevation 681 ft, 2 runways, longest 11811 ft, ILS";

/// The map is 700 x 360 logical pixels, shows the destinations of the far north, and has Oslo in its centre.
class MapTipTest : public test::RunningTest {
 protected:
  void SetUp() override {
    RunningTest::SetUp();
    Arrange();
  }
  void Arrange() {
    QApplication::setActiveWindow(&Window());
    Window().resize(Window().size() + QSize(700, 360) - Map().size());
    State().map.display.destinations = true;
    State().map.viewport.SelectRegion({"", "", kOslo.lon - 15, kOslo.lat - 8, kOslo.lon + 15, kOslo.lat + 8});
    Map().RecomputeAndRedraw();
    QCoreApplication::processEvents();
    ASSERT_NEAR(Oslo().x(), Map().rect().center().x(), 1);
  }
  void Restart(const char* setting) {
    program.reset();
    SetIni("Program", "MapToolTips", setting);
    ASSERT_TRUE(StartHere());
    Arrange();
  }

  frmMap& Map() { return Window().MapWindow(); }
  QLabel* Label() { return Map().findChild<QLabel*>(); }
  std::string Tip() { return Map().toolTip().toStdString(); }
  QPoint Oslo() {
    const TwipPoint at = State().map.viewport.PictureAt(kOslo);
    return {at.x / kTwipsPerPixel, at.y / kTwipsPerPixel};
  }
  void Send(QEvent::Type type, QPoint at, Qt::MouseButton button = Qt::NoButton, Qt::MouseButtons held = {}) {
    QMouseEvent event(type, at, Map().mapToGlobal(QPointF(at)), button, held, Qt::NoModifier);
    QApplication::sendEvent(&Map(), &event);
  }
  void Move(QPoint at, Qt::MouseButtons held = {}) { Send(QEvent::MouseMove, at, Qt::NoButton, held); }
  void RestAt(QPoint at) {
    Move(at);
    QTest::qWait(MapTip::kRestMs + 150);
  }
  void PressCtrlI() { QTest::keyClick(&Map(), Qt::Key_I, Qt::ControlModifier); }
};

TEST_F(MapTipTest, TheTipShowsAfterHalfASecondOfRest) {
  QElapsedTimer time;
  time.start();
  Move(Oslo());
  EXPECT_TRUE(QTest::qWaitFor([this] { return !Tip().empty(); }, 5000));
  EXPECT_GE(time.elapsed(), 500);
  EXPECT_EQ(Tip(), kOsloText);
  EXPECT_TRUE(Label()->isVisible());
  EXPECT_EQ(Label()->text().toStdString(), kOsloText);
  EXPECT_EQ(Label()->textFormat(), Qt::PlainText);
}

TEST_F(MapTipTest, EachMovementBeginsTheRestAgain) {
  QElapsedTimer time;
  time.start();
  for (int i = 0; i < 6; ++i) {
    Move(Oslo() + QPoint(i % 2, 0));
    QTest::qWait(120);
    if (time.elapsed() < (i + 1) * 240) {  // a slow machine may rest longer by itself
      EXPECT_EQ(Tip(), "");
    }
  }
  EXPECT_TRUE(QTest::qWaitFor([this] { return !Tip().empty(); }, 5000));
}

TEST_F(MapTipTest, TheTipDrawsNothingOnTheMapAndTakesNoMouse) {
  const int draws = Draws();
  const auto operations = drawn.Operations();
  RestAt(Oslo());
  ASSERT_EQ(Tip(), kOsloText);
  EXPECT_EQ(Draws(), draws);
  EXPECT_EQ(drawn.Operations(), operations);
  EXPECT_TRUE(Label()->windowFlags().testFlag(Qt::WindowTransparentForInput));
  EXPECT_EQ(QApplication::focusWidget(), &Map());
}

TEST_F(MapTipTest, AMovementEndsTheTip) {
  RestAt(Oslo());
  ASSERT_EQ(Tip(), kOsloText);
  Move(Oslo());
  EXPECT_EQ(Tip(), kOsloText) << "the same point again";
  Move(Oslo() + QPoint(1, 0));
  EXPECT_EQ(Tip(), "");
  EXPECT_FALSE(Label()->isVisible());
}

TEST_F(MapTipTest, WhateverTheUserDoesEndsTheTip) {
  const std::vector<std::function<void()>> actions{
      [&] {
        Send(QEvent::MouseButtonPress, Oslo(), Qt::LeftButton, Qt::LeftButton);
        EXPECT_EQ(Tip(), "") << "before the release redraws";
        Send(QEvent::MouseButtonRelease, Oslo(), Qt::LeftButton);
      },
      [&] { QTest::keyClick(&Map(), Qt::Key_Right); },
      [&] { QTest::keyClick(&Map(), Qt::Key_Escape); },
      [&] { Map().Redraw(); },
      [&] { Map().clearFocus(); },
      [&] {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(&Map(), &leave);
      },
      [&] {
        QWheelEvent wheel(Oslo(), Map().mapToGlobal(Oslo()), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Map(), &wheel);
      }};
  for (std::size_t i = 0; i < actions.size(); ++i) {
    Arrange();
    Map().setFocus();
    PressCtrlI();
    ASSERT_EQ(Tip(), kOsloText) << i;
    actions[i]();
    EXPECT_EQ(Tip(), "") << i;
    EXPECT_FALSE(Label()->isVisible()) << i;
  }
}

TEST_F(MapTipTest, NothingShowsWhileAButtonIsHeld) {
  const QPoint start(20, 20);
  Move(Oslo());
  Send(QEvent::MouseButtonPress, start, Qt::LeftButton, Qt::LeftButton);
  Move(Oslo(), Qt::LeftButton);
  QTest::qWait(MapTip::kRestMs + 150);
  EXPECT_EQ(Tip(), "");
  const int draws = Draws();
  Send(QEvent::MouseButtonRelease, Oslo(), Qt::LeftButton);
  EXPECT_EQ(Draws(), draws + 1) << "the zoom box zooms";
}

TEST_F(MapTipTest, ControlIDescribesTheCentre) {
  PressCtrlI();
  EXPECT_EQ(Tip(), kOsloText);
  EXPECT_TRUE(Label()->isVisible());
  State().map.display.destinations = false;
  Map().Redraw();
  PressCtrlI();
  EXPECT_EQ(Tip(), "") << "nothing is there";
}

TEST_F(MapTipTest, NothingShowsOutsideOfTheMap) {
  State().map.viewport.SelectRegion({"", "", 5, 0, 355, 180});
  Window().resize(Window().size() + QSize(0, 200));
  Map().RecomputeAndRedraw();
  RestAt({350, 2});
  EXPECT_EQ(Tip(), "");
}

TEST_F(MapTipTest, TheTipStaysOnTheScreen) {
  const QRect screen = Map().screen()->geometry();
  Window().move(screen.right() - Window().width() / 2 - 20, screen.bottom() - Window().height() / 2 - 20);
  QCoreApplication::processEvents();
  PressCtrlI();
  ASSERT_EQ(Tip(), kOsloText);
  const QRect tip(Label()->pos(), Label()->size());  // without the frame of the test's platform
  EXPECT_TRUE(screen.contains(tip)) << tip.left() << " " << tip.top() << " to " << tip.right() << " "
                                    << tip.bottom();
}

TEST_F(MapTipTest, ASettingTurnsItOff) {
  EXPECT_EQ(Ini("Program", "MapToolTips"), "(missing)") << "only read";
  Restart("0");
  PressCtrlI();
  RestAt(Oslo());
  EXPECT_EQ(Tip(), "");
  Restart("1");
  PressCtrlI();
  EXPECT_EQ(Tip(), kOsloText);
}

}  // namespace
}  // namespace zerbal::app
