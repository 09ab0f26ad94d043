#include "dialogs/qt_message_boxes.h"

#include <QApplication>
#include <QMessageBox>

namespace zerbal::dialogs {
namespace {

QMessageBox::Icon QtIcon(settings::BoxIcon icon) {
  return icon == settings::BoxIcon::kCritical      ? QMessageBox::Critical
         : icon == settings::BoxIcon::kExclamation ? QMessageBox::Warning
                                                   : QMessageBox::NoIcon;
}

/// The window that the user works in. There may be no active window right after another box has closed.
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
  // Texts contain file names, which are not markup.
  box.setTextFormat(Qt::PlainText);
  box.exec();
  // Without a window manager the parent does not become active by itself.
  if (parent != nullptr)
    parent->activateWindow();
}

}  // namespace zerbal::dialogs
