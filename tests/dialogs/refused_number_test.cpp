// After the message about a refused number the user can type the correction immediately.
#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QMessageBox>
#include <QRadioButton>
#include <QTimer>

#include "dialogs/dialog_fixture.h"
#include "dialogs/frm_deli.h"
#include "dialogs/frm_map_sett.h"
#include "dialogs/number_edit.h"
#include "dialogs/qt_message_boxes.h"

namespace zerbal::test {
namespace {

class RefusedNumber : public DialogTest {
 protected:
  /// Presses the button, and OK in the message box that follows, and lets the dialog become active again.
  void PressAndAnswer(QWidget& dialog, const char* button) {
    bool answered = false;
    QTimer::singleShot(0, &dialog, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      answered = true;
      Press(box->button(QMessageBox::Ok), Qt::Key_Space, " ");
    });
    Child<QAbstractButton>(dialog, button)->click();
    EXPECT_TRUE(answered);
    Activate(dialog);
  }
  static void Activate(QWidget& window) {
    window.activateWindow();
    QApplication::processEvents();
    ASSERT_TRUE(window.isActiveWindow());
  }
  static void SetText(QWidget& dialog, const char* name, const char* text) {
    Child<QLineEdit>(dialog, name)->setText(text);
  }
  static std::string FocusIn(QWidget& dialog) {
    const QWidget* focus = QApplication::focusWidget();
    return focus && focus->window() == &dialog ? focus->objectName().toStdString() : "(none)";
  }

  dialogs::QtMessageBoxes screenBoxes;
  data::AirportCriteria set;
};

TEST_F(RefusedNumber, TheFromBoxIsSelectedSoThatTypingReplacesIt) {
  for (auto& criterion : set.numeric)
    criterion.active = true;
  for (const char* pair : {"Elev", "RwyAnz", "RwyLen"}) {
    dialogs::frmDeli dialog(placement, dialogs::frmDeli::Layer::kAllAirports, set, screenBoxes);
    dialog.show();
    Activate(dialog);
    const std::string box = std::string("txt") + pair + "ZwVon";
    SetText(dialog, box.c_str(), "60");
    PressAndAnswer(dialog, "cmdOK");
    EXPECT_EQ(FocusIn(dialog), box);
    EXPECT_EQ(Child<QLineEdit>(dialog, box.c_str())->selectedText(), "60");
    Type(QApplication::focusWidget(), "7");
    EXPECT_EQ(Child<QLineEdit>(dialog, box.c_str())->text(), "7");
  }
}

TEST_F(RefusedNumber, ABoxThatHasTheFocusAlreadyIsSelectedToo) {
  set.numeric[0].active = true;
  dialogs::frmDeli dialog(placement, dialogs::frmDeli::Layer::kAllAirports, set, screenBoxes);
  dialog.show();
  Activate(dialog);
  auto* from = Child<QLineEdit>(dialog, "txtElevZwVon");
  from->setFocus(Qt::TabFocusReason);
  Type(from, "60");
  ASSERT_FALSE(from->hasSelectedText());
  PressAndAnswer(dialog, "cmdOK");
  EXPECT_EQ(from->selectedText(), "60");
}

TEST_F(RefusedNumber, TheBoxIsSelectedInADialogThatStaysActive) {
  set.numeric[0].active = true;
  dialogs::frmDeli dialog(placement, dialogs::frmDeli::Layer::kAllAirports, set, boxes);
  dialog.show();
  Activate(dialog);
  auto* from = Child<QLineEdit>(dialog, "txtElevZwVon");
  from->setFocus(Qt::TabFocusReason);
  Type(from, "60");
  Child<QAbstractButton>(dialog, "cmdOK")->click();
  EXPECT_EQ(from->selectedText(), "60");
}

TEST_F(RefusedNumber, TheMeridianIsSelectedSoThatTypingReplacesIt) {
  data::RegionTable regions;
  regions.rows.resize(1);
  data::FontTable fonts;
  dialogs::frmMapSett dialog(placement, regions, fonts, {}, screenBoxes);
  dialog.show();
  Activate(dialog);
  Child<QRadioButton>(dialog, "optCentOth")->click();
  SetText(dialog, "txtCentOth", "181");
  PressAndAnswer(dialog, "cmdOK");
  EXPECT_EQ(FocusIn(dialog), "txtCentOth");
  EXPECT_EQ(Child<QLineEdit>(dialog, "txtCentOth")->selectedText(), "181");
}

TEST_F(RefusedNumber, TheCheckBoxOfAnUncheckedCriterionGetsTheFocus) {
  struct Case {
    const char* from;
    const char* active;
  };
  for (const Case& c : {Case{"txtElevZwVon", "chkElev"}, Case{"txtRwyAnzZwVon", "chkRwyAnz"},
                        Case{"txtRwyLenZwVon", "chkRwyLen"}}) {
    dialogs::frmDeli dialog(placement, dialogs::frmDeli::Layer::kAllAirports, set, screenBoxes);
    dialog.show();
    Activate(dialog);
    SetText(dialog, c.from, "60");
    PressAndAnswer(dialog, "cmdOK");
    EXPECT_EQ(FocusIn(dialog), c.active);
    EXPECT_FALSE(Child<QCheckBox>(dialog, c.active)->isChecked());
  }
}

TEST_F(RefusedNumber, TheBetweenOptionGetsTheFocusWhenAnotherLimitIsSelected) {
  set.numeric[1] = {true, data::Limit::kAtMost, 60, 50, 0, 9};
  dialogs::frmDeli dialog(placement, dialogs::frmDeli::Layer::kAllAirports, set, screenBoxes);
  dialog.show();
  Activate(dialog);
  PressAndAnswer(dialog, "cmdOK");
  EXPECT_EQ(FocusIn(dialog), "optRwyAnzZw");
  EXPECT_TRUE(Child<QRadioButton>(dialog, "optRwyAnzKl")->isChecked());
}

TEST_F(RefusedNumber, AWindowThatIsActivatedAgainHasItsBoxSelected) {
  QWidget other;
  other.show();
  QWidget window;
  dialogs::NumberEdit box(&window);
  box.setText("60");
  window.show();
  Activate(window);
  box.setFocus(Qt::TabFocusReason);
  box.deselect();
  Activate(other);
  Activate(window);
  EXPECT_EQ(box.selectedText(), "60");
}

TEST_F(RefusedNumber, APopUpMenuKeepsTheSelectionOfABox) {
  dialogs::NumberEdit box;
  box.setText("123");
  box.setSelection(0, 2);
  QFocusEvent back(QEvent::FocusIn, Qt::PopupFocusReason);
  QApplication::sendEvent(&box, &back);
  EXPECT_EQ(box.selectedText(), "12");
}

}  // namespace
}  // namespace zerbal::test
