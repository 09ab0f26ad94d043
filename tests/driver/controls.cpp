#include "controls.h"

#include <QApplication>
#include <QMenu>
#include <algorithm>

#include "failure.h"

namespace zerbal::drive {
namespace {

constexpr char kMapWindow[] = "frmMap";

/// The order of windows; 0 is the topmost one.
int Rank(const QWidget* window) {
  if (window == QApplication::activeModalWidget())
    return 0;
  if (window->isModal())
    return 1;
  return window->objectName() == kMapWindow ? 2 : 3;
}

bool IsWindow(const QWidget* widget) {
  return (widget->isWindow() || widget->objectName() == kMapWindow) && !widget->objectName().isEmpty() &&
         widget->objectName().startsWith("frm");
}

Target FindIn(QWidget* window, const QString& name) {
  if (window->objectName() == name)
    return {window, nullptr};
  // A menu is a widget and an entry of its parent menu. The user sees the entry.
  if (auto* menu = window->findChild<QMenu*>(name))
    return {nullptr, menu->menuAction()};
  if (auto* action = window->findChild<QAction*>(name))
    return {nullptr, action};
  return {window->findChild<QWidget*>(name), nullptr};
}

bool IsBlockedByModal(const QWidget* widget) {
  const QWidget* modal = QApplication::activeModalWidget();
  return modal && widget->window() != modal;
}

}  // namespace

QMessageBox* OpenBox() {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  return box && box->isVisible() ? box : nullptr;
}

std::vector<QWidget*> VisibleWindows() {
  std::vector<QWidget*> windows;
  for (QWidget* widget : QApplication::allWidgets()) {
    if (IsWindow(widget) && widget->isVisible())
      windows.push_back(widget);
  }
  std::stable_sort(windows.begin(), windows.end(),
                   [](const QWidget* a, const QWidget* b) { return Rank(a) < Rank(b); });
  return windows;
}

Target Find(const QString& name) {
  const qsizetype dot = name.indexOf('.');
  const QString windowName = dot < 0 ? QString() : name.left(dot);
  const QString controlName = name.mid(dot + 1);
  for (QWidget* window : VisibleWindows()) {
    if (dot >= 0 && window->objectName() != windowName)
      continue;
    const Target target = FindIn(window, controlName);
    if (target.widget || target.action)
      return target;
  }
  throw Failure(QString("there is no '%1' in any visible window").arg(name));
}

void RequireReachable(const QWidget* widget, const QString& name) {
  if (!widget->isVisible())
    throw Failure(QString("'%1' is hidden").arg(name));
  if (IsBlockedByModal(widget))
    throw Failure(
        QString("'%1' is behind the dialog '%2'").arg(name, QApplication::activeModalWidget()->objectName()));
}

void RequireUsable(const QWidget* widget, const QString& name) {
  RequireReachable(widget, name);
  if (!widget->isEnabled())
    throw Failure(QString("'%1' is disabled").arg(name));
}

void RequireUsable(const QAction* action, const QString& name) {
  if (!action->isVisible())
    throw Failure(QString("'%1' is hidden").arg(name));
  if (!action->isEnabled())
    throw Failure(QString("'%1' is disabled").arg(name));
  if (const QWidget* modal = QApplication::activeModalWidget())
    throw Failure(QString("'%1' is behind the dialog '%2'").arg(name, modal->objectName()));
}

void FailWrongKind(const QString& name, const QMetaObject& wanted) {
  throw Failure(QString("'%1' is not a %2").arg(name, wanted.className()));
}

}  // namespace zerbal::drive
