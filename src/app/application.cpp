#include "app/application.h"

#include <QIcon>
#include <QWidget>
#include <exception>
#include <new>

#include "app/program_style.h"
#include "app/svg_icon.h"
#include "base/assert.h"

namespace zerbal::app {

Application::Application(int& argc, char** argv, settings::MessageBoxes& boxes)
    : QApplication(argc, argv), boxes_(boxes) {
  setApplicationName("zerbal");
  setStyle(new ProgramStyle);
  setWindowIcon(SvgIcon(":/app/zerbal.svg"));
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::bad_alloc&) {
    EndWithCurrentError();
  } catch (...) {
    ZERBAL_ASSERT(!"an event handler or slot is not guarded");
    EndWithCurrentError();
  }
  return false;
}

int Application::Run() {
  const int status = failed_ ? kErrorStatus : exec();
  // A window that closes after the error may have replaced the status.
  return failed_ ? kErrorStatus : status;
}

void Application::EndWithCurrentError() {
  std::string words = "An unknown error occurred.";
  try {
    throw;
  } catch (const std::exception& error) {
    words = error.what();
  } catch (...) {
  }
  if (std::exchange(failed_, true))
    return;
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
