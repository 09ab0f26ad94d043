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

}  // namespace

void QtMessageBoxes::Show(settings::BoxIcon icon, const std::string& text) {
  QMessageBox box(QtIcon(icon), settings::kProgramTitle, QString::fromStdString(text), QMessageBox::Ok,
                  QApplication::activeWindow());
  // Texts hold file names: nothing in them is markup.
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace zerbal::dialogs
