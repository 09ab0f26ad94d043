// A folder with everything the program needs, and whole copies of the files.
#pragma once

#include <filesystem>

#include "settings/profile_file.h"
#include "support/small_world.h"
#include "support/temp_folder.h"
#include "world_files.h"

namespace zerbal::monkey {

class World {
 public:
  World() {
    const test::SmallWorld world;
    world.Write(folder_.Path());
    world.Write(folder_ / kPristine);
    WaitForNoSplash();
    std::filesystem::copy_file(folder_ / kSettingsFile, folder_ / kPristine / kSettingsFile);
  }
  const std::filesystem::path& Path() const { return folder_.Path(); }
  /// The monkey may have asked for a long splash.
  void WaitForNoSplash() {
    settings::WriteProfileString(folder_ / kSettingsFile, "SplashWindow", "SecondsToShow", "0");
  }

  // What has happened to the files so far.
  bool databasesHurt = false;
  bool settingsHurt = false;

 private:
  test::TempFolder folder_;
};

}  // namespace zerbal::monkey
