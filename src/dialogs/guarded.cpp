#include "dialogs/guarded.h"

#include <QCoreApplication>
#include <exception>

namespace zerbal::dialogs {

void ReportCurrentError() noexcept {
  auto* receiver = dynamic_cast<ErrorReceiver*>(QCoreApplication::instance());
  if (receiver == nullptr)
    std::terminate();  // prints the exception
  receiver->EndWithCurrentError();
}

}  // namespace zerbal::dialogs
