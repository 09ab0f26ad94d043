// A folder with a small world, its settings file and intact copies of all files.
#pragma once

#include <filesystem>

#include "support/settings_file.h"
#include "support/small_world.h"
#include "support/temp_folder.h"
#include "world_files.h"

namespace zerbal::monkey {

class WorldFolder {
 public:
  WorldFolder() {
    const test::SmallWorld world;
    world.Write(folder_.Path());
    world.Write(folder_ / kIntactCopies);
    DisableSplashWait();
    std::filesystem::copy_file(folder_ / kSettingsFile, folder_ / kIntactCopies / kSettingsFile);
  }
  const std::filesystem::path& Path() const { return folder_.Path(); }
  /// A session may have left a long splash time in the settings file.
  void DisableSplashWait() { test::DisableSplashWait(folder_.Path()); }

  // What has been corrupted so far; remains set when the file is restored.
  bool databasesCorrupted = false;
  bool settingsCorrupted = false;

 private:
  test::TempFolder folder_;
};

}  // namespace zerbal::monkey
