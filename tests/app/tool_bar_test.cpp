#include "app/tool_bar.h"

#include <QMouseEvent>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "app_test.h"

namespace zerbal::app {
namespace {

using Kinds = std::vector<DialogKind>;

/// Button, its text, the entry with the same effect.
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
/// The check box of a layer, its entry, and the dialog that the right button opens.
const struct {
  const char* box;
  const char* entry;
  DialogKind dialog;
} kLayers[] = {{"chkAprt", "mnuViewAprt", DialogKind::kDelimitAllAirports},
               {"chkDest", "mnuViewDest", DialogKind::kDelimitDestinations}};

class ToolBarTest : public test::RunningTest {
 protected:
  /// The names of all controls from left to right, with "|" for a gap that is wider than the smallest gap.
  std::string Row() {
    auto controls = Find<QWidget>("picTool")->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    std::ranges::sort(controls, {}, &QWidget::x);
    const auto gapBefore = [&](qsizetype i) {
      return controls[i]->x() - controls[i - 1]->geometry().right();
    };
    int smallest = std::numeric_limits<int>::max();
    for (qsizetype i = 1; i < controls.size(); ++i)
      smallest = std::min(smallest, gapBefore(i));
    QStringList row;
    for (qsizetype i = 0; i < controls.size(); ++i) {
      if (i > 0 && gapBefore(i) > smallest)
        row.append("|");
      row.append(controls[i]->objectName());
    }
    return row.join(' ').toStdString();
  }
};

TEST_F(ToolBarTest, ItsControlsAreInOrderAndInGroups) {
  Window().resize(1200, 500);
  EXPECT_EQ(Row(),
            "cmdZoomIn cmdZoomIn2 cmdZoomReset cmdZoomOut2 cmdZoomOut | "
            "cmdRandFlit cmdSeleFlit cmdSeleDest | chkAprt | chkDest | cmdSaveMap");
}

TEST_F(ToolBarTest, ButtonsHaveTheirTextsAndPictures) {
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

TEST_F(ToolBarTest, TheLastButtonSavesTheMapAndTellsItsShortcut) {
  auto* button = Find<QToolButton>("cmdSaveMap");
  EXPECT_EQ(button->text(), "Save map...");
  EXPECT_EQ(button->toolTip(), "Save map (Ctrl+S)");
  EXPECT_EQ(button->accessibleName(), "Save map");
  EXPECT_FALSE(button->icon().isNull());
  button->click();
  EXPECT_EQ(dialogs.mapFileAsked, 1);
  EXPECT_EQ(Draws(), 1);
}

TEST_F(ToolBarTest, TabGoesFromTheBoxesToTheMapAndThenToTheLastButton) {
  QStringList order;
  QWidget* widget = Find<QCheckBox>("chkAprt");
  for (int i = 0; i < 5; ++i) {
    order.append(widget->objectName());
    do
      widget = widget->nextInFocusChain();
    while ((widget->focusPolicy() & Qt::TabFocus) == 0);
  }
  EXPECT_EQ(order.join(' ').toStdString(), "chkAprt chkDest frmMap cmdSaveMap cmdZoomIn");
}

TEST_F(ToolBarTest, ButtonsHaveTheEffectOfTheirEntries) {
  const auto spans = [&] {
    return std::pair(State().map.viewport.MapLonSpan(), State().map.viewport.MapLatSpan());
  };
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

TEST_F(ToolBarTest, LayerBoxesAndEntriesHaveTheSameState) {
  for (const auto& layer : kLayers) {
    auto* box = Find<QCheckBox>(layer.box);
    int before = Draws();
    box->click();
    EXPECT_TRUE(Entry(layer.entry)->isChecked());
    EXPECT_EQ(Draws() - before, 1);
    before = Draws();
    box->click();
    EXPECT_FALSE(Entry(layer.entry)->isChecked());
    EXPECT_EQ(Draws() - before, 1);
    EXPECT_EQ(DrawsOf(layer.entry), 1);
    EXPECT_TRUE(box->isChecked());
  }
}

TEST_F(ToolBarTest, TheRightButtonOverALayerBoxOpensItsDelimitationWhenItIsReleased) {
  for (const auto& layer : kLayers) {
    dialogs.shown.clear();
    auto* box = Find<QCheckBox>(layer.box);
    QTest::mousePress(box, Qt::RightButton);
    EXPECT_EQ(dialogs.shown, Kinds{}) << layer.box;
    QTest::mouseRelease(box, Qt::RightButton);
    EXPECT_EQ(dialogs.shown, Kinds{layer.dialog});
    EXPECT_FALSE(box->isChecked());
    QTest::mousePress(box, Qt::RightButton);
    QTest::mouseRelease(box, Qt::RightButton, Qt::NoModifier, {-5, -5});
    EXPECT_EQ(dialogs.shown.size(), 1U) << "let go beside the box";
  }
  EXPECT_EQ(Draws(), 1);
}

TEST_F(ToolBarTest, TheLeftButtonOverALayerBoxSwitchesTheLayerWhenItIsReleased) {
  for (const auto& layer : kLayers) {
    auto* box = Find<QCheckBox>(layer.box);
    const int before = Draws();
    const QPoint mark(5, box->height() / 2);
    QTest::mousePress(box, Qt::LeftButton, Qt::NoModifier, mark);
    EXPECT_FALSE(Entry(layer.entry)->isChecked()) << layer.box;
    EXPECT_EQ(Draws(), before);
    QTest::mouseRelease(box, Qt::LeftButton, Qt::NoModifier, mark);
    EXPECT_TRUE(Entry(layer.entry)->isChecked()) << layer.box;
    EXPECT_EQ(Draws(), before + 1);
  }
  EXPECT_EQ(dialogs.shown, Kinds{});
}

TEST_F(ToolBarTest, OtherButtonsOverALayerBoxDoNothing) {
  for (const auto& layer : kLayers) {
    auto* box = Find<QCheckBox>(layer.box);
    for (const Qt::MouseButton button :
         {Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton, Qt::TaskButton}) {
      QTest::mouseClick(box, button, Qt::NoModifier, QPoint(5, box->height() / 2));
      EXPECT_EQ(dialogs.shown, Kinds{}) << layer.box << button;
      EXPECT_FALSE(box->isChecked()) << layer.box << button;
      EXPECT_FALSE(Entry(layer.entry)->isChecked()) << layer.box << button;
    }
  }
  EXPECT_EQ(Draws(), 1);
}

}  // namespace
}  // namespace zerbal::app
