// A file number is the file's handle: Windows keeps handles within 32 bits.
#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cwchar>
#include <limits>
#include <map>
#include <mutex>
#include <system_error>
#include <thread>

#include <fcntl.h>

#include "base/file_steps.h"
#include "base/windows_calls.h"

namespace zerbal::base {

namespace fs = std::filesystem;

namespace {

/// Below the limit of Windows for folders, 248 characters.
constexpr std::size_t kLongPath = 240;
constexpr mode_t kEverybodyReads = S_IRUSR | S_IRGRP | S_IROTH;
constexpr mode_t kEverybodyWrites = S_IWUSR | S_IWGRP | S_IWOTH;
/// How long a file may be open elsewhere before replacing it fails: virus scanners and search indexes open
/// new files.
constexpr int kRenameTries = 50;
constexpr std::chrono::milliseconds kRenamePause{10};

HANDLE HandleOf(int file) {
  // Widening an integer to a handle is what Windows defines. NOLINTNEXTLINE(performance-no-int-to-ptr)
  return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(file));
}

int NumberOf(HANDLE handle) {
  return static_cast<int>(reinterpret_cast<std::intptr_t>(handle));
}

int Fail(int error) {
  errno = error;
  return -1;
}

int ResultOf(BOOL success) {
  return success != 0 ? 0 : Fail(LastErrno());
}

DWORD AccessOf(int flags) {
  switch (flags & O_ACCMODE) {
    case O_RDONLY:
      return GENERIC_READ;
    case O_WRONLY:
      return GENERIC_WRITE;
    default:
      return GENERIC_READ | GENERIC_WRITE;
  }
}

DWORD CreationOf(int flags) {
  if ((flags & O_CREAT) == 0)
    return OPEN_EXISTING;
  return (flags & O_EXCL) != 0 ? CREATE_NEW : OPEN_ALWAYS;
}

DWORD SizeOfStep(std::size_t size) {
  return static_cast<DWORD>(std::min<std::size_t>(size, std::numeric_limits<int>::max()));
}

bool IsFolder(HANDLE handle) {
  BY_HANDLE_FILE_INFORMATION info = {};
  return GetFileInformationByHandle(handle, &info) != 0 &&
         (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// The locks of the folders that this process has locked. A lock is a named object of the system: whoever
/// creates it has the lock, until the handle is closed, at the latest with the end of the process.
class FolderLocks {
 public:
  bool Take(int file, const std::wstring& name) {
    const HANDLE lock = CreateEventW(nullptr, TRUE, FALSE, name.c_str());
    if (lock == nullptr || GetLastError() == ERROR_ALREADY_EXISTS) {
      if (lock != nullptr)
        CloseHandle(lock);
      return false;
    }
    const std::scoped_lock guard(mutex_);
    locks_[file] = lock;
    return true;
  }
  void Release(int file) {
    const std::scoped_lock guard(mutex_);
    const auto found = locks_.find(file);
    if (found == locks_.end())
      return;
    CloseHandle(found->second);
    locks_.erase(found);
  }

 private:
  std::mutex mutex_;
  std::map<int, HANDLE> locks_;
};

FolderLocks& Locks() {
  static FolderLocks locks;
  return locks;
}

}  // namespace

int LastErrno() {
  const auto code = static_cast<int>(GetLastError());
  if (code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION || code == ERROR_USER_MAPPED_FILE)
    return EACCES;
  const std::error_condition condition = std::system_category().default_error_condition(code);
  return condition.category() == std::generic_category() ? condition.value() : EIO;
}

std::wstring SystemPath(const fs::path& path) {
  if (path.native().size() < kLongPath && path.is_absolute())
    return path.native();
  const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  std::wstring text(size, L'\0');
  text.resize(GetFullPathNameW(path.c_str(), size, text.data(), nullptr));
  if (text.size() < kLongPath || text.starts_with(LR"(\\?\)"))
    return path.native();
  return text.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + text.substr(1) : LR"(\\?\)" + text;
}

HANDLE OpenShared(const fs::path& path, DWORD access, DWORD creation) {
  return CreateFileW(SystemPath(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                     nullptr, creation, FILE_FLAG_BACKUP_SEMANTICS,
                     nullptr);  // the flag lets folders be opened
}

int FileSteps::Open(const fs::path& path, int flags, mode_t /*mode*/) {
  const HANDLE handle = OpenShared(path, AccessOf(flags), CreationOf(flags));
  if (handle == INVALID_HANDLE_VALUE)
    return Fail(LastErrno());
  if ((flags & O_DIRECTORY) != 0 && !IsFolder(handle)) {
    CloseHandle(handle);
    return Fail(ENOTDIR);
  }
  return NumberOf(handle);
}

/// Permissions are those of the read-only attribute, which for folders has another meaning.
int FileSteps::Status(int file, struct stat& status) {
  status = {};
  if (GetFileType(HandleOf(file)) != FILE_TYPE_DISK) {
    status.st_mode = S_IFCHR;
    return 0;
  }
  BY_HANDLE_FILE_INFORMATION info = {};
  if (GetFileInformationByHandle(HandleOf(file), &info) == 0)
    return Fail(LastErrno());
  const bool folder = (info.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const bool writable = folder || (info.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0;
  status.st_mode =
      static_cast<mode_t>((folder ? S_IFDIR : S_IFREG) | kEverybodyReads | (writable ? kEverybodyWrites : 0));
  status.st_size = static_cast<off_t>(std::uint64_t{info.nFileSizeHigh} << 32 | info.nFileSizeLow);
  return 0;
}

ssize_t FileSteps::Read(int file, char* buffer, std::size_t size) {
  DWORD got = 0;
  if (::ReadFile(HandleOf(file), buffer, SizeOfStep(size), &got, nullptr) == 0)
    return GetLastError() == ERROR_HANDLE_EOF ? 0 : Fail(LastErrno());
  return static_cast<ssize_t>(got);
}

ssize_t FileSteps::WriteAt(int file, const char* bytes, std::size_t size, off_t position) {
  OVERLAPPED place = {};
  place.Offset = static_cast<DWORD>(static_cast<std::uint64_t>(position));
  place.OffsetHigh = static_cast<DWORD>(static_cast<std::uint64_t>(position) >> 32);
  DWORD put = 0;
  if (WriteFile(HandleOf(file), bytes, SizeOfStep(size), &put, &place) == 0)
    return Fail(LastErrno());
  return static_cast<ssize_t>(put);
}

/// A new file belongs to its user and has the permissions of its folder.
int FileSteps::ChangeOwner(int /*file*/, uid_t /*owner*/, gid_t /*group*/) {
  return 0;
}

int FileSteps::ChangeMode(int /*file*/, mode_t /*mode*/) {
  return 0;
}

/// Folders cannot be flushed; renaming writes them through.
int FileSteps::Flush(int file) {
  return IsFolder(HandleOf(file)) ? 0 : ResultOf(FlushFileBuffers(HandleOf(file)));
}

int FileSteps::Close(int file) {
  Locks().Release(file);
  return ResultOf(CloseHandle(HandleOf(file)));
}

int FileSteps::Rename(const fs::path& from, const fs::path& to) {
  const std::wstring source = SystemPath(from);
  const std::wstring target = SystemPath(to);
  for (int i = 0;
       MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0;
       ++i) {
    const DWORD error = GetLastError();
    const DWORD attributes = GetFileAttributesW(target.c_str());
    const bool mayPass = (error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED) &&
                         (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) == 0;
    SetLastError(error);
    if (!mayPass || i == kRenameTries)
      return Fail(LastErrno());
    std::this_thread::sleep_for(kRenamePause);
  }
  return 0;
}

int FileSteps::Remove(const fs::path& path) {
  return ResultOf(DeleteFileW(SystemPath(path).c_str()));
}

/// The lock holds among the programs of one computer.
int FileSteps::TryLock(int file) {
  BY_HANDLE_FILE_INFORMATION info = {};
  if (GetFileInformationByHandle(HandleOf(file), &info) == 0)
    return Fail(LastErrno());
  wchar_t name[64];
  std::swprintf(name, std::size(name), L"Global\\zerbal-%08lx-%08lx%08lx", info.dwVolumeSerialNumber,
                info.nFileIndexHigh, info.nFileIndexLow);
  return Locks().Take(file, name) ? 0 : Fail(EWOULDBLOCK);
}

}  // namespace zerbal::base
