#include <filesystem>
#include <optional>

#include "app/application.h"
#include "app/running_program.h"
#include "dialogs/qt_message_boxes.h"
#include "jet/mapped_file_guard.h"

using namespace zerbal::app;

/// Runs the program in the working directory. Returns 0 when the main window was closed, 1 when the start was
/// refused or an error ended the program.
int main(int argc, char** argv) {
  zerbal::jet::InstallMappedFileGuard();
  zerbal::dialogs::QtMessageBoxes boxes;
  Application application(argc, argv, boxes);
  SystemClock clock;
  MersenneRandom random;
  std::optional<RunningProgram> program;
  bool started = false;
  zerbal::dialogs::Guarded([&] {
    program.emplace(Environment{WithSeparator(std::filesystem::current_path()), clock, random, boxes});
    started = program->Start();
  });
  return started ? application.Run() : Application::kErrorStatus;
}
