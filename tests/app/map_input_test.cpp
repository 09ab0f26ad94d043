#include "app/map_input.h"

#include <QTest>
#include <QToolButton>
#include <cmath>

#include "app_test.h"

namespace zerbal::app {
namespace {

/// The map is 700 x 360 logical pixels and shows 60 x 30 degrees or, after World(), 350 x 180.
class MapInputTest : public test::RunningTest {
 protected:
  void SetUp() override {
    RunningTest::SetUp();
    QApplication::setActiveWindow(&Window());
    Window().resize(Window().size() + QSize(700, 360) - Map().size());
    Ask(100, 50, 160, 80);
    ASSERT_EQ(Map().size(), QSize(700, 360));
    QCoreApplication::processEvents();
    draws_ = Draws();
  }

  frmMap& Map() { return Window().MapWindow(); }
  map::Viewport& View() { return State().map.viewport; }
  void Ask(float west, float top, float east, float bottom) {
    View().SelectRegion({"", "", west, top, east, bottom});
    Map().RecomputeAndRedraw();
  }
  void World() { Ask(5, 0, 355, 180); }

  void Turn(QPointF at, int eighths, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButtons held = {}) {
    QWheelEvent event(at, Map().mapToGlobal(at), {}, {0, eighths}, held, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Map(), &event);
  }
  /// The redraws since the last call, those of waiting events included.
  int NewDraws() {
    QCoreApplication::processEvents();
    return Draws() - std::exchange(draws_, Draws());
  }
  int DrawsOfKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    NewDraws();
    QTest::keyClick(&Map(), key, modifiers);
    return NewDraws();
  }
  MapPosition PositionAt(QPointF at) { return View().Unproject(ToTwipPosition(at.x(), at.y())); }
  MapPosition Centre() { return PositionAt({350, 180}); }

  /// The rectangles of the zoom box since the last redraw.
  std::vector<std::array<int, 4>> Boxes() {
    std::vector<std::array<int, 4>> found;
    for (const map::Operation& operation : drawn.Operations())
      if (operation.layer == map::Layer::kZoomBox)
        found.push_back({operation.from.x, operation.from.y, operation.to.x, operation.to.y});
    return found;
  }

