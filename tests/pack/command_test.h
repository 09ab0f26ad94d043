// Runs commands on files of a temporary folder.
#pragma once

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/temp_folder.h"
#include "zerbal-pack/run.h"

namespace zerbal::pack::test {

class CommandTest : public testing::Test {
 protected:
  int Run(const std::vector<std::string>& words) {
    out.str("");
    err.str("");
    return RunPack(words, {.out = out, .err = err, .executable = executable, .interrupted = [this] {
                             return interrupted;
                           }});
  }

  std::string Name(const std::string& name) const { return (folder / name).string(); }

  /// The messages, with the names of files from the folder on.
  std::string Err() const {
    std::string text = err.str();
    const std::string name = (folder.Path() / "").string();
    for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name))
      text.erase(at, name.size());
    return text;
  }

  zerbal::test::TempFolder folder;
  std::filesystem::path executable;
  bool interrupted = false;
  std::ostringstream out, err;
};

}  // namespace zerbal::pack::test
