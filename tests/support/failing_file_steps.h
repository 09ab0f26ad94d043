// File calls that fail, or end the process, at a chosen step.
#pragma once

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>
#include <type_traits>

#include <fcntl.h>
#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "base/file_steps.h"

namespace zerbal::test {

/// What happens at the chosen step.
enum class Failure { kReturnError, kKillBefore, kKillAfter, kKillMidway };

/// Counts the file calls and fails at one of them.
class FailingFileSteps : public base::FileSteps {
 public:
  FailingFileSteps(Failure failure, int at, int error = EIO) : failure_(failure), at_(at), error_(error) {}

  int Steps() const { return count_; }
  /// The name of the step that failed; empty when none has.
  const std::string& FailedStep() const { return failedStep_; }

  int Open(const std::filesystem::path& path, int flags, mode_t mode) override {
    const char* name = (flags & O_CREAT) != 0       ? "create"
                       : (flags & O_DIRECTORY) != 0 ? "open folder"
                                                    : "open";
    return Take(name, [&] { return FileSteps::Open(path, flags, mode); });
  }
  int Status(int file, struct stat& status) override {
    return Take("status", [&] { return FileSteps::Status(file, status); });
  }
  ssize_t Read(int file, char* buffer, std::size_t size) override {
    return Take("read", [&] { return FileSteps::Read(file, buffer, size); });
  }
  ssize_t WriteAt(int file, const char* bytes, std::size_t size, off_t position) override {
    if (failure_ == Failure::kKillMidway && count_ + 1 == at_)
      static_cast<void>(FileSteps::WriteAt(file, bytes, size / 2, position));
    return Take("write", [&] { return FileSteps::WriteAt(file, bytes, size, position); });
  }
  int ChangeOwner(int file, uid_t owner, gid_t group) override {
    return Take("owner", [&] { return FileSteps::ChangeOwner(file, owner, group); });
  }
  int ChangeMode(int file, mode_t mode) override {
    return Take("mode", [&] { return FileSteps::ChangeMode(file, mode); });
  }
  int Flush(int file) override {
    return Take(renamed_ ? "flush folder" : "flush", [&] { return FileSteps::Flush(file); });
  }
  int Close(int file) override {
    FileSteps::Close(file);  // a failed close releases the descriptor, too
    return Take("close", [] { return 0; });
  }
  int Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    return Take("rename", [&] {
      renamed_ = true;
      return FileSteps::Rename(from, to);
    });
  }
  int Remove(const std::filesystem::path& path) override {
    return Take("remove", [&] { return FileSteps::Remove(path); });
  }
  int TryLock(int file) override {
    return Take("lock", [&] { return FileSteps::TryLock(file); });
  }

 private:
  template <typename Action>
  std::invoke_result_t<Action> Take(const char* name, Action action) {
    if (++count_ != at_)
      return action();
    failedStep_ = name;
    if (failure_ == Failure::kReturnError) {
      errno = error_;
      return -1;
    }
    if (failure_ == Failure::kKillAfter)
      static_cast<void>(action());
    Kill();
  }

  [[noreturn]] static void Kill() {
#ifndef _WIN32
    ::raise(SIGKILL);
#endif
    std::abort();
  }

  Failure failure_;
  int at_;
  int error_;
  int count_ = 0;
  bool renamed_ = false;
  std::string failedStep_;
};

#ifndef _WIN32
/// Runs `action` in a process of its own; its exit code, or minus the signal that ended it.
template <typename Action>
int InChild(Action action) {
  const pid_t child = ::fork();
  if (child == 0)
    ::_exit(action());
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}
#endif

}  // namespace zerbal::test
