#include "dialogs/frm_deli.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <cstdlib>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "dialogs/dialog_fixture.h"
#include "dialogs/number_edit.h"

namespace zerbal::test {
namespace {

using dialogs::frmDeli;

class FrmDeliTest : public DialogTest {
 protected:
  std::unique_ptr<frmDeli> NewDialog(frmDeli::Layer layer = frmDeli::Layer::kAllAirports) {
    return std::make_unique<frmDeli>(placement, layer, set, boxes);
  }
  static void SetText(QWidget& dialog, const char* name, const char* text) {
    Child<QLineEdit>(dialog, name)->setText(text);
  }
  /// The texts of adjacent controls from left to right.
  static QStringList Row(QWidget& dialog, const std::vector<std::string>& names) {
    QStringList texts;
    const QWidget* left = nullptr;
    for (const std::string& name : names) {
      const auto* control = Child<QWidget>(dialog, name.c_str());
      if (left != nullptr) {
        EXPECT_LT(left->geometry().right(), control->x()) << name;
        EXPECT_LE(std::abs(left->geometry().center().y() - control->geometry().center().y()), 1) << name;
      }
      texts.append(control->property("text").toString());
      left = control;
    }
    return texts;
  }
  static bool Enabled(QWidget& dialog, const char* name) { return Child<QWidget>(dialog, name)->isEnabled(); }

