// The settings file of a program under test.
#pragma once

#include <filesystem>

#include "settings/profile_file.h"

namespace zerbal::test {

/// In the program's folder.
inline const std::filesystem::path kSettingsFile = "zerbal.ini";

/// Sets the splash time to 0, so that a test does not wait for it.
inline void DisableSplashWait(const std::filesystem::path& folder) {
  settings::WriteProfileString(folder / kSettingsFile, "SplashWindow", "SecondsToShow", "0");
}

}  // namespace zerbal::test
