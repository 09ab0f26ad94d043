// Plays every script of this folder in a folder of its own; script_directives.h explains the directives.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <vector>

#include <gtest/gtest.h>

#include "script_directives.h"
#include "settings/profile_file.h"
#include "support/drive.h"
#include "support/settings_file.h"
#include "support/temp_folder.h"

namespace zerbal::test {
namespace {

namespace fs = std::filesystem;

class Acceptance : public testing::TestWithParam<std::string> {};

void WriteSettings(const fs::path& file, const std::vector<SettingDirective>& settings) {
  fs::create_directories(file.parent_path());
  for (const SettingDirective& setting : settings)
    settings::WriteProfileString(file, setting.section, setting.key, setting.value);
}

void PrepareFolder(const AcceptanceScript& script, const fs::path& folder) {
  DisableSplashWait(folder);
  WriteSettings(folder / kSettingsFile, script.settings);
  WriteSettings(folder / "app_data" / "zblrev.ini", script.revisions);
  script.world.Write(folder);
}

std::string WithFolder(std::string commands, const fs::path& folder) {
  constexpr std::string_view kFolder = "FOLDER";
  const std::string path = fs::canonical(folder).string();
  for (std::size_t at = commands.find(kFolder); at != std::string::npos; at = commands.find(kFolder, at))
    commands.replace(at, kFolder.size(), path);
  return commands;
}

void PlayRun(const ScriptRun& run, const fs::path& folder) {
  for (const std::string& file : run.readOnlyFiles)
    fs::permissions(folder / file, fs::perms::owner_read);
  const auto begin = std::chrono::steady_clock::now();
  const Played played = Play(WithFolder(run.commands, folder), folder);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
  ASSERT_EQ(played.status, run.exitStatus) << played.reasons;
  EXPECT_GE(taken.count(), run.minimumSeconds);
}

TEST_P(Acceptance, Script) {
  const fs::path file = fs::path(ZERBAL_SCRIPTS) / (GetParam() + ".script");
  TempFolder folder;
  try {
    const AcceptanceScript script = ParseScript(ReadBytes(file));
    PrepareFolder(script, folder.Path());
    for (const ScriptRun& run : script.runs)
      ASSERT_NO_FATAL_FAILURE(PlayRun(run, folder.Path()));
  } catch (const ScriptError& error) {
    ADD_FAILURE_AT(file.c_str(), error.Line()) << error.what();
  }
}

std::vector<std::string> ScriptNames() {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(ZERBAL_SCRIPTS)) {
    if (entry.path().extension() == ".script")
      names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

INSTANTIATE_TEST_SUITE_P(Scripts, Acceptance, testing::ValuesIn(ScriptNames()),
                         [](const auto& script) { return script.param; });

}  // namespace
}  // namespace zerbal::test
