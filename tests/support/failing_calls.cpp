#include "support/failing_calls.h"

#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

constexpr char kWrite[] = "write";
/// Calls until the one that fails; below 0 when it has failed.
int remaining = 0;
bool counting = false;
const char* failedCall = "";
int failedWith = 0;
/// Writes without any other call between them.
int writesInARow = 0;
constexpr int kMaxWritesInARow = 3;

bool Fails(const char* name) {
  if (!counting || remaining < 0)
    return false;
  writesInARow = name == kWrite ? writesInARow + 1 : 0;
  if (writesInARow > kMaxWritesInARow || remaining-- > 0)
    return false;
  failedCall = name;
  errno = failedWith;
  return true;
}

template <typename... Arguments>
int Call(long number, Arguments... arguments) {
  return static_cast<int>(::syscall(number, arguments...));
}

}  // namespace

// Stronger than the definitions of shared libraries, also for calls that they make themselves.
extern "C" {

int open(const char* path, int flags, ...) {
  mode_t mode = 0;
  if ((flags & O_CREAT) != 0) {
    va_list more;
    va_start(more, flags);
    mode = va_arg(more, mode_t);
    va_end(more);
  }
  return (flags & O_CREAT) != 0 && Fails("create") ? -1 : Call(SYS_openat, AT_FDCWD, path, flags, mode);
}
ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t position) {
  return Fails(kWrite) ? -1 : ::syscall(SYS_pwrite64, file, bytes, size, position);
}
int fsync(int file) {
  return Fails("flush") ? -1 : Call(SYS_fsync, file);
}
int close(int file) {
  // Only of files that are written; a failed close releases the descriptor, too.
  const bool written = counting && (::fcntl(file, F_GETFL) & O_ACCMODE) != O_RDONLY;
  const int result = Call(SYS_close, file);
  return written && Fails("close") ? -1 : result;
}
int rename(const char* from, const char* to) noexcept {
  return Fails("rename") ? -1 : Call(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0);
}
int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
  return Fails("exchange") ? -1 : Call(SYS_renameat2, fromFolder, from, toFolder, to, flags);
}
int mkdir(const char* path, mode_t mode) noexcept {
  return Fails("make folder") ? -1 : Call(SYS_mkdirat, AT_FDCWD, path, mode);
}
int fchmod(int file, mode_t mode) noexcept {
  return Fails("mode") ? -1 : Call(SYS_fchmod, file, mode);
}
char* mkdtemp(char* pattern) noexcept {
  static unsigned count = 0;
  if (Fails("make work folder"))
    return nullptr;
  char* end = pattern;
  while (*end != '\0')
    ++end;
  do
    std::snprintf(end - 6, 7, "%06u", count++ % 1'000'000);
  while (Call(SYS_mkdirat, AT_FDCWD, pattern, 0700) != 0 && errno == EEXIST);
  return pattern;
}

}  // extern "C"

namespace zerbal::test {

int FailEachCall(int error, const std::function<void()>& prepare, const std::function<void()>& work,
                 const std::function<void(const std::string& failed)>& check) {
  failedWith = error;
  for (int calls = 0;; ++calls) {
    prepare();
    failedCall = "";
    writesInARow = 0;
    remaining = calls;
    counting = true;
    work();
    counting = false;
    if (remaining >= 0)
      return calls;
    check(failedCall);
  }
}

}  // namespace zerbal::test
