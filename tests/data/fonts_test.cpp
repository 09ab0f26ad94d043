#include "data/fonts.h"

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "sample_databases.h"
#include "settings_fixture.h"
#include "some_tables.h"

namespace zerbal::data {
namespace {

class FontsTest : public SettingsTest {};

TEST_F(FontsTest, RulesAreInTheOrderOfTheirNames) {
  for (std::size_t i = 0; i < kFontRules.size(); ++i)
    EXPECT_EQ(static_cast<std::size_t>(kFontRules[i].font), i);
}

TEST_F(FontsTest, FontsAreFoundByCode) {
  WriteTable(test::FonTable(
      {{"HIRES", "Arial", 8, "HighResolution"}, {"LORES", "Small Fonts", 7, "LowResolution"}}));
  const FontTable fonts = LoadFonts(zbldata_);
  EXPECT_EQ(fonts[FontCode::kLoRes].name, "Small Fonts");
  EXPECT_EQ(fonts[FontCode::kLoRes].size, 7);
  EXPECT_EQ(fonts[FontCode::kLoRes].entry, "LowResolution");
  EXPECT_EQ(fonts[FontCode::kHiRes].name, "Arial");
}

TEST_F(FontsTest, MissingFontsAreListedInOneError) {
  WriteTable(test::FonTable({}));
  EXPECT_EQ(WordsOf([&] { LoadFonts(zbldata_); }),
            "Fonts are missing in the table for:\r\nCode = LORES\r\nCode = HIRES\r\n\r\nThe program aborts.");
}

struct FontCase {
  const char* value;
  const char* name;
  int lowSize;
  int highSize;
};

TEST_F(FontsTest, FontsAreCheckedAgainstTheInstalledOnesAndTheSizes) {
  const std::array<FontCase, 15> cases = {{{"arial,16", "arial", 7, 8},
                                           {"\xF6KO,8", "\xC3\xB6KO", 8, 8},
                                           {"VERDANA,6", "VERDANA", 6, 6},
                                           {"Courier New,14", "Courier New", 14, 14},
                                           {"Verdana,15", "Verdana", 7, 8},
                                           {"Verdana,5", "Verdana", 7, 8},
                                           {"Verdana,5.6", "Verdana", 6, 6},
                                           {"Verdana,14.5", "Verdana", 14, 14},
                                           {"Verdana,-9", "Verdana", 7, 8},
                                           {"Verdana,x", "Verdana", 7, 8},
                                           {"Verdana", "Verdana", 7, 8},
                                           {"Verdana,99999999999", "Verdana", 7, 8},
                                           {"Wingbats,9", "Arial", 9, 9},
                                           {"", "Arial", 7, 8},
                                           {",,", "Arial", 7, 8}}};
  for (const FontCase& c : cases) {
    const std::string value = c.value;
    Write("[Fonts]\r\nLowResolution=" + value + "\r\nHighResolution=" + value + "\r\n");
    FontTable fonts = SomeFonts();
    ASSERT_TRUE(ReadFontSettings(ini_, fonts, kInstalled));
    for (const Font& font : fonts.rows)
      EXPECT_EQ(font.name, c.name) << value;
    EXPECT_EQ(fonts[FontCode::kLoRes].size, c.lowSize) << value;
    EXPECT_EQ(fonts[FontCode::kHiRes].size, c.highSize) << value;
  }
}

}  // namespace
}  // namespace zerbal::data
