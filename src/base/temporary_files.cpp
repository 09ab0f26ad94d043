#include "base/temporary_files.h"

#include <array>
#include <atomic>

namespace zerbal::base {

namespace {

/// What a signal handler may read: no locks, no memory that moves.
std::array<std::atomic<const PathChar*>, 64> markedFiles;
static_assert(std::atomic<const PathChar*>::is_always_lock_free);

}  // namespace

void ForEachTemporaryFile(void (*action)(const PathChar* path)) {
  for (const std::atomic<const PathChar*>& file : markedFiles) {
    if (const PathChar* path = file)
      action(path);
  }
}

void TemporaryFileMark::Set(const PathChar* path) {
  Clear();
  for (std::size_t i = 0; i < markedFiles.size(); ++i) {
    const PathChar* none = nullptr;
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
