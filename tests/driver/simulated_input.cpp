#include "simulated_input.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QEnterEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleOptionButton>
#include <QTest>
#include <algorithm>

#include "failure.h"

namespace zerbal::drive {
namespace {

void SendMouse(QWidget* widget, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
  // A check box or option button reacts to clicks on its mark and caption, not on its whole width.
  const int hint = widget->sizeHint().width();
  const int middle = widget->width() / 2;
  const QPoint at(hint > 0 ? std::min(middle, std::max(8, hint / 2)) : middle, widget->height() / 2);
  QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

struct Key {
  int code = 0;
  QString text;
};

Key EscapedKey(QChar letter) {
  switch (letter.unicode()) {
    case 'b':
      return {Qt::Key_Backspace, "\b"};
    case 't':
      return {Qt::Key_Tab, "\t"};
    case 'n':
      return {Qt::Key_Return, "\r"};
    case 'e':
      return {Qt::Key_Escape, "\x1b"};
    default:
      throw SyntaxError(QString("'\\%1' is not a key").arg(letter));
  }
}

int KeyCode(QChar letter) {
  const char16_t unit = letter.toUpper().unicode();
  return unit < 0x80 ? static_cast<int>(unit) : static_cast<int>(Qt::Key_unknown);
}

void PressKey(QWidget* widget, const Key& key) {
  // A key may move the focus (Tab) or close the window.
  const QPointer<QWidget> window = widget->window();
  QPointer<QWidget> target = window->focusWidget() ? window->focusWidget() : widget;
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    if (!target)
      return;
    QKeyEvent event(type, key.code, Qt::NoModifier, key.text);
    QApplication::sendEvent(target, &event);
  }
}

}  // namespace

void ClickMiddle(QWidget* widget, Qt::MouseButton button) {
  // The lines of a list belong to its viewport.
  if (auto* area = qobject_cast<QAbstractScrollArea*>(widget); area && area->isEnabled()) {
    Activate(area);
    area->setFocus(Qt::MouseFocusReason);
    widget = area->viewport();
  }
  // A disabled control ignores the click; Qt would pass it to the parent.
  if (!widget->isEnabled())
    return;
  const QPointer<QWidget> alive = widget;
  Activate(widget);
  if (button == Qt::LeftButton && (widget->focusPolicy() & Qt::ClickFocus))
    widget->setFocus(Qt::MouseFocusReason);
  SendMouse(widget, QEvent::MouseButtonPress, button, button);
  if (alive && button == Qt::RightButton) {
    const QPoint at = widget->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget->mapToGlobal(at));
    QApplication::sendEvent(widget, &event);
  }
  if (alive)
    SendMouse(widget, QEvent::MouseButtonRelease, button, Qt::NoButton);
}

void HoverMiddle(QWidget* widget) {
  const QPointF at(widget->width() / 2.0, widget->height() / 2.0);
  const QPointF global = widget->mapToGlobal(at);
  QEnterEvent enter(at, at, global);
  QApplication::sendEvent(widget, &enter);
  QMouseEvent move(QEvent::MouseMove, at, global, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
  QApplication::sendEvent(widget, &move);
  QHelpEvent help(QEvent::ToolTip, at.toPoint(), global.toPoint());
  QApplication::sendEvent(widget, &help);
}

void Activate(QWidget* widget) {
  // Only the active window receives focus events, and the window system activates it later.
  QApplication::setActiveWindow(widget->window());
}

void FocusByTab(QWidget* widget) {
  Activate(widget);
  // A control that has the focus already would receive no focus event.
  if (widget->window()->focusWidget() == widget)
    widget->clearFocus();
  widget->setFocus(Qt::TabFocusReason);
}

void LeaveByTab(QWidget* widget) {
  PressKey(widget, {Qt::Key_Tab, "\t"});
}

void TypeKeys(QWidget* widget, const QString& text, bool escapes) {
  const QPointer<QWidget> alive = widget;
  for (qsizetype i = 0; i < text.size() && alive; ++i) {
    if (escapes && text[i] == '\\' && i + 1 < text.size())
      PressKey(widget, EscapedKey(text[++i]));
    else
      PressKey(widget, {KeyCode(text[i]), text.mid(i, 1)});
  }
}

void PressSequence(QWidget* mainWindow, QKeyCombination keys) {
  QWidget* target = QApplication::activePopupWidget();
  if (!target) {
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* window = modal ? modal : mainWindow;
    Activate(window);
    target = window->focusWidget() ? window->focusWidget() : window;
  }
  const QPointer<QWidget> alive = target;
  QTest::keyPress(target, keys.key(), keys.keyboardModifiers());
  if (alive)
    QTest::keyRelease(target, keys.key(), keys.keyboardModifiers());
}

void Paste(QWidget* widget, const QString& text) {
  QApplication::clipboard()->setText(text);
  if (auto* line = qobject_cast<QLineEdit*>(widget)) {
    if (widget->window()->focusWidget() != widget)
      FocusByTab(widget);
    line->paste();
    return;
  }
  throw Failure("the control is not a text box");
}

void Choose(QWidget* widget, int index) {
  auto* combo = qobject_cast<QComboBox*>(widget);
  if (index < 0 || index >= combo->count())
    throw Failure(QString("the list has no entry %1").arg(index));
  Activate(combo);
  combo->setFocus(Qt::MouseFocusReason);
  combo->setCurrentIndex(index);
  // The widget emits these signals when the user chooses in its pop-up list.
  emit combo->textActivated(combo->itemText(index));
  emit combo->activated(index);
}

void PickRows(QWidget* widget, const std::vector<int>& rows) {
  auto* list = qobject_cast<QAbstractItemView*>(widget);
  const QAbstractItemModel& model = *list->model();
  QItemSelection selection;
  for (const int row : rows) {
    if (row < 0 || row >= model.rowCount())
      throw Failure(QString("the list has no line %1").arg(row));
    selection.select(model.index(row, 0), model.index(row, 0));
  }
  Activate(list);
  list->setFocus(Qt::MouseFocusReason);
  list->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

}  // namespace zerbal::drive
