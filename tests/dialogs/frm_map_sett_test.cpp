#include "dialogs/frm_map_sett.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "dialogs/dialog_fixture.h"
#include "dialogs/number_edit.h"

namespace zerbal::test {
namespace {

class FrmMapSettTest : public DialogTest {
 protected:
  FrmMapSettTest() {
    regions.rows.resize(1);
    regions.ComputeWorldRow();
    family = installed.last();
    fonts.rows[0] = {family.toStdString(), 7, "LowResolution"};
    fonts.rows[1] = {"No Such Font", 9, "HighResolution"};
  }
  std::unique_ptr<dialogs::frmMapSett> NewDialog() {
    return std::make_unique<dialogs::frmMapSett>(placement, regions, fonts, installed, boxes);
  }
  /// The family that is selected for the overview when the table has `stored`.
  std::string SelectedFor(const char* stored) {
    fonts.rows[0].name = stored;
    const auto dialog = NewDialog();
    return Child<QComboBox>(*dialog, "cboFontLoRes")->currentText().toStdString();
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
  QStringList installed = {"Verdana", "Arial Narrow", "Arial", "Courier New", "Zapf"};
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
  regions.centreWorld = data::WorldCentre::kChosen;
  regions.centreWorldAtLon = -30;
  const auto dialog = NewDialog();
  EXPECT_TRUE(Child<QRadioButton>(*dialog, "optCentOth")->isChecked());
  EXPECT_EQ(Child<QComboBox>(*dialog, "cboCentOth")->currentText(), "West");
  EXPECT_EQ(Child<QLineEdit>(*dialog, "txtCentOth")->text(), "30");
}

TEST_F(FrmMapSettTest, AStoredFractionIsKept) {
  regions.centreWorld = data::WorldCentre::kChosen;
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
  regions.centreWorld = data::WorldCentre::kGreenwich;
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
  EXPECT_EQ(regions.centreWorld, data::WorldCentre::kWest75);
  EXPECT_EQ(Stored("Region", "CentreWorld"), "(none)");
}

TEST_F(FrmMapSettTest, AValueAbove180CountsOnlyForTheOtherMeridian) {
  const auto dialog = NewDialog();
  Child<QLineEdit>(*dialog, "txtCentOth")->setText("181");
  Child<QPushButton>(*dialog, "cmdOK")->click();
  EXPECT_TRUE(boxes.shown.empty());
}

QStringList ItemsOf(const QComboBox& combo) {
  QStringList items;
  for (int i = 0; i < combo.count(); ++i)
    items.append(combo.itemText(i));
  return items;
}

TEST_F(FrmMapSettTest, InstalledFontsAndSizesAreListedInOrder) {
  const auto dialog = NewDialog();
  for (const char* name : {"cboFontLoRes", "cboFontHiRes"})
    EXPECT_EQ(ItemsOf(*Child<QComboBox>(*dialog, name)), installed) << name;
  const QStringList sizes = {"6", "7", "8", "9", "10", "11", "12", "13", "14"};
  for (const char* name : {"cboSizeLoRes", "cboSizeHiRes"})
    EXPECT_EQ(ItemsOf(*Child<QComboBox>(*dialog, name)), sizes) << name;
  EXPECT_EQ(Child<QComboBox>(*dialog, "cboFontLoRes")->currentText(), "Zapf");
  EXPECT_EQ(Child<QComboBox>(*dialog, "cboSizeLoRes")->currentText(), "7");
  EXPECT_EQ(Child<QComboBox>(*dialog, "cboFontHiRes")->currentText(), "Arial");
  EXPECT_EQ(Child<QComboBox>(*dialog, "cboSizeHiRes")->currentText(), "9");
}

TEST_F(FrmMapSettTest, AFontThatIsNotInstalledIsReplacedByArial) {
  EXPECT_EQ(SelectedFor("No Such Font"), "Arial");
  EXPECT_EQ(SelectedFor(""), "Arial");
  EXPECT_EQ(SelectedFor("Courier"), "Arial") << "the beginning of a name is another name";
  installed[2] = "ARIAL";
  EXPECT_EQ(SelectedFor("No Such Font"), "ARIAL");
}

TEST_F(FrmMapSettTest, WithoutArialTheFirstFontIsSelected) {
  installed.removeOne("Arial");
  EXPECT_EQ(SelectedFor("No Such Font"), "Verdana");
  EXPECT_EQ(SelectedFor("Arial"), "Verdana");
  EXPECT_EQ(SelectedFor("Zapf"), "Zapf");
  installed.clear();
  EXPECT_EQ(SelectedFor("Arial"), "") << "no font at all";
}

TEST_F(FrmMapSettTest, AStoredFontIsFoundInAnyLetterCase) {
  EXPECT_EQ(SelectedFor("courier NEW"), "Courier New");
  EXPECT_EQ(SelectedFor("ZAPF"), "Zapf");
  EXPECT_EQ(SelectedFor("arial"), "Arial");
}

TEST_F(FrmMapSettTest, PreviewsFollowImmediately) {
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
  EXPECT_EQ(regions.centreWorld, data::WorldCentre::kWest75);
  EXPECT_EQ(fonts.rows[0].size, 7);
  EXPECT_EQ(Stored("Fonts", "LowResolution"), "(none)");
}

}  // namespace
}  // namespace zerbal::test
