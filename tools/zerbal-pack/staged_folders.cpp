#include "zerbal-pack/staged_folders.h"

#include <exception>
#include <new>
#include <system_error>
#include <utility>

#include "base/folder_names.h"
#include "base/path_text.h"
#include "zerbal-pack/folder_steps.h"

namespace zerbal::pack {

namespace fs = std::filesystem;

namespace {

/// As far as possible. Throws std::bad_alloc, with which std::filesystem::remove_all ends the program.
void RemoveAll(const fs::path& path) {
  std::error_code ignored;
  if (fs::is_directory(fs::symlink_status(path, ignored))) {
    for (const std::string& name : base::NamesInFolder(path))
      RemoveAll(path / base::PathOf(name));
  }
  fs::remove(path, ignored);
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
    work_ = MakeWorkFolder(target_.parent_path() / base::PathOf("." + target_.filename().string() + "-"));
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

/// When there is no memory for it, it is tried once more: the rest of the build may be freed by then.
void StagedFolders::RemoveWorkFolder() noexcept {
  for (int i = 0; i < 2 && !work_.empty(); ++i) {
    try {
      RemoveAll(work_);
      return;
    } catch (const std::bad_alloc&) {
      continue;
    }
  }
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
    ExchangeFolders(work_ / name, target_ / name);
  else
    fs::rename(work_ / name, target_ / name);
}

/// Undoes the first `count` swaps.
void StagedFolders::SwapBack(std::size_t count) noexcept {
  for (std::size_t i = 0; i < count; ++i) {
    try {
      if (fs::exists(work_ / names_[i]))
        ExchangeFolders(work_ / names_[i], target_ / names_[i]);
      else
        fs::rename(target_ / names_[i], work_ / names_[i]);
    } catch (const std::exception&) {
      continue;  // continues with the others
    }
  }
}

}  // namespace zerbal::pack
