#include "app/run_program.h"

#include <filesystem>
#include <optional>

#include "app/application.h"
#include "app/start_up.h"
#include "dialogs/qt_message_boxes.h"

namespace zerbal::app {

int RunProgram(int argc, char** argv) {
  dialogs::QtMessageBoxes boxes;
  Application application(argc, argv, boxes);
  SystemClock clock;
  MersenneRandom random;
  std::optional<Main> program;
  bool started = false;
  application.Guard([&] {
    program.emplace(Environment{WithSeparator(std::filesystem::current_path()), clock, random, boxes});
    started = program->Start();
  });
  return started ? application.Run() : Application::kErrorStatus;
}

}  // namespace zerbal::app
