#include "dialogs/frm_map_sett.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "dialogs/dialog_fixture.h"
#include "dialogs/number_edit.h"

namespace zerbal::test {
namespace {

class FrmMapSettTest : public DialogTest {
 protected:
  FrmMapSettTest() {
    regions.rows.resize(1);
    regions.ComputeWorldRow();
    family = QFontDatabase::families().last();
    fonts.rows[0] = {"LORES", family.toStdString(), 7, "LowResolution"};
    fonts.rows[1] = {"HIRES", "No Such Font", 9, "HighResolution"};
  }
  std::unique_ptr<dialogs::frmMapSett> NewDialog() {
    return std::make_unique<dialogs::frmMapSett>(placement, regions, fonts, boxes);
  }
  void ChooseMeridian(const char* side, const char* degrees) {
    const auto dialog = NewDialog();
    Child<QRadioButton>(*dialog, "optCentOth")->click();
    Child<QComboBox>(*dialog, "cboCentOth")->setCurrentText(side);
    Child<QLineEdit>(*dialog, "txtCentOth")->setText(degrees);
    Child<QPushButton>(*dialog, "cmdOK")->click();
  }

  data::RegionTable regions;
  data::FontTable fonts;
  QString family;
};

TEST_F(FrmMapSettTest, ShowsTheFixedMeridiansAndTheChosenOne) {
  const auto dialog = NewDialog();
  EXPECT_EQ(Child<QLabel>(*dialog, "lblCentGrw")->text().toStdString(), "East 0\u00B0");
  EXPECT_EQ(Child<QLabel>(*dialog, "lblCentCar")->text().toStdString(), "West 75\u00B0");
  EXPECT_TRUE(Child<QRadioButton>(*dialog, "optCentCar")->isChecked());
  EXPECT_EQ(Child<QRadioButton>(*dialog, "optCentGrw")->text(), "Greenwich Meridian ");
  auto* sides = Child<QComboBox>(*dialog, "cboCentOth");
  EXPECT_EQ(sides->itemText(0), "West");
  EXPECT_EQ(sides->itemText(1), "East");
}

TEST_F(FrmMapSettTest, ShowsAnotherMeridianBySideAndDegrees) {
  regions.centreWorld = "2";
  regions.centreWorldAtLon = -30;
  const auto dialog = NewDialog();
  EXPECT_TRUE(Child<QRadioButton>(*dialog, "optCentOth")->isChecked());
  EXPECT_EQ(Child<QComboBox>(*dialog, "cboCentOth")->currentText(), "West");
  EXPECT_EQ(Child<QLineEdit>(*dialog, "txtCentOth")->text(), "30");
}

TEST_F(FrmMapSettTest, AStoredFractionComesThroughUntouched) {
  regions.centreWorld = "2";
  for (const float stored : {12.3F, -0.00001F}) {
    regions.centreWorldAtLon = stored;
    const auto dialog = NewDialog();
    Child<QPushButton>(*dialog, "cmdOK")->click();
    EXPECT_EQ(regions.centreWorldAtLon, stored);
  }
}

TEST_F(FrmMapSettTest, GreenwichGivesTheWorldFrom5To355) {
  const auto dialog = NewDialog();
  Child<QRadioButton>(*dialog, "optCentGrw")->click();
  Child<QPushButton>(*dialog, "cmdOK")->click();
  EXPECT_EQ(regions.rows[0].fromLon, 5);
  EXPECT_EQ(regions.rows[0].toLon, 355);
  EXPECT_EQ(Stored("Region", "CentreWorld"), "0");
  EXPECT_EQ(Stored("Region", "CentreWorldAtLON"), "(none)");
}

TEST_F(FrmMapSettTest, CaribbeanGivesTheWorldFrom290To280) {
  regions.centreWorld = "0";
  const auto dialog = NewDialog();
  Child<QRadioButton>(*dialog, "optCentCar")->click();
  Child<QPushButton>(*dialog, "cmdOK")->click();
  EXPECT_EQ(regions.rows[0].fromLon, 290);
  EXPECT_EQ(regions.rows[0].toLon, 280);
}

TEST_F(FrmMapSettTest, East180IsAccepted) {
  ChooseMeridian("East", "180");
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(regions.rows[0].fromLon, 185);
  EXPECT_EQ(regions.rows[0].toLon, 175);
  EXPECT_EQ(Stored("Region", "CentreWorld"), "2");
  EXPECT_EQ(Stored("Region", "CentreWorldAtLON"), "180");
}

TEST_F(FrmMapSettTest, WestIsStoredNegative) {
  ChooseMeridian("West", "30");
  EXPECT_EQ(Stored("Region", "CentreWorldAtLON"), "-30");
  EXPECT_EQ(regions.centreWorldAtLon, -30);
}

TEST_F(FrmMapSettTest, AValueAbove180IsRefusedAndTheDialogStaysOpen) {
  const auto dialog = NewDialog();
  dialog->show();
  Child<QRadioButton>(*dialog, "optCentOth")->click();
  Child<QLineEdit>(*dialog, "txtCentOth")->setText("181");
  Child<QPushButton>(*dialog, "cmdOK")->click();
  ASSERT_EQ(boxes.shown.size(), 1u);
  EXPECT_EQ(boxes.shown[0].text, "The value cannot be larger than 180");
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(regions.centreWorld, "1");
  EXPECT_EQ(Stored("Region", "CentreWorld"), "(none)");
}

TEST_F(FrmMapSettTest, AValueAbove180CountsOnlyForTheOtherMeridian) {
  const auto dialog = NewDialog();
  Child<QLineEdit>(*dialog, "txtCentOth")->setText("181");
  Child<QPushButton>(*dialog, "cmdOK")->click();
  EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FrmMapSettTest, FontsAreListedAndAMissingOneIsReplaced) {
  const auto dialog = NewDialog();
  EXPECT_EQ(Child<QComboBox>(*dialog, "cboFontLoRes")->count(), QFontDatabase::families().size());
  EXPECT_EQ(Child<QComboBox>(*dialog, "cboFontLoRes")->currentText(), family);
  const int arial = static_cast<int>(QFontDatabase::families().indexOf("Arial"));
  EXPECT_EQ(Child<QComboBox>(*dialog, "cboFontHiRes")->currentIndex(), std::max(arial, 0));
  auto* sizes = Child<QComboBox>(*dialog, "cboSizeHiRes");
  EXPECT_EQ(sizes->itemText(0), "6");
  EXPECT_EQ(sizes->itemText(sizes->count() - 1), "14");
  EXPECT_EQ(sizes->currentText(), "9");
}

TEST_F(FrmMapSettTest, PreviewsFollowAtOnce) {
  const auto dialog = NewDialog();
  auto* preview = Child<QLabel>(*dialog, "lblFontLoRes");
  EXPECT_EQ(preview->text(), "123 ABC abc");
  EXPECT_EQ(preview->font().family(), family);
  EXPECT_EQ(preview->font().pointSize(), 7);
  Child<QComboBox>(*dialog, "cboSizeLoRes")->setCurrentText("13");
  EXPECT_EQ(preview->font().pointSize(), 13);
}

TEST_F(FrmMapSettTest, OkStoresBothFonts) {
  const auto dialog = NewDialog();
  Child<QComboBox>(*dialog, "cboSizeLoRes")->setCurrentText("12");
  Child<QComboBox>(*dialog, "cboFontHiRes")->setCurrentText(family);
  Child<QPushButton>(*dialog, "cmdOK")->click();
  const std::string name = family.toStdString();
  EXPECT_EQ(Stored("Fonts", "LowResolution"), name + ",12");
  EXPECT_EQ(Stored("Fonts", "HighResolution"), name + ",9");
  EXPECT_EQ(fonts.rows[0].size, 12);
  EXPECT_EQ(fonts.rows[1].name, name);
}

TEST_F(FrmMapSettTest, AbortChangesNothing) {
  const auto dialog = NewDialog();
  Child<QRadioButton>(*dialog, "optCentGrw")->click();
  Child<QComboBox>(*dialog, "cboSizeLoRes")->setCurrentText("12");
  Child<QPushButton>(*dialog, "cmdESC")->click();
  EXPECT_EQ(regions.centreWorld, "1");
  EXPECT_EQ(fonts.rows[0].size, 7);
  EXPECT_EQ(Stored("Fonts", "LowResolution"), "(none)");
}

}  // namespace
}  // namespace zerbal::test
