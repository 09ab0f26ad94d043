// Finding windows, controls and menu entries by their object names, and telling what they show.
#pragma once

#include <QAction>
#include <QJsonObject>
#include <QMessageBox>
#include <QString>
#include <QWidget>
#include <vector>

namespace zerbal::drive {

/// The message box that is open and waits for an answer; null when there is none.
QMessageBox* OpenBox();

/// Every visible window that has a name, topmost first: dialogs before the map window before the main window.
std::vector<QWidget*> VisibleWindows();

/// A window, a control in one, or a menu entry. Just one of the two is set.
struct Target {
  QWidget* widget = nullptr;
  QAction* action = nullptr;
};

/// Finds `name` in the topmost window that has it, or in one window where it is written WINDOW.NAME. Throws
/// Failure when there is none.
Target Find(const QString& name);
/// The same for a control or window of one class. Throws Failure when it is something else.
template <class Widget>
Widget* FindWidget(const QString& name);

/// Throws Failure when a user could not reach the control: hidden, or in a window behind a modal dialog.
void RequireReachable(const QWidget* widget, const QString& name);
/// The same, and also when it is disabled.
void RequireUsable(const QWidget* widget, const QString& name);
/// Throws Failure when a user could not choose the entry.
void RequireUsable(const QAction* action, const QString& name);

/// Everything that `get` tells.
QJsonObject Describe(const QString& name, const Target& target);

[[noreturn]] void FailWrongKind(const QString& name, const QMetaObject& wanted);

template <class Widget>
Widget* FindWidget(const QString& name) {
  auto* widget = qobject_cast<Widget*>(Find(name).widget);
  if (!widget)
    FailWrongKind(name, Widget::staticMetaObject);
  return widget;
}

}  // namespace zerbal::drive
