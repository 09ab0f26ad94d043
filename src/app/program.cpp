#include "app/program.h"

#include "base/find_file.h"

namespace zerbal::app {
namespace {

constexpr char kIniFile[] = "zerbal.ini";

/// The settings file that is there, whatever the letter case of its name, or the one that will be made.
std::filesystem::path IniPath(const std::filesystem::path& appPath) {
  return base::FindFile(appPath, kIniFile).value_or(appPath / kIniFile);
}

}  // namespace

Program::Program(const Environment& outside)
    : environment(outside),
      iniFile(IniPath(environment.appPath), environment.boxes),
      viewport(data::kGridBands) {}

std::filesystem::path WithSeparator(const std::filesystem::path& folder) {
  return folder / "";
}

}  // namespace zerbal::app
