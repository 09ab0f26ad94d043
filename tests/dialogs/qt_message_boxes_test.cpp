#include "dialogs/qt_message_boxes.h"

#include <QMenu>
#include <QMessageBox>
#include <QTimer>
#include <vector>

#include "dialogs/dialog_fixture.h"

namespace zerbal::test {
namespace {

class QtMessageBoxesTest : public DialogTest {
 protected:
  /// Shows boxes one after another without events between them. Returns the parent of each.
  std::vector<QWidget*> ParentsOf(int count) {
    std::vector<QWidget*> parents;
    for (int i = 0; i < count; ++i) {
      QTimer::singleShot(0, qApp, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        parents.push_back(box->parentWidget());
        box->accept();
      });
      screenBoxes.Show(settings::BoxIcon::kExclamation, "A message");
    }
    return parents;
  }

  dialogs::QtMessageBoxes screenBoxes;
};

TEST_F(QtMessageBoxesTest, EveryBoxOfASequenceBelongsToTheMainWindow) {
  mainWindow.activateWindow();
  QApplication::processEvents();
  EXPECT_EQ(ParentsOf(3), (std::vector<QWidget*>{&mainWindow, &mainWindow, &mainWindow}));
}

TEST_F(QtMessageBoxesTest, EveryBoxOfASequenceBelongsToTheOpenDialog) {
  dialogs::PlacedDialog dialog(placement, settings::kHelpInfoPosition);
  dialog.setModal(true);
  dialog.show();
  QApplication::processEvents();
  EXPECT_EQ(ParentsOf(3), (std::vector<QWidget*>{&dialog, &dialog, &dialog}));
}

TEST_F(QtMessageBoxesTest, WhileTheProgramStartsABoxBelongsToTheSplashWindow) {
  mainWindow.hide();
  QWidget splash(nullptr, Qt::SplashScreen);
  splash.show();
  QApplication::processEvents();
  EXPECT_EQ(ParentsOf(2), (std::vector<QWidget*>{&splash, &splash}));
}

TEST_F(QtMessageBoxesTest, AnOpenMenuIsNotTheParentOfABox) {
  QMenu menu;
  menu.addAction("Entry");
  QApplication::setActiveWindow(nullptr);
  menu.popup({10, 10});
  EXPECT_EQ(ParentsOf(1), (std::vector<QWidget*>{&mainWindow}));
}

TEST_F(QtMessageBoxesTest, WithoutAWindowABoxHasNoParent) {
  mainWindow.hide();
  QApplication::processEvents();
  EXPECT_EQ(ParentsOf(2), (std::vector<QWidget*>{nullptr, nullptr}));
}

TEST_F(QtMessageBoxesTest, ItsWindowIsActiveAfterwards) {
  mainWindow.activateWindow();
  QApplication::processEvents();
  ParentsOf(1);
  QApplication::processEvents();
  EXPECT_TRUE(mainWindow.isActiveWindow());
}

}  // namespace
}  // namespace zerbal::test
