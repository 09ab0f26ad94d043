#include "dialogs/number_edit.h"

#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QTest>
#include <QVBoxLayout>

#include "dialogs/dialog_fixture.h"

namespace {

int beeps = 0;

}  // namespace

/// Replaces Qt's function in this test program, because no platform reports its beeps.
void QApplication::beep() {
  ++beeps;
}

namespace zerbal::test {
namespace {

class NumberEditTest : public DialogTest {
 protected:
  dialogs::NumberEdit box;
  void Focus(QEvent::Type type, Qt::FocusReason reason = Qt::TabFocusReason) {
    QFocusEvent event(type, reason);
    QApplication::sendEvent(&box, &event);
  }
};

TEST_F(NumberEditTest, AcceptsOnlyDigitsAndBackspace) {
  box.clear();
  Type(&box, "1-2.3a 4,e+5");
  EXPECT_EQ(box.text(), "12345");
  Press(&box, Qt::Key_Backspace, "\b");
  EXPECT_EQ(box.text(), "1234");
}

TEST_F(NumberEditTest, EachRefusedKeyBeepsOnce) {
  beeps = 0;
  Type(&box, "0123456789");
  Press(&box, Qt::Key_Backspace, "\b");
  Press(&box, Qt::Key_Left, "");
  EXPECT_EQ(beeps, 0);
  int refused = 0;
  for (const char* letter : {"a", "-", "+", ".", ",", " ", "\u0663"}) {
    Type(&box, letter);
    EXPECT_EQ(beeps, ++refused) << letter;
  }
}

TEST_F(NumberEditTest, ARefusedInputOfAnInputMethodBeepsOnce) {
  beeps = 0;
  for (const auto& [text, expected] : {std::pair("12", 0), {"1a2b", 1}, {"\u00e9", 2}, {"", 2}}) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(&box, &event);
    EXPECT_EQ(beeps, expected) << text;
  }
}

TEST_F(NumberEditTest, AcceptsOnlyDigitsWithAltAndFromAnInputMethod) {
  box.clear();
  for (const char* text : {"x", "7", "@"}) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, Qt::AltModifier, text);
    QApplication::sendEvent(&box, &event);
  }
  EXPECT_EQ(box.text(), "7");
  for (const char* text : {"\u00e9", "1a2", "-", "3"}) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(&box, &event);
  }
  EXPECT_EQ(box.text(), "7123");
}

TEST_F(NumberEditTest, ShortcutsAreNotFiltered) {
  box.setText("12");
  box.selectAll();
  QKeyEvent cut(QEvent::KeyPress, Qt::Key_X, Qt::ControlModifier, "\x18");
  QApplication::sendEvent(&box, &cut);
  EXPECT_EQ(box.text(), "");
}

TEST_F(NumberEditTest, TheFocusSelectsTheWholeText) {
  box.setText("123");
  Focus(QEvent::FocusIn);
  EXPECT_EQ(box.selectedText(), "123");
  Type(&box, "9");
  EXPECT_EQ(box.text(), "9");
}

TEST_F(NumberEditTest, AClickIntoTheBoxSelectsTheWholeText) {
  QWidget window;
  auto* other = new QLineEdit;
  auto* clicked = new dialogs::NumberEdit;
  auto* column = new QVBoxLayout(&window);
  column->addWidget(other);
  column->addWidget(clicked);
  clicked->SetNumber(123);
  window.show();
  QApplication::setActiveWindow(&window);
  for (const QPoint at : {QPoint(2, 5), clicked->rect().center(), QPoint(clicked->width() - 2, 5)}) {
    other->setFocus();
    QTest::mouseClick(clicked, Qt::LeftButton, Qt::NoModifier, at);
    EXPECT_TRUE(clicked->hasFocus());
    EXPECT_EQ(clicked->selectedText(), "123");
  }
  QTest::mouseClick(clicked, Qt::LeftButton);
  EXPECT_EQ(clicked->selectedText(), "") << "a click into the box that has the focus places the cursor";
}

TEST_F(NumberEditTest, LeavingAnEmptyBoxShowsZero) {
  box.clear();
  Focus(QEvent::FocusOut);
  EXPECT_EQ(box.text(), "0");
}

TEST_F(NumberEditTest, TheLeadingDigitsOfAPastedTextCount) {
  const std::pair<const char*, int> cases[] = {{"12abc", 12},  {"abc", 0}, {"-7", 0}, {"3.9", 3},
                                               {"  44 5", 44}, {"", 0},    {"007", 7}};
  for (const auto& [text, number] : cases) {
    box.setText(text);
    EXPECT_EQ(box.Number(), number) << text;
  }
}

TEST_F(NumberEditTest, NumbersBeyond32BitsAreLimited) {
  box.setText("2147483647");
  EXPECT_EQ(box.Number(), 2147483647);
  box.setText("2147483648");
  EXPECT_EQ(box.Number(), 2147483647);
  box.setText(QString(400, '9'));
  EXPECT_EQ(box.Number(), 2147483647);
}

}  // namespace
}  // namespace zerbal::test
