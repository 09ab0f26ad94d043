// The one place where errors of event handlers and slots end the program.
#pragma once

#include <QApplication>
#include <functional>
#include <string>
#include <utility>

#include "dialogs/guarded.h"
#include "settings/message_boxes.h"

namespace zerbal::app {

/// Shows the first error that dialogs::Guarded() reports in a critical box, with the error's own words. Then
/// every event loop ends, and Run() returns kErrorStatus. Later errors are ignored.
class Application final : public QApplication, public dialogs::ErrorReceiver {
  Q_OBJECT

 public:
  static constexpr int kErrorStatus = 1;
  using ErrorHook = std::function<void(const std::string& words)>;

  /// `boxes` outlives the application.
  Application(int& argc, char** argv, settings::MessageBoxes& boxes);

  /// Reports what Qt itself throws. Handlers and slots catch their own exceptions.
  bool notify(QObject* receiver, QEvent* event) override;
  void EndWithCurrentError() override;

  /// Handles events until the program ends; returns at once after an error. The exit status.
  int Run();

  /// Called in place of the box and the end of the event loops; the script driver sets it.
  void SetErrorHook(ErrorHook hook) { hook_ = std::move(hook); }

 private:
  settings::MessageBoxes& boxes_;
  ErrorHook hook_;
  bool failed_ = false;
};

}  // namespace zerbal::app
