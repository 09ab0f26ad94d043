#include "base/folder_names.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "base/path_text.h"
#include "support/temp_folder.h"

namespace zerbal::base {
namespace {

using test::TempFolder;
using test::WriteBytes;

TEST(FolderNames, AreThoseOfFilesAndFolders) {
  const TempFolder folder;
  EXPECT_TRUE(NamesInFolder(folder.Path()).empty());
  WriteBytes(folder / "file", "");
  WriteBytes(folder / PathOf(".hidden \xC3\xBC"), "");
  std::filesystem::create_directory(folder / "folder");
  WriteBytes(folder / "folder" / "below", "");
  std::vector<std::string> names = NamesInFolder(folder.Path());
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (std::vector<std::string>{".hidden \xC3\xBC", "file", "folder"}));
}

TEST(FolderNames, AreNoneWhereThereIsNoFolder) {
  const TempFolder folder;
  WriteBytes(folder / "file", "");
  EXPECT_TRUE(NamesInFolder(folder / "file").empty());
  EXPECT_TRUE(NamesInFolder(folder / "missing").empty());
}

}  // namespace
}  // namespace zerbal::base
