#include "app/frm_map.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "map/map_world.h"
#include "map/recorder.h"
#include "support/everything_shown.h"
#include "support/pictures.h"
#include "support/test_random.h"

namespace zerbal::app {
namespace {

/// A coast along the equator, two airports and a flight between them.
class World : public map::MapWorld {
 public:
  World() {
    for (int lon = 0; lon <= 360; lon += 2)
      coast["wcl"].push_back(map::At(lon, 90 + lon % 3 * 4));
    allaprt = {map::Airport("AAA", 100, 60), map::Airport("BBB", 200, 80)};
    dest = allaprt;
    flit = {map::Flight("QV1", "EUR", {"AAA", "BBB"})};
    AddService("EUR", {200, 0, 0});
    options.allAirports = true;
    Ask(5, 0, 355, 180);
  }

  /// Requests a region: west, top, east, bottom.
  void Ask(float west, float top, float east, float bottom) {
    viewport.SelectRegion({"", "", west, top, east, bottom});
  }
};

/// Records the cursor of the program at each drawing operation.
class CursorWatch final : public map::Surface {
 public:
  void BeginLayer(map::Layer) override { Look(); }
  void Clear(data::Rgb) override { Look(); }
  void Polyline(std::span<const TwipPoint>, const map::Pen&) override { Look(); }
  void Rectangle(TwipPoint, TwipPoint, const map::Pen&) override { Look(); }
  void Circle(TwipPoint, std::int32_t, data::Rgb, bool) override { Look(); }
  void Text(TwipPoint, std::string_view, data::Rgb, const map::TextFont&) override { Look(); }

  int operations = 0;
  int withHourglass = 0;

 private:
  void Look() {
    const QCursor* cursor = QApplication::overrideCursor();
    ++operations;
    withHourglass += cursor != nullptr && cursor->shape() == Qt::WaitCursor ? 1 : 0;
  }
};

/// A map window of 700 x 360 logical pixels that shows the world: 30 twips per degree, no margins, the left
/// edge at map longitude 5.
class FrmMapTest : public testing::Test {
 protected:
  FrmMapTest() : scene_(world_.Scene()), map_(scene_, world_.viewport, &host_) {
    host_.resize(1400, 800);
    host_.show();
    map_.SetObserver(&recorder_);
    QObject::connect(&map_, &frmMap::PositionChanged, [this](const QString& lon, const QString& lat) {
      position_ = (lon + " " + lat).toStdString();
    });
    QObject::connect(&map_, &frmMap::ExtentChanged,
                     [this](const QString& text) { extents_.push_back(text.toStdString()); });
    QObject::connect(&map_, &frmMap::PopupRequested, [this](const QPoint& at) { popups_.push_back(at); });
    Resize(700, 360);
    map_.show();
    QApplication::processEvents();
  }

  void Resize(int width, int height) {
    map_.resize(width, height);
    QApplication::processEvents();
  }

  void Send(QEvent::Type type, double x, double y, Qt::MouseButton button, Qt::MouseButtons buttons) {
    const QPointF local(x / 15, y / 15);
    QMouseEvent event(type, local, map_.mapToGlobal(local), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&map_, &event);
  }
  void Press(double x, double y, Qt::MouseButton button = Qt::LeftButton, Qt::MouseButtons held = {}) {
    Send(QEvent::MouseButtonPress, x, y, button, held | button);
  }
  void Move(double x, double y, Qt::MouseButtons held = Qt::LeftButton) {
    Send(QEvent::MouseMove, x, y, Qt::NoButton, held);
  }
  void Release(double x, double y, Qt::MouseButton button = Qt::LeftButton, Qt::MouseButtons held = {}) {
    Send(QEvent::MouseButtonRelease, x, y, button, held);
  }

  using Box = std::array<std::int32_t, 4>;
  /// The operations of the zoom box since the last complete redraw.
  std::vector<Box> Boxes() const {
    std::vector<Box> boxes;
    for (const map::Operation& operation : recorder_.Operations()) {
      if (operation.layer != map::Layer::kZoomBox)
        continue;
      EXPECT_EQ(operation.kind, map::Operation::Kind::kRectangle);
      EXPECT_EQ(operation.pen, (map::Pen{.colour = map::ColourOf(data::ColourCode::kZoom),
                                         .width = 1,
                                         .style = map::LineStyle::kDotted,
                                         .mode = map::PenMode::kXor}));
      boxes.push_back({operation.from.x, operation.from.y, operation.to.x, operation.to.y});
    }
    return boxes;
  }