  int draws_ = 0;
};
using Box = std::array<int, 4>;

TEST_F(MapInputTest, ANotchZoomsBy20PercentWithCtrlBy50) {
  const float span = View().MapLonSpan();
  Turn({350, 180}, 120);
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_NEAR(View().MapLonSpan(), span * 0.8F, 1e-3);
  Turn({350, 180}, -120);
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_NEAR(View().MapLonSpan(), span * 0.96F, 1e-3);
  Turn({350, 180}, 120, Qt::ControlModifier);
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_NEAR(View().MapLonSpan(), span * 0.48F, 1e-3);
  Turn({350, 180}, -120, Qt::ControlModifier);
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_NEAR(View().MapLonSpan(), span * 0.72F, 1e-3);
}

TEST_F(MapInputTest, TheWheelKeepsThePlaceUnderThePointer) {
  for (const float west : {100.0F, 330.0F, 345.0F}) {
    for (const QPointF at : {QPointF(0, 0), QPointF(699, 359), QPointF(13, 300), QPointF(350, 180)}) {
      for (const int eighths : {120, 360, -120, -240}) {
        Ask(west, 60, std::fmod(west + 50, 360.0F), 85);
        const MapPosition before = PositionAt(at);
        Turn(at, eighths, eighths == 360 ? Qt::ControlModifier : Qt::NoModifier);
        EXPECT_EQ(NewDraws(), 2) << "one of them is that of the region";
        const MapPosition after = PositionAt(at);
        const double pixel = kTwipsPerPixel / View().MapScale();
        EXPECT_LE(std::fabs(std::remainder(before.lon - after.lon, 360.0)), pixel) << west << " " << eighths;
        EXPECT_LE(std::fabs(before.lat - after.lat), pixel) << west << " " << eighths;
      }
    }
  }
}

TEST_F(MapInputTest, AFastWheelRedrawsOnce) {
  const float span = View().MapLonSpan();
  for (int i = 0; i < 8; ++i)
    Turn({100.0 + i, 180}, 120);
  EXPECT_EQ(Draws(), draws_) << "nothing before all of it has come in";
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_NEAR(View().MapLonSpan(), span * std::pow(0.8, 8), 1e-2);
  EXPECT_EQ(NewDraws(), 0);
}

TEST_F(MapInputTest, NotchesOfATouchPadAddUp) {
  for (int i = 0; i < 11; ++i)
    Turn({350, 180}, 10);
  EXPECT_EQ(NewDraws(), 0);
  Turn({350, 180}, 10);
  EXPECT_EQ(NewDraws(), 1);
}

TEST_F(MapInputTest, AHorizontalWheelDoesNothing) {
  Turn({350, 180}, -60);
  QWheelEvent sideways(QPointF(350, 180), Map().mapToGlobal(QPointF(350, 180)), {}, {120, 0}, {}, {},
                       Qt::NoScrollPhase, false);
  QApplication::sendEvent(&Map(), &sideways);
  EXPECT_EQ(NewDraws(), 0);
  Turn({350, 180}, -60);
  EXPECT_EQ(NewDraws(), 1) << "the started notch goes on";
}

TEST_F(MapInputTest, TheWheelHasTheLimitsOfTheZoom) {
  World();
  NewDraws();
  Turn({350, 180}, -120);
  EXPECT_EQ(NewDraws(), 0);
  Turn({350, 180}, 120 * 1000);
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_GE(View().MapLonSpan(), map::kSmallestLonSpan);
  EXPECT_LT(View().MapLonSpan(), map::kSmallestLonSpan / 0.8F);
  Turn({350, 180}, 120);
  EXPECT_EQ(NewDraws(), 0);
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(MapInputTest, OutsideTheMapTheWheelDoesNothing) {
  Window().resize(Window().width() + 300, Window().height());
  World();
  NewDraws();
  Turn({100, 180}, 120);
  Turn({999, 180}, 120);
  EXPECT_EQ(NewDraws(), 0);
  Turn({151, 180}, 120);
  EXPECT_EQ(NewDraws(), 1);
}

TEST_F(MapInputTest, TheWheelDoesNotDisturbADrag) {
  QTest::mousePress(&Map(), Qt::LeftButton, {}, {200, 100});
  Turn({200, 100}, 120, {}, Qt::LeftButton);
  EXPECT_EQ(NewDraws(), 0);
  QTest::mouseRelease(&Map(), Qt::LeftButton, {}, {200, 100});
  EXPECT_EQ(NewDraws(), 1);
}

TEST_F(MapInputTest, TheMapHasTheFocusAfterTheStartByTabAndByClick) {
  EXPECT_TRUE(Map().hasFocus());
  auto* button = Find<QToolButton>("cmdSaveMap");
  button->setFocus();
  QTest::keyClick(button, Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(Map().hasFocus()) << "the control before the last button";
  button->setFocus();
  EXPECT_EQ(Map().focusPolicy(), Qt::StrongFocus) << "a wheel does not move it";
}

TEST_F(MapInputTest, TheFocusIsVisibleOnceTheKeyboardMovedIt) {
  const auto corner = [&] { return Map().grab().toImage().pixelColor(0, 0); };
  EXPECT_EQ(Map().grab().toImage().convertToFormat(QImage::Format_RGB32), Map().Picture());
  Find<QToolButton>("cmdSaveMap")->setFocus();
  QTest::keyClick(Find<QToolButton>("cmdSaveMap"), Qt::Key_Backtab, Qt::ShiftModifier);
  ASSERT_TRUE(Map().hasFocus());
  EXPECT_EQ(corner(), QColor(Qt::black));
  EXPECT_EQ(Map().grab().toImage().pixelColor(1, 1), QColor(Qt::white));
  Find<QToolButton>("cmdSaveMap")->setFocus();
  EXPECT_EQ(Map().grab().toImage().convertToFormat(QImage::Format_RGB32), Map().Picture());
}

TEST_F(MapInputTest, ArrowsMoveByATenthWithShiftByHalf) {
  const MapPosition centre = Centre();
  const float lonSpan = View().MapLonSpan();
  const float latSpan = View().MapLatSpan();
  const auto expect = [&](float lonParts, float latParts) {
    EXPECT_NEAR(Centre().lon, centre.lon + lonParts * lonSpan, 0.01);
    EXPECT_NEAR(Centre().lat, centre.lat + latParts * latSpan, 0.01);
  };
  EXPECT_EQ(DrawsOfKey(Qt::Key_Right), 1);
  expect(0.1F, 0);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Down), 1);
  expect(0.1F, 0.1F);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Left, Qt::KeypadModifier), 1);
  expect(0, 0.1F);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Up), 1);
  expect(0, 0);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Left, Qt::ShiftModifier), 1);
  expect(-0.5F, 0);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Up, Qt::ShiftModifier), 1);
  expect(-0.5F, -0.5F);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Right, Qt::ControlModifier), 0);
}

