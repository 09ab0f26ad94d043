#include "base/find_file.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace zerbal::base {
namespace {

namespace fs = std::filesystem;

TEST(FindFile, IgnoresLetterCaseInEveryPart) {
  const test::TempFolder folder;
  fs::create_directory(folder / "App_Data");
  test::WriteBytes(folder / "App_Data" / "ZBLDATA.MDB", "x");
  EXPECT_EQ(FindFile(folder.Path(), "app_data/zbldata.mdb"), folder / "App_Data" / "ZBLDATA.MDB");
  EXPECT_EQ(FindFile(folder.Path(), "app_data/coast.mdb"), std::nullopt);
  EXPECT_EQ(FindFile(folder.Path(), "app_map/zbldata.mdb"), std::nullopt);
}

TEST(FindFile, PrefersTheExactSpellingThenByteOrder) {
  const test::TempFolder folder;
  test::WriteBytes(folder / "a.INI", "");
  test::WriteBytes(folder / "A.ini", "");
  EXPECT_EQ(FindFile(folder.Path(), "a.ini"), folder / "A.ini");
  test::WriteBytes(folder / "a.ini", "");
  EXPECT_EQ(FindFile(folder.Path(), "a.ini"), folder / "a.ini");
}

TEST(FindFile, SearchesAllFoldersThatMatch) {
  const test::TempFolder folder;
  fs::create_directory(folder / "app_map");
  fs::create_directory(folder / "APP_MAP");
  test::WriteBytes(folder / "APP_MAP" / "coast.mdb", "x");
  EXPECT_EQ(FindFile(folder.Path(), "app_map/coast.mdb"), folder / "APP_MAP" / "coast.mdb");
}

TEST(FindFile, DoesNotFindAFolder) {
  const test::TempFolder folder;
  fs::create_directory(folder / "coast.mdb");
  EXPECT_EQ(FindFile(folder.Path(), "coast.mdb"), std::nullopt);
  EXPECT_EQ(FindFile(folder.Path(), ""), std::nullopt);
  EXPECT_EQ(FindFile(folder / "none", "coast.mdb"), std::nullopt);
  fs::create_symlink("nowhere", folder / "zerbal.ini");
  EXPECT_EQ(FindFile(folder.Path(), "zerbal.ini"), std::nullopt);
}

}  // namespace
}  // namespace zerbal::base
