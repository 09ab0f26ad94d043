#include "dialogs/frm_user_sett.h"

#include <QCheckBox>
#include <QPushButton>

#include "dialogs/dialog_fixture.h"

namespace zerbal::test {
namespace {

using FrmUserSettTest = DialogTest;

TEST_F(FrmUserSettTest, ShowsTheSwitches) {
  dialogs::frmUserSett dialog(placement, flags);
  EXPECT_TRUE(Child<QCheckBox>(dialog, "chkMWinSave")->isChecked());
  EXPECT_TRUE(Child<QCheckBox>(dialog, "chkWinSave")->isChecked());
  EXPECT_FALSE(Child<QCheckBox>(dialog, "chkMnuSave")->isChecked());
}

TEST_F(FrmUserSettTest, OkWritesAllThree) {
  dialogs::frmUserSett dialog(placement, flags);
  Child<QCheckBox>(dialog, "chkMWinSave")->click();
  Child<QCheckBox>(dialog, "chkMnuSave")->click();
  Child<QPushButton>(dialog, "cmdOK")->click();
  EXPECT_EQ(Stored("MainWindow", "Save"), "0");
  EXPECT_EQ(Stored("Windows", "Save"), "1");
  EXPECT_EQ(Stored("MenuEntryChecked", "Save"), "1");
  EXPECT_FALSE(flags.mainWindow);
  EXPECT_TRUE(flags.windows);
  EXPECT_TRUE(flags.menuEntries);
}

TEST_F(FrmUserSettTest, UncheckingPositionsTakesEffectForThisDialog) {
  dialogs::frmUserSett dialog(placement, flags);
  dialog.show();
  Child<QCheckBox>(dialog, "chkWinSave")->click();
  Child<QPushButton>(dialog, "cmdOK")->click();
  EXPECT_EQ(Stored("Windows", "UserSettings"), "(none)");
}

TEST_F(FrmUserSettTest, AbortWritesOnlyThePosition) {
  dialogs::frmUserSett dialog(placement, flags);
  dialog.show();
  Child<QCheckBox>(dialog, "chkMWinSave")->click();
  Child<QPushButton>(dialog, "cmdESC")->click();
  EXPECT_EQ(Stored("MainWindow", "Save"), "(none)");
  EXPECT_TRUE(flags.mainWindow);
  EXPECT_NE(Stored("Windows", "UserSettings"), "(none)");
}

TEST_F(FrmUserSettTest, AFailedWriteShowsItsBoxAndTheSwitchTakesEffect) {
  std::filesystem::create_directory(folder / "zerbal.ini");
  dialogs::frmUserSett dialog(placement, flags);
  Child<QCheckBox>(dialog, "chkMWinSave")->click();
  Child<QCheckBox>(dialog, "chkWinSave")->click();
  Child<QPushButton>(dialog, "cmdOK")->click();
  EXPECT_EQ(boxes.shown.size(), 3u);
  EXPECT_FALSE(flags.mainWindow);
  EXPECT_FALSE(flags.windows);
}

}  // namespace
}  // namespace zerbal::test
