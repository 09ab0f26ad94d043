// The operating system's file calls behind an interface, so that a test can let each of them fail or end the
// process there.
#pragma once

#include <cstddef>
#include <filesystem>
#include <utility>

#include <sys/stat.h>
#include <sys/types.h>

#include "base/posix_names.h"

namespace zerbal::base {

/// Each call answers as POSIX defines it: -1 and errno for a failure.
class FileSteps {
 public:
  virtual ~FileSteps() = default;
  virtual int Open(const std::filesystem::path& path, int flags, mode_t mode);
  virtual int Status(int file, struct stat& status);
  virtual ssize_t Read(int file, char* buffer, std::size_t size);
  virtual ssize_t WriteAt(int file, const char* bytes, std::size_t size, off_t position);
  virtual int ChangeOwner(int file, uid_t owner, gid_t group);
  virtual int ChangeMode(int file, mode_t mode);
  virtual int Flush(int file);
  virtual int Close(int file);
  virtual int Rename(const std::filesystem::path& from, const std::filesystem::path& to);
  virtual int Remove(const std::filesystem::path& path);
  /// Locks without waiting.
  virtual int TryLock(int file);
};

/// The real calls.
FileSteps& SystemFileSteps();

/// An open file that is closed at the end of its scope.
class OpenFile {
 public:
  explicit OpenFile(FileSteps& steps = SystemFileSteps()) : steps_(steps) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { Close(); }

  /// `flags` as of open(). Never waits for the other end of a pipe. Sets errno when it fails.
  bool Open(const std::filesystem::path& path, int flags, mode_t mode = 0);
  bool IsOpen() const { return file_ >= 0; }
  int Number() const { return file_; }
  /// False when the system reports a late write error.
  bool Close() { return !IsOpen() || steps_.Close(std::exchange(file_, -1)) == 0; }

 private:
  FileSteps& steps_;
  int file_ = -1;
};

}  // namespace zerbal::base
