#include <csignal>

#include <unistd.h>

#include "base/temporary_files.h"

namespace zerbal::base {

namespace {

void RemoveFilesAndEnd(int signal) {
  ForEachTemporaryFile([](const char* path) { ::unlink(path); });
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

}  // namespace

void RemoveTemporaryFilesOnSignals() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
    if (std::signal(signal, RemoveFilesAndEnd) == SIG_IGN)
      std::signal(signal, SIG_IGN);
  }
  std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace zerbal::base
