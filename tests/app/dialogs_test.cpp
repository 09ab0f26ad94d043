#include "app/dialogs.h"

#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "app_test.h"

namespace zerbal::app {
namespace {

struct Form {
  const char* entry;          ///< the menu entry that opens it
  const char* dialog;         ///< its object name
  const char* defaultButton;  ///< pressed by Enter
  std::string tabOrder;       ///< every control that takes the focus, enabled or not
};

void PrintTo(const Form& form, std::ostream* stream) {
  *stream << form.dialog;
}

/// The options and boxes of each criterion, from top to bottom.
constexpr char kDelimitationTabOrder[] =
    "chkElev optElevZw txtElevZwVon txtElevZwBis optElevGr txtElevGr optElevKl txtElevKl "
    "chkRwyAnz optRwyAnzZw txtRwyAnzZwVon txtRwyAnzZwBis optRwyAnzGr txtRwyAnzGr optRwyAnzKl txtRwyAnzKl "
    "chkRwyLen optRwyLenZw txtRwyLenZwVon txtRwyLenZwBis optRwyLenGr txtRwyLenGr optRwyLenKl txtRwyLenKl "
    "chkILS optILSMit optILSOhne cmdOK cmdESC";

std::vector<Form> Forms() {
  return {
      {"mnuFileUserSett", "frmUserSett", "cmdOK", "chkMWinSave chkWinSave chkMnuSave cmdOK cmdESC"},
      {"mnuFileMapSett", "frmMapSett", "cmdOK",
       "optCentGrw optCentCar optCentOth cboCentOth txtCentOth cboFontLoRes cboSizeLoRes cboFontHiRes "
       "cboSizeHiRes cmdOK cmdESC"},
      {"mnuFileColoSett", "frmColoSett", "cmdOK", "cboSelObj hsbRed hsbGre hsbBlu vsbMap cmdOK cmdESC"},
      {"mnuViewAprtDeli", "frmDeliAprt", "cmdOK", kDelimitationTabOrder},
      {"mnuViewDestDeli", "frmDeliDest", "cmdOK", kDelimitationTabOrder},
      {"mnuFlitRandFlit", "frmRandFlit", "cmdRndFlit",
       "lstFSrv cmdFSrvSelAll cmdFSrvSelNone optAnzFlitOne optAnzFlitMore cmdRndFlit lstFlit cmdSelAll "
       "cmdSelNone chkCity4Stop cmdDisp cmdESC"},
      {"mnuFlitSeleFlit", "frmSeleFlit", "cmdDisp",
       "cboFSrv lstFlit cmdSelAll cmdSelNone chkCity4Stop cmdDisp cmdESC"},
      {"mnuFlitSeleDest", "frmSeleDest", "cmdSearch",
       "cboDest chkIsDest chkIsStop chkIsArr cmdSearch lstFlit cmdSelAll cmdSelNone chkCity4Stop cmdDisp "
       "cmdESC"},
      {"mnuHelpRev", "frmHelpRev", "cmdOK", "cmdOK txtZBLAll txtSchdMain txtSchdFSrv txtStemAprt txtZBLData"},
      {"mnuHelpMous", "frmHelpMous", "cmdOK", "cmdOK"},
      {"mnuHelpInfo", "frmHelpInfo", "cmdOK", "cmdOK"},
  };
}

/// Each dialog, opened by its menu entry.
class DialogOf : public test::AppTest, public testing::WithParamInterface<Form> {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    world.Write(folder.Path());
    program.emplace(Environment{WithSeparator(folder.Path()), clock, random, boxes, &drawn});
    ASSERT_TRUE(program->Start());
  }

  /// Opens the dialog, calls the check while it is open, and closes it if it is still open.
  void WhileOpen(const std::function<void(QDialog& dialog)>& look) {
    bool looked = false;
    QTimer::singleShot(0, &Window(), [&] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      QApplication::setActiveWindow(dialog);
      EXPECT_EQ(dialog->objectName(), GetParam().dialog);
      look(*dialog);
      looked = true;
      dialog->close();
    });
    Entry(GetParam().entry)->trigger();
    EXPECT_TRUE(looked);
  }

  /// The controls that Tab reaches from the focused control until it returns there.
  static std::string TabOrderOf(const QDialog& dialog) {
    QStringList names;
    const QWidget* widget = dialog.focusWidget();
    do {
      // Tab reaches one option of a group, the arrow keys reach the others.
      const bool takesFocus =
          (widget->focusPolicy() & Qt::TabFocus) != 0 || qobject_cast<const QRadioButton*>(widget) != nullptr;
      if (takesFocus && widget != &dialog && widget->isVisibleTo(&dialog))
        names.append(widget->objectName());
      widget = widget->nextInFocusChain();
    } while (widget != dialog.focusWidget());
    return names.join(' ').toStdString();
  }

  /// The buttons that Enter presses. The control that has the focus receives the key.
  static std::string PressedByEnter(QDialog& dialog) {
    QStringList pressed;
    QObject context;
    for (const auto* button : dialog.findChildren<QPushButton*>())
      QObject::connect(button, &QPushButton::clicked, &context,
                       [&pressed, button] { pressed.append(button->objectName()); });
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    return pressed.join(' ').toStdString();
  }

  static QPushButton* Button(QDialog& dialog, const char* name) {
    return dialog.findChild<QPushButton*>(name);
  }
};

TEST_P(DialogOf, TabVisitsItsControlsInOrderFromTheFirst) {
  WhileOpen([](const QDialog& dialog) { EXPECT_EQ(TabOrderOf(dialog), GetParam().tabOrder); });
}

TEST_P(DialogOf, EnterPressesTheFocusedButtonOrElseTheDefaultButton) {
  std::vector<std::string> names;
  WhileOpen([&](QDialog& dialog) {
    for (const auto* button : dialog.findChildren<QPushButton*>()) {
      if (button->isEnabled())
        names.push_back(button->objectName().toStdString());
    }
    EXPECT_EQ(PressedByEnter(dialog), GetParam().defaultButton);
  });
  for (const std::string& name : names) {
    WhileOpen([&](QDialog& dialog) {
      Button(dialog, name.c_str())->setFocus();
      EXPECT_EQ(PressedByEnter(dialog), name);
    });
  }
}

TEST_P(DialogOf, EscapeAndItsCancelButtonCloseItWithoutConfirming) {
  WhileOpen([](QDialog& dialog) {
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
  });
  WhileOpen([](QDialog& dialog) {
    // A help dialog has one button and nothing to confirm.
    auto* cancel = Button(dialog, "cmdESC");
    (cancel != nullptr ? cancel : Button(dialog, "cmdOK"))->click();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(cancel == nullptr || dialog.result() == QDialog::Rejected);
  });
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogOf, testing::ValuesIn(Forms()),
                         [](const auto& form) { return std::string(form.param.dialog); });

}  // namespace
}  // namespace zerbal::app
