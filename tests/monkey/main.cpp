// zerbal-monkey: random but repeatable user actions on the real program.
//
//   zerbal-monkey SEED ACTIONS     that many actions, in as many lives of the program as they take
//   zerbal-monkey --soak REDRAWS DIALOGS    the same things again and again; memory must not grow
//   zerbal-monkey --life SEED ACTIONS    one life in the working directory; for zerbal-monkey itself
//
// Prints every action before it is done. Exit status 0 when nothing went wrong; 1 for a crash, a hang, an
// error that nothing in the files explains or another exception than the engine's; 2 for wrong arguments.
#include <cstdlib>
#include <iostream>
#include <limits>
#include <string_view>

#include "app/application.h"
#include "dialogs/qt_message_boxes.h"
#include "life.h"
#include "lives.h"
#include "soak.h"

namespace {

using namespace zerbal;

/// The offscreen platform says of each window what it cannot do; nobody need hear it.
void KeepQuietAboutThePlatform(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (!message.startsWith("This plugin does not support"))
    std::cerr << qFormatLogMessage(type, context, message).toStdString() << std::endl;
}

int LiveOnce(int argc, char** argv, std::uint32_t seed, int actions) {
  dialogs::QtMessageBoxes boxes;
  monkey::ErrorWatch watch(boxes);
  app::Application application(argc, argv, watch);
  // Nothing that happens may hang on how fast it does: what a click or a letter means never ends by time.
  QApplication::setDoubleClickInterval(0);
  QApplication::setKeyboardInputInterval(std::numeric_limits<int>::max());
  return monkey::Life(seed, actions, boxes).Run(watch);
}

int SoakOnce(int argc, char** argv, int redraws, int dialogs) {
  dialogs::QtMessageBoxes boxes;
  app::Application application(argc, argv, boxes);
  return monkey::Soak(application, redraws, dialogs) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view mode = argc == 4 ? argv[1] : "";
  if (argc != 3 && mode != "--life" && mode != "--soak") {
    std::cerr << "usage: zerbal-monkey SEED ACTIONS\n       zerbal-monkey --soak REDRAWS DIALOGS\n";
    return 2;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(KeepQuietAboutThePlatform);
  const auto first = static_cast<std::uint32_t>(std::strtoul(argv[argc - 2], nullptr, 10));
  const int second = std::atoi(argv[argc - 1]);
  if (mode == "--life") {
    const int end = LiveOnce(argc, argv, first, second);
    // An error on its way out passes frames of the toolkit's Gui and Widgets libraries, which are built
    // without clean-up for exceptions: the copy of the mouse event or a guarded pointer that such a frame
    // holds stays. Nobody should search for leaks then.
    if (end == monkey::kEngineError)
      std::_Exit(end);
    return end;
  }
  if (mode == "--soak")
    return SoakOnce(argc, argv, static_cast<int>(first), second);
  return monkey::PlayLives(argv[0], first, second) ? 0 : 1;
}
