#include "zerbal-pack/staged_folders.h"

#include <system_error>
#include <utility>

#include "base/path_text.h"
#include "zerbal-pack/folder_steps.h"

namespace zerbal::pack {

namespace fs = std::filesystem;

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
    } catch (const fs::filesystem_error&) {
      continue;  // continues with the others
    }
  }
}

}  // namespace zerbal::pack
