#include "life.h"

#include <QApplication>
#include <exception>
#include <filesystem>

#include "controls.h"
#include "jet/error.h"
#include "report.h"

namespace zerbal::monkey {
namespace {

/// How long to wait before looking again whether an action has come back.
constexpr int kWaitMs = 1;

}  // namespace

void ErrorWatch::Show(settings::BoxIcon icon, const std::string& text) {
  if (const std::exception_ptr current = std::current_exception()) {
    try {
      std::rethrow_exception(current);
    } catch (const jet::EngineError&) {
      end_ = kEngineError;
    } catch (...) {
      end_ = kUnexpected;
    }
    Print("error: " + QString::fromStdString(text));
  }
  boxes_.Show(icon, text);
}

Life::Life(std::uint32_t seed, int actions, settings::MessageBoxes& boxes)
    : choice_(seed),
      misfortune_(choice_),
      ambush_(misfortune_),
      surface_(ambush_),
      random_(ambush_, seed),
      program_({app::WithSeparator(std::filesystem::current_path()), clock_, random_, boxes, &surface_}),
      hands_(choice_, misfortune_, ambush_),
      left_(actions) {
  next_.setSingleShot(true);
  connect(&next_, &QTimer::timeout, this, &Life::Step);
}

LifeEnd Life::Run(const ErrorWatch& watch) {
  QTimer first;
  first.setSingleShot(true);
  connect(&first, &QTimer::timeout, this, &Life::Start);
  first.start(0);
  const int status = QApplication::exec();
  ended_ = true;
  next_.stop();
  if (watch.End() != kClosed)
    return watch.End();
  if (refused_)
    return kRefused;
  return status == 0 ? kClosed : kUnexpected;
}

template <class Work>
void Life::Begin(const Work& work) {
  const std::size_t depth = begun_.size();
  begun_.push_back(PresentFront());
  next_.start(0);
  work();
  begun_.resize(depth);
}

void Life::Start() {
  Begin([this] {
    if (program_.Start())
      return;
    refused_ = true;
    QApplication::quit();
  });
}

Life::Front Life::PresentFront() {
  return {QApplication::activeModalWidget(), QApplication::activePopupWidget()};
}

// An action that opens a modal dialog, a message box or some menus does not come back before that closes; its
// event loop is then the one that calls Step. As long as nothing new is open, an action that has not come
// back is still at work.
bool Life::ActionRunsUndisturbed() const {
  if (begun_.empty())
    return false;
  const Front now = PresentFront();
  return now.modal == begun_.back().modal && now.popup == begun_.back().popup;
}

void Life::Step() {
  if (ended_)
    return;
  if (ActionRunsUndisturbed()) {
    next_.start(kWaitMs);
    return;
  }
  if (left_ <= 0)
    Begin([this] { WindDown(); });
  else
    Begin([this] { Act(); });
}

void Life::Act() {
  --left_;
  QWidget* modal = QApplication::activeModalWidget();
  if (QMessageBox* box = drive::OpenBox())
    hands_.AnswerBox(*box);
  else if (QWidget* popup = QApplication::activePopupWidget())
    hands_.UsePopup(*popup);
  else if (modal != nullptr)
    hands_.UseDialog(*modal);
  else if (program_.Running())
    hands_.UseMainWindow(program_.MainWindow(), program_.MainWindow().MapWindow());
}

void Life::WindDown() {
  if (QWidget* popup = QApplication::activePopupWidget())
    popup->close();
  else if (QWidget* modal = QApplication::activeModalWidget())
    modal->close();
  else if (program_.Running())
    program_.MainWindow().close();
}

}  // namespace zerbal::monkey