TEST_F(MapInputTest, AtThePoleNothingIsDrawn) {
  EXPECT_EQ(DrawsOfKey(Qt::Key_Home), 1);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Up), 0);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Down, Qt::ShiftModifier), 0);
}

TEST_F(MapInputTest, PageKeysZoomAndHomeShowsTheWorld) {
  const float span = View().MapLonSpan();
  EXPECT_EQ(DrawsOfKey(Qt::Key_PageUp), 1);
  EXPECT_NEAR(View().MapLonSpan(), span * 0.8F, 1e-3);
  EXPECT_EQ(DrawsOfKey(Qt::Key_PageDown), 1);
  EXPECT_NEAR(View().MapLonSpan(), span * 0.96F, 1e-3);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Home), 1);
  EXPECT_EQ(View().ReqLonMin(), State().map.style.regions.rows[0].fromLon);
  EXPECT_EQ(View().MapLonSpan(), 350);
  EXPECT_EQ(DrawsOfKey(Qt::Key_PageDown), 0);
}

TEST_F(MapInputTest, EnterZoomsToABoxThatArrowsSize) {
  const QImage before = Map().Picture().copy();
  const MapPosition centre = Centre();
  EXPECT_EQ(DrawsOfKey(Qt::Key_Return), 0);
  EXPECT_EQ(Boxes(), (std::vector<Box>{{2625, 1350, 7875, 4050}}));
  EXPECT_EQ(DrawsOfKey(Qt::Key_Right), 0);
  EXPECT_EQ(Boxes().back(), (Box{2362, 1350, 8138, 4050}));
  DrawsOfKey(Qt::Key_Left);
  DrawsOfKey(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Boxes().back(), (Box{2625, 2025, 7875, 3375}));
  DrawsOfKey(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(Boxes().back(), (Box{3938, 2025, 6562, 3375}));
  EXPECT_NE(Map().Picture(), before);
  const float span = View().MapLonSpan();
  EXPECT_EQ(DrawsOfKey(Qt::Key_Enter, Qt::KeypadModifier), 1);
  EXPECT_NEAR(View().MapLonSpan(), span / 4, 0.05);
  EXPECT_NEAR(Centre().lon, centre.lon, 0.05);
  EXPECT_NEAR(Centre().lat, centre.lat, 0.05);
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(MapInputTest, ABoxOfTheKeysStaysBetweenTheSmallestAndTheWholeMap) {
  DrawsOfKey(Qt::Key_Return);
  for (int i = 0; i < 5; ++i) {
    DrawsOfKey(Qt::Key_Right, Qt::ShiftModifier);
    DrawsOfKey(Qt::Key_Up, Qt::ShiftModifier);
  }
  EXPECT_EQ(Boxes().back(), (Box{0, 0, 10500, 5400}));
  for (int i = 0; i < 5; ++i) {
    DrawsOfKey(Qt::Key_Left, Qt::ShiftModifier);
    DrawsOfKey(Qt::Key_Down, Qt::ShiftModifier);
  }
  EXPECT_EQ(Boxes().back()[2] - Boxes().back()[0], 525 - 1) << "both corners are rounded";
}

TEST_F(MapInputTest, EnterHeldDownOpensOneBox) {
  DrawsOfKey(Qt::Key_Return);
  for (int i = 0; i < 3; ++i) {
    QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, {}, "\r", true);
    QApplication::sendEvent(&Map(), &again);
  }
  EXPECT_EQ(NewDraws(), 0);
  EXPECT_EQ(Boxes().size(), 1U);
}

TEST_F(MapInputTest, EscapeRemovesTheBoxOfTheKeys) {
  const QImage before = Map().Picture().copy();
  DrawsOfKey(Qt::Key_Return);
  DrawsOfKey(Qt::Key_Up);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Escape), 0);
  EXPECT_EQ(Map().Picture(), before);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Right), 1) << "arrows move the view again";
}

TEST_F(MapInputTest, LeavingTheMapRemovesTheBoxOfTheKeys) {
  const QImage before = Map().Picture().copy();
  DrawsOfKey(Qt::Key_Return);
  Find<QToolButton>("cmdZoomIn")->setFocus();
  EXPECT_EQ(Map().Picture(), before);
}

