#include "app/program_state.h"

#include "base/find_file.h"

namespace zerbal::app {
namespace {

constexpr char kIniFile[] = "zerbal.ini";

/// The settings file that exists, whatever the letter case of its name, or the one that will be made.
std::filesystem::path IniPath(const std::filesystem::path& appPath) {
  return base::FindFile(appPath, kIniFile).value_or(appPath / kIniFile);
}

}  // namespace

SettingsFile::SettingsFile(const std::filesystem::path& appPath, settings::MessageBoxes& boxes)
    : ini(IniPath(appPath), boxes) {}

std::filesystem::path WithSeparator(const std::filesystem::path& folder) {
  return folder / "";
}

}  // namespace zerbal::app
