#include <QGuiApplication>
#include <iostream>

#include <unistd.h>

#include "base/temporary_files.h"
#include "jet/mapped_file_guard.h"
#include "zerbal-map/run.h"

int main(int argc, char** argv) {
  zerbal::jet::InstallMappedFileGuard();
  zerbal::base::RemoveTemporaryFilesOnSignals();
  // Drawing needs fonts but no screen.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication application(argc, argv);
  return zerbal::mapcommand::Run(QGuiApplication::arguments().mid(1), std::cout, std::cerr,
                                 ::isatty(STDERR_FILENO) == 1);
}
