#include "dialogs/placed_dialog.h"

#include <cmath>

#include "dialogs/dialog_fixture.h"

namespace zerbal::test {
namespace {

class PlacedDialogTest : public DialogTest {
 protected:
  static constexpr char kKey[] = "HelpInfo";
  std::unique_ptr<dialogs::PlacedDialog> NewDialog() {
    auto dialog = std::make_unique<dialogs::PlacedDialog>(placement, settings::kHelpInfoPosition);
    dialog->setFixedSize(301, 200);
    return dialog;
  }
};

TEST_F(PlacedDialogTest, TheFirstOpeningCentresTheDialogOverTheMainWindowAndWritesNothing) {
  const auto dialog = NewDialog();
  dialog->show();
  const QRect outer = mainWindow.frameGeometry();
  EXPECT_EQ(dialog->x(), outer.left() + (outer.width() - dialog->frameGeometry().width()) / 2);
  EXPECT_EQ(dialog->y(), outer.top() + (outer.height() - dialog->frameGeometry().height()) / 2);
  EXPECT_EQ(Stored("Windows", kKey), "(none)");
}

TEST_F(PlacedDialogTest, ThePositionOfALargerDialogIsRoundedDown) {
  mainWindow.setGeometry(100, 80, 200, 100);
  const auto dialog = NewDialog();
  dialog->show();
  const QRect outer = mainWindow.frameGeometry();
  const int difference = outer.width() - dialog->frameGeometry().width();
  ASSERT_LT(difference, 0);
  EXPECT_EQ(dialog->x(), outer.left() + static_cast<int>(std::floor(difference / 2.0)));
}

TEST_F(PlacedDialogTest, EveryWayOfClosingWritesThePosition) {
  for (const int way : {0, 1, 2}) {
    const auto dialog = NewDialog();
    dialog->show();
    dialog->move(40 + way, 50);
    if (way == 0)
      dialog->accept();
    else if (way == 1)
      dialog->reject();
    else
      dialog->close();
    EXPECT_EQ(Stored("Windows", kKey), std::to_string(40 + way) + ",50");
  }
}

TEST_F(PlacedDialogTest, AStoredPositionOutsideOfTheScreenIsUsed) {
  Store("Windows", kKey, "-5000,12345");
  const auto dialog = NewDialog();
  dialog->show();
  QApplication::processEvents();  // the window system may move the dialog
  EXPECT_EQ(dialog->pos(), QPoint(-5000, 12345));
}

TEST_F(PlacedDialogTest, AMissingFieldCountsAsZero) {
  Store("Windows", kKey, "300");
  const auto dialog = NewDialog();
  dialog->show();
  EXPECT_EQ(dialog->pos(), QPoint(300, 0));
}

TEST_F(PlacedDialogTest, WithoutSavingADialogIsAlwaysCentredAndNoKeyIsWritten) {
  Store("Windows", kKey, "7,8");
  flags.windows = false;
  const QPoint places[] = {{100, 80}, {160, 40}};
  for (const QPoint& place : places) {
    mainWindow.move(place);
    const auto dialog = NewDialog();
    dialog->show();
    const QRect outer = mainWindow.frameGeometry();
    const QRect own = dialog->frameGeometry();
    EXPECT_EQ(own.topLeft(), QPoint(outer.left() + (outer.width() - own.width()) / 2,
                                    outer.top() + (outer.height() - own.height()) / 2));
    dialog->move(1, 2);
    dialog->accept();
    EXPECT_EQ(Stored("Windows", kKey), "7,8");
  }
}

/// Where a window of the size of `inner` stands in the middle of `outer`.
QPoint Centred(const QRect& outer, const QRect& inner) {
  const auto middle = [](int wide, int narrow) {
    return static_cast<int>(std::floor((wide - narrow) / 2.0));
  };
  return outer.topLeft() +
         QPoint(middle(outer.width(), inner.width()), middle(outer.height(), inner.height()));
}

TEST_F(PlacedDialogTest, AFramedDialogIsCentredOverAMainWindowWithoutAFrame) {
  QMainWindow bare(nullptr, Qt::FramelessWindowHint);
  bare.setGeometry(100, 80, 1000, 700);
  bare.show();
  ASSERT_EQ(bare.frameGeometry(), bare.geometry());
  dialogs::PlacedDialog dialog({bare, ini, flags}, settings::kHelpInfoPosition);
  dialog.show();
  ASSERT_NE(dialog.frameGeometry(), dialog.geometry());
  EXPECT_EQ(dialog.pos(), Centred(bare.geometry(), dialog.frameGeometry()));
}

TEST_F(PlacedDialogTest, ADialogWithoutAFrameIsCentredOverAFramedMainWindow) {
  const auto dialog = NewDialog();
  dialog->setWindowFlag(Qt::FramelessWindowHint);
  dialog->show();
  ASSERT_NE(mainWindow.frameGeometry(), mainWindow.geometry());
  ASSERT_EQ(dialog->frameGeometry(), dialog->geometry());
  EXPECT_EQ(dialog->pos(), Centred(mainWindow.frameGeometry(), dialog->geometry()));
}

TEST_F(PlacedDialogTest, ACentredDialogStaysWhereItIsMoved) {
  const auto dialog = NewDialog();
  dialog->show();
  QApplication::processEvents();
  dialog->move(40, 50);
  QApplication::processEvents();
  EXPECT_EQ(dialog->pos(), QPoint(40, 50));
  dialog->hide();
  dialog->show();
  QApplication::processEvents();
  EXPECT_EQ(dialog->pos(), QPoint(40, 50));
}

}  // namespace
}  // namespace zerbal::test
