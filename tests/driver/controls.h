// Finds windows, controls and menu entries by object name and describes what they show.
#pragma once

#include <QAction>
#include <QJsonObject>
#include <QMessageBox>
#include <QString>
#include <QWidget>
#include <vector>

namespace zerbal::drive {

/// The message box that is open; null when there is none.
QMessageBox* OpenBox();

/// Every visible window that has a name, topmost first: dialogs, then the map window, then the main window.
std::vector<QWidget*> VisibleWindows();

/// A window or control (`widget`) or a menu entry (`action`); the other member is null.
struct Target {
  QWidget* widget = nullptr;
  QAction* action = nullptr;
};

/// Finds `name` in the topmost window that has it; WINDOW.NAME searches one window only. Throws Failure when
/// there is none.
Target Find(const QString& name);
/// The same for a control or window of one class. Throws Failure when it has another class.
template <class Widget>
Widget* FindWidget(const QString& name);

/// Throws Failure when the control is hidden or a modal dialog blocks its window.
void RequireReachable(const QWidget* widget, const QString& name);
/// The same; throws also when the control is disabled.
void RequireUsable(const QWidget* widget, const QString& name);
/// Throws Failure when the entry is hidden or disabled or a modal dialog blocks it.
void RequireUsable(const QAction* action, const QString& name);

/// The answer of `get`.
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
