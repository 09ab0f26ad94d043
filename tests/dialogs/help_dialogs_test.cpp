#include "dialogs/help_dialogs.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

#include "dialogs/dialog_fixture.h"

namespace zerbal::test {
namespace {

using HelpDialogsTest = DialogTest;

constexpr const char* kKeys[] = {"RevZBLAll", "RevSchdMain", "RevSchdFSrv", "RevStemAprt", "RevZBLData"};

TEST_F(HelpDialogsTest, MissingRevisionsAreShownAndWrittenAsUnknown) {
  const auto file = folder / "zblrev.ini";
  WriteBytes(file, "[RevZBL]\r\nRevZBLAll=2026-11\r\n");
  dialogs::frmHelpRev dialog(placement, boxes, file);
  EXPECT_EQ(Child<QLineEdit>(dialog, "txtZBLAll")->text(), "2026-11");
  for (const char* name : {"txtSchdMain", "txtSchdFSrv", "txtStemAprt", "txtZBLData"})
    EXPECT_EQ(Child<QLineEdit>(dialog, name)->text(), "Unknown") << name;
  EXPECT_EQ(ReadBytes(file),
            "[RevZBL]\r\nRevZBLAll=2026-11\r\nRevSchdMain=Unknown\r\nRevSchdFSrv=Unknown\r\n"
            "RevStemAprt=Unknown\r\nRevZBLData=Unknown\r\n");
}

TEST_F(HelpDialogsTest, RevisionsAreShownUnchanged) {
  const auto file = folder / "zblrev.ini";
  WriteBytes(file,
             "[RevZBL]\r\nRevZBLAll=\"  7.2 \"\r\nRevSchdMain=007\r\nRevSchdFSrv=\r\nRevStemAprt=1,5e2\r\n"
             "RevZBLData=a  b;c\r\n");
  dialogs::frmHelpRev dialog(placement, boxes, file);
  EXPECT_EQ(Child<QLineEdit>(dialog, "txtZBLAll")->text(), "  7.2 ");
  EXPECT_EQ(Child<QLineEdit>(dialog, "txtSchdMain")->text(), "007");
  EXPECT_EQ(Child<QLineEdit>(dialog, "txtSchdFSrv")->text(), "");
  EXPECT_EQ(Child<QLineEdit>(dialog, "txtStemAprt")->text(), "1,5e2");
  EXPECT_EQ(Child<QLineEdit>(dialog, "txtZBLData")->text(), "a  b;c");
}

TEST_F(HelpDialogsTest, AMissingRevisionFileIsCreated) {
  const auto file = folder / "zblrev.ini";
  dialogs::frmHelpRev dialog(placement, boxes, file);
  for (const char* key : kKeys)
    EXPECT_EQ(settings::ReadProfileString(file, "RevZBL", key, "", 2000), "Unknown") << key;
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(HelpDialogsTest, AFailedWriteShowsItsBoxForEachKey) {
  dialogs::frmHelpRev dialog(placement, boxes, folder / "no such folder" / "zblrev.ini");
  EXPECT_EQ(boxes.shown.size(), 5u);
  EXPECT_EQ(Child<QLineEdit>(dialog, "txtZBLData")->text(), "Unknown");
}

TEST_F(HelpDialogsTest, TheInfoNamesProgramAndVersion) {
  dialogs::frmHelpInfo dialog(placement);
  EXPECT_EQ(dialog.windowTitle(), "About");
  EXPECT_EQ(Child<QLabel>(dialog, "lblTit")->text(), "Zerbal");
  EXPECT_EQ(Child<QLabel>(dialog, "lblVers")->text(), "Version: 1.100");
  EXPECT_FALSE(Child<QLabel>(dialog, "imgLogo")->pixmap().isNull());
  EXPECT_EQ(Child<QPushButton>(dialog, "cmdOK")->text(), "&OK");
}

TEST_F(HelpDialogsTest, TheMouseTableHasSixRows) {
  dialogs::frmHelpMous dialog(placement);
  EXPECT_EQ(dialog.windowTitle(), "Using the mouse");
  EXPECT_EQ(Child<QLabel>(dialog, "lblActMapLeftMove")->text(),
            "Press left mouse button and hold on the map, then move the mouse");
  EXPECT_EQ(Child<QLabel>(dialog, "lblResChkRightClck")->text(),
            "Display dialog, for setting the delimitations");
  EXPECT_EQ(dialog.findChildren<QLabel*>(QRegularExpression("^lbl(Act|Res)(Map|Chk)")).size(), 12);
}

TEST_F(HelpDialogsTest, EachRemembersItsOwnPosition) {
  dialogs::frmHelpRev revision(placement, boxes, folder / "zblrev.ini");
  dialogs::frmHelpMous mouse(placement);
  dialogs::frmHelpInfo info(placement);
  int left = 10;
  for (QDialog* dialog :
       {static_cast<QDialog*>(&revision), static_cast<QDialog*>(&mouse), static_cast<QDialog*>(&info)}) {
    dialog->show();
    dialog->move(left++, 5);
    Child<QPushButton>(*dialog, "cmdOK")->click();
    EXPECT_FALSE(dialog->isVisible());
  }
  EXPECT_EQ(Stored("Windows", "HelpRevision"), "10,5");
  EXPECT_EQ(Stored("Windows", "HelpUseOfMouse"), "11,5");
  EXPECT_EQ(Stored("Windows", "HelpInfo"), "12,5");
}

}  // namespace
}  // namespace zerbal::test
