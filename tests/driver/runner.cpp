#include "runner.h"

#include <QApplication>
#include <QEventLoop>
#include <istream>
#include <ostream>

#include "failure.h"
#include "json_values.h"

namespace zerbal::drive {
namespace {

/// How long to wait before looking again whether a command has come back.
constexpr int kWaitMs = 1;

}  // namespace

Runner::Runner(std::istream& script, std::ostream& output, std::ostream& errors)
    : script_(script), output_(output), errors_(errors) {
  next_.setSingleShot(true);
  connect(&next_, &QTimer::timeout, this, &Runner::Step);
  stage_.answer = [this](const QJsonObject& object) {
    stage_.lastAnswer = object;
    output_ << JsonLine(object) << std::endl;
  };
}

Outcome Runner::Play() {
  next_.start(0);
  QApplication::exec();
  return outcome_;
}

// A command that opens a modal dialog or a message box does not come back before that closes; its event loop
// is then the one that calls Step. As long as no new modal window is open, a command that has not come back
// is still at work.
bool Runner::CommandRunsUndisturbed() const {
  return !begun_.empty() && QApplication::activeModalWidget() == begun_.back();
}

void Runner::Step() {
  // What the line before set going - a new window becomes active and gives the focus - is over before the
  // next.
  QApplication::processEvents();
  if (ended_)
    return;
  if (CommandRunsUndisturbed()) {
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
    Complain("the quotation marks are wrong");
    End(Outcome::kNoScript);
    return;
  }
  CarryOutLine(*line);
}

void Runner::CarryOutLine(const ScriptLine& line) {
  const std::size_t depth = begun_.size();
  begun_.push_back(QApplication::activeModalWidget());
  next_.start(0);
  try {
    CarryOut(line, stage_);
  } catch (const NotACommand& failure) {
    Complain(failure.what());
    End(Outcome::kNoScript);
  } catch (const Failure& failure) {
    Complain(failure.what());
    End(Outcome::kFailed);
  }
  begun_.resize(depth);
}

void Runner::EngineFailed(const std::string& text) {
  errors_ << text << std::endl;
  End(Outcome::kEngineError);
}

void Runner::Complain(const char* reason) {
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
  // Windows and boxes are open, each with an event loop of its own: the process ends without them.
  std::_Exit(static_cast<int>(outcome));
}

}  // namespace zerbal::drive
