// Temporary files that do not outlive an interrupted program.
#pragma once

#include <cstddef>
#include <filesystem>

namespace zerbal::base {

/// Of a path as the system writes it.
using PathChar = std::filesystem::path::value_type;

/// From now on SIGINT, SIGTERM, SIGHUP and SIGPIPE remove the marked files before they end the process. Those
/// that the process ignores stay ignored. Writing beyond the limit of file sizes is an error instead of a
/// signal. On Windows, the events of a console that end the process remove the files. For programs that write
/// files in one thread.
void RemoveTemporaryFilesOnSignals();

/// Calls `action` with each marked file; a signal handler may do so.
void ForEachTemporaryFile(void (*action)(const PathChar* path));

/// Marks a file as temporary, whether it exists or not.
class TemporaryFileMark {
 public:
  TemporaryFileMark() = default;
  TemporaryFileMark(const TemporaryFileMark&) = delete;
  TemporaryFileMark& operator=(const TemporaryFileMark&) = delete;
  ~TemporaryFileMark() { Clear(); }

  /// `path` stays valid until Clear. Beyond some dozens of marks at a time, nothing is marked.
  void Set(const PathChar* path);
  void Clear();

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t place_ = kNone;
};

}  // namespace zerbal::base
