// Names and states of files that only Windows has.
#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "base/error.h"
#include "base/file_replacement.h"
#include "base/find_file.h"
#include "base/path_text.h"
#include "base/temporary_files.h"
#include "base/windows_calls.h"
#include "support/temp_folder.h"

namespace zerbal::base {
namespace {

namespace fs = std::filesystem;

/// Replaces and reads the file as the program does.
void ExpectGoodName(const fs::path& file) {
  for (const char* contents : {"first", "second"}) {
    FileReplacement replacement(file);
    replacement.Write(contents);
    replacement.Commit();
    EXPECT_EQ(ReadFile(file), contents) << file.string();
  }
}

TEST(WindowsPaths, AreUtf8InTexts) {
  const std::string text = "Z\xC3\xBCrich \xC5\x81\xC3\xB3\x64\xC5\xBA \xE6\x9D\xB1.txt";
  EXPECT_EQ(PathOf(text).string(), text);
  EXPECT_EQ(PathOf(text).native(), L"Z\u00FCrich \u0141\u00F3d\u017A \u6771.txt");
}

TEST(WindowsPaths, MayHoldSpacesAndLettersOfAnyScript) {
  const test::TempFolder folder;
  for (const char* name : {"a b.txt", "\xC3\xBCml\xC3\xA4ut.txt", "\xC5\x81\xC3\xB3\x64\xC5\xBA.txt",
                           "\xE6\x9D\xB1.txt", "#%&=;.txt"})
    ExpectGoodName(folder / PathOf(name));
}

TEST(WindowsPaths, BeginWithADriveOrNot) {
  const test::TempFolder folder;
  ASSERT_TRUE(folder.Path().has_root_name());
  std::string slashes = (folder / "slashes.txt").string();
  for (char& c : slashes) {
    if (c == '\\')
      c = '/';
  }
  ExpectGoodName(PathOf(slashes));
  const fs::path before = fs::current_path();
  fs::current_path(folder.Path());
  ExpectGoodName("relative.txt");
  ExpectGoodName(fs::path(folder.Path().root_name()) += "relative to the drive.txt");
  ExpectGoodName(folder.Path().root_name().empty() ? ""
                                                   : fs::path("\\") / (folder / "root.txt").relative_path());
  fs::current_path(before);
  EXPECT_EQ(
      test::NamesIn(folder.Path()),
      (std::vector<std::string>{"relative to the drive.txt", "relative.txt", "root.txt", "slashes.txt"}));
}

TEST(WindowsPaths, MayBeLong) {
  const test::TempFolder folder;
  fs::path deep = folder.Path();
  while (deep.native().size() < 400) {
    deep /= std::string(40, 'd');
    ASSERT_NE(CreateDirectoryW(SystemPath(deep).c_str(), nullptr), 0);
  }
  ExpectGoodName(deep / "file.txt");
  EXPECT_EQ(SystemPath(deep).substr(0, 4), LR"(\\?\)");
  EXPECT_EQ(SystemPath(folder.Path()), folder.Path().native());
  const std::wstring share = LR"(\\server\share\)" + std::wstring(300, L'x');
  EXPECT_EQ(SystemPath(share), LR"(\\?\UNC\server\share\)" + std::wstring(300, L'x'));
}

TEST(WindowsFiles, AreFoundInAnyLetterCase) {
  const test::TempFolder folder;
  fs::create_directory(folder / "App_Data");
  test::WriteBytes(folder / "App_Data" / "ZBLDATA.MDB", "x");
  const auto found = FindFile(folder.Path(), "app_data/zbldata.mdb");
  ASSERT_TRUE(found);
  EXPECT_EQ(test::ReadBytes(*found), "x");
}

TEST(WindowsFiles, ReadOnlyOnesAreNotReplacedForTheUser) {
  const test::TempFolder folder;
  test::WriteBytes(folder / "file", "old");
  SetFileAttributesW((folder / "file").c_str(), FILE_ATTRIBUTE_READONLY);
  try {
    FileReplacement::OfUserFile(folder / "file");
    ADD_FAILURE() << "a protected file";
  } catch (const FileError& error) {
    EXPECT_EQ(error.Reason(), "cannot write the file: Permission denied");
  }
  SetFileAttributesW((folder / "file").c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(test::ReadBytes(folder / "file"), "old");
}

/// As the handler of console events does.
TEST(WindowsFiles, OpenTemporaryOnesCanBeRemoved) {
  const test::TempFolder folder;
  test::WriteBytes(folder / "file", "old");
  {
    FileReplacement replacement(folder / "file");
    replacement.Write("new");
    EXPECT_EQ(test::NamesIn(folder.Path()).size(), 2u);
    ForEachTemporaryFile([](const PathChar* path) { EXPECT_NE(DeleteFileW(SystemPath(path).c_str()), 0); });
  }
  EXPECT_EQ(test::NamesIn(folder.Path()), std::vector<std::string>{"file"});
  EXPECT_EQ(test::ReadBytes(folder / "file"), "old");
}

TEST(WindowsFiles, DevicesAndFoldersAreNotReplaced) {
  const test::TempFolder folder;
  for (const fs::path& path : {fs::path("NUL"), folder.Path()}) {
    EXPECT_THROW(FileReplacement::OfUserFile(path), FileError) << path.string();
    EXPECT_EQ(ReadFile(path), std::nullopt) << path.string();
  }
}

}  // namespace
}  // namespace zerbal::base