TEST_F(MapInputTest, TheMouseTakesNoNoticeOfTheBoxOfTheKeys) {
  const QImage before = Map().Picture().copy();
  DrawsOfKey(Qt::Key_Return);
  QTest::mouseRelease(&Map(), Qt::LeftButton, {}, {200, 100});
  EXPECT_EQ(NewDraws(), 0);
  QTest::mousePress(&Map(), Qt::LeftButton, {}, {200, 100});
  EXPECT_EQ(Map().Picture(), before);
  QTest::mouseRelease(&Map(), Qt::LeftButton, {}, {200, 100});
  EXPECT_EQ(NewDraws(), 1) << "the click centres";
}

TEST_F(MapInputTest, ARedrawRemovesTheBoxOfTheKeys) {
  DrawsOfKey(Qt::Key_Return);
  Entry("mnuFlitFSrv(0)")->trigger();
  EXPECT_TRUE(Boxes().empty());
  DrawsOfKey(Qt::Key_Escape);
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(MapInputTest, EscapeCancelsADrag) {
  const QImage before = Map().Picture().copy();
  const auto drag = [&](QPoint to) {
    const QPointF at(to);
    QMouseEvent move(QEvent::MouseMove, at, Map().mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&Map(), &move);
  };
  QTest::mousePress(&Map(), Qt::LeftButton, {}, {200, 100});
  drag({300, 180});
  drag({333, 201});
  EXPECT_NE(Map().Picture(), before);
  EXPECT_EQ(DrawsOfKey(Qt::Key_Escape), 0);
  EXPECT_EQ(Map().Picture(), before);
  drag({400, 222});
  QTest::mouseRelease(&Map(), Qt::LeftButton, {}, {400, 222});
  EXPECT_EQ(NewDraws(), 0);
  EXPECT_EQ(Map().Picture(), before);
  QTest::mousePress(&Map(), Qt::LeftButton, {}, {200, 100});
  EXPECT_EQ(DrawsOfKey(Qt::Key_Escape), 0);
  QTest::mouseRelease(&Map(), Qt::LeftButton, {}, {200, 100});
  EXPECT_EQ(NewDraws(), 0) << "nor does it centre";
}

TEST_F(MapInputTest, OtherKeysDoNotDisturbADrag) {
  QTest::mousePress(&Map(), Qt::LeftButton, {}, {200, 100});
  for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Home, Qt::Key_PageUp, Qt::Key_Return, Qt::Key_Menu})
    EXPECT_EQ(DrawsOfKey(key), 0);
  EXPECT_FALSE(Find<QMenu>("mnuPop")->isVisible());
  QTest::mouseRelease(&Map(), Qt::LeftButton, {}, {200, 100});
}

TEST_F(MapInputTest, OtherControlsKeepTheirKeys) {
  auto* box = Find<QCheckBox>("chkAprt");
  box->setFocus();
  NewDraws();
  for (const Qt::Key key : {Qt::Key_Home, Qt::Key_PageUp, Qt::Key_Return, Qt::Key_Escape})
    QTest::keyClick(box, key);
  EXPECT_EQ(NewDraws(), 0);
}

TEST_F(MapInputTest, TheMenuKeyOpensThePopupMenu) {
  auto* popup = Find<QMenu>("mnuPop");
  for (const auto& [key, modifiers] :
       {std::pair(Qt::Key_Menu, Qt::NoModifier), std::pair(Qt::Key_F10, Qt::ShiftModifier)}) {
    DrawsOfKey(key, modifiers);
    EXPECT_TRUE(popup->isVisible());
    EXPECT_EQ(popup->pos(), Map().mapToGlobal(Map().rect().center()));
    QTest::keyClick(popup, Qt::Key_Escape);
    EXPECT_FALSE(popup->isVisible());
  }
}

TEST_F(MapInputTest, TheMenuKeyOpensTheDelimitationOfACheckBox) {
  const std::pair<const char*, DialogKind> layers[] = {{"chkAprt", DialogKind::kDelimitAllAirports},
                                                       {"chkDest", DialogKind::kDelimitDestinations}};
  for (const auto& [name, dialog] : layers) {
    auto* box = Find<QCheckBox>(name);
    box->setFocus();
    dialogs.shown.clear();
    QTest::keyClick(box, Qt::Key_Menu);
    QTest::keyClick(box, Qt::Key_F10, Qt::ShiftModifier);
    QTest::keyClick(box, Qt::Key_F10);
    EXPECT_EQ(dialogs.shown, (std::vector{dialog, dialog}));
    EXPECT_FALSE(box->isChecked());
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_TRUE(box->isChecked());
  }
}

}  // namespace
}  // namespace zerbal::app
