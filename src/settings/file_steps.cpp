#include "settings/file_steps.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace zerbal::settings {

namespace fs = std::filesystem;

int FileSteps::Open(const char* path, int flags, mode_t mode) {
  return ::open(path, flags, mode);
}
int FileSteps::Status(int file, struct stat& status) {
  return ::fstat(file, &status);
}
ssize_t FileSteps::Read(int file, char* buffer, std::size_t size) {
  return ::read(file, buffer, size);
}
ssize_t FileSteps::Write(int file, const char* bytes, std::size_t size) {
  return ::write(file, bytes, size);
}
int FileSteps::ChangeOwner(int file, uid_t owner, gid_t group) {
  return ::fchown(file, owner, group);
}
int FileSteps::ChangeMode(int file, mode_t mode) {
  return ::fchmod(file, mode);
}
int FileSteps::Flush(int file) {
  return ::fsync(file);
}
int FileSteps::Close(int file) {
  return ::close(file);
}
int FileSteps::Rename(const char* from, const char* to) {
  return ::rename(from, to);
}
int FileSteps::Remove(const char* path) {
  return ::unlink(path);
}
int FileSteps::TryLock(int file) {
  return ::flock(file, LOCK_EX | LOCK_NB);
}

FileSteps& SystemFileSteps() {
  static FileSteps steps;
  return steps;
}

namespace {

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kPermissions = 07777;
/// How long a writer waits for its turn before it goes on without: a stopped program must not stop others for
/// ever, but one on a busy machine or a slow disk must not lose what the other wrote.
constexpr std::chrono::seconds kLockPatience{5};
constexpr int kTemporaryNameTries = 100;
constexpr int kMaxLinks = 40;

/// An open file that is closed at the end of its scope.
class OpenFile {
 public:
  OpenFile(FileSteps& steps, const fs::path& path, int flags, mode_t mode = 0)
      : steps_(steps), file_(steps.Open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, mode)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { Close(); }

  bool IsOpen() const { return file_ >= 0; }
  int Number() const { return file_; }
  /// False when the system reports a late write error.
  bool Close() {
    if (!IsOpen())
      return true;
    const int result = steps_.Close(file_);
    file_ = -1;
    return result == 0;
  }

 private:
  FileSteps& steps_;
  int file_;
};

bool ReadAll(FileSteps& steps, int file, std::string& bytes) {
  char buffer[16384];
  for (;;) {
    const ssize_t got = steps.Read(file, buffer, sizeof buffer);
    if (got == 0)
      return true;
    if (got > 0)
      bytes.append(buffer, static_cast<std::size_t>(got));
    else if (errno != EINTR)
      return false;
  }
}

bool WriteAll(FileSteps& steps, int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t put = steps.Write(file, bytes.data(), bytes.size());
    if (put > 0)
      bytes.remove_prefix(static_cast<std::size_t>(put));
    else if (put == 0 || errno != EINTR)
      return false;
  }
  return true;
}

/// The file that a chain of symbolic links leads to, whether it exists or not.
std::optional<fs::path> FollowLinks(fs::path file) {
  std::error_code error;
  for (int links = 0; links < kMaxLinks; ++links) {
    if (!fs::is_symlink(fs::symlink_status(file, error)))
      return file;
    const fs::path target = fs::read_symlink(file, error);
    if (error)
      return std::nullopt;
    file = file.parent_path() / target;  // an absolute target replaces the folder
  }
  return std::nullopt;
}

/// The folder of the file while it is changed: holds the writers' lock and is flushed at the end.
class Folder {
 public:
  Folder(FileSteps& steps, const fs::path& path) : steps_(steps), file_(steps, path, O_RDONLY | O_DIRECTORY) {
    if (!file_.IsOpen()) {
      // A folder may be closed to listing and yet take new files; it only cannot be locked and flushed then.
      usable_ = errno == EACCES;
      return;
    }
    struct stat status {};
    usable_ = steps_.Status(file_.Number(), status) == 0 && (status.st_mode & kAnyWrite) != 0;
    if (usable_)
      WaitForTurn();
  }

  bool Usable() const { return usable_; }
  /// Some file systems have nothing to flush for a folder and say so; that is no failure.
  bool Flush() {
    return !file_.IsOpen() || steps_.Flush(file_.Number()) == 0 || errno == EINVAL || errno == ENOTSUP;
  }

