// The one place where an error that nobody caught ends the program.
#pragma once

#include <QApplication>
#include <functional>
#include <string>
#include <utility>

#include "settings/message_boxes.h"

namespace zerbal::app {

/// A Qt application whose events may throw. What a handler throws (the database engine's errors, counters
/// that overflow) is told to the user in a critical box with the error's own words; then every event loop
/// ends and Run() returns kErrorStatus. What fails after that is not told again.
class Application final : public QApplication {
  Q_OBJECT

 public:
  static constexpr int kErrorStatus = 1;
  using ErrorHook = std::function<void(const std::string& words)>;

  /// `boxes` outlives the application.
  Application(int& argc, char** argv, settings::MessageBoxes& boxes);

  bool notify(QObject* receiver, QEvent* event) override;

  /// Runs `work` as an event handler is run; false when it threw.
  template <class Work>
  bool Guard(const Work& work) {
    try {
      work();
      return true;
    } catch (...) {
      EndWithCurrentError();
      return false;
    }
  }

  /// Handles events until the program ends; at once when an error has ended it before. The exit status.
  int Run() { return failed_ ? kErrorStatus : exec(); }

  /// Called in place of the box and the end of the event loops, for whoever drives the program.
  void SetErrorHook(ErrorHook hook) { hook_ = std::move(hook); }

 private:
  void EndWithCurrentError();
  void EndWithError(const std::string& words);

  settings::MessageBoxes& boxes_;
  ErrorHook hook_;
  bool failed_ = false;
};

}  // namespace zerbal::app
