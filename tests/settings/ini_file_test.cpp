#include "settings/ini_file.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "support/recorded_boxes.h"
#include "support/temp_folder.h"

namespace zerbal::settings {
namespace {

class IniFileTest : public testing::Test {
 protected:
  test::TempFolder folder_;
  std::filesystem::path file_ = folder_ / "zerbal.ini";
  test::RecordedBoxes boxes_;
  IniFile ini_{file_, boxes_};
  std::filesystem::path missing_ = folder_ / "no such folder" / "zerbal.ini";
  IniFile unwritable_{missing_, boxes_};
};

TEST(SaveFlags, NothingIsSavedUntilTheFileSaysSo) {
  const SaveFlags flags;
  EXPECT_FALSE(flags.mainWindow || flags.windows || flags.menuEntries);
}

TEST_F(IniFileTest, AMissingKeyIsWrittenWithItsDefault) {
  EXPECT_EQ(ini_.Read(kColours, "Coast", "1"), "1");
  EXPECT_EQ(test::ReadBytes(file_), "[Colors]\r\nCoast=1\r\n");
  EXPECT_EQ(ini_.Read({"colors"}, "coast", "2"), "1");
  EXPECT_TRUE(boxes_.shown.empty());
}

TEST_F(IniFileTest, AFileForReadingOnlyGivesDefaultsAndIsNotWritten) {
  IniFile ini(file_);
  EXPECT_EQ(ini.Read(kSplashSeconds), 2);
  EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(IniFileTest, AnEmptyValueIsFound) {
  test::WriteBytes(file_, "[Fonts]\r\nk=\r\n");
  EXPECT_EQ(ini_.Read(kFonts, "k", "d"), "");
}

TEST_F(IniFileTest, TheSingleCharacter255BehavesAsMissing) {
  test::WriteBytes(file_, "[SplashWindow]\r\nSecondsToShow=\xFF\r\n[Fonts]\r\nk=\xFF\r\nj=\xFF\xFF\r\n");
  EXPECT_EQ(ini_.Find(kSplashSeconds), std::nullopt);
  EXPECT_EQ(ini_.Read(kFonts, "j", "d"), "\xC3\xBF\xC3\xBF");
  EXPECT_EQ(ini_.Read(kFonts, "k", "d"), "d");
  EXPECT_EQ(test::ReadBytes(file_),
            "[SplashWindow]\r\nSecondsToShow=\xFF\r\n[Fonts]\r\nk=d\r\nj=\xFF\xFF\r\n");
}

TEST_F(IniFileTest, AtMost1999CharactersAreRead) {
  test::WriteBytes(file_, "[Fonts]\r\nk=" + std::string(2500, 'x') + "\r\n");
  EXPECT_EQ(ini_.Read(kFonts, "k", "d"), std::string(1999, 'x'));
}

TEST_F(IniFileTest, TextsAreUtf8HereAndCodePage1252InTheFile) {
  constexpr char kKey[] =
      "Gr\xC3\xB6\xC3\x9F"
      "e";
  ini_.Write(kFonts, kKey, "\xE2\x82\xAC \xE6\x97\xA5,7");
  EXPECT_EQ(test::ReadBytes(file_),
            "[Fonts]\r\nGr\xF6\xDF"
            "e=\x80 ?,7\r\n");
  EXPECT_EQ(ini_.Read(kFonts, kKey, ""), "\xE2\x82\xAC ?,7");
}

TEST_F(IniFileTest, AFailedWriteShowsItsBoxEveryTime) {
  unwritable_.Write(kSaveWindows, true);
  EXPECT_EQ(unwritable_.Read(kMainWindowState), std::nullopt);
  const std::string start = "Error during the writing in the file '" + missing_.string() + "'.\r\n";
  ASSERT_EQ(boxes_.shown.size(), 2u);
  EXPECT_EQ(boxes_.shown[0], (test::RecordedBox{BoxIcon::kExclamation,
                                                start + "Section = 'Windows', Entry = 'Save', Value = '1'"}));
  EXPECT_EQ(boxes_.shown[1],
            (test::RecordedBox{BoxIcon::kExclamation,
                               start + "Section = 'MainWindow', Entry = 'State', Value = '0'"}));
}

TEST_F(IniFileTest, AReadOnlyFileIsReadButEveryDefaultShowsItsBox) {
  test::WriteBytes(file_, "[Fonts]\r\nk=1\r\n");
  std::filesystem::permissions(file_, std::filesystem::perms(0444));
  EXPECT_EQ(ini_.Read(kFonts, "k", "2"), "1");
  EXPECT_EQ(ini_.Read(kFonts, "l", "2"), std::nullopt);
  EXPECT_EQ(ini_.Read(kFonts, "m", "3"), std::nullopt);
  EXPECT_EQ(boxes_.shown.size(), 2u);
  EXPECT_EQ(test::ReadBytes(file_), "[Fonts]\r\nk=1\r\n");
}

TEST_F(IniFileTest, FindWritesNothingAndReadWritesTheDefault) {
  EXPECT_EQ(ini_.Find(kSplashSeconds), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(file_));
  EXPECT_EQ(ini_.Read(kSplashSeconds), 2);
  EXPECT_EQ(ini_.Find(kSplashSeconds), 2);
  EXPECT_EQ(test::ReadBytes(file_), "[SplashWindow]\r\nSecondsToShow=2\r\n");
}

TEST_F(IniFileTest, EachTypeOfSettingIsReadAsItWasWritten) {
  ini_.Write(kSaveMainWindow, false);
  ini_.Write(kMainWindowState, 2);
  ini_.Write(kMainWindowPosition, {-7, 12345});
  ini_.Write(kWorldCentreLongitude, -12.5);
  ini_.Write(kColours, "Coast", "1,2,3");
  EXPECT_EQ(test::ReadBytes(file_),
            "[MainWindow]\r\nSave=0\r\nState=2\r\nPosition=-7,12345\r\n[Region]\r\nCentreWorldAtLON=-12.5\r\n"
            "[Colors]\r\nCoast=1,2,3\r\n");
  EXPECT_FALSE(ini_.Read(kSaveMainWindow));
  EXPECT_EQ(ini_.Read(kMainWindowState), 2);
  EXPECT_EQ(ini_.Read(kMainWindowPosition, {0, 0}), std::pair(-7, 12345));
  EXPECT_EQ(ini_.Read(kWorldCentreLongitude), -12.5);
  EXPECT_EQ(ini_.Read(kColours, "Coast", ""), "1,2,3");
}

TEST_F(IniFileTest, ASwitchWhoseDefaultCannotBeWrittenHasItsOtherValue) {
  EXPECT_FALSE(unwritable_.Read(kSaveMainWindow));
  EXPECT_TRUE(unwritable_.Read(kSearchOrigin));
  EXPECT_EQ(unwritable_.Read(kSplashSeconds), std::nullopt);
  EXPECT_EQ(boxes_.shown.size(), 3U);
}

}  // namespace
}  // namespace zerbal::settings
