// Plays every script of this folder on a small world of its own. A script says in its comments what its
// folder is like:
//   # without river.mdb                          the world lacks this file
//   # lacks col Col RIVER                        the table lacks the row with this value
//   # empty fsrv                                 the table has no rows
//   # setting Region CentreWorld 2               the settings file holds this key beforehand
//   # revision RevSchdMain 7.2                   the revision file holds this key beforehand
//   # read-only zerbal.ini                       from this run on the file cannot be written
//   # lasts 2                                    this run takes so many seconds or longer
//   # ends with 3                                the driver's exit status in place of 0
//   # plays again                                the rest is played by a second run in the same folder
// The word FOLDER stands for the folder's path. The splash window does not wait unless a script sets it.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <sstream>
#include <stdexcept>
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

Table& TableOf(SmallWorld& world, std::string_view name) {
  for (Table* table :
       {&world.col, &world.fon, &world.reg, &world.fsrv, &world.dest, &world.flit, &world.allaprt}) {
    if (table->name == name)
      return *table;
  }
  throw std::logic_error("no table " + std::string(name));
}

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
    else if (directive == "lacks" && words >> first >> second >> value)
      TableOf(world, first).RemoveRow(second, value);
    else if (directive == "empty" && words >> first)
      TableOf(world, first).rows.clear();
    else if (directive == "setting" && words >> first >> second && std::getline(words >> std::ws, value))
      settings::WriteProfileString(settingsFile, first, second, value);
    else if (directive == "revision" && words >> first && std::getline(words >> std::ws, value))
      settings::WriteProfileString(revisionFile, "RevZBL", first, value);
  }
  world.Write(folder);
}

/// What follows `directive` in each comment of a run's script that begins with it.
std::vector<std::string> Directives(const std::string& run, const std::string& directive) {
  std::vector<std::string> values;
  const std::string begin = "# " + directive + " ";
  std::istringstream lines(run);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(begin))
      values.push_back(line.substr(begin.size()));
  }
  return values;
}

std::string WithFolder(std::string script, const fs::path& folder) {
  constexpr std::string_view kFolder = "FOLDER";
  const std::string path = fs::canonical(folder).string();
  for (std::size_t at = script.find(kFolder); at != std::string::npos; at = script.find(kFolder, at))
    script.replace(at, kFolder.size(), path);
  return script;
}

void PlayRun(const std::string& run, const fs::path& folder) {
  for (const std::string& file : Directives(run, "read-only"))
    fs::permissions(folder / file, fs::perms::owner_read);
  int status = 0;
  for (const std::string& value : Directives(run, "ends with"))
    status = std::stoi(value);
  const auto begin = std::chrono::steady_clock::now();
  const Played played = Play(WithFolder(run, folder), folder);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
  ASSERT_EQ(played.status, status) << played.reasons;
  for (const std::string& seconds : Directives(run, "lasts"))
    EXPECT_GE(taken.count(), std::stod(seconds));
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
  for (const std::string& run : Runs(script))
    ASSERT_NO_FATAL_FAILURE(PlayRun(run, folder.Path()));
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
