// Replacing a small file as a whole, step by step: whatever happens in between, the file holds its old or its
// new contents. The steps go through an interface, so that a test can let each one fail or end the process
// there.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include <sys/stat.h>
#include <sys/types.h>

namespace zerbal::settings {

/// The operating system's file calls. Each answers as the system does: -1 and errno for a failure.
class FileSteps {
 public:
  virtual ~FileSteps() = default;
  virtual int Open(const char* path, int flags, mode_t mode);
  virtual int Status(int file, struct stat& status);
  virtual ssize_t Read(int file, char* buffer, std::size_t size);
  virtual ssize_t Write(int file, const char* bytes, std::size_t size);
  virtual int ChangeOwner(int file, uid_t owner, gid_t group);
  virtual int ChangeMode(int file, mode_t mode);
  virtual int Flush(int file);
  virtual int Close(int file);
  virtual int Rename(const char* from, const char* to);
  virtual int Remove(const char* path);
  /// Locks without waiting.
  virtual int TryLock(int file);
};

/// The steps that do what they say.
FileSteps& SystemFileSteps();

/// All bytes of a regular file; nullopt when it is none or cannot be read.
std::optional<std::string> ReadWholeFile(const std::filesystem::path& file, FileSteps& steps);

/// Reads `file` (a missing one counts as empty), lets `change` make the new contents and replaces the file by
/// them. A symbolic link is followed and stays; permissions, owner and group are kept. Writers on one folder
/// take turns, so that none loses the other's change. False, with the old contents in place, when a step
/// failed; only when the very last one fails (flushing the folder after the replacement) the file already
/// holds the new contents, whose lasting is then not certain.
/// A file or folder whose permissions let nobody write is left alone for the superuser, too.
bool ChangeWholeFile(const std::filesystem::path& file,
                     const std::function<std::string(const std::string& old)>& change, FileSteps& steps);

}  // namespace zerbal::settings
