// zerbal-monkey: random but repeatable user actions on the real program.
//
//   zerbal-monkey SEED ACTIONS              ACTIONS actions, in several sessions of the program
//   zerbal-monkey --soak REDRAWS DIALOGS    repeats the same actions; memory must not grow
//   zerbal-monkey --session SEED ACTIONS    one session in the working directory; zerbal-monkey runs it
//
// Prints every action before it is done. Exit status: 0 no failure; 1 a crash, a hang, an engine error or a
// refused start with intact files, or an exception that is not an engine error; 2 wrong arguments.
#include <QProxyStyle>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <string_view>

#include "app/application.h"
#include "dialogs/qt_message_boxes.h"
#include "jet/mapped_file_guard.h"
#include "session.h"
#include "session_runner.h"
#include "soak.h"
#include "support/offscreen.h"

namespace {

using namespace zerbal;

/// Menus whose sub-menus open at once and stay open: which one is open must not depend on time.
class InstantMenus final : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override {
    constexpr int kNever = 32767;  // ms; the largest that a menu takes
    if (hint == SH_Menu_SubMenuPopupDelay || hint == SH_Menu_SloppySubMenus)
      return 0;
    if (hint == SH_Menu_SubMenuSloppyCloseTimeout)
      return kNever;
    return QProxyStyle::styleHint(hint, option, widget, result);
  }
};

int RunSession(int argc, char** argv, std::uint32_t seed, int actions) {
  dialogs::QtMessageBoxes boxes;
  monkey::ErrorRecorder errors(boxes);
  app::Application application(argc, argv, errors);
  // Events must not depend on time: a double click and a typed search text never expire.
  QApplication::setDoubleClickInterval(0);
  QApplication::setStyle(new InstantMenus);  // the application owns it
  QApplication::setKeyboardInputInterval(std::numeric_limits<int>::max());
  return monkey::Session(seed, actions, boxes).Run(errors);
}

int RunSoak(int argc, char** argv, int redraws, int dialogs) {
  dialogs::QtMessageBoxes boxes;
  app::Application application(argc, argv, boxes);
  return monkey::Soak(redraws, dialogs) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view mode = argc == 4 ? argv[1] : "";
  if (argc != 3 && mode != "--session" && mode != "--soak") {
    std::cerr << "usage: zerbal-monkey SEED ACTIONS\n       zerbal-monkey --soak REDRAWS DIALOGS\n";
    return 2;
  }
  jet::InstallMappedFileGuard();
  test::UseOffscreenPlatform();
  const auto first = static_cast<std::uint32_t>(std::strtoul(argv[argc - 2], nullptr, 10));
  const int second = std::atoi(argv[argc - 1]);
  if (mode == "--session")
    return RunSession(argc, argv, first, second);
  if (mode == "--soak")
    return RunSoak(argc, argv, static_cast<int>(first), second);
  return monkey::RunSessions(argv[0], first, second) ? 0 : 1;
}
