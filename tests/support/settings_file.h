// The settings file of a program under test.
#pragma once

#include <filesystem>

#include "settings/catalogue.h"
#include "settings/profile_file.h"

namespace zerbal::test {

/// In the program's folder.
inline const std::filesystem::path kSettingsFile = "zerbal.ini";

/// Sets the splash time to 0, so that a test does not wait for it.
inline void DisableSplashWait(const std::filesystem::path& folder) {
  const auto [section, key] = settings::kSplashSeconds.key;
  settings::WriteProfileString(folder / kSettingsFile, section, key, "0");
}

}  // namespace zerbal::test
