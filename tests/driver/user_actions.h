// What a user does to controls, done with the events that a user's hand would cause.
#pragma once

#include <QString>
#include <QWidget>
#include <vector>

namespace zerbal::drive {

/// Makes the control's window the active one.
void Activate(QWidget* widget);
/// Presses and releases a button in the middle of the control.
void ClickMiddle(QWidget* widget, Qt::MouseButton button);
/// Moves the mouse over the middle of the control.
void HoverMiddle(QWidget* widget);
/// Focuses the control as the Tab key does, which selects a text box's whole text.
void FocusByTab(QWidget* widget);
/// Moves the focus on to the next control.
void LeaveByTab(QWidget* widget);
/// Types `text` into the control key by key; with `escapes`, \b \t \n \e stand for Backspace, Tab, Enter,
/// Escape.
void TypeKeys(QWidget* widget, const QString& text, bool escapes);
void Paste(QWidget* widget, const QString& text);
/// Chooses an entry of a drop-down list; its events run also when it is the current one.
void Choose(QWidget* combo, int index);
/// Makes exactly these rows of a list selected.
void PickRows(QWidget* list, const std::vector<int>& rows);

}  // namespace zerbal::drive
