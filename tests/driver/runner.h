// Plays a script: one line at a time, from inside the event loop, so that it goes on inside modal dialogs.
#pragma once

#include <QObject>
#include <QTimer>
#include <iosfwd>
#include <string>
#include <vector>

#include "commands.h"

namespace zerbal::drive {

enum class Outcome { kEnded = 0, kFailed = 1, kNoScript = 2, kEngineError = 3 };

class Runner : public QObject {
  Q_OBJECT

 public:
  /// Reads lines as it needs them, so that a script can also be typed. Answers go to `output`, reasons to
  /// `errors`.
  Runner(std::istream& script, std::ostream& output, std::ostream& errors);

  /// Plays the script to its end in an event loop of its own.
  Outcome Play();
  /// The program ended with an error that nothing caught.
  void EngineFailed(const std::string& text);

 private:
  void Step();
  bool CommandRunsUndisturbed() const;
  void CarryOutLine(const ScriptLine& line);
  void End(Outcome outcome);
  void Complain(const char* reason);

  std::istream& script_;
  std::ostream& output_;
  std::ostream& errors_;
  Stage stage_;
  QTimer next_;
  int lineNumber_ = 0;
  std::string lineText_;
  bool ended_ = false;
  Outcome outcome_ = Outcome::kEnded;
  /// The modal window that was open when each command began that has not come back yet, innermost last.
  std::vector<QWidget*> begun_;
};

}  // namespace zerbal::drive
