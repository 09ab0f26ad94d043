#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

#include "base/assert.h"
#include "jet/write/output_file.h"
#include "jet/write/page_bytes.h"
#include "jet/write/refusal.h"

namespace zerbal::jet {
namespace {

constexpr std::uint32_t kMaxPages = kMaxFileSize / kPageSize;
constexpr int kNameTries = 1000;

[[noreturn]] void Fail(const std::string& what, const std::filesystem::path& file, int error) {
  throw Refusal(what + " '" + file.string() + "': " + std::generic_category().message(error));
}

std::filesystem::path FolderOf(const std::filesystem::path& file) {
  return file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
}

// A rename is safe on disk only when the folder is.
void SyncFolder(const std::filesystem::path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0)
    Fail("cannot open the folder", folder, errno);
  const int error = fsync(descriptor) == 0 ? 0 : errno;
  close(descriptor);
  if (error != 0 && error != EINVAL)  // some file systems cannot do it and say so
    Fail("cannot flush the folder", folder, error);
}

}  // namespace

OutputFile::OutputFile(std::filesystem::path target) : target_(std::move(target)) {
  // Beside the target, so that the rename stays on one file system; with a number, so that two writers do
  // not meet.
  for (int i = 0; descriptor_ < 0 && i < kNameTries; ++i) {
    temporary_ = target_;
    temporary_ += ".new" + std::to_string(i);
    descriptor_ = open(temporary_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor_ < 0 && errno != EEXIST)
      break;
  }
  if (descriptor_ < 0)
    Fail("cannot create the file", temporary_, errno);
}

OutputFile::~OutputFile() {
  Remove();
}

void OutputFile::Remove() noexcept {
  if (descriptor_ >= 0)
    close(descriptor_);
  descriptor_ = -1;
  if (!temporary_.empty())
    unlink(temporary_.c_str());
  temporary_.clear();
}

std::uint32_t OutputFile::Allocate() {
  if (pageCount_ >= kMaxPages)
    throw Refusal("the database would be larger than 2 GB");
  return pageCount_++;
}

void OutputFile::Write(std::uint32_t page, const PageBytes& bytes) {
  ZERBAL_ASSERT(page < pageCount_);
  const auto start = static_cast<off_t>(page) * static_cast<off_t>(kPageSize);
  for (std::size_t done = 0; done < kPageSize;) {
    const ssize_t written =
        pwrite(descriptor_, bytes.bytes.data() + done, kPageSize - done, start + static_cast<off_t>(done));
    if (written > 0)
      done += static_cast<std::size_t>(written);
    else if (written == 0 || errno != EINTR)
      Fail("cannot write the file", temporary_, written == 0 ? ENOSPC : errno);
  }
}

void OutputFile::Commit() {
  if (ftruncate(descriptor_, static_cast<off_t>(pageCount_) * static_cast<off_t>(kPageSize)) != 0 ||
      fsync(descriptor_) != 0)
    Fail("cannot flush the file", temporary_, errno);
  if (close(std::exchange(descriptor_, -1)) != 0)
    Fail("cannot close the file", temporary_, errno);
  if (rename(temporary_.c_str(), target_.c_str()) != 0)
    Fail("cannot put the finished file in the place of", target_, errno);
  temporary_.clear();
  SyncFolder(FolderOf(target_));
}

}  // namespace zerbal::jet
