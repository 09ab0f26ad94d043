#include "session.h"

#include <QApplication>
#include <exception>
#include <filesystem>

#include "action_log.h"
#include "controls.h"
#include "dialogs/guarded.h"
#include "jet/error.h"

namespace zerbal::monkey {
namespace {

/// How long to wait before checking again whether an action has returned.
constexpr int kWaitMs = 1;
/// Between actions in a menu. It opens the sub-menu of an entry 20 ms after a press.
constexpr int kMenuMs = 50;

}  // namespace

void ErrorRecorder::Show(settings::BoxIcon icon, const std::string& text) {
  if (const std::exception_ptr current = std::current_exception()) {
    try {
      std::rethrow_exception(current);
    } catch (const jet::EngineError&) {
      end_ = kEngineError;
    } catch (...) {
      end_ = kUnexpectedException;
    }
    PrintLine("error: " + QString::fromStdString(text));
  }
  boxes_.Show(icon, text);
}

Session::Session(std::uint32_t seed, int actions, settings::MessageBoxes& boxes)
    : choice_(seed),
      corrupter_(choice_),
      delayedCorruption_(corrupter_),
      surface_(delayedCorruption_),
      random_(delayedCorruption_, seed),
      program_({app::WithSeparator(std::filesystem::current_path()), clock_, random_, boxes, &surface_}),
      actions_(choice_, corrupter_, delayedCorruption_),
      actionsLeft_(actions) {
  next_.setSingleShot(true);
  dialogs::ConnectGuarded(&next_, &QTimer::timeout, this, &Session::Step);
}

SessionEnd Session::Run(const ErrorRecorder& errors) {
  QTimer first;
  first.setSingleShot(true);
  dialogs::ConnectGuarded(&first, &QTimer::timeout, this, &Session::Start);
  first.start(0);
  const int status = QApplication::exec();
  ended_ = true;
  next_.stop();
  if (errors.End() != kClosed)
    return errors.End();
  if (startRefused_)
    return kStartRefused;
  return status == 0 ? kClosed : kUnexpectedException;
}

template <class Work>
void Session::Begin(const Work& work) {
  const std::size_t depth = begun_.size();
  begun_.push_back(CurrentFront());
  next_.start(begun_.back().popup != nullptr ? kMenuMs : 0);
  work();
  begun_.resize(depth);
}

void Session::Start() {
  Begin([this] {
    if (program_.Start())
      return;
    startRefused_ = true;
    QApplication::quit();
  });
}

Session::Front Session::CurrentFront() {
  return {QApplication::activeModalWidget(), QApplication::activePopupWidget()};
}

// An action that opens a modal dialog, a message box or a menu returns only after that is closed. Until then
// the event loop of the dialog calls Step. An action that has not returned and has opened nothing is still
// running.
bool Session::ActionIsRunning() const {
  if (begun_.empty())
    return false;
  const Front now = CurrentFront();
  return now.modal == begun_.back().modal && now.popup == begun_.back().popup;
}

void Session::Step() {
  if (ended_)
    return;
  if (ActionIsRunning()) {
    next_.start(kWaitMs);
    return;
  }
  if (actionsLeft_ <= 0)
    Begin([this] { CloseFrontWindow(); });
  else
    Begin([this] { Act(); });
}

void Session::Act() {
  --actionsLeft_;
  QWidget* modal = QApplication::activeModalWidget();
  if (QMessageBox* box = drive::OpenBox())
    actions_.AnswerBox(*box);
  else if (QWidget* popup = QApplication::activePopupWidget())
    actions_.UsePopup(*popup);
  else if (modal != nullptr)
    actions_.UseDialog(*modal);
  else if (program_.Running())
    actions_.UseMainWindow(program_.MainWindow(), program_.MainWindow().MapWindow());
}

void Session::CloseFrontWindow() {
  if (QWidget* popup = QApplication::activePopupWidget())
    popup->close();
  else if (QWidget* modal = QApplication::activeModalWidget())
    modal->close();
  else if (program_.Running())
    program_.MainWindow().close();
}

}  // namespace zerbal::monkey
