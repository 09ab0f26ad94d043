// zerbal-drive: plays a script of user actions on the real program.
#include <fstream>
#include <iostream>

#include "app/application.h"
#include "dialogs/qt_message_boxes.h"
#include "jet/mapped_file_guard.h"
#include "runner.h"
#include "support/offscreen.h"

int main(int argc, char** argv) {
  using namespace zerbal;
  jet::InstallMappedFileGuard();
  test::UseOffscreenPlatform();
  dialogs::QtMessageBoxes boxes;
  app::Application application(argc, argv, boxes);
  QApplication::setQuitOnLastWindowClosed(false);

  std::ifstream file;
  if (argc > 1) {
    file.open(argv[1]);
    if (!file) {
      std::cerr << "zerbal-drive: '" << argv[1] << "' cannot be read" << std::endl;
      return static_cast<int>(drive::Outcome::kInvalidScript);
    }
  }
  drive::Runner runner(argc > 1 ? static_cast<std::istream&>(file) : std::cin, std::cout, std::cerr);
  application.SetErrorHook([&runner](const std::string& text) { runner.ReportEngineError(text); });
  return static_cast<int>(runner.Play());
}
