#include "runner.h"

#include <QApplication>
#include <QEventLoop>
#include <istream>
#include <ostream>

#include "dialogs/guarded.h"
#include "failure.h"
#include "json_values.h"

namespace zerbal::drive {
namespace {

/// How long to wait before checking again whether a command has returned.
constexpr int kWaitMs = 1;

}  // namespace

Runner::Runner(std::istream& script, std::ostream& output, std::ostream& errors)
    : script_(script), output_(output), errors_(errors) {
  next_.setSingleShot(true);
  dialogs::ConnectGuarded(&next_, &QTimer::timeout, this, &Runner::Step);
  context_.answer = [this](const QJsonObject& object) {
    if (ended_)
      return;
    context_.lastAnswer = object;
    output_ << JsonLine(object) << std::endl;
  };
}

Outcome Runner::Play() {
  next_.start(0);
  QApplication::exec();
  return outcome_;
}

// A command that opens a modal dialog or a message box returns only after that is closed. Until then the
// event loop of the dialog calls Step. A command that has not returned and has opened no modal window is
// still running.
bool Runner::CommandIsRunning() const {
  return !begun_.empty() && QApplication::activeModalWidget() == begun_.back();
}

void Runner::Step() {
  // Complete the effects of the previous line first, such as the activation of a new window.
  QApplication::processEvents();
  if (ended_)
    return;
  if (CommandIsRunning()) {
    next_.start(kWaitMs);
    return;
  }
  std::optional<ScriptLine> line;
  do {
    if (!std::getline(script_, lineText_)) {
      End(Outcome::kEnded);
      return;
    }
    ++lineNumber_;
    line = ParseLine(lineText_);
  } while (line && line->Empty());
  if (!line) {
    ReportError("the quotation marks are not balanced");
    End(Outcome::kInvalidScript);
    return;
  }
  ExecuteLine(*line);
}

void Runner::ExecuteLine(const ScriptLine& line) {
  const std::size_t depth = begun_.size();
  begun_.push_back(QApplication::activeModalWidget());
  next_.start(0);
  try {
    Execute(line, context_);
  } catch (const SyntaxError& failure) {
    ReportError(failure.what());
    End(Outcome::kInvalidScript);
  } catch (const Failure& failure) {
    ReportError(failure.what());
    End(Outcome::kFailed);
  }
  begun_.resize(depth);
}

void Runner::ReportEngineError(const std::string& text) {
  errors_ << text << std::endl;
  End(Outcome::kEngineError);
}

void Runner::ReportError(const char* reason) {
  // After an error of the program, the command that caused it continues.
  if (ended_)
    return;
  errors_ << "line " << lineNumber_ << ": " << lineText_ << "\n  " << reason << std::endl;
}

void Runner::End(Outcome outcome) {
  if (ended_)
    return;
  ended_ = true;
  outcome_ = outcome;
  next_.stop();
  output_.flush();
  if (begun_.size() <= 1 && !QApplication::activeModalWidget()) {
    QApplication::exit(static_cast<int>(outcome));
    return;
  }
  // Open windows and boxes run event loops of their own. End the process without closing them.
  std::_Exit(static_cast<int>(outcome));
}

}  // namespace zerbal::drive
