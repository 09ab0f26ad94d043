#include "base/file_replacement.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "base/error.h"
#include "base/temporary_files.h"

namespace zerbal::base {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t kPermissions = 07777;
/// How long a writer waits for its turn before it goes on without: a stopped program must not stop others for
/// ever, but one on a busy machine or a slow disk must not lose what the other wrote.
constexpr std::chrono::seconds kLockPatience{5};
constexpr int kTemporaryNameTries = 100;
constexpr int kMaxLinks = 40;
// What failed, in messages.
constexpr char kCannotCreate[] = "cannot create the file";
constexpr char kCannotWrite[] = "cannot write the file";

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

/// By name, because merely opening a device or a pipe can have effects.
fs::file_status StatusByName(const fs::path& path) {
  std::error_code ignored;
  return fs::status(path, ignored);
}

bool IsOtherThanFile(const fs::file_status& status) {
  return fs::exists(status) && !fs::is_regular_file(status);
}

/// The folder of a file that is replaced.
class Folder {
 public:
  /// A folder may be closed to listing and yet take new files; it only cannot be locked and flushed then.
  Folder(FileSteps& steps, const fs::path& path) : steps_(steps), file_(steps) {
    error_ = file_.Open(path, O_RDONLY | O_DIRECTORY) || errno == EACCES ? 0 : errno;
  }

  /// 0, or the reason why it cannot be used.
  int Error() const { return error_; }

  /// Nobody has the permission to write; that stops the superuser, too.
  bool IsProtected() {
    struct stat status {};
    return file_.IsOpen() &&
           (steps_.Status(file_.Number(), status) != 0 || (status.st_mode & kAnyWrite) == 0);
  }

  /// Waits for the other writers. False when the folder is protected from changes.
  bool LockForChange() {
    if (!file_.IsOpen())
      return error_ == 0;
    if (IsProtected())
      return false;
    const auto end = std::chrono::steady_clock::now() + kLockPatience;
    while (steps_.TryLock(file_.Number()) != 0 && (errno == EWOULDBLOCK || errno == EINTR) &&
           std::chrono::steady_clock::now() < end)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return true;
  }

  /// Some file systems have nothing to flush for a folder and say so; that is no failure.
  bool Flush() {
    return !file_.IsOpen() || steps_.Flush(file_.Number()) == 0 || errno == EINVAL || errno == ENOTSUP;
  }

 private:
  FileSteps& steps_;
  OpenFile file_;
  int error_ = 0;
};

/// The file as it is before the change.
struct OldFile {
  bool exists = false;
  struct stat status {};
  std::string bytes;
};

/// False when there is something that must not or cannot be replaced.
bool ReadOldFile(FileSteps& steps, const fs::path& path, OldFile& old) {
  if (IsOtherThanFile(StatusByName(path)))
    return false;
  OpenFile file(steps);
  if (!file.Open(path, O_RDWR))
    return errno == ENOENT;
  old.exists = true;
  return steps.Status(file.Number(), old.status) == 0 && S_ISREG(old.status.st_mode) &&
         (old.status.st_mode & kAnyWrite) != 0 && ReadAll(steps, file.Number(), old.bytes);
}

fs::path FolderOf(const fs::path& file) {
  return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

fs::path TemporaryName() {
  static std::atomic<unsigned> count = 0;
  char name[96];
  std::snprintf(name, sizeof name, ".zerbal-%ld-%u-%llx.tmp", static_cast<long>(::getpid()), count++,
                static_cast<unsigned long long>(std::chrono::system_clock::now().time_since_epoch().count()));
  return name;
}

}  // namespace

struct FileReplacement::State {
  State(FileSteps& s, fs::path t) : steps(s), target(std::move(t)), folder(s, FolderOf(target)), file(s) {}
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  ~State() {
    file.Close();
    if (present)
      steps.Remove(temporary);
  }

  [[noreturn]] void Fail(const std::string& what, int error) const {
    throw FileError(target.string(), what + ": " + std::generic_category().message(error));
  }
  void Require(bool success, const char* what) const {
    if (!success)
      Fail(what, errno);
  }

  void Create(mode_t mode) {
    if (folder.Error() != 0)
      Fail(kCannotCreate, folder.Error());
    for (int tries = 1; !present; ++tries) {
      mark.Clear();
      temporary = FolderOf(target) / TemporaryName();
      mark.Set(temporary.c_str());
      present = file.Open(temporary, O_WRONLY | O_CREAT | O_EXCL, mode);
      if (!present && (errno != EEXIST || tries == kTemporaryNameTries))
        Fail(kCannotCreate, errno);
    }
  }