 private:
  void WaitForTurn() {
    const auto end = std::chrono::steady_clock::now() + kLockPatience;
    while (steps_.TryLock(file_.Number()) != 0 && (errno == EWOULDBLOCK || errno == EINTR) &&
           std::chrono::steady_clock::now() < end)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }

  FileSteps& steps_;
  OpenFile file_;
  bool usable_ = false;
};

/// The file as it is before the change.
struct OldFile {
  bool exists = false;
  struct stat status {};
  std::string bytes;
};

/// False when there is something that must not or cannot be replaced.
bool ReadOldFile(FileSteps& steps, const fs::path& path, OldFile& old) {
  struct stat status {};
  // Asked by name first: merely opening a device or a pipe can have effects.
  if (::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
    return false;
  OpenFile file(steps, path, O_RDWR);
  if (!file.IsOpen())
    return errno == ENOENT;
  old.exists = true;
  return steps.Status(file.Number(), old.status) == 0 && S_ISREG(old.status.st_mode) &&
         (old.status.st_mode & kAnyWrite) != 0 && ReadAll(steps, file.Number(), old.bytes);
}

/// The new contents while they are not yet in place; removed unless they get there.
class TemporaryFile {
 public:
  TemporaryFile(FileSteps& steps, const fs::path& folder) : steps_(steps), folder_(folder) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (present_)
      steps_.Remove(path_.c_str());
  }

  bool Write(const OldFile& old, std::string_view bytes) {
    // Nobody else may look into a copy of a private file before it has that file's permissions; a new file
    // gets what the process gives to new files.
    const mode_t mode = old.exists ? S_IRUSR | S_IWUSR : 0666;
    for (int i = 0; i < kTemporaryNameTries; ++i) {
      path_ = folder_ / FreshName();
      OpenFile file(steps_, path_, O_WRONLY | O_CREAT | O_EXCL, mode);
      if (file.IsOpen()) {
        present_ = true;
        return Fill(file, old, bytes);
      }
      if (errno != EEXIST)
        return false;
    }
    return false;
  }

  bool PutInPlaceOf(const fs::path& target) {
    if (steps_.Rename(path_.c_str(), target.c_str()) != 0)
      return false;
    present_ = false;
    return true;
  }

 private:
  static std::string FreshName() {
    static std::atomic<unsigned> count = 0;
    char name[96];
    std::snprintf(
        name, sizeof name, ".zerbal-%ld-%u-%llx.tmp", static_cast<long>(::getpid()), count++,
        static_cast<unsigned long long>(std::chrono::system_clock::now().time_since_epoch().count()));
    return name;
  }

  bool Fill(OpenFile& file, const OldFile& old, std::string_view bytes) {
    const int number = file.Number();
    if (old.exists) {
      // Not everybody may give files away; the permissions have to be right in any case.
      static_cast<void>(steps_.ChangeOwner(number, old.status.st_uid, old.status.st_gid));
      if (steps_.ChangeMode(number, old.status.st_mode & kPermissions) != 0)
        return false;
    }
    return WriteAll(steps_, number, bytes) && steps_.Flush(number) == 0 && file.Close();
  }

  FileSteps& steps_;
  fs::path folder_;
  fs::path path_;
  bool present_ = false;
};

}  // namespace

std::optional<std::string> ReadWholeFile(const fs::path& path, FileSteps& steps) {
  const OpenFile file(steps, path, O_RDONLY);
  struct stat status {};
  std::string bytes;
  if (!file.IsOpen() || steps.Status(file.Number(), status) != 0 || !S_ISREG(status.st_mode) ||
      !ReadAll(steps, file.Number(), bytes))
    return std::nullopt;
  return bytes;
}

bool ChangeWholeFile(const fs::path& path, const std::function<std::string(const std::string& old)>& change,
                     FileSteps& steps) {
  const auto target = FollowLinks(path);
  if (!target || !target->has_filename())
    return false;
  const fs::path folderPath = target->has_parent_path() ? target->parent_path() : fs::path(".");
  Folder folder(steps, folderPath);
  OldFile old;
  if (!folder.Usable() || !ReadOldFile(steps, *target, old))
    return false;
  TemporaryFile temporary(steps, folderPath);
  return temporary.Write(old, change(old.bytes)) && temporary.PutInPlaceOf(*target) && folder.Flush();
}

}  // namespace zerbal::settings
