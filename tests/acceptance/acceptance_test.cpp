// Plays every script of this folder on a small world of its own. A script says in its comments what its
// folder is like:
//   # without river.mdb                          the world lacks this file
//   # setting Region CentreWorld 2               the settings file holds this key beforehand
//   # revision RevSchdMain 7.2                   the revision file holds this key beforehand
//   # read-only zerbal.ini                       from this run on the file cannot be written
//   # plays again                                the rest is played by a second run of the program in the
//   same folder
// The splash window does not wait unless a script sets it.
#include <algorithm>
#include <filesystem>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "settings/profile_file.h"
#include "support/drive.h"
#include "support/small_world.h"
#include "support/temp_folder.h"

namespace zerbal::test {
namespace {

namespace fs = std::filesystem;

class Acceptance : public testing::TestWithParam<std::string> {};

void Prepare(const fs::path& folder, const std::string& script) {
  SmallWorld world;
  const fs::path settingsFile = folder / "zerbal.ini";
  const fs::path revisionFile = folder / "app_data" / "zblrev.ini";
  fs::create_directories(revisionFile.parent_path());
  settings::WriteProfileString(settingsFile, "SplashWindow", "SecondsToShow", "0");
  std::istringstream lines(script);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string mark, directive, first, second, value;
    if (!(words >> mark >> directive) || mark != "#")
      continue;
    if (directive == "without" && words >> first)
      world.LeaveOut(first);
    else if (directive == "setting" && words >> first >> second && std::getline(words >> std::ws, value))
      settings::WriteProfileString(settingsFile, first, second, value);
    else if (directive == "revision" && words >> first && std::getline(words >> std::ws, value))
      settings::WriteProfileString(revisionFile, "RevZBL", first, value);
  }
  world.Write(folder);
}

/// Does what a run's script says of files that the runs before have left.
void Protect(const fs::path& folder, const std::string& run) {
  std::istringstream lines(run);
  for (std::string line; std::getline(lines, line);) {
    constexpr std::string_view kReadOnly = "# read-only ";
    if (line.starts_with(kReadOnly))
      fs::permissions(folder / line.substr(kReadOnly.size()), fs::perms::owner_read);
  }
}

/// The script's parts, one for each run of the program.
std::vector<std::string> Runs(const std::string& script) {
  constexpr std::string_view kSeparator = "# plays again\n";
  std::vector<std::string> runs;
  std::size_t begin = 0;
  for (std::size_t end = script.find(kSeparator); end != std::string::npos;
       end = script.find(kSeparator, begin)) {
    runs.push_back(script.substr(begin, end - begin));
    begin = end + kSeparator.size();
  }
  runs.push_back(script.substr(begin));
  return runs;
}

TEST_P(Acceptance, Script) {
  const std::string script = ReadBytes(fs::path(ZERBAL_SCRIPTS) / (GetParam() + ".script"));
  TempFolder folder;
  Prepare(folder.Path(), script);
  for (const std::string& run : Runs(script)) {
    Protect(folder.Path(), run);
    const Played played = Play(run, folder.Path());
    ASSERT_EQ(played.status, 0) << played.reasons;
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