  /// The redraws since the last call.
  int NewDraws() {
    const int draws = map_.Draws() - asked_;
    asked_ = map_.Draws();
    return draws;
  }

  double Ratio() const { return map_.devicePixelRatioF(); }

  World world_;
  CursorWatch watch_;
  map::MapScene scene_;
  map::Recorder recorder_;
  QWidget host_;
  frmMap map_;
  map::Viewport& view_ = world_.viewport;
  std::string position_;
  std::vector<std::string> extents_;
  std::vector<QPoint> popups_;
  int asked_ = 0;
};

TEST_F(FrmMapTest, EveryResizeComputesAndDrawsOnce) {
  NewDraws();
  EXPECT_EQ(view_.MapWidth(), 10500);
  EXPECT_EQ(view_.MapHeight(), 5400);
  EXPECT_EQ(extents_.back(), "180.00\xC2\xB0 Latitude / 350.00\xC2\xB0 Longitude");
  for (const QSize size : {QSize(100, 700), QSize(1300, 90), QSize(1, 1), QSize(700, 360)}) {
    Resize(size.width(), size.height());
    EXPECT_EQ(NewDraws(), 1);
    EXPECT_EQ(view_.MapWidth(), size.width() * 15);
    EXPECT_EQ(view_.MapHeight(), size.height() * 15);
    EXPECT_EQ(map_.Picture().width(), std::ceil(size.width() * Ratio()));
    EXPECT_EQ(map_.Picture().devicePixelRatio(), Ratio());
  }
}

TEST_F(FrmMapTest, WithoutAnAreaNothingChanges) {
  const QImage before = map_.Picture().copy();
  const float scale = view_.MapScale();
  const auto extents = extents_.size();
  NewDraws();
  Resize(0, 360);
  map_.Redraw();
  map_.RecomputeAndRedraw();
  EXPECT_EQ(NewDraws(), 0);
  EXPECT_EQ(map_.Picture(), before);
  EXPECT_EQ(view_.MapScale(), scale);
  EXPECT_EQ(extents_.size(), extents);
  Resize(700, 360);
  EXPECT_EQ(NewDraws(), 1);
}

TEST_F(FrmMapTest, RedrawDrawsWithoutComputing) {
  NewDraws();
  const auto extents = extents_.size();
  world_.Ask(100, 50, 110, 55);
  map_.Redraw();
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_EQ(view_.MapLonMin(), 5);
  EXPECT_EQ(extents_.size(), extents);
  map_.RecomputeAndRedraw();
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_LT(view_.MapLonSpan(), 20);
  EXPECT_EQ(extents_.size(), extents + 1);
}

TEST_F(FrmMapTest, TheObserverReceivesTheCompleteRedraw) {
  const auto& operations = recorder_.Operations();
  ASSERT_FALSE(operations.empty());
  EXPECT_EQ(operations.front().kind, map::Operation::Kind::kClear);
  const auto count = [&](map::Layer layer) {
    return std::count_if(operations.begin(), operations.end(),
                         [&](const map::Operation& operation) { return operation.layer == layer; });
  };
  EXPECT_GT(count(map::Layer::kCoast), 100);
  EXPECT_EQ(count(map::Layer::kAirports), 4);
  EXPECT_GT(count(map::Layer::kFlights), 0);
  EXPECT_EQ(count(map::Layer::kZoomBox), 0);
}

TEST_F(FrmMapTest, TheWindowHasTheFontAndColourOfTheMap) {
  world_.style.fonts[data::FontCode::kLoRes].name = "DejaVu Sans";
  world_.style.fonts[data::FontCode::kLoRes].size = 13;
  world_.style.colours.rows[0].rgb = {1, 2, 3};
  map_.Redraw();
  EXPECT_EQ(map_.font().family(), "DejaVu Sans");
  EXPECT_EQ(map_.font().pointSize(), 13);
  EXPECT_EQ(map_.property("colour").value<QColor>(), QColor(1, 2, 3));
}

TEST_F(FrmMapTest, MarginsHaveTheMapsBackground) {
  Resize(1000, 360);
  const QRgb background = qRgb(1, 100, 200);
  for (const double x : {0.0, 100.0, 149.0, 851.0, 999.0})
    for (const double y : {0.0, 180.0, 359.0})
      EXPECT_EQ(map_.Picture().pixel(static_cast<int>(x * Ratio()), static_cast<int>(y * Ratio())),
                background);
}

TEST_F(FrmMapTest, ShowsItsPicture) {
  const QImage shown = map_.grab().toImage().convertToFormat(QImage::Format_RGB32);
  EXPECT_EQ(shown.size(), map_.Picture().size());
  EXPECT_EQ(shown, map_.Picture());
}

TEST_F(FrmMapTest, TheHourglassIsShownFromTheFirstToTheLastOperationOfARedraw) {
  map_.SetObserver(&watch_);
  for (const auto redraw : {&frmMap::Redraw, &frmMap::RecomputeAndRedraw}) {
    watch_.operations = watch_.withHourglass = 0;
    (map_.*redraw)();
    EXPECT_GT(watch_.operations, 8);
    EXPECT_EQ(watch_.withHourglass, watch_.operations);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "back to normal afterwards";
  }
}

TEST_F(FrmMapTest, WithoutARedrawNoHourglassIsShown) {
  map_.SetObserver(&watch_);
  Press(3000, 2000);
  Move(4000, 3000);
  EXPECT_GT(watch_.operations, 0);
  EXPECT_EQ(watch_.withHourglass, 0);
}

TEST_F(FrmMapTest, MovingShowsThePosition) {
  Move(5250, 2700, {});
  EXPECT_EQ(position_, "E000\xC2\xB0 00.00' N00\xC2\xB0 00.00'");
  Move(5250 - 255, 2700 + 300, {});
  EXPECT_EQ(position_, "W008\xC2\xB0 30.00' S10\xC2\xB0 00.00'");
  EXPECT_TRUE(Boxes().empty());
}

TEST_F(FrmMapTest, MovingOverAMarginKeepsTheLastTexts) {
  Resize(1000, 360);
  Move(7500, 2700, {});
  const std::string before = position_;
  EXPECT_FALSE(before.empty());
  Move(100, 2700, {});
  Move(14900, 2700, {});
  EXPECT_EQ(position_, before);
}

TEST_F(FrmMapTest, ALongitudeAbove360IsReduced) {
  world_.Ask(340, 80, 20, 100);
  map_.RecomputeAndRedraw();
  Move((369.5 - view_.MapLonMin()) * view_.MapScale(), 2700, {});
  EXPECT_EQ(position_.substr(0, 4), "W170");
}

TEST_F(FrmMapTest, ClickCentresWithoutZooming) {
  NewDraws();
  world_.Ask(100, 60, 140, 80);
  map_.RecomputeAndRedraw();
  const float lonSpan = view_.MapLonSpan();
  const float latSpan = view_.MapLatSpan();
  const MapPosition wanted = view_.Unproject({3000, 2000});
  NewDraws();
  Press(3000, 2000);
  Release(3000, 2000);
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_NEAR(view_.MapLonMin() + view_.MapLonSpan() / 2, wanted.lon, 0.01);
  EXPECT_NEAR(view_.MapLatMin() + view_.MapLatSpan() / 2, wanted.lat, 0.01);
  EXPECT_NEAR(view_.MapLonSpan(), lonSpan, 0.01);
  EXPECT_NEAR(view_.MapLatSpan(), latSpan, 0.01);
}

TEST_F(FrmMapTest, ClickNearThePoleKeepsTheSpan) {
  world_.Ask(100, 30, 216.6666F, 90);
  map_.RecomputeAndRedraw();
  ASSERT_NEAR(view_.MapLatSpan(), 60, 0.01);
  const float span = view_.MapLatSpan();
  Press(5000, 10);
  Release(5000, 10);
  EXPECT_NEAR(view_.MapLatSpan(), span, 0.01);
  Press(5000, 10);
  Release(5000, 10);
  EXPECT_NEAR(view_.MapLatMin(), 0, 0.001);
  EXPECT_EQ(view_.ReqLatMin(), 0);
  EXPECT_NEAR(view_.MapLatMax(), 60, 0.02);
}

TEST_F(FrmMapTest, AMovementThatReturnsToThePressIsAClick) {
  NewDraws();
  Press(3000, 2000);
  Move(4000, 3000);
  Move(3000, 2000);
  Release(3000, 2000);
  EXPECT_EQ(NewDraws(), 1);
}

TEST_F(FrmMapTest, BoxIsErasedAndDrawnAtEachMove) {
  NewDraws();
  Press(3000, 2000);
  EXPECT_TRUE(Boxes().empty());
  Move(4000, 2500);
  EXPECT_EQ(Boxes(), (std::vector<Box>{{3000, 2000, 3000, 2000}, {3000, 2000, 4000, 2500}}));
  Move(2000, 1000);
  EXPECT_EQ(Boxes(), (std::vector<Box>{{3000, 2000, 3000, 2000},
                                       {3000, 2000, 4000, 2500},
                                       {3000, 2000, 4000, 2500},
                                       {3000, 2000, 2000, 1000}}));
  EXPECT_EQ(NewDraws(), 0);
}

TEST_F(FrmMapTest, ZoomsToTheBox) {
  NewDraws();
  Press(3000, 2000);
  Move(6000, 4000);
  Release(6000, 3500);
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_EQ(view_.ReqLonMin(), 105);
  EXPECT_EQ(view_.ReqLonMax(), 205);
  EXPECT_FLOAT_EQ(view_.ReqLatMin(), 2000 / 30.0F);
  EXPECT_FLOAT_EQ(view_.ReqLatMax(), 3500 / 30.0F);
  EXPECT_TRUE(Boxes().empty()) << "gone with the redraw";
}

TEST_F(FrmMapTest, BoxMayBeDraggedFromAnyCorner) {
  Press(6000, 3500);
  Move(5000, 3000);
  Release(3000, 2000);
  EXPECT_EQ(view_.ReqLonMin(), 105);
  EXPECT_EQ(view_.ReqLonMax(), 205);
  EXPECT_FLOAT_EQ(view_.ReqLatMin(), 2000 / 30.0F);
}

TEST_F(FrmMapTest, BoxOfHalfADegreeZooms) {
  NewDraws();
  Press(3000, 2000);
  Move(3015, 2001);
  Release(3015, 2001);
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_EQ(view_.ReqLonMax() - view_.ReqLonMin(), 0.5F);
}

TEST_F(FrmMapTest, SmallerBoxIsErased) {
  NewDraws();
  Press(3000, 2000);
  Move(3014, 2007);
  Release(3014, 2007);
  EXPECT_EQ(NewDraws(), 0);
  EXPECT_EQ(Boxes(),
            (std::vector<Box>{{3000, 2000, 3000, 2000}, {3000, 2000, 3014, 2007}, {3000, 2000, 3014, 2007}}));
}

TEST_F(FrmMapTest, ABoxBeginsWithOneTwip) {
  NewDraws();
  Press(3000, 2000);
  Move(3001, 2001);
  Release(3001, 2001);
  EXPECT_EQ(NewDraws(), 0);
  EXPECT_EQ(view_.MapLonMin(), 5);
}

TEST_F(FrmMapTest, BoxWithoutWidthOrHeightDoesNotZoom) {
  NewDraws();
  Press(3000, 2000);
  Move(3000, 4000);
  Release(3000, 4000);
  EXPECT_EQ(NewDraws(), 0);
  EXPECT_EQ(Boxes().size(), 3U);
  Press(3000, 2000);
  Move(6000, 2000);
  Release(6000, 2000);
  EXPECT_EQ(NewDraws(), 0);
  EXPECT_EQ(Boxes().size(), 6U);
}

TEST_F(FrmMapTest, AnErasedBoxLeavesOnlyThePressPoint) {
  const QImage before = map_.Picture().copy();
  Press(3000, 2000);
  Move(6000, 4000);
  EXPECT_NE(map_.Picture(), before);
  Move(1000, 300);
  Move(3000, 2100);
  Release(3000, 2100);
  QRect touched;
  for (int y = 0; y < before.height(); ++y)
    for (int x = 0; x < before.width(); ++x)
      if (before.pixel(x, y) != map_.Picture().pixel(x, y))
        touched |= QRect(x, y, 1, 1);
  const PixelScale scale(Ratio());
  const int dot = scale.LineWidth(1);
  EXPECT_EQ(touched, QRect(static_cast<int>(200 * Ratio()), scale.ToPixelPoint({0, 2000}).y, dot, dot));
}

TEST_F(FrmMapTest, AReleaseElsewhereErasesTheDrawnBox) {
  Resize(1000, 360);  // margins of 2250 twips left and right
  NewDraws();
  Press(2255, 2000);
  Move(2258, 2003);
  // Over the margin the box does not move; at the release it is too small for a zoom.
  Move(2249, 2003);
  Release(2249, 2003);
  EXPECT_EQ(NewDraws(), 0);
  EXPECT_EQ(Boxes().back(), (Box{2255, 2000, 2258, 2003}));
}

TEST_F(FrmMapTest, ReleaseWithoutAMoveDrawsNoBox) {
  const QImage before = map_.Picture().copy();
  Press(3000, 2000);
  Release(3014, 2007);
  EXPECT_TRUE(Boxes().empty());
  EXPECT_EQ(map_.Picture(), before);
}

TEST_F(FrmMapTest, PressInAMarginDoesNothing) {
  Resize(1000, 360);
  NewDraws();
  Press(1000, 2000);
  Move(5000, 3000);
  Release(7000, 4000);
  EXPECT_TRUE(Boxes().empty());
  EXPECT_EQ(NewDraws(), 0);
  Press(1000, 2000);
  Release(1000, 2000);
  EXPECT_EQ(NewDraws(), 0);
}

TEST_F(FrmMapTest, ADragIntoAMarginEndsAtTheWindowsEdge) {
  Resize(1000, 360);
  Press(4500, 1500);
  Move(3000, 1000);
  Move(500, 500);
  EXPECT_EQ(Boxes().back(), (Box{4500, 1500, 3000, 1000})) << "not moved over the margin";
  Release(-400, -300);
  EXPECT_FLOAT_EQ(view_.ReqLonMin(), (0 - 2250) / 30.0F + 5) << "a part of the margin is asked for";
  EXPECT_FLOAT_EQ(view_.ReqLonMax(), 80);
  EXPECT_EQ(view_.ReqLatMin(), 0);
  EXPECT_FLOAT_EQ(view_.ReqLatMax(), 50);
}

TEST_F(FrmMapTest, CornerIsLimitedToTheDrawingArea) {
  Press(3000, 2000);
  Move(4000, 3000);
  Release(99999, 99999);
  EXPECT_FLOAT_EQ(view_.ReqLonMax(), 355);
  EXPECT_FLOAT_EQ(view_.ReqLatMax(), 180);
}

TEST_F(FrmMapTest, AnEndedBoxIsNotDrawnAgain) {
  Press(3000, 2000);
  Move(3010, 2005);
  Release(3010, 2005);
  const auto boxes = Boxes().size();
  Move(5000, 3000);
  EXPECT_EQ(Boxes().size(), boxes);
  NewDraws();
  Release(5000, 3000);
  EXPECT_EQ(NewDraws(), 0);
}

TEST_F(FrmMapTest, AMovementWithoutTheButtonDoesNotChangeTheBox) {
  Press(3000, 2000);
  Move(4000, 3000, {});
  EXPECT_TRUE(Boxes().empty());
  NewDraws();
  Release(4000, 3000);
  EXPECT_EQ(NewDraws(), 1);
}

TEST_F(FrmMapTest, ARedrawDuringADragRemovesTheBox) {
  Press(3000, 2000);
  Move(6000, 4000);
  map_.Redraw();
  const QImage clean = map_.Picture().copy();
  EXPECT_TRUE(Boxes().empty());
  Move(4000, 3000);
  EXPECT_EQ(Boxes(), (std::vector<Box>{{3000, 2000, 3000, 2000}, {3000, 2000, 4000, 3000}}));
  map_.Redraw();
  NewDraws();
  Release(3005, 2005);
  EXPECT_EQ(NewDraws(), 0);
  EXPECT_EQ(map_.Picture(), clean);
}

TEST_F(FrmMapTest, ARightPressOpensTheMenuAnywhere) {
  Resize(1000, 360);
  Press(6000, 2000, Qt::RightButton);
  Press(100, 2000, Qt::RightButton);
  ASSERT_EQ(popups_.size(), 2U);
  EXPECT_EQ(popups_[0], map_.mapToGlobal(QPointF(400, 2000 / 15.0)).toPoint());
  NewDraws();
  Release(100, 2000, Qt::RightButton);
  EXPECT_EQ(NewDraws(), 0);
}

TEST_F(FrmMapTest, ARightPressWithTheLeftButtonHeldOpensNoMenu) {
  Press(3000, 2000);
  Move(4000, 3000);
  const auto drawn = Boxes().size();
  Press(4000, 3000, Qt::RightButton, Qt::LeftButton);
  EXPECT_TRUE(popups_.empty());
  // It counts as a press of the left button: the box is erased and begins again at the mouse.
  ASSERT_EQ(Boxes().size(), drawn + 1);
  EXPECT_EQ(Boxes().back(), (Box{3000, 2000, 4000, 3000}));
  Move(5000, 3500, Qt::LeftButton | Qt::RightButton);
  EXPECT_EQ(Boxes().back(), (Box{4000, 3000, 5000, 3500}));
  NewDraws();
  Release(5000, 3500, Qt::RightButton, Qt::LeftButton);
  EXPECT_EQ(NewDraws(), 0);
  Move(7000, 4500);
  EXPECT_EQ(Boxes().back(), (Box{4000, 3000, 7000, 4500})) << "the left button is still held";
  Release(7000, 4500);
  EXPECT_EQ(NewDraws(), 1);
  EXPECT_FLOAT_EQ(view_.ReqLonMin(), 5 + 4000 / 30.0F);
  EXPECT_FLOAT_EQ(view_.ReqLatMax(), 4500 / 30.0F);
  EXPECT_TRUE(popups_.empty());
}

TEST_F(FrmMapTest, BothButtonsAreALeftPress) {
  NewDraws();
  Press(3000, 2000, Qt::LeftButton, Qt::RightButton);
  EXPECT_TRUE(popups_.empty());
  Release(3000, 2000, Qt::LeftButton, Qt::RightButton);
  EXPECT_EQ(NewDraws(), 1);
  // In a margin, too: no effect and no menu.
  Resize(1000, 360);
  Press(100, 2000, Qt::LeftButton, Qt::RightButton);
  EXPECT_TRUE(popups_.empty());
}

TEST_F(FrmMapTest, OtherButtonsDoNothing) {
  NewDraws();
  Press(3000, 2000, Qt::MiddleButton);
  Move(4000, 3000, Qt::MiddleButton);
  Release(4000, 3000, Qt::MiddleButton);
  EXPECT_TRUE(popups_.empty());
  EXPECT_TRUE(Boxes().empty());
  EXPECT_EQ(NewDraws(), 0);
}

TEST_F(FrmMapTest, HandlesManySizes) {
  test::TestRandom random(42);
  world_.options = test::kEverythingShown;
  host_.resize(3200, 2200);
  NewDraws();
  // The same number of pixels at every ratio.
  const auto widest = static_cast<unsigned>(3000 / map_.devicePixelRatio());
  const auto highest = static_cast<unsigned>(2000 / map_.devicePixelRatio());
  for (int i = 0; i < 200; ++i) {
    const bool tiny = i % 10 == 0;
    const int width = tiny ? 1 + i / 50 : 1 + static_cast<int>(random() % widest);
    const int height = tiny ? 1 + i / 70 : 1 + static_cast<int>(random() % highest);
    if (map_.size() == QSize(width, height))
      continue;
    map_.resize(width, height);
    ASSERT_EQ(NewDraws(), 1) << width << " x " << height;
    Press(width * 7.5, height * 7.5);
    Move(width * 15, height * 15);
    Release(width * 15, height * 15, Qt::RightButton, Qt::LeftButton);
    if (i % 20 == 19)
      view_.ZoomReset();
  }
}

}  // namespace
}  // namespace zerbal::app
