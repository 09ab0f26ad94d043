#include "dialogs/number_edit.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <algorithm>

#include "base/numbers.h"

namespace zerbal::dialogs {
namespace {

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

bool AreDigits(const QString& text) {
  return std::all_of(text.begin(), text.end(), IsDigit);
}

/// Keys that write no character (arrows, Tab, Backspace, shortcuts) are not filtered.
bool WritesCharacter(const QKeyEvent& event) {
  const QString text = event.text();
  const bool isShortcut = (event.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
  return !isShortcut && !text.isEmpty() && text.front().category() != QChar::Other_Control;
}

}  // namespace

NumberEdit::NumberEdit(QWidget* parent) : QLineEdit("0", parent) {
  setAlignment(Qt::AlignRight);
  setInputMethodHints(Qt::ImhDigitsOnly);
  // All boxes of a column have the same width.
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

std::int32_t NumberEdit::Number() const {
  const QString trimmed = text().trimmed();
  qsizetype digits = 0;
  while (digits < trimmed.size() && IsDigit(trimmed[digits]))
    ++digits;
  return base::LeadingInt32(trimmed.left(digits).toStdString());
}

void NumberEdit::SetNumber(std::int32_t number) {
  setText(QString::number(number));
}

void NumberEdit::AskAgain() {
  setFocus();
  // No focus event arrives in a box that has the focus, or in a window without a window manager.
  selectAll();
}

void NumberEdit::keyPressEvent(QKeyEvent* event) {
  if (WritesCharacter(*event) && !AreDigits(event->text())) {
    QApplication::beep();
    event->accept();
    return;
  }
  QLineEdit::keyPressEvent(event);
}

void NumberEdit::inputMethodEvent(QInputMethodEvent* event) {
  QString text = event->commitString();
  if (!AreDigits(text)) {
    QApplication::beep();
    text.removeIf([](QChar c) { return !IsDigit(c); });
    event->setCommitString(text, event->replacementStart(), event->replacementLength());
  }
  QLineEdit::inputMethodEvent(event);
}

void NumberEdit::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  // The box's own context menu works on the selection.
  if (event->reason() == Qt::PopupFocusReason)
    return;
  selectAll();
  // A click would put the cursor where it was and drop the selection.
  selectOnRelease_ = event->reason() == Qt::MouseFocusReason;
}

void NumberEdit::focusOutEvent(QFocusEvent* event) {
  if (text().isEmpty())
    setText("0");
  selectOnRelease_ = false;
  QLineEdit::focusOutEvent(event);
}

void NumberEdit::mouseReleaseEvent(QMouseEvent* event) {
  QLineEdit::mouseReleaseEvent(event);
  if (selectOnRelease_ && !hasSelectedText())
    selectAll();
  selectOnRelease_ = false;
}

}  // namespace zerbal::dialogs
