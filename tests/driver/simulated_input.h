// User input to controls, simulated with the events that mouse and keyboard cause.
#pragma once

#include <QKeyCombination>
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
/// Types `text` into the control key by key. With `escapes`, \b \t \n \e mean Backspace, Tab, Enter and
/// Escape.
void TypeKeys(QWidget* widget, const QString& text, bool escapes);
/// Presses and releases the keys on the control that has the focus in the active window; shortcuts take part.
void PressSequence(QWidget* mainWindow, QKeyCombination keys);
/// Puts `text` on the clipboard and pastes it. Throws Failure when the control is not a text box.
void Paste(QWidget* widget, const QString& text);
/// Chooses an entry of a drop-down list, and emits its signals even if it is the current entry. Throws
/// Failure when there is no such entry.
void Choose(QWidget* combo, int index);
/// Selects exactly these rows of a list. Throws Failure when there is no such row.
void PickRows(QWidget* list, const std::vector<int>& rows);

}  // namespace zerbal::drive
