// Temporary files that do not outlive an interrupted program.
#pragma once

#include <cstddef>

namespace zerbal::base {

/// From now on SIGINT, SIGTERM, SIGHUP and SIGPIPE remove the marked files before they end the process. Those
/// that the process ignores stay ignored. Writing beyond the limit of file sizes is an error instead of a
/// signal. For programs that write files in one thread.
void RemoveTemporaryFilesOnSignals();

/// Marks a file as temporary, whether it exists or not.
class TemporaryFileMark {
 public:
  TemporaryFileMark() = default;
  TemporaryFileMark(const TemporaryFileMark&) = delete;
  TemporaryFileMark& operator=(const TemporaryFileMark&) = delete;
  ~TemporaryFileMark() { Clear(); }

  /// `path` stays valid until Clear. Beyond some dozens of marks at a time, nothing is marked.
  void Set(const char* path);
  void Clear();

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t place_ = kNone;
};

}  // namespace zerbal::base
