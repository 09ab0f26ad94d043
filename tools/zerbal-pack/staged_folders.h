// Replaces several sub-folders of a folder, all or none.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zerbal::pack {

/// New sub-folders of `target`, made in a temporary folder on the same file system and moved to their places
/// by Commit(). A target that does not exist yet appears complete. Without Commit() nothing changes. Failures
/// are std::filesystem::filesystem_error.
class StagedFolders {
 public:
  StagedFolders(const std::filesystem::path& target, std::vector<std::string> names);
  ~StagedFolders();
  StagedFolders(const StagedFolders&) = delete;
  StagedFolders& operator=(const StagedFolders&) = delete;

  /// Contains the new sub-folders, which are empty at first.
  const std::filesystem::path& WorkFolder() const { return work_; }

  /// Puts the new sub-folders in place of the old ones, which are removed.
  void Commit();

 private:
  void Swap(const std::string& name);
  void SwapBack(std::size_t count) noexcept;
  void RemoveWorkFolder() noexcept;

  std::filesystem::path target_;
  std::vector<std::string> names_;
  bool targetExisted_ = false;
  std::filesystem::path work_;
};

}  // namespace zerbal::pack
