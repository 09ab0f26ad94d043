#include "settings/ini_values.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "support/recorded_boxes.h"
#include "support/temp_folder.h"

namespace zerbal::settings {
namespace {

class IniValuesTest : public testing::Test {
 protected:
  test::TempFolder folder_;
  std::filesystem::path file_ = folder_ / "zerbal.ini";
  test::RecordedBoxes boxes_;
  IniValues values_{boxes_};
};

TEST_F(IniValuesTest, AMissingKeyIsWrittenWithItsDefault) {
  EXPECT_EQ(values_.ReadIniValue(file_, "Region", "CentreWorld", "1"), "1");
  EXPECT_EQ(test::ReadBytes(file_), "[Region]\r\nCentreWorld=1\r\n");
  EXPECT_EQ(values_.ReadIniValue(file_, "region", "centreworld", "2"), "1");
  EXPECT_TRUE(boxes_.shown.empty());
}

TEST_F(IniValuesTest, WithoutADefaultAMissingKeyIsNotAnErrorAndWritesNothing) {
  EXPECT_EQ(values_.ReadIniValue(file_, "Windows", "MapSettings"), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(file_));
  EXPECT_TRUE(boxes_.shown.empty());
}

TEST_F(IniValuesTest, AnEmptyValueIsFound) {
  test::WriteBytes(file_, "[s]\r\nk=\r\n");
  EXPECT_EQ(values_.ReadIniValue(file_, "s", "k", "d"), "");
}

TEST_F(IniValuesTest, TheSingleCharacter255BehavesAsMissing) {
  test::WriteBytes(file_, "[s]\r\nk=\xFF\r\nj=\xFF\xFF\r\n");
  EXPECT_EQ(values_.ReadIniValue(file_, "s", "k"), std::nullopt);
  EXPECT_EQ(values_.ReadIniValue(file_, "s", "j"), "\xC3\xBF\xC3\xBF");
  EXPECT_EQ(values_.ReadIniValue(file_, "s", "k", "d"), "d");
  EXPECT_EQ(test::ReadBytes(file_), "[s]\r\nk=d\r\nj=\xFF\xFF\r\n");
}

TEST_F(IniValuesTest, AtMost1999CharactersAreRead) {
  test::WriteBytes(file_, "[s]\r\nk=" + std::string(2500, 'x') + "\r\n");
  EXPECT_EQ(values_.ReadIniValue(file_, "s", "k", "d"), std::string(1999, 'x'));
}

TEST_F(IniValuesTest, TextsAreUtf8HereAndCodePage1252InTheFile) {
  EXPECT_TRUE(values_.WriteIniValue(file_, "Fonts",
                                    "Gr\xC3\xB6\xC3\x9F"
                                    "e",
                                    "\xE2\x82\xAC \xE6\x97\xA5,7"));
  EXPECT_EQ(test::ReadBytes(file_),
            "[Fonts]\r\nGr\xF6\xDF"
            "e=\x80 ?,7\r\n");
  EXPECT_EQ(values_.ReadIniValue(file_, "Fonts",
                                 "Gr\xC3\xB6\xC3\x9F"
                                 "e"),
            "\xE2\x82\xAC ?,7");
}

TEST_F(IniValuesTest, AFailedWriteShowsItsBoxEveryTime) {
  const std::filesystem::path file = folder_ / "no such folder" / "zerbal.ini";
  EXPECT_FALSE(values_.WriteIniValue(file, "Windows", "Save", "1"));
  EXPECT_EQ(values_.ReadIniValue(file, "MainWindow", "State", "0"), std::nullopt);
  const std::string start = "Error during the writing in the file '" + file.string() + "'.\r\n";
  ASSERT_EQ(boxes_.shown.size(), 2u);
  EXPECT_EQ(boxes_.shown[0], (test::RecordedBox{BoxIcon::kExclamation,
                                                start + "Section = 'Windows', Entry = 'Save', Value = '1'"}));
  EXPECT_EQ(boxes_.shown[1],
            (test::RecordedBox{BoxIcon::kExclamation,
                               start + "Section = 'MainWindow', Entry = 'State', Value = '0'"}));
}

TEST_F(IniValuesTest, AReadOnlyFileIsReadButEveryDefaultShowsItsBox) {
  test::WriteBytes(file_, "[a]\r\nk=1\r\n");
  std::filesystem::permissions(file_, std::filesystem::perms(0444));
  EXPECT_EQ(values_.ReadIniValue(file_, "a", "k", "2"), "1");
  EXPECT_EQ(values_.ReadIniValue(file_, "a", "l", "2"), std::nullopt);
  EXPECT_EQ(values_.ReadIniValue(file_, "a", "m", "3"), std::nullopt);
  EXPECT_EQ(boxes_.shown.size(), 2u);
  EXPECT_EQ(test::ReadBytes(file_), "[a]\r\nk=1\r\n");
}

TEST_F(IniValuesTest, FindWritesNothingAndReadWritesTheDefault) {
  IniFile ini(file_, values_);
  EXPECT_EQ(ini.Path(), file_);
  EXPECT_EQ(ini.Find(kSplashSeconds), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(file_));
  EXPECT_EQ(ini.Read(kSplashSeconds), 2);
  EXPECT_EQ(ini.Find(kSplashSeconds), 2);
  EXPECT_EQ(test::ReadBytes(file_), "[SplashWindow]\r\nSecondsToShow=2\r\n");
}

TEST_F(IniValuesTest, EachTypeOfSettingIsReadAsItWasWritten) {
  IniFile ini(file_, values_);
  ini.Write(kSaveMainWindow, false);
  ini.Write(kMainWindowState, 2);
  ini.Write(kMainWindowPosition, {-7, 12345});
  ini.Write(kWorldCentreLongitude, -12.5);
  ini.Write(kColours, "Coast", "1,2,3");
  EXPECT_EQ(test::ReadBytes(file_),
            "[MainWindow]\r\nSave=0\r\nState=2\r\nPosition=-7,12345\r\n[Region]\r\nCentreWorldAtLON=-12.5\r\n"
            "[Colors]\r\nCoast=1,2,3\r\n");
  EXPECT_FALSE(ini.Read(kSaveMainWindow));
  EXPECT_EQ(ini.Read(kMainWindowState), 2);
  EXPECT_EQ(ini.Read(kMainWindowPosition, {0, 0}), std::pair(-7, 12345));
  EXPECT_EQ(ini.Read(kWorldCentreLongitude), -12.5);
  EXPECT_EQ(ini.Read(kColours, "Coast", ""), "1,2,3");
}

TEST_F(IniValuesTest, ASwitchWhoseDefaultCannotBeWrittenHasItsOtherValue) {
  IniFile ini(folder_ / "no such folder" / "zerbal.ini", values_);
  EXPECT_FALSE(ini.Read(kSaveMainWindow));
  EXPECT_TRUE(ini.Read(kSearchOrigin));
  EXPECT_EQ(ini.Read(kSplashSeconds), std::nullopt);
  EXPECT_EQ(boxes_.shown.size(), 3U);
}

}  // namespace
}  // namespace zerbal::settings
