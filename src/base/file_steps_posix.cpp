#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "base/file_steps.h"

namespace zerbal::base {

int FileSteps::Open(const std::filesystem::path& path, int flags, mode_t mode) {
  return ::open(path.c_str(), flags, mode);
}
int FileSteps::Status(int file, struct stat& status) {
  return ::fstat(file, &status);
}
ssize_t FileSteps::Read(int file, char* buffer, std::size_t size) {
  return ::read(file, buffer, size);
}
ssize_t FileSteps::WriteAt(int file, const char* bytes, std::size_t size, off_t position) {
  return ::pwrite(file, bytes, size, position);
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
int FileSteps::Rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  return ::rename(from.c_str(), to.c_str());
}
int FileSteps::Remove(const std::filesystem::path& path) {
  return ::unlink(path.c_str());
}
int FileSteps::TryLock(int file) {
  return ::flock(file, LOCK_EX | LOCK_NB);
}

}  // namespace zerbal::base
