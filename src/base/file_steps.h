// The operating system's file calls behind an interface, so that a test can let each of them fail or end the
// process there.
#pragma once

#include <cstddef>

#include <sys/stat.h>
#include <sys/types.h>

namespace zerbal::base {

/// Each call answers as the system does: -1 and errno for a failure.
class FileSteps {
 public:
  virtual ~FileSteps() = default;
  virtual int Open(const char* path, int flags, mode_t mode);
  virtual int Status(int file, struct stat& status);
  virtual ssize_t Read(int file, char* buffer, std::size_t size);
  virtual ssize_t WriteAt(int file, const char* bytes, std::size_t size, off_t position);
  virtual int ChangeOwner(int file, uid_t owner, gid_t group);
  virtual int ChangeMode(int file, mode_t mode);
  virtual int Flush(int file);
  virtual int Close(int file);
  virtual int Rename(const char* from, const char* to);
  virtual int Remove(const char* path);
  /// Locks without waiting.
  virtual int TryLock(int file);
};

/// The real calls.
FileSteps& SystemFileSteps();

}  // namespace zerbal::base
