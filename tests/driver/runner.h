// Plays a script line by line from inside the event loop, so that it continues inside modal dialogs.
#pragma once

#include <QObject>
#include <QTimer>
#include <iosfwd>
#include <string>
#include <vector>

#include "commands.h"

namespace zerbal::drive {

/// The exit status of zerbal-drive.
enum class Outcome { kEnded = 0, kFailed = 1, kInvalidScript = 2, kEngineError = 3 };

class Runner : public QObject {
  Q_OBJECT

 public:
  /// Reads each line when it is needed, so that a script can also be typed. Writes answers to `output` and
  /// reasons of failures to `errors`.
  Runner(std::istream& script, std::ostream& output, std::ostream& errors);

  /// Plays the script to its end in an event loop.
  Outcome Play();
  /// Ends the script because of an error that nothing in the program caught.
  void ReportEngineError(const std::string& text);

 private:
  void Step();
  bool CommandIsRunning() const;
  void ExecuteLine(const ScriptLine& line);
  void End(Outcome outcome);
  void ReportError(const char* reason);

  std::istream& script_;
  std::ostream& output_;
  std::ostream& errors_;
  Context context_;
  QTimer next_;
  int lineNumber_ = 0;
  std::string lineText_;
  bool ended_ = false;
  Outcome outcome_ = Outcome::kEnded;
  /// The modal window at the start of each command that has not returned yet, innermost last.
  std::vector<QWidget*> begun_;
};

}  // namespace zerbal::drive
