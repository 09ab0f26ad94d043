#include "zerbal-pack/staged_folders.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace zerbal::pack {
namespace {

namespace fs = std::filesystem;
using zerbal::test::ReadBytes;
using zerbal::test::TempFolder;
using zerbal::test::WriteBytes;

std::set<std::string> Names(const fs::path& folder) {
  std::set<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder))
    names.insert(entry.path().filename().string());
  return names;
}

TEST(StagedFolders, CreateANewFolderAtTheCommit) {
  const TempFolder folder;
  const fs::path target = folder / "new" / "data";
  {
    StagedFolders staged(target, {"a", "b"});
    WriteBytes(staged.WorkFolder() / "a" / "x", "1");
    EXPECT_FALSE(fs::exists(target));
    staged.Commit();
  }
  EXPECT_EQ(Names(folder / "new"), std::set<std::string>{"data"});
  EXPECT_EQ(Names(target), (std::set<std::string>{"a", "b"}));
  EXPECT_EQ(ReadBytes(target / "a" / "x"), "1");
}

TEST(StagedFolders, LeaveNothingWithoutACommit) {
  const TempFolder folder;
  { const StagedFolders staged(folder / "data", {"a"}); }
  EXPECT_EQ(Names(folder.Path()), std::set<std::string>{});
}

TEST(StagedFolders, ReplaceOldFoldersAndKeepTheOthers) {
  const TempFolder folder;
  fs::create_directories(folder / "a");
  WriteBytes(folder / "a" / "old", "0");
  WriteBytes(folder / "settings", "kept");
  {
    StagedFolders staged(folder.Path(), {"a", "b"});
    WriteBytes(staged.WorkFolder() / "a" / "new", "1");
    EXPECT_EQ(Names(folder / "a"), std::set<std::string>{"old"});
    staged.Commit();
  }
  EXPECT_EQ(Names(folder.Path()), (std::set<std::string>{"a", "b", "settings"}));
  EXPECT_EQ(Names(folder / "a"), std::set<std::string>{"new"});
  EXPECT_EQ(ReadBytes(folder / "settings"), "kept");
}

TEST(StagedFolders, RestoreEverythingWhenOneCannotBeReplaced) {
  const TempFolder folder;
  fs::create_directories(folder / "a");
  WriteBytes(folder / "a" / "old", "0");
  {
    StagedFolders staged(folder.Path(), {"a", "b"});
    WriteBytes(staged.WorkFolder() / "a" / "new", "1");
    fs::remove_all(staged.WorkFolder() / "b");  // so that the second step fails
    EXPECT_THROW(staged.Commit(), fs::filesystem_error);
  }
  EXPECT_EQ(Names(folder.Path()), std::set<std::string>{"a"});
  EXPECT_EQ(Names(folder / "a"), std::set<std::string>{"old"});
}

TEST(StagedFolders, AcceptATargetThatEndsWithASlash) {
  const TempFolder folder;
  {
    StagedFolders staged(folder / "data" / "", {"a"});
    staged.Commit();
  }
  EXPECT_EQ(Names(folder.Path()), std::set<std::string>{"data"});
}

}  // namespace
}  // namespace zerbal::pack
