#include "zerbal-pack/staged_folders.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace zerbal::pack {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Throw(const char* what, const fs::path& path, int reason) {
  throw fs::filesystem_error(what, path, std::error_code(reason, std::generic_category()));
}

/// Creates a folder whose name begins with `prefix`, with the permissions of any new folder.
fs::path MakeWorkFolder(const fs::path& prefix) {
  std::string pattern = prefix.string() + "XXXXXX";
  if (mkdtemp(pattern.data()) == nullptr)
    Throw("cannot make folder", prefix.parent_path(), errno);
  const mode_t mask = umask(0);
  umask(mask);
  chmod(pattern.c_str(), 0777 & ~mask);
  return pattern;
}

/// Exchanges two existing folders; atomically where the system supports that.
void Exchange(const fs::path& a, const fs::path& b) {
  if (renameat2(AT_FDCWD, a.c_str(), AT_FDCWD, b.c_str(), RENAME_EXCHANGE) == 0)
    return;
  if (errno != EINVAL && errno != ENOSYS)
    Throw("cannot replace", b, errno);
  fs::path aside = a;
  aside += ".old";
  fs::rename(b, aside);
  std::error_code failed;
  fs::rename(a, b, failed);
  if (failed) {
    fs::rename(aside, b);
    throw fs::filesystem_error("cannot replace", b, failed);
  }
  fs::rename(aside, a);
}

}  // namespace

StagedFolders::StagedFolders(const fs::path& target, std::vector<std::string> names)
    : target_(fs::absolute(target).lexically_normal()), names_(std::move(names)) {
  if (target_.filename().empty())
    target_ = target_.parent_path();
  targetExisted_ = fs::exists(target_);
  if (targetExisted_) {
    work_ = MakeWorkFolder(target_ / ".zerbal-pack-");
  } else {
    fs::create_directories(target_.parent_path());
    work_ = MakeWorkFolder(target_.parent_path() / ("." + target_.filename().string() + "-"));
  }
  try {
    for (const std::string& name : names_)
      fs::create_directory(work_ / name);
  } catch (...) {
    RemoveWorkFolder();
    throw;
  }
}

StagedFolders::~StagedFolders() {
  RemoveWorkFolder();
}

void StagedFolders::RemoveWorkFolder() noexcept {
  std::error_code ignored;
  if (!work_.empty())
    fs::remove_all(work_, ignored);
}

void StagedFolders::Commit() {
  if (!targetExisted_) {
    fs::rename(work_, target_);
    work_.clear();
    return;
  }
  for (std::size_t i = 0; i < names_.size(); ++i) {
    try {
      Swap(names_[i]);
    } catch (...) {
      SwapBack(i);
      throw;
    }
  }
}

void StagedFolders::Swap(const std::string& name) {
  if (fs::exists(target_ / name))
    Exchange(work_ / name, target_ / name);
  else
    fs::rename(work_ / name, target_ / name);
}

/// Undoes the first `count` swaps.
void StagedFolders::SwapBack(std::size_t count) noexcept {
  for (std::size_t i = 0; i < count; ++i) {
    try {
      if (fs::exists(work_ / names_[i]))
        Exchange(work_ / names_[i], target_ / names_[i]);
      else
        fs::rename(target_ / names_[i], work_ / names_[i]);
    } catch (const fs::filesystem_error&) {
      continue;  // continues with the others
    }
  }
}

}  // namespace zerbal::pack
