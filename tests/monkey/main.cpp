// zerbal-monkey: random but repeatable user actions on the real program.
//
//   zerbal-monkey SEED ACTIONS     that many actions, in as many lives of the program as they take
//   zerbal-monkey --life SEED ACTIONS    one life in the working directory; for zerbal-monkey itself
//
// Prints every action before it is done. Exit status 0 when nothing went wrong; 1 for a crash, a hang, an
// error that nothing in the files explains or another exception than the engine's; 2 for wrong arguments.
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "dialogs/qt_message_boxes.h"
#include "life.h"
#include "lives.h"

namespace {

using namespace zerbal;

/// The offscreen platform says of each window what it cannot do; nobody need hear it.
void KeepQuietAboutThePlatform(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (!message.startsWith("This plugin does not support"))
    std::cerr << qFormatLogMessage(type, context, message).toStdString() << std::endl;
}

int LiveOnce(int argc, char** argv, std::uint32_t seed, int actions) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(KeepQuietAboutThePlatform);
  dialogs::QtMessageBoxes boxes;
  monkey::ErrorWatch watch(boxes);
  app::Application application(argc, argv, watch);
  return monkey::Life(seed, actions).Run(application, watch);
}

}  // namespace

int main(int argc, char** argv) {
  const bool oneLife = argc == 4 && std::string_view(argv[1]) == "--life";
  if (argc != 3 && !oneLife) {
    std::cerr << "usage: zerbal-monkey SEED ACTIONS\n";
    return 2;
  }
  const auto seed = static_cast<std::uint32_t>(std::strtoul(argv[argc - 2], nullptr, 10));
  const int actions = std::atoi(argv[argc - 1]);
  if (oneLife)
    return LiveOnce(argc, argv, seed, actions);
  return monkey::PlayLives(argv[0], seed, actions) ? 0 : 1;
}
