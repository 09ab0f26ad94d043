#include "app/application.h"

#include <QIcon>
#include <QWidget>
#include <exception>

#include "app/svg_icon.h"

namespace zerbal::app {

Application::Application(int& argc, char** argv, settings::MessageBoxes& boxes)
    : QApplication(argc, argv), boxes_(boxes) {
  setApplicationName("zerbal");
  setWindowIcon(SvgIcon(":/app/zerbal.svg"));
}

bool Application::notify(QObject* receiver, QEvent* event) {
  bool handled = false;
  Guard([&] { handled = QApplication::notify(receiver, event); });
  return handled;
}

void Application::EndWithCurrentError() {
  try {
    throw;
  } catch (const std::exception& error) {
    EndWithError(error.what());
  } catch (...) {
    EndWithError("An unknown error occurred.");
  }
}

void Application::EndWithError(const std::string& words) {
  if (failed_)
    return;
  failed_ = true;
  if (hook_) {
    hook_(words);
    return;
  }
  // A window that holds the mouse (an open menu, a dragged zoom box) would keep it from the box.
  if (QWidget* popup = activePopupWidget())
    popup->close();
  boxes_.Show(settings::BoxIcon::kCritical, words);
  exit(kErrorStatus);
}

}  // namespace zerbal::app