  /// Creates the temporary file with owner, group and permissions of `old`.
  void CreateLike(const struct stat& old) {
    Create(S_IRUSR | S_IWUSR);  // nobody else may read a copy of a private file
    // Not everybody may give files away; the permissions have to be right in any case.
    static_cast<void>(steps.ChangeOwner(file.Number(), old.st_uid, old.st_gid));
    Require(steps.ChangeMode(file.Number(), old.st_mode & kPermissions) == 0, "cannot set the permissions");
  }

  /// Creates it like the target, or as a new file when there is no target.
  void CreateForUserFile() {
    if (folder.IsProtected())
      Fail(kCannotCreate, EACCES);
    const fs::file_status byName = StatusByName(target);
    if (IsOtherThanFile(byName))
      Fail(kCannotWrite, fs::is_directory(byName) ? EISDIR : EINVAL);
    struct stat old {};
    OpenFile oldFile(steps);
    if (!oldFile.Open(target, O_WRONLY)) {
      if (errno != ENOENT)
        Fail(kCannotWrite, errno);
      Create(0666);
      return;
    }
    Require(steps.Status(oldFile.Number(), old) == 0, kCannotWrite);
    if ((old.st_mode & kAnyWrite) == 0)
      Fail(kCannotWrite, EACCES);
    CreateLike(old);
  }

  FileSteps& steps;
  fs::path target;
  Folder folder;
  fs::path temporary;
  OpenFile file;
  TemporaryFileMark mark;  ///< cleared before the name that it refers to is destroyed
  bool present = false;    ///< the temporary file exists
  std::uint64_t size = 0;  ///< of what Write has appended
};

FileReplacement::FileReplacement(const fs::path& target, FileSteps& steps)
    : FileReplacement(std::make_unique<State>(steps, target)) {
  state_->Create(0666);
}

FileReplacement::FileReplacement(std::unique_ptr<State> state) : state_(std::move(state)) {}

FileReplacement::~FileReplacement() = default;

FileReplacement FileReplacement::OfUserFile(const fs::path& file, FileSteps& steps) {
  const auto target = FollowLinks(file);
  if (!target)
    throw FileError(file.string(), std::string(kCannotWrite) + ": " + std::generic_category().message(ELOOP));
  auto state = std::make_unique<State>(steps, *target);
  state->CreateForUserFile();
  return FileReplacement(std::move(state));
}

void FileReplacement::Write(std::string_view bytes) {
  WriteAt(state_->size, bytes);
  state_->size += bytes.size();
}

void FileReplacement::WriteAt(std::uint64_t position, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t put = state_->steps.WriteAt(state_->file.Number(), bytes.data(), bytes.size(),
                                              static_cast<off_t>(position));
    if (put > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(put));
      position += static_cast<std::uint64_t>(put);
    } else if (put == 0 || errno != EINTR) {
      state_->Fail(kCannotWrite, put == 0 ? ENOSPC : errno);
    }
  }
}

void FileReplacement::Commit() {
  State& state = *state_;
  state.Require(state.steps.Flush(state.file.Number()) == 0, "cannot flush the file");
  state.Require(state.file.Close(), "cannot close the file");
  state.Require(state.steps.Rename(state.temporary, state.target) == 0,
                "cannot put the finished file in the place of the old one");
  state.present = false;
  state.mark.Clear();
  state.Require(state.folder.Flush(), "cannot flush the folder");
}

std::optional<std::string> ReadFile(const fs::path& path, FileSteps& steps) {
  OpenFile file(steps);
  struct stat status {};
  std::string bytes;
  if (!file.Open(path, O_RDONLY) || steps.Status(file.Number(), status) != 0 || !S_ISREG(status.st_mode) ||
      !ReadAll(steps, file.Number(), bytes))
    return std::nullopt;
  return bytes;
}

bool ChangeFile(const fs::path& path, const std::function<std::string(const std::string& old)>& change,
                FileSteps& steps) {
  const auto target = FollowLinks(path);
  if (!target || !target->has_filename())
    return false;
  auto state = std::make_unique<FileReplacement::State>(steps, *target);
  OldFile old;
  if (!state->folder.LockForChange() || !ReadOldFile(steps, *target, old))
    return false;
  try {
    if (old.exists)
      state->CreateLike(old.status);
    else
      state->Create(0666);
    FileReplacement replacement(std::move(state));
    replacement.Write(change(old.bytes));
    replacement.Commit();
    return true;
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace zerbal::base
