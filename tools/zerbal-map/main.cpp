#include <QGuiApplication>
#include <algorithm>
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
  // Only the program's name: Qt would take --style and others for itself.
  int nameOnly = std::min(argc, 1);
  QGuiApplication application(nameOnly, argv);
  QStringList words;
  for (int i = 1; i < argc; ++i)
    words.append(QString::fromLocal8Bit(argv[i]));
  return zerbal::mapcommand::Run(words, std::cout, std::cerr, ::isatty(STDERR_FILENO) == 1);
}
