#include "base/temporary_files.h"

#include <array>
#include <atomic>
#include <csignal>

#include <unistd.h>

namespace zerbal::base {

namespace {

/// What a signal handler may read: no locks, no memory that moves.
std::array<std::atomic<const char*>, 64> markedFiles;
static_assert(std::atomic<const char*>::is_always_lock_free);

void RemoveFilesAndEnd(int signal) {
  for (const std::atomic<const char*>& file : markedFiles) {
    if (const char* path = file)
      ::unlink(path);
  }
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

void TemporaryFileMark::Set(const char* path) {
  Clear();
  for (std::size_t i = 0; i < markedFiles.size(); ++i) {
    const char* none = nullptr;
    if (markedFiles[i].compare_exchange_strong(none, path)) {
      place_ = i;
      return;
    }
  }
}

void TemporaryFileMark::Clear() {
  if (place_ != kNone)
    markedFiles[place_] = nullptr;
  place_ = kNone;
}

}  // namespace zerbal::base