  data::AirportCriteria set;
};

TEST_F(FrmDeliTest, TheTwoDialogsDifferInNameTitleAndKey) {
  const auto all = NewDialog();
  EXPECT_EQ(all->objectName(), "frmDeliAprt");
  EXPECT_EQ(all->windowTitle(), "Delimitation for all airports");
  all->show();
  all->move(11, 12);
  all->reject();
  const auto destinations = NewDialog(frmDeli::Layer::kDestinations);
  EXPECT_EQ(destinations->objectName(), "frmDeliDest");
  EXPECT_EQ(destinations->windowTitle(), "Delimitation for QAV destinations");
  destinations->show();
  destinations->move(13, 14);
  destinations->reject();
  EXPECT_EQ(Stored("Windows", "DelimitAllAirport"), "11,12");
  EXPECT_EQ(Stored("Windows", "DelimitDestination"), "13,14");
}

TEST_F(FrmDeliTest, EveryBoxHasAnAccessibleName) {
  const auto dialog = NewDialog();
  std::set<QString> names;
  for (const auto* box : dialog->findChildren<dialogs::NumberEdit*>())
    names.insert(box->accessibleName());
  EXPECT_EQ(names.size(), 12U);
  EXPECT_FALSE(names.contains(""));
}

TEST_F(FrmDeliTest, EachNumberIsBetweenItsOptionAndItsUnit) {
  const auto dialog = NewDialog();
  dialog->show();
  const std::pair<std::string, const char*> groups[] = {
      {"Elev", "Feet"}, {"RwyAnz", "Runways"}, {"RwyLen", "Feet"}};
  for (const auto& [name, unit] : groups) {
    EXPECT_EQ(Row(*dialog, {"opt" + name + "Zw", "txt" + name + "ZwVon", "lbl" + name + "ZwAnd",
                            "txt" + name + "ZwBis", "lbl" + name + "ZwUnit"}),
              QStringList({"Between and including", "0", "and", "0", unit}));
    EXPECT_EQ(Row(*dialog, {"opt" + name + "Gr", "txt" + name + "Gr", "lbl" + name + "GrUnit"}).mid(1),
              QStringList({"0", unit}));
    EXPECT_EQ(Row(*dialog, {"opt" + name + "Kl", "txt" + name + "Kl", "lbl" + name + "KlUnit"}).mid(1),
              QStringList({"0", unit}));
  }
}

TEST_F(FrmDeliTest, AnUncheckedCriterionDisablesItsControlsAndKeepsItsNumbers) {
  set.numeric[1] = {false, data::Limit::kAtLeast, 1, 2, 3, 4};
  const auto dialog = NewDialog();
  auto* active = Child<QCheckBox>(*dialog, "chkRwyAnz");
  for (const char* name : {"optRwyAnzZw", "optRwyAnzGr", "optRwyAnzKl", "txtRwyAnzZwVon", "txtRwyAnzZwBis",
                           "txtRwyAnzGr", "txtRwyAnzKl"})
    EXPECT_FALSE(Enabled(*dialog, name)) << name;
  active->click();
  EXPECT_TRUE(Enabled(*dialog, "optRwyAnzZw"));
  EXPECT_TRUE(Enabled(*dialog, "txtRwyAnzGr"));
  EXPECT_FALSE(Enabled(*dialog, "txtRwyAnzZwVon"));
  EXPECT_FALSE(Enabled(*dialog, "txtRwyAnzKl"));
  EXPECT_EQ(Child<QLineEdit>(*dialog, "txtRwyAnzGr")->text(), "3");
  active->click();
  EXPECT_FALSE(Enabled(*dialog, "txtRwyAnzGr"));
  EXPECT_EQ(Child<QLineEdit>(*dialog, "txtRwyAnzGr")->text(), "3");
}

TEST_F(FrmDeliTest, TheSelectedLimitEnablesOnlyItsBoxes) {
  set.numeric[0].active = true;
  const auto dialog = NewDialog();
  struct Case {
    const char* option;
    bool between, atLeast, atMost;
  };
  for (const Case& c : {Case{"optElevGr", false, true, false}, Case{"optElevKl", false, false, true},
                        Case{"optElevZw", true, false, false}}) {
    Child<QRadioButton>(*dialog, c.option)->click();
    EXPECT_EQ(Enabled(*dialog, "txtElevZwVon"), c.between) << c.option;
    EXPECT_EQ(Enabled(*dialog, "txtElevZwBis"), c.between) << c.option;
    EXPECT_EQ(Enabled(*dialog, "txtElevGr"), c.atLeast) << c.option;
    EXPECT_EQ(Enabled(*dialog, "txtElevKl"), c.atMost) << c.option;
  }
}

TEST_F(FrmDeliTest, IlsEnablesItsTwoOptions) {
  const auto dialog = NewDialog();
  EXPECT_FALSE(Enabled(*dialog, "optILSMit"));
  Child<QCheckBox>(*dialog, "chkILS")->click();
  EXPECT_TRUE(Enabled(*dialog, "optILSMit"));
  EXPECT_TRUE(Enabled(*dialog, "optILSOhne"));
}

TEST_F(FrmDeliTest, OkStoresTheNumbersOfAllLimits) {
  const auto dialog = NewDialog();
  const char* names[] = {"Elev", "RwyAnz", "RwyLen"};
  for (int n = 0; n < 3; ++n) {
    const std::string name = names[n];
    SetText(*dialog, ("txt" + name + "ZwVon").c_str(), std::to_string(10 * n + 1).c_str());
    SetText(*dialog, ("txt" + name + "ZwBis").c_str(), std::to_string(10 * n + 2).c_str());
    SetText(*dialog, ("txt" + name + "Gr").c_str(), std::to_string(10 * n + 3).c_str());
    SetText(*dialog, ("txt" + name + "Kl").c_str(), std::to_string(10 * n + 4).c_str());
  }
  Child<QCheckBox>(*dialog, "chkRwyLen")->click();
  Child<QRadioButton>(*dialog, "optRwyLenKl")->click();
  Child<QCheckBox>(*dialog, "chkILS")->click();
  Child<QRadioButton>(*dialog, "optILSOhne")->click();
  Child<QPushButton>(*dialog, "cmdOK")->click();
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  data::AirportCriteria expected;
  expected.numeric[0] = {false, data::Limit::kBetween, 1, 2, 3, 4};
  expected.numeric[1] = {false, data::Limit::kBetween, 11, 12, 13, 14};
  expected.numeric[2] = {true, data::Limit::kAtMost, 21, 22, 23, 24};
  expected.ilsActive = true;
  expected.withIls = false;
  EXPECT_EQ(set, expected);
}

TEST_F(FrmDeliTest, AFromValueAboveItsToValueIsRefusedEvenForAnUncheckedCriterion) {
  const data::AirportCriteria before = set;
  for (const char* name : {"txtElevZwVon", "txtRwyAnzZwVon", "txtRwyLenZwVon"}) {
    const auto dialog = NewDialog();
    dialog->show();
    SetText(*dialog, name, "1");
    boxes.shown.clear();
    Child<QPushButton>(*dialog, "cmdOK")->click();
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0], (RecordedBox{settings::BoxIcon::kExclamation,
                                           "The from-value cannot be larger than the to-value"}));
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(set, before);
  }
}

