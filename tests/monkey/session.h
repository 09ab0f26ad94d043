// A session of the program under random user actions, from start-up to end.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <cstdint>
#include <vector>

#include "app/clock.h"
#include "app/running_program.h"
#include "settings/message_boxes.h"
#include "ui_actions.h"

namespace zerbal::monkey {

/// How a session ended; the exit status of its process. No signal and no sanitizer gives one of these.
enum SessionEnd {
  kClosed = 0,
  kStartRefused = 10,        ///< the start-up showed why it cannot go on
  kEngineError = 11,         ///< an error of the database engine ended the program
  kUnexpectedException = 12  ///< another exception ended it
};

/// Passes boxes on and records the error for which the application shows one.
class ErrorRecorder final : public settings::MessageBoxes {
 public:
  explicit ErrorRecorder(settings::MessageBoxes& boxes) : boxes_(boxes) {}
  void Show(settings::BoxIcon icon, const std::string& text) override;
  /// kClosed when there was no error.
  SessionEnd End() const { return end_; }

 private:
  settings::MessageBoxes& boxes_;
  SessionEnd end_ = kClosed;
};

class Session final : public QObject {
  Q_OBJECT

 public:
  /// Does `actions` actions, then closes the program as a user does.
  Session(std::uint32_t seed, int actions, settings::MessageBoxes& boxes);
  /// Runs an event loop until the program ends.
  SessionEnd Run(const ErrorRecorder& errors);

 private:
  /// What is open in front of all other windows.
  struct Front {
    QPointer<QWidget> modal;
    QPointer<QWidget> popup;
  };

  void Start();
  void Step();
  void Act();
  void CloseFrontWindow();
  static Front CurrentFront();
  bool ActionIsRunning() const;
  /// `work` may open a modal window or a menu and then returns only after that is closed.
  template <class Work>
  void Begin(const Work& work);

  RandomChoice choice_;
  FileCorrupter corrupter_;
  DelayedCorruption delayedCorruption_;
  CorruptingSurface surface_;
  CorruptingRandom random_;
  app::SystemClock clock_;
  app::RunningProgram program_;
  UiActions actions_;
  QTimer next_;
  int actionsLeft_;
  bool startRefused_ = false;
  bool ended_ = false;
  /// What was in front when each action began that has not returned yet, innermost last.
  std::vector<Front> begun_;
};

}  // namespace zerbal::monkey
