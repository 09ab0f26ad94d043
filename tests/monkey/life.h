// One life of the program under the monkey's hands, from its start to its end.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <cstdint>
#include <vector>

#include "app/clock.h"
#include "app/start_up.h"
#include "hands.h"
#include "settings/message_boxes.h"

namespace zerbal::monkey {

/// How a life ended; the exit status of its process. None of them is a status that a sanitizer or a signal
/// gives.
enum LifeEnd {
  kClosed = 0,
  kRefused = 10,      ///< the start-up told the user that it cannot go on
  kEngineError = 11,  ///< an error of the database engine ended the program
  kUnexpected = 12    ///< another exception did
};

/// The boxes of the application, which hear of every error that ends the program.
class ErrorWatch final : public settings::MessageBoxes {
 public:
  explicit ErrorWatch(settings::MessageBoxes& boxes) : boxes_(boxes) {}
  void Show(settings::BoxIcon icon, const std::string& text) override;
  /// kClosed when there was none.
  LifeEnd End() const { return end_; }

 private:
  settings::MessageBoxes& boxes_;
  LifeEnd end_ = kClosed;
};

class Life final : public QObject {
  Q_OBJECT

 public:
  /// Acts `actions` times, then closes the program as a user does.
  Life(std::uint32_t seed, int actions, settings::MessageBoxes& boxes);
  /// In an event loop of its own.
  LifeEnd Run(const ErrorWatch& watch);

 private:
  void Start();
  void Step();
  void Act();
  void WindDown();
  bool ActionRunsUndisturbed() const;
  /// `work` may open a modal window or a menu and come back only when that is closed.
  template <class Work>
  void Begin(const Work& work);

  Choice choice_;
  Misfortune misfortune_;
  Ambush ambush_;
  AmbushedSurface surface_;
  AmbushedRandom random_;
  app::SystemClock clock_;
  app::Main program_;
  Hands hands_;
  QTimer next_;
  int left_;
  bool refused_ = false;
  bool ended_ = false;
  /// What was open in front of everything else when an action began.
  struct Front {
    QPointer<QWidget> modal;
    QPointer<QWidget> popup;
  };
  static Front PresentFront();
  /// Of each action that has not come back yet, innermost last.
  std::vector<Front> begun_;
};

}  // namespace zerbal::monkey