TEST_F(FrmDeliTest, TheFocusGoesToTheFirstPairThatFails) {
  set.numeric[1].active = set.numeric[2].active = true;
  const auto dialog = NewDialog();
  dialog->show();
  SetText(*dialog, "txtRwyAnzZwVon", "5");
  SetText(*dialog, "txtRwyLenZwVon", "5");
  Child<QPushButton>(*dialog, "cmdOK")->click();
  EXPECT_EQ(dialog->focusWidget()->objectName(), "txtRwyAnzZwVon");
}

TEST_F(FrmDeliTest, EqualFromAndToValuesAreAccepted) {
  const auto dialog = NewDialog();
  SetText(*dialog, "txtElevZwVon", "5");
  SetText(*dialog, "txtElevZwBis", "5");
  Child<QPushButton>(*dialog, "cmdOK")->click();
  EXPECT_TRUE(boxes.shown.empty());
  EXPECT_EQ(set.numeric[0].from, 5);
}

TEST_F(FrmDeliTest, AbortChangesNothing) {
  const data::AirportCriteria before = set;
  const auto dialog = NewDialog();
  Child<QCheckBox>(*dialog, "chkElev")->click();
  SetText(*dialog, "txtElevZwBis", "5");
  Child<QPushButton>(*dialog, "cmdESC")->click();
  EXPECT_EQ(dialog->result(), QDialog::Rejected);
  EXPECT_EQ(set, before);
}

TEST_F(FrmDeliTest, TheWordAndAndTheUnitsAreGreyWithTheirBoxes) {
  const auto dialog = NewDialog();
  struct Row {
    const char* option;
    std::vector<const char*> boxes;
    std::vector<const char*> labels;
  };
  struct Group {
    const char* active;
    std::vector<Row> rows;
  };
  const Group groups[] = {
      {"chkElev",
       {{"optElevZw", {"txtElevZwVon", "txtElevZwBis"}, {"lblElevZwAnd", "lblElevZwUnit"}},
        {"optElevGr", {"txtElevGr"}, {"lblElevGrUnit"}},
        {"optElevKl", {"txtElevKl"}, {"lblElevKlUnit"}}}},
      {"chkRwyAnz",
       {{"optRwyAnzZw", {"txtRwyAnzZwVon", "txtRwyAnzZwBis"}, {"lblRwyAnzZwAnd", "lblRwyAnzZwUnit"}},
        {"optRwyAnzGr", {"txtRwyAnzGr"}, {"lblRwyAnzGrUnit"}},
        {"optRwyAnzKl", {"txtRwyAnzKl"}, {"lblRwyAnzKlUnit"}}}},
      {"chkRwyLen",
       {{"optRwyLenZw", {"txtRwyLenZwVon", "txtRwyLenZwBis"}, {"lblRwyLenZwAnd", "lblRwyLenZwUnit"}},
        {"optRwyLenGr", {"txtRwyLenGr"}, {"lblRwyLenGrUnit"}},
        {"optRwyLenKl", {"txtRwyLenKl"}, {"lblRwyLenKlUnit"}}}},
  };
  const auto expectOnly = [&](const Group& group, const Row* enabled) {
    for (const Row& row : group.rows) {
      for (const char* box : row.boxes)
        EXPECT_EQ(Enabled(*dialog, box), &row == enabled) << box;
      for (const char* label : row.labels)
        EXPECT_EQ(Enabled(*dialog, label), &row == enabled) << label;
    }
  };
  for (const Group& group : groups) {
    expectOnly(group, nullptr);
    Child<QCheckBox>(*dialog, group.active)->click();
    for (const Row& row : group.rows) {
      Child<QRadioButton>(*dialog, row.option)->click();
      expectOnly(group, &row);
    }
    Child<QCheckBox>(*dialog, group.active)->click();
    expectOnly(group, nullptr);
  }
}

}  // namespace
}  // namespace zerbal::test
