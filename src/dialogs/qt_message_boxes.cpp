#include "dialogs/qt_message_boxes.h"

#include <QApplication>
#include <QMessageBox>

namespace zerbal::dialogs {
namespace {

QMessageBox::Icon QtIcon(settings::BoxIcon icon) {
  switch (icon) {
    case settings::BoxIcon::kExclamation:
      return QMessageBox::Warning;
    case settings::BoxIcon::kCritical:
      return QMessageBox::Critical;
    case settings::BoxIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

/// The window that the user works in. Not the active one: right after another box has closed there is none.
QWidget* CurrentWindow() {
  if (QWidget* dialog = QApplication::activeModalWidget())
    return dialog;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    const bool isMenuOrTip = window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip;
    if (window->isVisible() && !isMenuOrTip)
      return window;
  }
  return nullptr;
}

}  // namespace

void QtMessageBoxes::Show(settings::BoxIcon icon, const std::string& text) {
  QWidget* const parent = CurrentWindow();
  QMessageBox box(QtIcon(icon), settings::kProgramTitle, QString::fromStdString(text), QMessageBox::Ok,
                  parent);
  // Texts hold file names: nothing in them is markup.
  box.setTextFormat(Qt::PlainText);
  box.exec();
  // Without a window manager nobody else makes the parent active again.
  if (parent != nullptr)
    parent->activateWindow();
}

}  // namespace zerbal::dialogs
